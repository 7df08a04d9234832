// SPDX-License-Identifier: MIT
// Lists the queues of a real print server while memory runs out.
#include "tests/support/PrivateCups.h"
#include "tests/system/Desk.h"

#include <fstream>
#include <gmock/gmock.h>

namespace {

using namespace desk;

class PrintersWithoutMemory : public testing::Test {
protected:
    void SetUp() override
    {
        if (!PrivateCups::isInstalled())
            GTEST_SKIP() << "needs the packages cups-daemon and cups-client";
    }

    // Fails the call for memory with that number, counted from 1; 0: none.
    CliRun list(const PrivateCups& server, unsigned long at, bool andLaterOnes) const
    {
        auto environment = server.environment();
        environment.insert(environment.end(),
                           {"LD_PRELOAD=" FAILING_CALLS, "FAILING_CALL=alloc",
                            "FAILING_AT=" + std::to_string(at), "FAILING_COUNT=" + m_count,
                            "VYMKIT_DRIVER_ROOT=/nonexistent"});
        if (andLaterOnes)
            environment.emplace_back("FAILING_ALWAYS=1");
        return CliRun({"printers", "--all", "--json", "--package", m_package.path()},
                      CliRun::Pauses::shortened, environment);
    }

    [[nodiscard]] unsigned long calls() const
    {
        unsigned long number = 0;
        std::ifstream(m_count) >> number;
        return number;
    }

private:
    PackageFolder m_package{{Firmware{}}};
    TempFolder m_folder;
    std::string m_count = m_folder / "count";
};

} // namespace

TEST_F(PrintersWithoutMemory, AreListedOrTheResultSaysWhyNot)
{
    const PrivateCups server({{"office", "lpd://10.0.0.5/q", "A printer"}});
    ASSERT_EQ(list(server, 0, false).exitCode(), 0);
    const auto last = calls();
    constexpr unsigned long kWithTheServer =
        400; // the calls since the print system is first needed
    ASSERT_GT(last, kWithTheServer);
    bool andLaterOnes = false;
    for (auto at = 1UL; at <= last; at += at + kWithTheServer < last ? 100 : 9) {
        andLaterOnes = !andLaterOnes;
        SCOPED_TRACE(std::to_string(at) + (andLaterOnes ? " and later ones" : ""));
        auto run = list(server, at, andLaterOnes);
        EXPECT_THAT(run.exitCode(), testing::AnyOf(0, 19, 64, 66, 69, 70))
            << run.process().errors();
        if (run.exitCode() != 64) { // an option that could not be read is reported in words
            EXPECT_EQ(run.result()["exit_code"], run.exitCode());
        }
    }
}
