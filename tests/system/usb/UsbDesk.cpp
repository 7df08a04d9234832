// SPDX-License-Identifier: MIT
#include "tests/system/usb/UsbDesk.h"

#include "tests/support/Await.h"

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <linux/usbdevice_fs.h>
#include <sys/ioctl.h>
#include <thread>
#include <unistd.h>

namespace usbDesk {
namespace {

namespace fs = std::filesystem;

constexpr const char* kDriver = "/sys/bus/usb/drivers/usblp";
constexpr const char* kDevices = "/sys/bus/usb/devices";
constexpr const char* kPrinterClass = "07";

std::string lineOf(const fs::path& path)
{
    std::ifstream file(path);
    std::string line;
    std::getline(file, line);
    return line;
}

bool isInterface(const fs::path& path)
{
    return path.filename().string().find(':') != std::string::npos;
}

std::size_t countIn(const char* folder, bool (*wanted)(const fs::path&))
{
    std::error_code none;
    const fs::directory_iterator entries(folder, none);
    return static_cast<std::size_t>(std::count_if(
        begin(entries), end(entries), [&](const auto& entry) { return wanted(entry.path()); }));
}

bool isPrinterInterface(const fs::path& path)
{
    return isInterface(path) && lineOf(path / "bInterfaceClass") == kPrinterClass;
}

std::string optionValue(const std::vector<std::string>& options, const char* name,
                        const char* usual)
{
    const auto found = std::find(options.begin(), options.end(), name);
    return found != options.end() && found + 1 != options.end() ? found[1] : usual;
}

std::vector<std::string> printerCommand(const std::string& store,
                                        const std::vector<std::string>& options)
{
    std::vector<std::string> command{
        VYMPRINTER, "--usb",        "any",
        "--store",  store,          "--model",
        "MODEL-A",  "--max-packet", optionValue(options, "--max-packet", "4096")};
    for (auto option = options.begin(); option != options.end(); ++option) {
        if (*option == "--max-packet")
            ++option;
        else
            command.push_back(*option);
    }
    return command;
}

// The files of the bus are named after the device's numbers.
std::string deviceFile()
{
    for (const auto& entry : fs::directory_iterator(kDevices)) {
        if (!isPrinterInterface(entry.path()))
            continue;
        const auto device = fs::canonical(entry.path()).parent_path();
        char name[32];
        std::snprintf(name, sizeof name, "/dev/bus/usb/%03d/%03d",
                      std::stoi(lineOf(device / "busnum")), std::stoi(lineOf(device / "devnum")));
        return name;
    }
    return {};
}

} // namespace

BusPrinter::BusPrinter(std::vector<std::string> options)
    : m_uri("usb://Virtual/MODEL-A?serial=" + optionValue(options, "--usb-serial", "VP0001")),
      m_process(printerCommand(m_store.path().string(), options))
{
    EXPECT_TRUE(m_process.waitForOutput("plugged into", kSoon)) << m_process.errors();
    EXPECT_TRUE(becomesTrue([] { return countIn(kDriver, &isInterface) != 0; }, kSoon));
}

BusPrinter::~BusPrinter()
{
    m_process.signal(SIGTERM);
    EXPECT_EQ(m_process.wait(), 0) << m_process.errors();
}

std::optional<std::string> BusPrinter::stored(const std::string& name) const
{
    for (const auto& entry : fs::directory_iterator(m_store.path()))
        if (exists(entry.path() / name))
            return readFile(entry.path() / name);
    return std::nullopt;
}

std::string BusPrinter::transcript() const
{
    return stored("transcript.txt").value_or("");
}

bool driverServes(std::size_t interfaces)
{
    return becomesTrue([&] { return countIn(kDriver, &isInterface) == interfaces; }, kSoon);
}

bool busCarries(std::size_t printers)
{
    return becomesTrue([&] { return countIn(kDevices, &isPrinterInterface) == printers; }, kSoon);
}

void letThePrinterForget()
{
    std::this_thread::sleep_for(std::chrono::seconds(6));
}

std::vector<std::string> updateOf(const BusPrinter& printer, const PackageFolder& package)
{
    return {"update", "--uri", printer.uri(), "--package", package.path(), "--yes", "--json"};
}

std::vector<std::string> asNobody(const std::vector<std::string>& command)
{
    std::string line;
    for (const auto& word : command)
        line += '\'' + word + "' ";
    return {"/bin/su", "-s", "/bin/sh", "nobody", "-c", line};
}

void allowEverybody()
{
    fs::permissions(deviceFile(), fs::perms::others_read | fs::perms::others_write,
                    fs::perm_options::add);
}

HeldInterface::HeldInterface() : m_file(::open(deviceFile().c_str(), O_RDWR | O_CLOEXEC))
{
    usbdevfs_disconnect_claim claim{};
    m_held = m_file >= 0 && ::ioctl(m_file, USBDEVFS_DISCONNECT_CLAIM, &claim) == 0;
}

HeldInterface::~HeldInterface()
{
    unsigned interface = 0;
    usbdevfs_ioctl attach{0, USBDEVFS_CONNECT, nullptr};
    if (m_held) {
        ::ioctl(m_file, USBDEVFS_RELEASEINTERFACE, &interface);
        ::ioctl(m_file, USBDEVFS_IOCTL, &attach);
    }
    if (m_file >= 0)
        ::close(m_file);
}

} // namespace usbDesk
