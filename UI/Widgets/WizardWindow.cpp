// SPDX-License-Identifier: MIT
#include "UI/Widgets/WizardWindow.h"

WizardWindow::WizardWindow(QWidget* parent) : QDialog(parent) { }

void WizardWindow::reject()
{
    if (m_leave)
        m_leave();
}

#include "moc_WizardWindow.cpp"
