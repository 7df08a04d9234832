// A window of the wizard that closes only when the program says so: Escape and the window's close
// button put a question instead of closing it.
//
// Threads: the interface's own.
// Does not ask the question: whoever made the window says what leaving it means. Without a
// question the window stays, silently. Code hides it with hide(), not with close().
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
