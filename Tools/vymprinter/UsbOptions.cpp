// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/UsbOptions.h"

#include "Tools/vymprinter/UsbGadget.h"

#include <CLI/CLI.hpp>
#include <charconv>

namespace vymprinter {
namespace {

constexpr const char* kGroup = "USB";
constexpr std::size_t kLongestText = 126; // in a string descriptor
constexpr std::int64_t kLongestQuiet = 3'600'000; // an hour, in ms

std::optional<std::uint16_t> readHex(std::string_view digits)
{
    std::uint16_t value = 0;
    const auto [end, error] =
        std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
    const bool whole = error == std::errc{} && end == digits.data() + digits.size();
    return whole ? std::optional(value) : std::nullopt;
}

void readIds(const std::string& text, UsbIdentity& identity)
{
    const auto colon = text.find(':');
    const auto vendor = readHex(std::string_view(text).substr(0, colon));
    const auto product =
        colon == text.npos ? std::nullopt : readHex(std::string_view(text).substr(colon + 1));
    if (!vendor || !product)
        throw CLI::ValidationError("--usb-id",
                                   "'" + text + "' is not VENDOR:PRODUCT, such as 1209:0001");
    identity.vendor = *vendor;
    identity.product = *product;
}

std::string fitsATextOfTheBus(const std::string& text)
{
    return text.size() <= kLongestText ? "" : "it is longer than 126 bytes";
}

std::string wholePackets(const std::string& text)
{
    std::uint32_t value = 0;
    const bool read = CLI::detail::lexical_cast(text, value);
    return read && value != 0 && value % kBusPacket == 0 && value <= kLongestTake
        ? ""
        : "'" + text + "' is not a multiple of 512 up to 16384";
}

void addTextOptions(CLI::App& app, UsbIdentity& identity)
{
    app.add_option("--usb-maker", identity.maker, "Maker that the printer reports")
        ->check(fitsATextOfTheBus)
        ->group(kGroup)
        ->capture_default_str();
    app.add_option("--usb-product", identity.productName, "Product that it reports (the model's)")
        ->check(fitsATextOfTheBus)
        ->group(kGroup);
    app.add_option("--usb-serial", identity.serial,
                   "Serial number; further printers get -2, -3, ... after it")
        ->check(fitsATextOfTheBus)
        ->group(kGroup)
        ->capture_default_str();
    app.add_flag("!--usb-no-texts", identity.texts, "Report no maker, product and serial number")
        ->group(kGroup);
    app.add_option("--device-id", identity.deviceId,
                   "Device ID to report instead of one made of maker and product")
        ->group(kGroup);
    app.add_option("--device-id-length", identity.deviceIdLength,
                   "Length that the device ID claims, whatever is true")
        ->group(kGroup);
}

} // namespace

void addUsbOptions(CLI::App& app, UsbOptions& usb)
{
    auto& identity = usb.identity;
    app.add_option("--usb", usb.controllers,
                   "Be on the USB bus: the device controller, a name in /sys/class/udc, or 'any'; "
                   "repeatable; needs root")
        ->type_name("CONTROLLER")
        ->allow_extra_args(false)
        ->group(kGroup);
    app.add_option_function<std::string>(
           "--usb-id", [&](const std::string& text) { readIds(text, identity); },
           "Vendor and product number, hexadecimal (1209:0001)")
        ->type_name("VENDOR:PRODUCT")
        ->group(kGroup);
    addTextOptions(app, identity);
    app.add_flag("--usb-empty-packet,!--no-usb-empty-packet", identity.emptyPacketEnds,
                 "Whether an empty packet follows an answer of whole packets (it does)")
        ->group(kGroup);
    app.add_option("--usb-take", identity.take,
                   "Bytes to take from the bus at once; more than one packet of 512 is faster, but "
                   "a transfer that ends with a full packet waits for what follows")
        ->check(wholePackets)
        ->group(kGroup)
        ->capture_default_str();
    app.add_option_function<std::int64_t>(
           "--usb-quiet", [&](std::int64_t ms) { identity.quiet = std::chrono::milliseconds(ms); },
           "Milliseconds of silence after which the updater has gone (5000)")
        ->check(CLI::Range(std::int64_t{1}, kLongestQuiet))
        ->group(kGroup);
}

void completeUsbOptions(UsbOptions& usb, std::uint32_t count, const std::string& model)
{
    if (count > 1)
        usb.controllers.insert(usb.controllers.end(), count - 1, std::string(kAnyController));
    if (usb.identity.productName.empty())
        usb.identity.productName = model;
    if (const auto wrong = fitsATextOfTheBus(usb.identity.productName); !wrong.empty())
        throw CLI::ValidationError("--model", wrong);
}

UsbIdentity identityOf(const UsbOptions& usb, std::size_t number)
{
    auto identity = usb.identity;
    if (number > 0)
        identity.serial += '-' + std::to_string(number + 1);
    return identity;
}

} // namespace vymprinter
