// SPDX-License-Identifier: MIT
#include "tests/system/Desk.h"

#include "tests/support/Await.h"

#include <algorithm>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace desk {

namespace {

constexpr const char* kPort = "48350";

std::vector<std::string> joined(std::vector<std::string> first,
                                const std::vector<std::string>& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

std::vector<std::string> printerCommand(const std::string& address, const std::string& store,
                                        const std::vector<std::string>& options)
{
    std::vector<std::string> command{
        VYMPRINTER, "--listen", address + ":" + kPort, "--store", store, "--model", "MODEL-A"};
    if (std::find(options.begin(), options.end(), "--max-packet") == options.end())
        command.insert(command.end(), {"--max-packet", "4096"});
    return joined(command, options);
}

// Adds a log folder, a login manager's address of its own and the clock to the test's settings.
Process::Environment withOwnFolders(const TempFolder& state, const Process::Environment& more)
{
    Process::Environment environment{"VYMKIT_TEST_SLOWNESS=" + std::to_string(kClockSlowness)};
    environment.insert(environment.end(), more.begin(), more.end());
    environment.push_back("XDG_STATE_HOME=" + state.path().string());
    environment.push_back("DBUS_SYSTEM_BUS_ADDRESS=unix:path=" + (state / "no-bus"));
    return environment;
}

std::vector<std::string> cliCommand(const std::vector<std::string>& arguments,
                                    CliRun::Pauses pauses, CliRun::Streams streams)
{
    std::vector<std::string> command;
    if (streams == CliRun::Streams::closed)
        command = {"/bin/sh", "-c", R"(exec "$0" "$@" <&- >&- 2>&-)"};
    command.emplace_back(pauses == CliRun::Pauses::full ? VYMKIT_CLI : VYMKIT_CLI_FAST);
    return joined(command, arguments);
}

} // namespace

std::string ownAddress()
{
    // A process number has at most 22 bits, and every test case runs in its own process. 127.16 to
    // 127.79 are no other tests'.
    const auto pid = static_cast<unsigned>(getpid());
    return "127." + std::to_string(16 + (pid >> 16)) + '.' + std::to_string(pid >> 8 & 0xFF) + '.'
        + std::to_string(pid & 0xFF);
}

int ownNetwork()
{
    constexpr int kFirst = 208;
    constexpr int kLast = 239;
    static const int s_network = [] {
        // A socket in it is the claim.
        const int claim = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
        for (int network = kFirst; network <= kLast; ++network) {
            sockaddr_in address{};
            address.sin_family = AF_INET;
            address.sin_port = htons(48350);
            address.sin_addr.s_addr =
                htonl(127U << 24 | static_cast<unsigned>(network) << 16 | 0xFFFE);
            if (bind(claim, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0)
                return network;
        }
        ADD_FAILURE() << "all networks are in use";
        return kLast;
    }();
    return s_network;
}

void waitUntil(const std::function<bool()>& isTrue)
{
    EXPECT_TRUE(becomesTrue(isTrue, kSoon));
}

PackageFolder::PackageFolder(std::vector<Firmware> firmware,
                             const std::vector<std::string>& settings)
    : m_firmware(std::move(firmware))
{
    std::string text;
    for (const auto& row : joined({"TGMNAME MODEL-A", "MODELNAME \"Model A\"", "DRIVERNAME A",
                                   "PLATFORMVERSION MACOS=0"},
                                  settings))
        text += row + "\r\n";
    const auto times = {"ENTERTIME", "EXITTIME", "UPDATETIME"};
    for (const std::string key : times)
        text += text.find(key) == std::string::npos ? key + " 1\r\n" : "";
    std::vector<std::string> make{VYMPACK, "make", "-o", m_folder / "VYMBINDDATA"};
    for (std::size_t i = 0; i < m_firmware.size(); ++i) {
        const auto& one = m_firmware[i];
        text += "VERSION " + one.name + "=" + one.version + " " + one.image() + " " + one.sentName()
            + " " + one.extra + "\r\n";
        m_folder.write(one.image(), bytesOf(i));
        make.push_back(m_folder / one.image());
    }
    m_folder.write("VYMINFO.txt", text);
    make.push_back(m_folder / "VYMINFO.txt");
    Process maker(make);
    EXPECT_EQ(maker.wait(), 0) << maker.errors();
}

std::string PackageFolder::bytesOf(std::size_t index) const
{
    return imageBytes(m_firmware[index].size, static_cast<unsigned>(index));
}

VirtualPrinter::VirtualPrinter(std::vector<std::string> options)
    : m_process(printerCommand(m_address, m_store.path().string(), options))
{
    EXPECT_TRUE(m_process.waitForOutput("listening on", kSoon)) << m_process.errors();
}

std::optional<std::string> VirtualPrinter::stored(const std::string& name) const
{
    const auto path = m_store.path() / m_address / name;
    if (!std::filesystem::exists(path))
        return std::nullopt;
    return readFile(path);
}

std::size_t VirtualPrinter::storedFiles() const
{
    std::size_t count = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(m_store.path()))
        count += entry.is_regular_file() && entry.path().filename() != "transcript.txt" ? 1 : 0;
    return count;
}

std::string VirtualPrinter::transcript() const
{
    return readFile(m_store.path() / m_address / "transcript.txt");
}

CliRun::CliRun(const std::vector<std::string>& arguments, Pauses pauses,
               const Process::Environment& environment, Streams streams)
    : m_process(cliCommand(arguments, pauses, streams), withOwnFolders(m_state, environment))
{
}

int CliRun::exitCode(std::chrono::seconds limit)
{
    return m_process.wait(limit);
}

std::vector<Json> CliRun::lines()
{
    m_process.wait();
    std::istringstream text(m_process.out());
    std::vector<Json> found;
    for (std::string line; std::getline(text, line);) {
        found.push_back(Json::parse(line, nullptr, false));
        EXPECT_FALSE(found.back().is_discarded()) << line;
    }
    return found;
}

std::string CliRun::log() const
{
    std::string text;
    for (const auto& file : std::filesystem::directory_iterator(m_state.path() / "vymkit"))
        text += readFile(file.path());
    return text;
}

Json CliRun::result()
{
    const auto all = lines();
    if (all.empty()) {
        ADD_FAILURE() << "no result at all; errors: " << m_process.errors();
        return {};
    }
    EXPECT_EQ(all.back().value("type", ""), "result");
    return all.back();
}

std::vector<std::string> updateOf(const VirtualPrinter& printer, const PackageFolder& package)
{
    return {"update",       "--address", printer.address(), "--package",
            package.path(), "--yes",     "--json"};
}

std::vector<Firmware> threeFirmware()
{
    return {{"MAIN", "AB010200", 20000}, {"BOOT", "01.20", 100}, {"FONT", "AB0101.20", 9000}};
}

std::vector<std::string> listsOlder(std::vector<std::string> more)
{
    std::vector<std::string> options{"--firmware", "MAIN=AB010100", "--firmware",
                                     "BOOT=01.10", "--firmware",    "FONT=AB0101.10"};
    options.insert(options.end(), more.begin(), more.end());
    return options;
}

} // namespace desk
