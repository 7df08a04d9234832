#include "UI/Support/UdevRule.h"

#include "DevConn/UsbForbidden.h"

std::string udevRuleFile()
{
    return "/etc/udev/rules.d/70-vymkit.rules";
}

std::string udevRuleLine()
{
    return std::string(usbForbidden::permissionRule());
}

std::string udevAdvice()
{
    return "To allow it to whoever sits at this computer, write the udev rule into "
        + udevRuleFile() + ", then unplug the printer and plug it in again.";
}
