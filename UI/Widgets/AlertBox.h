// SPDX-License-Identifier: MIT
// An alert as a message box whose buttons are on the screen, whatever its font and the screen's
// size: the texts above them scroll, and the technical details are folded.
//
// Owns:      its texts and buttons.
// Threads:   the interface's own.
// Invariant: the box is never larger than its screen's room.
// Never interprets markup in texts of a package or a printer.
#pragma once
#include "UI/Widgets/Alerts.h"

#include <QMessageBox>

class QLabel;
class QPushButton;
class QScrollArea;
class QTextEdit;

class AlertBox final : public QMessageBox {
    Q_OBJECT

public:
    AlertBox(const Alert& asked, QWidget* parent);

    [[nodiscard]] int answer() const; // one of those of Alerts; only after it was left

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool event(QEvent* event) override;

private:
    void addButtons(const Alert& asked);
    void setSign(const Alert& asked);
    void arrange(const Alert& asked);
    void addDetails(QWidget& column, const Alert& asked);
    void unfold(bool isOpen);
    void fit();
    [[nodiscard]] QSize fittingSize();
    void stayOnScreen();

    QScrollArea* m_area = nullptr; // above the buttons
    QPushButton* m_fold = nullptr; // opens and closes the details; null: nothing is folded
    QTextEdit* m_details = nullptr; // null if the button is
    QPushButton* m_default = nullptr;
    QPushButton* m_alternate = nullptr;
    QPushButton* m_extra = nullptr;
    QPushButton* m_query = nullptr;
    bool m_isDressing = false;
    bool m_isPlaced = false;
};
