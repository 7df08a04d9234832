// SPDX-License-Identifier: MIT
#include "Platform/LibusbNode.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace libusb {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMostHubs = 7; // ports in a row, and the root's

bool isNumber(const std::string& text)
{
    return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

bool hasOpen(const fs::path& process, const std::string& file)
{
    std::error_code error;
    fs::directory_iterator files(process / "fd", error);
    for (; !error && files != fs::directory_iterator(); files.increment(error)) {
        std::error_code unreadable;
        if (fs::read_symlink(files->path(), unreadable) == file)
            return true;
    }
    return false;
}

} // namespace

std::string folderOf(libusb_device& device)
{
    std::array<std::uint8_t, kMostHubs> ports{};
    const int count = libusb_get_port_numbers(&device, ports.data(), kMostHubs);
    std::string name = "/sys/bus/usb/devices/" + std::to_string(libusb_get_bus_number(&device));
    char separator = '-';
    for (const auto port : counted(ports.data(), std::min<int>(count, kMostHubs))) {
        name += separator + std::to_string(port);
        separator = '.';
    }
    return name;
}

std::string printerNode(const std::string& deviceFolder, const Facts& facts)
{
    const auto interface = fs::path(deviceFolder).filename().string() + ':'
        + std::to_string(facts.configuration) + '.' + std::to_string(facts.number);
    std::error_code error;
    const fs::directory_iterator nodes(fs::path(deviceFolder) / interface / "usbmisc", error);
    if (error || nodes == fs::directory_iterator())
        return {};
    return "/dev/usb/" + nodes->path().filename().string();
}

std::string holderOf(const std::string& file)
{
    std::error_code error;
    fs::directory_iterator processes("/proc", error);
    for (; !error && processes != fs::directory_iterator(); processes.increment(error)) {
        const auto number = processes->path().filename().string();
        if (!isNumber(number) || !hasOpen(processes->path(), file))
            continue;
        std::string name;
        std::getline(std::ifstream(processes->path() / "comm") >> std::ws, name);
        return name.append(" (process ").append(number).append(")");
    }
    return {};
}

// The driver lets one process in at a time; only an attempt shows one of another user.
bool isInUse(const std::string& node)
{
    if (node.empty())
        return false;
    if (!holderOf(node).empty())
        return true;
    const int file = ::open(node.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
    if (file < 0)
        return errno == EBUSY;
    ::close(file);
    return false;
}

} // namespace libusb
