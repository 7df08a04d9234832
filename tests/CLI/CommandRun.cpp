// SPDX-License-Identifier: MIT
#include "tests/CLI/CommandRun.h"

#include "CLI/CommandLine.h"

#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <regex>
#include <sys/mman.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace {

// A stream of a run, kept in memory.
class MemoryStream {
public:
    MemoryStream() : m_descriptor(memfd_create("stream", 0)) { }
    ~MemoryStream() { close(m_descriptor); }
    MemoryStream(const MemoryStream&) = delete;
    MemoryStream& operator=(const MemoryStream&) = delete;

    [[nodiscard]] int descriptor() const { return m_descriptor; }
    [[nodiscard]] std::string text() const { return textOf(m_descriptor); }
    // All text so far; leaves the place alone where the run writes.
    static std::string textOf(int descriptor)
    {
        struct stat facts { };
        EXPECT_EQ(fstat(descriptor, &facts), 0);
        std::string bytes(static_cast<std::size_t>(facts.st_size), '\0');
        EXPECT_EQ(pread(descriptor, bytes.data(), bytes.size(), 0),
                  static_cast<ssize_t>(bytes.size()));
        return bytes;
    }

private:
    int m_descriptor;
};

std::string replaced(std::string text, const std::string& from, const std::string& to)
{
    for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
    return text;
}

} // namespace

CommandRun::CommandRun() : package(resetFakePackage())
{
    // Keeps away from the user's home folder and login manager.
    setenv("XDG_STATE_HOME", (folder / "state").c_str(), 1);
    setenv("DBUS_SYSTEM_BUS_ADDRESS", ("unix:path=" + (folder / "no-bus")).c_str(), 1);
    folder.write("VYMBINDDATA", "only looked at by the fake package");
    package.firmware = {
        {"MAIN", "VP010210", "main.bin", "MAIN.BIN", "VP010100", "Main controller", "1.2.10"},
        {"ENGINE", "VE010105", "engine.bin", "ENGINE.BIN", "", "Print engine", "1.1.5"}};
    package.files = {{"VYMINFO.txt", 500}, {"main.bin", 3 * 1024 * 1024}, {"engine.bin", 700}};
    worker.records = {status(state_initial), status(state_failed, 0, "", 0, 0, 0, -6)};
    worker.lookTakes = 1000;
    worker.report.result = -6;
}

int CommandRun::run(const std::vector<std::string>& words)
{
    std::vector<std::string> texts = {"vymkit-cli"};
    texts.insert(texts.end(), words.begin(), words.end());
    std::vector<char*> arguments;
    for (auto& text : texts)
        arguments.push_back(text.data());
    const MemoryStream output;
    const MemoryStream errors;
    m_errors = errors.descriptor();
    const int nothing = open("/dev/null", O_RDONLY | O_CLOEXEC);
    const int code = runCommandLine(static_cast<int>(arguments.size()), arguments.data(), &server,
                                    {standardInput >= 0 ? standardInput : nothing,
                                     standardOutput >= 0 ? standardOutput : output.descriptor(),
                                     errors.descriptor()});
    close(nothing);
    out = replaced(output.text(), folder.path().string(), "FOLDER");
    err = replaced(errors.text(), folder.path().string(), "FOLDER");
    return code;
}

void CommandRun::awaitErrors(std::string_view text) const
{
    while (MemoryStream::textOf(m_errors).find(text) == std::string::npos)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

int CommandRun::runOnPackage(std::vector<std::string> words)
{
    words.insert(words.end(), {"--package", folder.path().string()});
    return run(words);
}

tag_devinfo status(update_state state, unsigned number, const char* name, std::uint32_t done,
                   std::uint32_t total, unsigned updated, int result)
{
    tag_devinfo info{};
    info.m_updateState = state;
    std::strncpy(info.m_firmwareName, name, sizeof info.m_firmwareName - 1);
    info.m_bytesDone = done;
    info.m_bytesTotal = total;
    info.m_result = result;
    info.m_firmwareNumber = number;
    info.m_updatedCount = updated;
    info.m_checkStateSupported = number != 0 ? 1 : 0;
    return info;
}

tag_entryoutcome confirmed(std::uint32_t number, std::uint32_t bytes)
{
    return {number, 1, VersionReason::applies, true, true, bytes, bytes};
}

void expectGolden(const std::string& name, const std::string& output)
{
    // The number of checks for the end of the worker's thread is not recorded.
    static const std::regex kEndTime(R"re(("type":"result".*"seconds"):[0-9.]+)re");
    const auto text = std::regex_replace(output, kEndTime, "$1:0.0");
    const auto path = std::string(VYMKIT_GOLDEN_FOLDER "/") + name;
    if (std::getenv("VYMKIT_WRITE_GOLDEN") != nullptr)
        std::ofstream(path, std::ios::binary) << text;
    EXPECT_EQ(text, readFile(path)) << "differs from " << path;
}
