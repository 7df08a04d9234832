// SPDX-License-Identifier: MIT
#include "UI/Printers/PrinterHelp.h"

#include "DevConn/UsbForbidden.h"

#include <algorithm>
#include <arpa/inet.h>
#include <cassert>

namespace {

bool isIPv4(const std::string& host)
{
    in_addr address{};
    return inet_pton(AF_INET, host.c_str(), &address) == 1;
}

} // namespace

PrinterHelp helpFor(const PrinterFinding& finding)
{
    assert(finding.printer != nullptr);
    if (finding.reason == PrinterReason::notPermitted)
        return {PrinterHelpKind::addRule, udevRuleLine()};
    const auto uri = finding.printer->printerURI().value_or("");
    if (finding.reason != PrinterReason::otherConnection || isDriverUri(uri))
        return {};
    const auto host = hostOf(uri);
    return {PrinterHelpKind::typeAddress, isIPv4(host) ? host : ""};
}

std::string udevRuleFile()
{
    return "/etc/udev/rules.d/70-vymkit.rules";
}

std::string udevRuleLine()
{
    return std::string(usbForbidden::permissionRule());
}

std::string hostOf(std::string_view uri)
{
    if (uri.starts_with("usb:"))
        return {};
    constexpr std::string_view kNet = "net:";
    constexpr std::string_view kSlashes = "://";
    const auto slashes = uri.find(kSlashes);
    if (uri.starts_with(kNet))
        uri.remove_prefix(kNet.size());
    else if (slashes != std::string_view::npos)
        uri.remove_prefix(slashes + kSlashes.size());
    else
        return {};
    uri = uri.substr(0, uri.find_first_of("/?"));
    if (const auto user = uri.rfind('@'); user != std::string_view::npos)
        uri.remove_prefix(user + 1);
    if (uri.starts_with('['))
        return std::string(uri.substr(0, uri.find(']') + 1));
    const bool hasPort = std::count(uri.begin(), uri.end(), ':') == 1;
    return std::string(hasPort ? uri.substr(0, uri.find(':')) : uri);
}
