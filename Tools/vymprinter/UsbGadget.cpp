// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/UsbGadget.h"

#include "Tools/vymprinter/TcpListen.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vymprinter {
namespace {

namespace fs = std::filesystem;

constexpr const char* kGadgets = "/sys/kernel/config/usb_gadget";
constexpr const char* kControllers = "/sys/class/udc";
constexpr const char* kConfiguration = "configs/c.1";
constexpr const char* kTexts = "strings/0x409"; // English, which every host requests
constexpr const char* kUsbVersion = "0x0200";
constexpr const char* kDeviceVersion = "0x0100";

std::string hex(std::uint16_t value)
{
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "0x%04x", value);
    return text.data();
}

std::string advice(int error)
{
    switch (error) {
    case EACCES:
    case EPERM:
    case EROFS:
        return "USB devices are made by the system administrator; run it as root";
    case ENOENT:
        return "the kernel has no USB device support; load the modules libcomposite and usb_f_fs "
               "and mount configfs on /sys/kernel/config";
    case EBUSY:
        return "the controller carries another device";
    default:
        return std::strerror(error);
    }
}

std::string oneLine(const fs::path& path)
{
    std::ifstream file(path);
    std::string line;
    std::getline(file, line);
    return line;
}

} // namespace

std::vector<std::string> freeControllers()
{
    std::vector<std::string> names;
    std::error_code none;
    for (const auto& entry : fs::directory_iterator(kControllers, none))
        if (oneLine(entry.path() / "function").empty())
            names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
}

UsbGadget::UsbGadget(std::string controller, unsigned number, const UsbIdentity& identity)
    : m_controller(std::move(controller)),
      m_name("vymprinter-" + std::to_string(::getpid()) + '-' + std::to_string(number)),
      m_gadget(fs::path(kGadgets) / m_name)
{
    describe(identity);
    if (m_error.empty())
        mountFunction();
}

// The kernel's folders must be removed one by one, the inner ones first; missing ones do not
// matter.
UsbGadget::~UsbGadget()
{
    pullOut();
    if (!m_mount.empty()) {
        ::umount2(m_mount.c_str(), MNT_DETACH);
        ::rmdir(m_mount.c_str());
    }
    const auto function = "ffs." + m_name;
    ::unlink((m_gadget / kConfiguration / function).c_str());
    for (const auto& inner :
         {fs::path(kConfiguration), "functions" / fs::path(function), fs::path(kTexts), fs::path()})
        ::rmdir((m_gadget / inner).c_str());
}

void UsbGadget::describe(const UsbIdentity& identity)
{
    const auto function = m_gadget / "functions" / ("ffs." + m_name);
    const auto texts = m_gadget / kTexts;
    const bool made = folder(m_gadget) && set(m_gadget / "idVendor", hex(identity.vendor))
        && set(m_gadget / "idProduct", hex(identity.product))
        && set(m_gadget / "bcdUSB", kUsbVersion) && set(m_gadget / "bcdDevice", kDeviceVersion)
        && (!identity.texts
            || (folder(texts) && set(texts / "manufacturer", identity.maker)
                && set(texts / "product", identity.productName)
                && set(texts / "serialnumber", identity.serial)))
        && folder(function) && folder(m_gadget / kConfiguration);
    if (made
        && ::symlink(function.c_str(), (m_gadget / kConfiguration / function.filename()).c_str())
            != 0)
        m_error = "cannot join " + function.string() + ": " + advice(errno);
}

void UsbGadget::mountFunction()
{
    auto pattern = (fs::temp_directory_path() / "vymprinter-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) {
        m_error = "cannot make a folder in " + fs::temp_directory_path().string();
        return;
    }
    if (::mount(m_name.c_str(), pattern.c_str(), "functionfs", 0, nullptr) == 0) {
        m_mount = pattern;
        return;
    }
    m_error = "cannot mount functionfs: " + advice(errno);
    ::rmdir(pattern.c_str());
}

bool UsbGadget::plugIn()
{
    return set(m_gadget / "UDC", m_controller);
}

void UsbGadget::pullOut()
{
    const auto before = m_error;
    if (!set(m_gadget / "UDC", "\n"))
        m_error = before; // it was not plugged in
}

bool UsbGadget::set(const fs::path& path, const std::string& value)
{
    const FileHandle file(::open(path.c_str(), O_WRONLY | O_CLOEXEC));
    if (file.valid() && (value.empty() || ::write(file.get(), value.data(), value.size()) >= 0))
        return true;
    m_error = "cannot set " + path.string() + ": " + advice(errno);
    return false;
}

bool UsbGadget::folder(const fs::path& path)
{
    if (::mkdir(path.c_str(), S_IRWXU) == 0)
        return true;
    m_error = "cannot make " + path.string() + ": " + advice(errno);
    return false;
}

} // namespace vymprinter
