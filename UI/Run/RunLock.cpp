// SPDX-License-Identifier: MIT
#include "UI/Run/RunLock.h"

#include "DevConn/UsbPortName.h"
#include "UI/Printers/PrinterCheck.h"
#include "VYM/AsciiCase.h"

#include <arpa/inet.h>
#include <array>
#include <string_view>

namespace {

constexpr std::string_view kQueueScheme = "lpd://";

// The host as a connection takes it: what stands between "lpd://" and the slash, without a port; or
// the whole text. A dotted address gets its one canonical form.
std::string hostOf(std::string_view port)
{
    if (const auto scheme = port.find(kQueueScheme); scheme != std::string_view::npos) {
        port.remove_prefix(scheme + kQueueScheme.size());
        port = port.substr(0, port.find('/'));
        port = port.substr(0, port.find(':'));
    }
    std::string host(port);
    in_addr address{};
    if (inet_aton(host.c_str(), &address) != 0) {
        std::array<char, INET_ADDRSTRLEN> text{};
        inet_ntop(AF_INET, &address, text.data(), text.size());
        return text.data();
    }
    return ascii::upperCase(host);
}

} // namespace

std::string RunLock::nameOf(const RunTarget& target, unsigned short portNumber)
{
    const std::string port = target.port();
    std::string serial;
    if (isUsbPort(port) && usbPortName::serialOf(port, serial))
        return "usb " + serial;
    return "tcp " + hostOf(port) + " " + std::to_string(portNumber);
}

RunLock::Status RunLock::take(const RunTarget& target, unsigned short portNumber)
{
    if (isTaken())
        return Status::taken;
    auto* locks = PrinterLocks::plugged();
    if (locks == nullptr || target.isEmpty())
        return Status::unavailable;
    auto attempt = locks->take(nameOf(target, portNumber));
    m_lock = std::move(attempt.lock);
    m_holder = attempt.holder;
    return attempt.status;
}

std::string RunLock::heldText() const
{
    const auto process = m_holder != 0 ? " (process " + std::to_string(m_holder) + ")" : "";
    return "another update of this printer is running here" + process;
}
