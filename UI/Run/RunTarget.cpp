// SPDX-License-Identifier: MIT
#include "UI/Run/RunTarget.h"

#include "UI/Printers/PrinterCheck.h"
#include "VYM/vymUtil.h"

#include <string_view>

namespace {

constexpr std::string_view kNetScheme = "net:";
constexpr std::string_view kLpdScheme = "lpd://";
// Connections accept a URI only together with a queue's identifier, but ignore which one it is.
constexpr const char* kWithoutQueue = "uri";

bool fits(const std::string& text, std::size_t size)
{
    return text.size() < size && text.find('\0') == std::string::npos;
}

} // namespace

std::string connectableUri(std::string uri)
{
    if (uri.starts_with(kNetScheme)) {
        for (auto at = uri.find(kNetScheme); at != std::string::npos;
             at = uri.find(kNetScheme, at + kLpdScheme.size()))
            uri.replace(at, kNetScheme.size(), kLpdScheme);
    }
    if (!uri.ends_with('/') && uri.find(kLpdScheme) != std::string::npos)
        uri += '/';
    return uri;
}

TargetFit RunTarget::take(PrinterInfo& printer)
{
    auto port = printer.printerURI().value_or("");
    if (printer.printerID())
        port = connectableUri(std::move(port));
    const auto fit = keep(port, printer.printerID());
    if (fit == TargetFit::fits)
        printer.setPrinterURI(port);
    return fit;
}

TargetFit RunTarget::takeAddress(const std::string& address)
{
    return keep(address, std::nullopt);
}

TargetFit RunTarget::takePortString(const std::string& uri)
{
    return isUsbPort(uri) ? keep(uri, std::nullopt) : keep(connectableUri(uri), kWithoutQueue);
}

TargetFit RunTarget::keep(const std::string& port, const std::optional<std::string>& queue)
{
    if (port.empty())
        return TargetFit::noPort;
    if (!fits(port, m_port.size()))
        return TargetFit::portTooLong;
    if (queue && !fits(*queue, m_queue.size()))
        return TargetFit::queueTooLong;
    strcpy_s(m_port.data(), m_port.size(), port.c_str());
    strcpy_s(m_queue.data(), m_queue.size(), queue.value_or("").c_str());
    m_hasQueue = queue.has_value();
    return TargetFit::fits;
}
