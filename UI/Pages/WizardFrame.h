// SPDX-License-Identifier: MIT
// The wizard's window around its pages: the step bar above, the page, its row of buttons below.
//
// Owns:      nothing; the form owns the window and its controls.
// Threads:   the interface's own.
// Invariant: content and button row always show the same page.
// Does not know which page comes next.
#pragma once
#include "UI/Pages/Page.h"
#include "UI/Widgets/StepBar.h"
#include "UI/Widgets/WizardWindow.h"

class WizardFrame final : public QObject {
    Q_OBJECT

public:
    explicit WizardFrame(Form& form);

    [[nodiscard]] WizardWindow& window() const { return *_mainwindow; }
    void connectControls(); // once the form says that none is missing
    void setTexts();
    void open(); // centred and in front, in a size that suits the user's font
    void showPage(Page& page, int step); // step: from 0; calls leave of the previous page

private:
    WizardWindow* _mainwindow = nullptr;
    QStackedWidget* _mainTabView = nullptr;
    QStackedWidget* _buttonTabView = nullptr;
    StepBar* _stepBar = nullptr;
    Page* m_page = nullptr; // the current one
};
