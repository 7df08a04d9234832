// SPDX-License-Identifier: MIT
#include "UI/Widgets/MessageBoxAlerts.h"

#include "UI/Widgets/AlertBox.h"

#include <QApplication>

int MessageBoxAlerts::run(const Alert& asked)
{
    AlertBox box(asked, QApplication::activeWindow());
    box.exec();
    return box.answer();
}
