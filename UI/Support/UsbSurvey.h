// SPDX-License-Identifier: MIT
// The USB printers of this computer as the kernel describes them in its files: which there are, who
// may open them, and who has them open. Opens no device and sends nothing.
//
// Owns:    its texts, by value.
// Threads: any. Reads files only.
// Errors:  what cannot be read is empty: other users' processes, a system without these files.
#pragma once
#include <string>
#include <vector>

struct SurveyedPrinter {
    std::string product;
    std::string serial;
    std::string node; // the device file
    std::string driver; // of the kernel, that has the printer's interface; may be empty
    std::vector<std::string> holders; // programs that have it open
    bool isOpenable = false; // by this user
    bool isTagged = false; // the udev rule has had its effect
};

// root: "" for this system; the folder above "sys", "proc", "dev" and "run" in tests.
std::vector<SurveyedPrinter> surveyUsbPrinters(const std::string& vendor, const std::string& root);
// The programs that have the USB printer of this port string open, for people: "lp (process 12)".
// Empty if this user sees no such program, and for a port string of another kind.
std::string holdersOfPort(const std::string& port, const std::string& vendor,
                          const std::string& root);
// The vendor's number of the printers that this build is for, as the kernel's files write it.
std::string surveyedVendor();
