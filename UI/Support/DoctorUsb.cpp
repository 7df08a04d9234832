// SPDX-License-Identifier: MIT
#include "UI/Support/Doctor.h"
#include "UI/Support/UdevRule.h"
#include "UI/Text/TextList.h"

#include <algorithm>
#include <array>
#include <fstream>

namespace doctor {

namespace {

// Where udev reads rules; an administrator's file comes before a package's of the same name.
constexpr std::array kRuleFolders = {"/etc/udev/rules.d/", "/run/udev/rules.d/",
                                     "/usr/lib/udev/rules.d/", "/lib/udev/rules.d/"};

std::string nameOf(const SurveyedPrinter& printer)
{
    const auto product = printer.product.empty() ? "The USB printer" : printer.product;
    return printer.serial.empty() ? product : product + " (" + printer.serial + ")";
}

std::string ruleFile(const std::string& root)
{
    const auto line = udevRuleLine();
    for (const auto* folder : kRuleFolders) {
        auto path = folder + std::string("70-vymkit.rules");
        std::ifstream stream(root + path);
        for (std::string each; std::getline(stream, each);)
            if (each == line)
                return path;
    }
    return {};
}

std::string installRule()
{
    return "echo '" + udevRuleLine() + "' | sudo tee " + udevRuleFile()
        + ", then unplug the printer and plug it in again";
}

Finding listed(const std::vector<SurveyedPrinter>& printers)
{
    std::vector<std::string> names;
    names.reserve(printers.size());
    for (const auto& printer : printers)
        names.push_back(nameOf(printer));
    return ok("usb", "On USB: " + joined(names) + ".");
}

Finding permission(const std::vector<SurveyedPrinter>& printers)
{
    for (const auto& printer : printers) {
        if (!printer.isOpenable)
            return problem("permission",
                           nameOf(printer) + " may not be opened by this user (" + printer.node
                               + ").",
                           installRule());
    }
    return ok("permission", "This user may open every USB printer.");
}

Finding owner(const std::vector<SurveyedPrinter>& printers)
{
    for (const auto& printer : printers) {
        if (!printer.holders.empty())
            return warning("usb-owner",
                           nameOf(printer) + " is open in " + joined(printer.holders) + ".",
                           "wait until it has finished, or end it");
    }
    for (const auto& printer : printers) {
        if (!printer.driver.empty() && printer.driver != "usbfs")
            return ok("usb-owner",
                      nameOf(printer) + " belongs to the kernel's driver " + printer.driver
                          + ", which gives it up for an update.");
    }
    return ok("usb-owner", "No other program has a USB printer open.");
}

Finding rule(const std::vector<SurveyedPrinter>& printers, const std::string& root)
{
    const auto file = ruleFile(root);
    if (file.empty())
        return warning("udev-rule", "The udev rule is not installed.", installRule());
    const auto untagged = std::find_if(printers.begin(), printers.end(),
                                       [](const auto& each) { return !each.isTagged; });
    if (untagged == printers.end())
        return ok("udev-rule", "The udev rule is in " + file + ".");
    return warning("udev-rule",
                   "The udev rule is in " + file + ", but has not reached " + nameOf(*untagged)
                       + " yet.",
                   "unplug the printer and plug it in again");
}

} // namespace

void checkUsb(const std::vector<SurveyedPrinter>& printers, const std::string& root,
              std::vector<Finding>& findings)
{
    if (printers.empty()) {
        const std::string none = "There is no printer of the package's maker on USB.";
        for (const auto* check : {"usb", "permission", "usb-owner"})
            findings.push_back(skipped(check, none));
    } else {
        findings.push_back(listed(printers));
        findings.push_back(permission(printers));
        findings.push_back(owner(printers));
    }
    findings.push_back(rule(printers, root));
}

} // namespace doctor
