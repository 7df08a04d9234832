// SPDX-License-Identifier: MIT
// The kernel's files about one USB printer, in a folder of its own; a test adds the processes that
// have it open.
//
// Owns:    its folder.
// Threads: the test's.
#pragma once
#include "UI/Support/UsbSurvey.h"
#include "tests/support/TempFolder.h"

#include <filesystem>

class SurveyedBus {
public:
    SurveyedBus()
    {
        put("sys/bus/usb/devices/1-2/idVendor", "1209\n");
        put("sys/bus/usb/devices/1-2/product", "Vymprint 200\n");
        put("sys/bus/usb/devices/1-2/serial", "S77\n");
        put("sys/bus/usb/devices/1-2/busnum", "1\n");
        put("sys/bus/usb/devices/1-2/devnum", "12\n");
        put("sys/bus/usb/devices/1-2/dev", "189:11\n");
        put("sys/bus/usb/devices/1-2:1.0/bInterfaceClass", "07\n");
        put("sys/bus/usb/devices/1-2:1.0/bInterfaceSubClass", "01\n");
        put("dev/bus/usb/001/012", "");
    }
    void put(const std::string& name, const std::string& text)
    {
        std::filesystem::create_directories((m_folder.path() / name).parent_path());
        m_folder.write(name, text);
    }
    void link(const std::string& name, const std::string& target)
    {
        std::filesystem::create_directories((m_folder.path() / name).parent_path());
        std::filesystem::create_symlink(target, m_folder.path() / name);
    }
    [[nodiscard]] std::vector<SurveyedPrinter> survey(const std::string& vendor = "1209") const
    {
        return surveyUsbPrinters(vendor, root());
    }
    [[nodiscard]] std::string root() const { return m_folder.path().string(); }

private:
    TempFolder m_folder;
};
