// SPDX-License-Identifier: MIT
#include "UI/Printers/PrinterCheck.h"

#include "DevConn/ConnResult.h"
#include "DevConn/UsbForbidden.h"
#include "UI/DevConnMgrController.h"
#include "UI/vymParseController.h"
#include "UI/vym_etc.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <string_view>

namespace {

constexpr std::string_view kSerial = "serial=";
constexpr std::string_view kUsbScheme = "usb://";
constexpr int kOnlyKind = 0; // of connections
constexpr unsigned short kNoTcpPort = 0;

// A connection for the length of one query.
class OpenDevice {
public:
    explicit OpenDevice(const std::string& port) : m_manager(devConnMgr_Instance())
    {
        m_isOpen =
            devConnMgr_Connect(m_manager, nullptr, port.c_str(), kOnlyKind, kNoTcpPort, &m_handle)
            >= 0;
    }
    ~OpenDevice()
    {
        if (m_model != nullptr)
            devConnMgr_DisposeData(m_manager, m_handle, m_model);
        if (m_isOpen)
            devConnMgr_Disconnect(m_manager, m_handle);
    }
    OpenDevice(const OpenDevice&) = delete;
    OpenDevice& operator=(const OpenDevice&) = delete;

    std::optional<std::string> model()
    {
        unsigned long length = 0;
        if (!m_isOpen || devConnMgr_GetModelName(m_manager, m_handle, &m_model, &length) < 0
            || m_model == nullptr)
            return std::nullopt;
        return std::string(m_model, strnlen(m_model, length));
    }

private:
    DevConnMgr* m_manager;
    void* m_handle = nullptr;
    bool m_isOpen = false;
    char* m_model = nullptr;
};

bool beginsWith(const std::string& text, const std::string& prefix)
{
    return !prefix.empty() && text.starts_with(prefix);
}

std::string unescaped(std::string_view text)
{
    constexpr std::size_t kDigits = 2;
    std::string plain;
    while (!text.empty()) {
        unsigned char byte = 0;
        const auto* digits = text.data() + 1;
        const bool isEscape = text.size() > kDigits && text.front() == '%'
            && std::from_chars(digits, digits + kDigits, byte, 16).ptr == digits + kDigits;
        plain += isEscape ? static_cast<char>(byte) : text.front();
        text.remove_prefix(isEscape ? kDigits + 1 : 1);
    }
    return plain;
}

} // namespace

PrinterRule packagedPrinterRule()
{
    return {vymParseController::getDriverName(), vymParseController::getDeviceIDModelName(),
            vymParseController::getTgmName()};
}

bool isOfDriver(const PrinterRule& rule, const std::string& makeAndModel)
{
    const auto& all = rule.driverPrefixes;
    return std::any_of(all.begin(), all.end(), [&makeAndModel](const auto& prefix) {
        return beginsWith(makeAndModel, prefix);
    });
}

bool isOfModel(const PrinterRule& rule, const std::string& model)
{
    const auto& all = rule.exactModels;
    return all.empty() ? beginsWith(model, rule.modelPrefix)
                       : std::find(all.begin(), all.end(), model) != all.end();
}

bool isUsbPort(const std::string& port)
{
    return is_std_usb_port(port.c_str()) || is_mp_usb_prn_port(port.c_str())
        || is_usb_prn_port(port.c_str());
}

std::optional<std::string> serialKey(const std::string& port)
{
    const auto at = port.find(kSerial, 1);
    return at != std::string::npos ? std::optional(port.substr(at)) : std::nullopt;
}

std::string productOf(const std::string& port)
{
    std::string_view rest(port);
    if (!rest.starts_with(kUsbScheme))
        return {};
    rest.remove_prefix(kUsbScheme.size());
    const auto slash = rest.find('/');
    if (slash == std::string_view::npos)
        return {};
    rest.remove_prefix(slash + 1);
    return unescaped(rest.substr(0, rest.find('?')));
}

bool isForbiddenPort(const std::string& port)
{
    auto* host = UsbHost::plugged();
    return host != nullptr && isUsbPort(port) && usbForbidden::holds(*host, port);
}

std::optional<std::string> askForModel(const std::string& port)
{
    return OpenDevice(port).model();
}
