// SPDX-License-Identifier: MIT
// A run of the window while calls fail.
#include "UI/Run/RunRescue.h"
#include "tests/support/Await.h"
#include "tests/system/Desk.h"

#include <fstream>
#include <optional>

namespace {

using namespace desk;

constexpr std::chrono::seconds kStandstill{RunRescue::kStandstill};

// The call of that kind with that number fails, counted from the start of the update; 0: none does.
struct Failure {
    const char* call = "alloc";
    unsigned long at = 0;
    bool andLaterOnes = false;
};

void PrintTo(const Failure& failure, std::ostream* out)
{
    *out << failure.call << ' ' << failure.at << (failure.andLaterOnes ? " and later ones" : "");
}

class WindowRun : public testing::Test {
protected:
    struct End {
        int exitCode = 0;
        std::string title; // its key, of the message at the end
        unsigned long calls = 0;
        bool isUpdated = false; // the printer has every byte
    };

    End update(const Failure& failure)
    {
        m_printer.emplace(
            std::vector<std::string>{"--firmware", "MAIN=AB010100", "--status-query"});
        const TempFolder folder;
        const auto count = folder / "count";
        Process::Environment environment{"LD_PRELOAD=" FAILING_CALLS,
                                         std::string("FAILING_CALL=") + failure.call,
                                         "FAILING_AT=" + std::to_string(failure.at),
                                         "FAILING_LATE=1",
                                         "FAILING_COUNT=" + count,
                                         "XDG_STATE_HOME=" + folder.path().string(),
                                         "DBUS_SYSTEM_BUS_ADDRESS=unix:path=/nowhere"};
        if (failure.andLaterOnes)
            environment.emplace_back("FAILING_ALWAYS=1");
        Process window({FAILING_WINDOW, m_package.path(), m_printer->address()}, environment);
        End end;
        end.exitCode = window.wait(kSoon + 2 * kStandstill); // the toolkit may stand still
        EXPECT_NE(end.exitCode, -1) << "it hangs";
        end.title = window.out().substr(0, window.out().find('\n'));
        std::ifstream(count) >> end.calls;
        end.isUpdated = m_printer->stored("MAIN.FW") == m_package.bytesOf(0);
        return end;
    }

    // Whether the last request that the printer got, if any, was to leave download mode. A window
    // that crashed has not waited until the printer took it up.
    [[nodiscard]] testing::AssertionResult isPrinterLeft(const End& end) const
    {
        const auto isLeft = [&] {
            const auto lines = m_printer->transcript();
            const auto last = lines.rfind("\tin\t");
            return last == std::string::npos || lines.compare(last + 4, 6, "0x5102") == 0;
        };
        return (becomesTrue(isLeft, kSoon) ? testing::AssertionSuccess()
                                           : testing::AssertionFailure())
            << "exit " << end.exitCode << '\n'
            << m_printer->transcript();
    }

private:
    PackageFolder m_package{{Firmware{}}};
    std::optional<VirtualPrinter> m_printer; // of the last run
};

constexpr unsigned long kTurns = 4; // tests side by side, each with every fourth failure

class WindowRunWithoutMemory : public WindowRun,
                               public testing::WithParamInterface<unsigned long> { };

class WindowRunWithAFailingCall : public WindowRun,
                                  public testing::WithParamInterface<const char*> { };

} // namespace

// The toolkit does not survive that everywhere. Whatever becomes of the window, no firmware is cut.
TEST_P(WindowRunWithoutMemory, LeavesThePrinterInOrder)
{
    const auto sound = update({});
    EXPECT_TRUE(sound.isUpdated && isPrinterLeft(sound));
    ASSERT_GT(sound.calls, 300U);
    constexpr unsigned long kStep = 80;
    for (auto at = 1 + GetParam() * kStep; at < sound.calls; at += kTurns * kStep) {
        for (const bool andLaterOnes : {false, true}) {
            const Failure failure{"alloc", at, andLaterOnes};
            EXPECT_TRUE(isPrinterLeft(update(failure))) << testing::PrintToString(failure);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Turns, WindowRunWithoutMemory, testing::Range(0UL, kTurns));

TEST_P(WindowRunWithAFailingCall, EndsWithAMessageThatIsTrue)
{
    for (const auto& [at, andLaterOnes] : {std::pair(2UL, false), std::pair(7UL, true)}) {
        const Failure failure{GetParam(), at, andLaterOnes};
        const auto end = update(failure);
        SCOPED_TRACE(testing::PrintToString(failure));
        EXPECT_EQ(end.exitCode, 0);
        EXPECT_NE(end.title, "");
        EXPECT_EQ(end.title == "NormalEndTitle", end.isUpdated) << end.title;
    }
}

INSTANTIATE_TEST_SUITE_P(Each, WindowRunWithAFailingCall,
                         testing::Values("open", "read", "write", "poll", "connect", "send", "recv",
                                         "pread", "thread", "event"),
                         [](const auto& call) { return std::string(call.param); });
