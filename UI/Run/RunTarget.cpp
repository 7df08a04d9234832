#include "UI/Run/RunTarget.h"

#include "VYM/vymUtil.h"

#include <string_view>

namespace {

constexpr std::string_view kNetScheme = "net:";
constexpr std::string_view kLpdScheme = "lpd://";

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
    const auto& identifier = printer.printerID();
    auto address = printer.printerURI().value_or("");
    if (address.empty())
        return TargetFit::noAddress;
    if (identifier)
        address = connectableUri(std::move(address));
    if (!fits(address, m_address.size()))
        return TargetFit::addressTooLong;
    if (identifier && !fits(*identifier, m_identifier.size()))
        return TargetFit::identifierTooLong;
    strcpy_s(m_address.data(), m_address.size(), address.c_str());
    strcpy_s(m_identifier.data(), m_identifier.size(), identifier.value_or("").c_str());
    m_hasIdentifier = identifier.has_value();
    printer.setPrinterURI(address);
    return TargetFit::fits;
}
