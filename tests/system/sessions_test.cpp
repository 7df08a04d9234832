// SPDX-License-Identifier: MIT
// Conversations as text: recordings can be played, and every one in the folder sessions/ still goes
// as recorded, byte for byte. A file's first line says how the update ends.
// VYMKIT_KEEP_SESSIONS=FOLDER keeps the first test's recordings, to add to that folder.
#include "tests/system/Desk.h"

#include <algorithm>
#include <cstdlib>
#include <regex>

using namespace desk;

namespace {

constexpr std::chrono::seconds kStart{30};

// Small, so that a whole conversation can be read.
PackageFolder smallPackage()
{
    return PackageFolder({{"MAIN", "AB010200", 700}}, {"ALLOWVERSIONDOWN BOTH"});
}

// A virtual printer that accepts one connection and ends.
class OnceServed {
public:
    explicit OnceServed(std::vector<std::string> options) : m_process(command(m_address, options))
    {
        EXPECT_TRUE(m_process.waitForOutput("listening on", kStart)) << m_process.errors();
    }
    [[nodiscard]] const std::string& address() const { return m_address; }
    int end() { return m_process.wait(); }
    [[nodiscard]] std::string errors() const { return m_process.errors(); }

private:
    static std::vector<std::string> command(const std::string& address,
                                            const std::vector<std::string>& options)
    {
        std::vector<std::string> all{VYMPRINTER, "--listen", address + ":48350", "--sessions",
                                     "1",        "--model",  "MODEL-A",          "--quiet"};
        all.insert(all.end(), options.begin(), options.end());
        return all;
    }
    std::string m_address = ownAddress();
    Process m_process;
};

// A conversation goes as before only if the printer answers each piece within 10 ms: on this clock,
// a busy computer comes round to the printer within that time, too.
constexpr unsigned kSlowness = 10 * VYMKIT_TEST_SLOWNESS;

int update(const std::string& address, const PackageFolder& package, unsigned slowness = kSlowness)
{
    CliRun run({"update", "--address", address, "--package", package.path(), "--yes", "--json"},
               CliRun::Pauses::shortened, {"VYMKIT_TEST_SLOWNESS=" + std::to_string(slowness)});
    return run.exitCode();
}

// The exit codes of both programs of a conversation.
struct Ends {
    int updater = -1;
    int printer = -1;
    std::string errors; // of the printer
};

Ends converse(OnceServed& printer, const PackageFolder& package, unsigned slowness = kSlowness)
{
    const int updater = update(printer.address(), package, slowness);
    const int end = printer.end();
    return {updater, end, printer.errors()};
}

Ends play(const std::string& file, const PackageFolder& package, unsigned slowness = kSlowness)
{
    OnceServed played({"--replay", file});
    return converse(played, package, slowness);
}

// Even so, a busy computer may delay an answer beyond its time, and so change a conversation; but
// not each time.
template <class Conversation> void expectEnd(int exitCode, Conversation conversation)
{
    constexpr int kTries = 3;
    Ends ends;
    for (int i = 0; i < kTries && (ends.updater != exitCode || ends.printer != 0); ++i)
        ends = conversation();
    EXPECT_EQ(ends.updater, exitCode);
    EXPECT_EQ(ends.printer, 0) << ends.errors;
}

int exitCodeIn(const std::string& session)
{
    std::smatch found;
    const bool has = std::regex_search(session, found, std::regex("# exit ([0-9]+)"));
    EXPECT_TRUE(has);
    return has ? std::stoi(found[1]) : -1;
}

struct Recorded {
    const char* name;
    std::vector<std::string> options;
    int exitCode;
};

const std::vector<Recorded> kRecorded{
    {"updated", {"--firmware", "MAIN=AB010100", "--max-packet", "360"}, 0},
    {"updated-without-query",
     {"--firmware", "MAIN=AB010100", "--no-status-query", "--max-packet", "360"},
     0},
    {"updated-last-reply-only",
     {"--firmware", "MAIN=AB010100", "--replies", "last", "--max-packet", "360"},
     0},
    {"newer-installed", {"--firmware", "MAIN=AB010300", "--max-packet", "360"}, 2},
    {"other-model", {"--fault", "wrong-model", "--max-packet", "360"}, 17},
    {"busy", {"--fault", "refuse-busy"}, 13},
    {"damaged",
     {"--firmware", "MAIN=AB010100", "--fault", "status-0804", "--max-packet", "360"},
     12},
};

} // namespace

TEST(Sessions, WhatIsRecordedCanBePlayed)
{
    const auto package = smallPackage();
    for (const auto& row : kRecorded) {
        SCOPED_TRACE(row.name);
        const TempFolder folder;
        const auto file = folder / "session.txt";
        auto options = row.options;
        options.insert(options.end(), {"--record", file});
        expectEnd(row.exitCode, [&] {
            OnceServed printer(options);
            const auto recorded = converse(printer, package);
            if (recorded.updater != row.exitCode || recorded.printer != 0)
                return recorded;
            // A delay of the recording comes again, with what delays the playing in addition.
            return play(file, package, 2 * kSlowness);
        });
        if (const char* keep = std::getenv("VYMKIT_KEEP_SESSIONS"))
            std::ofstream(std::filesystem::path(keep) / (std::string(row.name) + ".txt"))
                << "# exit " << row.exitCode << "\n"
                << readFile(file);
    }
}

TEST(Sessions, EveryKeptOneStillGoesByteForByte)
{
    const auto package = smallPackage();
    std::size_t count = 0;
    for (const auto& file : std::filesystem::directory_iterator(VYMKIT_SESSIONS)) {
        SCOPED_TRACE(file.path().filename().string());
        expectEnd(exitCodeIn(readFile(file.path())),
                  [&] { return play(file.path().string(), package); });
        ++count;
    }
    EXPECT_GE(count, kRecorded.size());
}

TEST(Sessions, OtherBytesOfTheUpdaterAreADifference)
{
    OnceServed played({"--replay", std::string(VYMKIT_SESSIONS) + "/updated.txt"});
    const PackageFolder other({{"MAIN", "AB010200", 701}}, {"ALLOWVERSIONDOWN BOTH"});
    update(played.address(), other);
    EXPECT_EQ(played.end(), 1);
    EXPECT_NE(played.errors().find("the updater sent "), std::string::npos) << played.errors();
}

TEST(Sessions, AConversationWithAnotherPrinterIsRecordedOnItsWay)
{
    const auto package = smallPackage();
    const TempFolder folder;
    const auto file = folder / "session.txt";
    const auto real = ownAddress();
    expectEnd(0, [&] {
        Process printer({VYMPRINTER, "--listen", real + ":48351", "--sessions", "1", "--model",
                         "MODEL-A", "--firmware", "MAIN=AB010100", "--quiet"});
        EXPECT_TRUE(printer.waitForOutput("listening on", kStart));
        OnceServed relay({"--relay", real + ":48351", "--record", file});
        const auto recorded = converse(relay, package);
        EXPECT_EQ(printer.wait(), 0);
        return recorded.updater == 0 && recorded.printer == 0 ? play(file, package, 2 * kSlowness)
                                                              : recorded;
    });
}

TEST(Sessions, MalformedFilesAreWrongUsage)
{
    const TempFolder folder;
    const struct {
        const char *why, *text;
    } rows[] = {
        {"empty", ""},
        {"comments only", "# nothing\n"},
        {"no direction", "0 5101\n"},
        {"no hexadecimal", "0 > xy\n"},
        {"half a byte", "0 > 123\n"},
        {"no time", "> 12\n"},
        {"a negative time", "-1 > 12\n"},
        {"a time beyond a day", "99999999999 > 12\n"},
    };
    for (const auto& row : rows) {
        folder.write("session.txt", row.text);
        Process printer({VYMPRINTER, "--replay", folder / "session.txt"});
        EXPECT_EQ(printer.wait(), 64) << row.why;
    }
    for (const auto& wrong :
         std::vector<std::vector<std::string>>{{"--relay", "127.0.0.1"},
                                               {"--record", "x", "--replay", VYMPRINTER},
                                               {"--record", "x", "--relay", "nowhere"}}) {
        auto command = wrong;
        command.insert(command.begin(), VYMPRINTER);
        Process printer(command);
        EXPECT_EQ(printer.wait(), 64) << wrong.front();
    }
    Process unwritable({VYMPRINTER, "--record", folder / "none/session.txt"});
    EXPECT_EQ(unwritable.wait(), 1);
}
