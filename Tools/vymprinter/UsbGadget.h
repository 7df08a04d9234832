// SPDX-License-Identifier: MIT
// A USB device in software: the kernel's gadget with one function whose files a program serves,
// attached to a controller.
//
// Owns:      the gadget's folders, the function's mount and its folder; the destructor removes
//            them.
// Threads:   one.
// Invariant: plugged in only between plugIn() and pullOut(); never touches other gadgets.
// Does not serve the function: UsbFunction does, between mounting and plugging in.
#pragma once
#include "Tools/vymprinter/UsbIdentity.h"

#include <filesystem>

namespace vymprinter {

constexpr std::string_view kAnyController = "any";

// The names of this machine's controllers without a device.
[[nodiscard]] std::vector<std::string> freeControllers();

class UsbGadget {
public:
    // `number` distinguishes this program's gadgets.
    UsbGadget(std::string controller, unsigned number, const UsbIdentity& identity);
    ~UsbGadget();
    UsbGadget(const UsbGadget&) = delete;
    UsbGadget& operator=(const UsbGadget&) = delete;

    // Why there is no device, and what to do about it; empty if there is one.
    [[nodiscard]] const std::string& error() const { return m_error; }
    [[nodiscard]] const std::string& controller() const { return m_controller; }
    // The folder of the function's files.
    [[nodiscard]] const std::filesystem::path& files() const { return m_mount; }

    [[nodiscard]] bool plugIn();
    void pullOut();

private:
    void describe(const UsbIdentity& identity);
    void mountFunction();
    [[nodiscard]] bool set(const std::filesystem::path& path, const std::string& value);
    [[nodiscard]] bool folder(const std::filesystem::path& path);

    std::string m_controller;
    std::string m_name;
    std::filesystem::path m_gadget;
    std::filesystem::path m_mount; // empty while not mounted
    std::string m_error;
};

} // namespace vymprinter
