// SPDX-License-Identifier: MIT
#include "CLI/OptionText.h"

#include "UI/Printers/PrinterCheck.h"
#include "UI/Text/PlainText.h"

#include <algorithm>
#include <arpa/inet.h>
#include <charconv>
#include <netinet/in.h>
#include <string_view>

namespace {

constexpr double kLongestDeadline = 366.0 * 24 * 3600; // small enough for every clock
constexpr std::size_t kLongestHost = 253; // as the domain name system allows

} // namespace

bool isHostName(const std::string& text)
{
    static constexpr std::string_view kLetters =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
    static constexpr std::string_view kOthers = "0123456789-_.";
    const auto isAllowed = [](char c) {
        return kLetters.find(c) != std::string_view::npos
            || kOthers.find(c) != std::string_view::npos;
    };
    return !text.empty() && text.size() <= kLongestHost
        && text.find_first_of(kLetters) != std::string::npos
        && std::all_of(text.begin(), text.end(), isAllowed) && text.front() != '-'
        && text.front() != '.' && text.find("..") == std::string::npos
        && !text.starts_with("0x"); // a number in another dress
}

bool isPrinterAddress(const std::string& text)
{
    in_addr address{};
    return inet_pton(AF_INET, text.c_str(), &address) == 1 && text.find('\0') == std::string::npos
        && address.s_addr != INADDR_ANY && address.s_addr != INADDR_BROADCAST;
}

std::string portStringError(const std::string& text)
{
    const auto quoted = "'" + plainText(text) + "'";
    const bool isUsb = text.starts_with("usb://");
    if (!isUsb && !text.starts_with("lpd://") && !text.starts_with("net:"))
        return quoted + " is no port string of a printer: it begins with usb://, lpd:// or net:.";
    if (isUsb)
        return serialKey(text) ? ""
                               : quoted
                + " has no serial=, which tells one USB printer from "
                  "another.";
    const auto host = std::string_view(text).substr(text.find(':') + 1);
    if (host.find_first_not_of('/') == std::string_view::npos
        || (text.starts_with("lpd://") && host.substr(2).starts_with('/')))
        return quoted + " names no host: write it right after lpd:// or net:.";
    if (isUsbPort(text))
        return quoted
            + " would be taken for a USB printer, because it has \"usb\" in it: give "
              "the printer's --address.";
    return {};
}

std::optional<double> parseSeconds(const std::string& text)
{
    double seconds = 0;
    const char* end = text.data() + text.size();
    const auto [last, error] = std::from_chars(text.data(), end, seconds, std::chars_format::fixed);
    if (error != std::errc() || last != end || !(seconds > 0) || seconds > kLongestDeadline)
        return std::nullopt;
    return seconds;
}

std::optional<int> parseNumber(const std::string& text, int highest)
{
    int number = 0;
    const char* end = text.data() + text.size();
    const auto [last, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || last != end || number < 1 || number > highest
        || text.starts_with('+'))
        return std::nullopt;
    return number;
}
