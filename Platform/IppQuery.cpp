// SPDX-License-Identifier: MIT
#include "Platform/IppQuery.h"

#include "Platform/IppTag.h"

namespace {

using namespace ipp;
using namespace std::string_view_literals;

// Version 2.0, CUPS-Get-Printers, request 1.
constexpr std::string_view kHead = "\x02\x00\x40\x02\x00\x00\x00\x01"sv;
constexpr std::string_view kAnyType = "\x00\x00\x00\x00"sv;
constexpr std::string_view kClasses = "\x00\x00\x00\x01"sv; // the bit of a type that is to be 0
constexpr std::size_t kLongestName = 255;

void addCounted(std::string& message, std::string_view text)
{
    message += static_cast<char>(text.size() >> 8);
    message += static_cast<char>(text.size() & 0xFF);
    message += text;
}

// Without a name: a further value of the attribute before it.
void add(std::string& message, Tag tag, std::string_view name, std::string_view value)
{
    message += static_cast<char>(tag);
    addCounted(message, name);
    addCounted(message, value);
}

} // namespace

std::string ippQuery(std::string_view user)
{
    std::string message(kHead);
    message += static_cast<char>(kOperationGroup);
    add(message, kCharset, "attributes-charset", "utf-8");
    add(message, kLanguage, "attributes-natural-language", "en");
    add(message, kEnum, "printer-type", kAnyType);
    add(message, kEnum, "printer-type-mask", kClasses);
    add(message, kName, "requesting-user-name", user.substr(0, kLongestName));
    add(message, kKeyword, "requested-attributes", "printer-name");
    for (const auto* wanted :
         {"printer-info", "printer-location", "device-uri", "printer-make-and-model"})
        add(message, kKeyword, "", wanted);
    message += static_cast<char>(kEndOfAttributes);
    return message;
}
