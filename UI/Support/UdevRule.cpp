// SPDX-License-Identifier: MIT
#include "UI/Support/UdevRule.h"

std::string udevAdvice()
{
    return "To allow it to the user at this computer, write the udev rule into " + udevRuleFile()
        + ", then unplug the printer and plug it in again.";
}
