#include "UI/Run/RunTarget.h"

#include "UI/Printers/PrinterCheck.h"
#include "VYM/vymUtil.h"

#include <string_view>

namespace {

constexpr std::string_view kNetScheme = "net:";
constexpr std::string_view kLpdScheme = "lpd://";
// Connections read a URI only where a queue led to it; which queue that was, they do not look at.
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
    auto address = printer.printerURI().value_or("");
    if (printer.printerID())
        address = connectableUri(std::move(address));
    const auto fit = keep(address, printer.printerID());
    if (fit == TargetFit::fits)
        printer.setPrinterURI(address);
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

TargetFit RunTarget::keep(const std::string& address, const std::optional<std::string>& queueId)
{
    if (address.empty())
        return TargetFit::noAddress;
    if (!fits(address, m_address.size()))
        return TargetFit::addressTooLong;
    if (queueId && !fits(*queueId, m_queueId.size()))
        return TargetFit::queueIdTooLong;
    strcpy_s(m_address.data(), m_address.size(), address.c_str());
    strcpy_s(m_queueId.data(), m_queueId.size(), queueId.value_or("").c_str());
    m_hasQueue = queueId.has_value();
    return TargetFit::fits;
}
