// SPDX-License-Identifier: MIT
// A window of the wizard that only the program closes: Escape and the window's close button raise a
// question instead.
//
// Threads: the interface's own.
// Does not ask the question itself: the window's creator supplies it. Without a question the window
// stays open, silently. Code hides it with hide(), not with close().
#pragma once
#include <QDialog>
#include <functional>

class WizardWindow final : public QDialog {
    Q_OBJECT

public:
    explicit WizardWindow(QWidget* parent = nullptr);

    void setLeaveAction(std::function<void()> action) { m_leave = std::move(action); }
    void reject() override;

private:
    std::function<void()> m_leave;
};
