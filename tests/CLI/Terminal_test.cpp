// SPDX-License-Identifier: MIT
// The command line on a terminal: the question, the bar, colours.
#include "CLI/CommandLine.h"
#include "CLI/Terminal.h"
#include "tests/CLI/CommandRun.h"

#include <array>
#include <csignal>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <unistd.h>

using testing::HasSubstr;
using testing::Not;

namespace {

// A run whose three streams are one terminal, into which the input was typed before.
class TerminalRun : public CommandRun {
public:
    TerminalRun()
    {
        sigset_t interrupt{};
        sigemptyset(&interrupt);
        sigaddset(&interrupt, SIGINT);
        pthread_sigmask(SIG_BLOCK, &interrupt, &m_formerMask); // for the reading thread as well
        setenv("TERM", "xterm", 1);
        unsetenv("NO_COLOR");
        worker.records = {status(state_initial), status(state_sending, 1, "MAIN.BIN", 2000, 4000),
                          status(state_writing, 1, "MAIN.BIN", 2000, 4000, 1),
                          status(state_done, 1, "MAIN.BIN", 0, 0, 1)};
        worker.outcomes = {confirmed(1, 4000)};
        winsize size{24, 100, 0, 0};
        EXPECT_EQ(openpty(&m_person, &m_program, nullptr, nullptr, &size), 0);
    }
    ~TerminalRun()
    {
        close(m_person);
        close(m_program);
        pthread_sigmask(SIG_SETMASK, &m_formerMask, nullptr);
    }
    TerminalRun(const TerminalRun&) = delete;
    TerminalRun& operator=(const TerminalRun&) = delete;

    void type(const std::string& text) const
    {
        EXPECT_EQ(write(m_person, text.data(), text.size()), static_cast<ssize_t>(text.size()));
    }
    // Afterwards, screen has the text of the terminal.
    int run(std::vector<std::string> words)
    {
        words.insert(words.begin(), "vymkit-cli");
        words.insert(words.end(), {"-a", "192.0.2.7", "--package", folder.path().string()});
        std::vector<char*> arguments;
        arguments.reserve(words.size());
        for (auto& word : words)
            arguments.push_back(word.data());
        std::thread reader([&] { read(); });
        const int code = runCommandLine(static_cast<int>(arguments.size()), arguments.data(),
                                        nullptr, {m_program, m_program, m_program});
        EXPECT_EQ(write(m_program, kMark.data(), kMark.size()), ssize(kMark));
        reader.join();
        return code;
    }

    std::string screen;

private:
    // Until the mark that is written after the run: the kernel may hand over the text late.
    void read()
    {
        std::array<char, 4096> piece{};
        while (!screen.ends_with(kMark)) {
            const auto length = ::read(m_person, piece.data(), piece.size());
            if (length <= 0)
                return;
            screen.append(piece.data(), static_cast<std::size_t>(length));
        }
        screen.resize(screen.size() - kMark.size());
    }

    static constexpr std::string_view kMark = "<mark>";
    sigset_t m_formerMask{};
    int m_person = -1;
    int m_program = -1;
};

} // namespace

TEST(Terminal, AsksBeforeItStartsAndShowsABar)
{
    TerminalRun run;
    run.type("yes\n");
    EXPECT_EQ(run.run({"update"}), 0);
    EXPECT_THAT(run.screen, HasSubstr("Start the update? [y/N] "));
    EXPECT_THAT(run.screen, HasSubstr("  Main controller 1.2.10\r\n"));
    EXPECT_THAT(run.screen, HasSubstr("\r\x1b[JSending firmware 1 of 2 (Main controller) ["));
    EXPECT_THAT(run.screen, HasSubstr("]  25 %  2.0 of 3.9 KiB  0:02"));
    EXPECT_THAT(run.screen, HasSubstr("]  75 %"));
    EXPECT_THAT(run.screen, HasSubstr("\x1b[32mUpdated\x1b[0m: The printer"));
}

TEST(Terminal, HasItsOwnRowsAndTheUsualOnesWhereItDoesNotSay)
{
    int person = -1;
    int program = -1;
    winsize size{10, 100, 0, 0};
    ASSERT_EQ(openpty(&person, &program, nullptr, nullptr, &size), 0);
    EXPECT_EQ(rowsOf(program), 10U);
    size.ws_row = 0;
    ASSERT_EQ(ioctl(program, TIOCSWINSZ, &size), 0);
    EXPECT_EQ(rowsOf(program), 24U);
    close(person);
    close(program);
    EXPECT_EQ(rowsOf(-1), 24U);
}

TEST(Terminal, AsksOnlyForTheFirmwareThatIsChosen)
{
    TerminalRun run;
    run.type("yes\n");
    EXPECT_EQ(run.run({"update", "--only", "ENGINE"}), 0);
    EXPECT_EQ(run.worker.choice.only, (std::vector<std::uint32_t>{2}));
    EXPECT_THAT(run.screen, HasSubstr("will be updated with:\r\n  Print engine 1.1.5\r\nDo not"));
}

TEST(Terminal, AnythingButYesIsANo)
{
    for (const char* answer : {"no\n", "\n", "yesno\n", "\x04"}) {
        TerminalRun run;
        run.type(answer);
        EXPECT_EQ(run.run({"update"}), 130);
        EXPECT_EQ(run.worker.portNumber, 0);
        EXPECT_THAT(run.screen, HasSubstr("You did not answer yes"));
    }
}

TEST(Terminal, ANoToAnUpdateOfManyPrintersMeansAllOfThem)
{
    TerminalRun run;
    run.type("no\n");
    EXPECT_EQ(run.run({"update", "-a", "192.0.2.8"}), 130);
    EXPECT_THAT(run.screen, HasSubstr("2 printers will be updated with:"));
    EXPECT_THAT(run.screen,
                HasSubstr("You did not answer yes, so nothing was sent to any printer."));
}

TEST(Terminal, ASignalAnswersTheQuestionToo)
{
    TerminalRun run;
    kill(getpid(), SIGINT); // pending until the program reads it
    EXPECT_EQ(run.run({"update"}), 130);
    EXPECT_EQ(run.worker.portNumber, 0);
    EXPECT_THAT(run.screen, HasSubstr("You stopped the run before any firmware was sent"));
}

TEST(Terminal, DoesNotAskIfTheAnswerIsGiven)
{
    TerminalRun run;
    EXPECT_EQ(run.run({"update", "--yes"}), 0);
    EXPECT_THAT(run.screen, Not(HasSubstr("Start the update?")));
}

TEST(Terminal, JsonNeverAsksEvenOnATerminal)
{
    TerminalRun run;
    run.type("yes\n");
    EXPECT_EQ(run.run({"update", "--json"}), 64);
    EXPECT_EQ(run.worker.portNumber, 0);
}

TEST(Terminal, AListThatIsTypedLeavesNoWayToAsk)
{
    TerminalRun run;
    run.type("192.0.2.8\n\x04yes\n");
    EXPECT_EQ(run.run({"update", "--from", "-"}), 64);
    EXPECT_THAT(run.screen, HasSubstr("with --from - or without a terminal, this call cannot ask"));
    EXPECT_THAT(run.screen, Not(HasSubstr("Start the update")));
}

TEST(Terminal, UsesNoColourWhereItIsNotWanted)
{
    TerminalRun refused;
    EXPECT_EQ(refused.run({"update", "--yes", "--no-color"}), 0);
    EXPECT_THAT(refused.screen, HasSubstr("Updated: The printer"));
    TerminalRun environment;
    setenv("NO_COLOR", "1", 1);
    EXPECT_EQ(environment.run({"update", "--yes"}), 0);
    EXPECT_THAT(environment.screen, HasSubstr("Updated: The printer"));
    setenv("NO_COLOR", "", 1);
    EXPECT_EQ(environment.run({"update", "--yes"}), 0);
}

TEST(Terminal, ADumbTerminalGetsPlainLines)
{
    TerminalRun run;
    setenv("TERM", "dumb", 1);
    EXPECT_EQ(run.run({"update", "--yes"}), 0);
    EXPECT_EQ(run.screen.find('\x1b'), std::string::npos);
    EXPECT_THAT(run.screen, HasSubstr("Sending firmware 1 of 2 (Main controller): 20 %\r\n"));
}
