// Alerts as the desktop's own message boxes.
//
// Owns:    nothing; a box lives while its question stands.
// Threads: the interface's own.
// Does not let a text act as markup: words of a package or a printer stay words.
#pragma once
#include "UI/Widgets/Alerts.h"

class MessageBoxAlerts : public Alerts {
public:
    int run(const Alert& asked) override;
};
