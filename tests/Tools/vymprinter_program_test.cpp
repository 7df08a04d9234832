// Runs the real program.
#include "tests/Tools/vymprinter_updater.h"

#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

using ::testing::HasSubstr;
using ::testing::StartsWith;

namespace {

// A folder for one test.
struct Folder {
    Folder()
    {
        std::string pattern = std::filesystem::temp_directory_path() / "vymprinter-XXXXXX";
        path = ::mkdtemp(pattern.data());
    }
    ~Folder() { std::filesystem::remove_all(path); }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    std::filesystem::path path;
};

// A running vymprinter and its output.
class Program {
public:
    explicit Program(std::vector<std::string> arguments)
    {
        int ends[2] = {};
        EXPECT_EQ(::pipe2(ends, O_CLOEXEC), 0);
        m_output = vymprinter::FileHandle(ends[0]);
        const vymprinter::FileHandle input(ends[1]);
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
        posix_spawn_file_actions_adddup2(&actions, ends[1], STDERR_FILENO);
        arguments.insert(arguments.begin(), VYMPRINTER);
        std::vector<char*> argv;
        for (auto& argument : arguments)
            argv.push_back(argument.data());
        argv.push_back(nullptr);
        EXPECT_EQ(::posix_spawn(&m_process, VYMPRINTER, &actions, nullptr, argv.data(), environ),
                  0);
        posix_spawn_file_actions_destroy(&actions);
    }
    ~Program()
    {
        if (m_process > 0) {
            ::kill(m_process, SIGKILL);
            ::waitpid(m_process, nullptr, 0);
        }
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    // The next line, or its beginning if the program ends.
    std::string line() const
    {
        std::string text;
        for (char letter = 0; ::read(m_output.get(), &letter, 1) == 1 && letter != '\n';)
            text += letter;
        return text;
    }
    std::string rest() const
    {
        std::string text;
        char buffer[4096];
        for (ssize_t got = 0; (got = ::read(m_output.get(), buffer, sizeof buffer)) > 0;)
            text.append(buffer, static_cast<std::size_t>(got));
        return text;
    }
    // Waits for the "listening on" line.
    vymprinter::Endpoint endpoint() const
    {
        const auto text = line();
        EXPECT_THAT(text, StartsWith("listening on 127."));
        return vymprinter::parseEndpoint(text.substr(13)).value();
    }
    void signal(int number) const { ::kill(m_process, number); }
    int exitCode()
    {
        int status = 0;
        ::waitpid(std::exchange(m_process, 0), &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

private:
    pid_t m_process = 0;
    vymprinter::FileHandle m_output;
};

TEST(VymprinterProgram, ListensSaysSoAndEndsCleanlyOnASignal)
{
    for (const int number : {SIGTERM, SIGINT}) {
        Program program({"--listen", "127.0.0.1:0"});
        const auto endpoint = program.endpoint();
        EXPECT_TRUE(Updater(endpoint).connected());
        program.signal(number);
        EXPECT_EQ(program.exitCode(), 0);
    }
}

TEST(VymprinterProgram, SeveralPrintersGetOneLineEach)
{
    Program program(
        {"--quiet", "--listen", "127.0.0.254:0", "--count", "3", "--listen", "127.0.0.7:0"});
    std::vector<std::string> hosts;
    for (int i = 0; i < 4; ++i)
        hosts.push_back(program.endpoint().host());
    EXPECT_EQ(hosts,
              (std::vector<std::string>{"127.0.0.254", "127.0.0.255", "127.0.1.0", "127.0.0.7"}));
}

TEST(VymprinterProgram, StoresAnUpdateAndEndsAfterTheRequestedSessions)
{
    Folder folder;
    Program program(
        {"--listen", "127.0.0.1:0", "--sessions", "1", "--store", folder.path, "--quiet"});
    {
        Updater updater(program.endpoint());
        EXPECT_EQ(updater.status(requests::enter()), 128);
        for (const auto& piece : requests::pieces(requests::firmware(5000), 1000))
            EXPECT_GE(updater.status(piece), 128);
    }
    EXPECT_EQ(program.rest(), "");
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_EQ(std::filesystem::file_size(folder.path / "127.0.0.1/MAIN.BIN"), 5000U);
    EXPECT_TRUE(std::filesystem::exists(folder.path / "127.0.0.1/transcript.txt"));
}

TEST(VymprinterProgram, HandsOutTheBytesOfAGivenFile)
{
    Folder folder;
    std::ofstream(folder.path / "info") << "TGMNAME X\nany bytes";
    Program program({"--listen", "127.0.0.1:0", "--target-info", folder.path / "info"});
    const auto block = Updater(program.endpoint()).ask(requests::getFile());
    ASSERT_GT(block.size(), 28U);
    EXPECT_EQ(std::string(block.begin() + 28, block.end()), "TGMNAME X\nany bytes");
}

TEST(VymprinterProgram, PrintersOnOneAddressKeepFoldersApart)
{
    Folder folder;
    Program program(
        {"--listen", "127.0.0.1:0", "--listen", "127.0.0.1:0", "--store", folder.path, "--quiet"});
    for (int i = 0; i < 2; ++i) {
        const auto name = "127.0.0.1-" + std::to_string(program.endpoint().port);
        EXPECT_TRUE(std::filesystem::exists(folder.path / name / "transcript.txt")) << name;
    }
}

TEST(VymprinterProgram, FolderThatCannotBeWrittenEndsWithOneAndNamesIt)
{
    Program program({"--listen", "127.0.0.1:0", "--store", "/dev/null"});
    EXPECT_THAT(program.rest(), HasSubstr("/dev/null/127.0.0.1"));
    EXPECT_EQ(program.exitCode(), 1);
}

TEST(VymprinterProgram, ReportsWhatHappens)
{
    Program program({"--listen", "127.0.0.1:0", "--sessions", "1"});
    {
        Updater updater(program.endpoint());
        updater.ask(requests::enter());
        updater.ask(requests::piece(1, 3, {1}));
    }
    const auto told = program.rest();
    EXPECT_THAT(told, HasSubstr("connection 1 is in download mode\n"));
    EXPECT_THAT(told, HasSubstr("connection 1 was refused: a firmware does not begin at 0\n"));
}

TEST(VymprinterProgram, TakenAddressEndsWithOneAndNamesIt)
{
    const auto taken = vymprinter::listenOn({0x7F000001, 0});
    Program program({"--listen", taken.endpoint.text()});
    EXPECT_THAT(program.rest(), HasSubstr(taken.endpoint.text()));
    EXPECT_EQ(program.exitCode(), 1);
}

// configfs or the controller is missing, or may not be used: the message says which.
TEST(VymprinterProgram, ControllerThatIsNotThereEndsWithOneAndSaysWhatToDo)
{
    Program program({"--usb", "no-such-controller"});
    EXPECT_THAT(program.rest(), HasSubstr("cannot "));
    EXPECT_EQ(program.exitCode(), 1);
}

TEST(VymprinterProgram, WrongUsageEndsWithSixtyFourAndSaysWhy)
{
    const struct {
        std::vector<std::string> arguments;
        const char* says;
    } rows[] = {
        {{"--listen", "localhost"}, "127.0.0.1:48350"},
        {{"--fault", "slient"}, "did you mean silent?"},
        {{"--replies", "some"}, "every, tenths, last or none"},
        {{"--firmware", "MAIN"}, "NAME=VERSION"},
        {{"--firmware", "MAIN="}, "NAME=VERSION"},
        {{"--max-packet", "60"}, "61"},
        {{"--block-size", "28"}, "29"},
        {{"--count", "0"}, "1"},
        {{"--listen", "255.255.255.255", "--count", "2"}, "not that many addresses"},
        {{"--target-info", "/no/such/file"}, "/no/such/file"},
        {{"--write-rate", "-1"}, "--write-rate"},
        {{"--model", "a\"b"}, "quotes"},
        {{"--usb", "any", "--listen", "127.0.0.1"}, "not both"},
        {{"--usb", "any", "--usb-id", "1209"}, "1209:0001"},
        {{"--usb", "any", "--usb-id", "1209:00001x"}, "1209:0001"},
        {{"--usb", "any", "--usb-take", "700"}, "multiple of 512"},
        {{"--usb", "any", "--usb-take", "32768"}, "16384"},
        {{"--usb", "any", "--usb-serial", std::string(127, 'x')}, "126"},
        {{"--usb", "any", "--device-id-length", "65536"}, "--device-id-length"},
        {{"--updated", "MAIN=01.01"}, "needs --restart"},
        {{"--restart", "1", "--updated", "MAIN"}, "NAME=VERSION"},
        {{"--fault", "gone"}, "needs --restart"},
        {{"--restart", "-1"}, "--restart"},
        {{"--restart", "1", "--usb", "any"}, "over TCP only"},
        {{"--fault", "halt-in@enter"}, "needs a printer with --usb"},
        {{"--nonsense"}, "--nonsense"},
        {{"stray"}, "stray"},
    };
    for (const auto& row : rows) {
        Program program(row.arguments);
        EXPECT_THAT(program.rest(), HasSubstr(row.says));
        EXPECT_EQ(program.exitCode(), 64) << row.arguments[0];
    }
}

TEST(VymprinterProgram, HelpVersionAndFaultListAreShown)
{
    const struct {
        std::vector<std::string> arguments;
        const char* says;
    } rows[] = {
        {{"--help"}, "Examples:"},
        {{"--version"}, "vymprinter 1."},
        {{"--fault", "list"}, "busy-forever: says that it is still writing"},
    };
    for (const auto& row : rows) {
        Program program(row.arguments);
        EXPECT_THAT(program.rest(), HasSubstr(row.says));
        EXPECT_EQ(program.exitCode(), 0);
    }
}

} // namespace
