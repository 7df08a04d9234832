// SPDX-License-Identifier: MIT
// Alerts as the desktop's own message boxes.
//
// Owns:    nothing; a box lives until it is answered.
// Threads: the interface's own.
// Never interprets markup in texts of a package or a printer.
#pragma once
#include "UI/Widgets/Alerts.h"

class MessageBoxAlerts : public Alerts {
public:
    int run(const Alert& asked) override;
};
