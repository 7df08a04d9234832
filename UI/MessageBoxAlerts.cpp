#include "UI/MessageBoxAlerts.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

namespace {

// A message box that Escape and its window's close button always leave, with neither answer.
class Box : public QMessageBox {
public:
    using QMessageBox::QMessageBox;

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        if (event->matches(QKeySequence::Cancel))
            reject();
        else
            QMessageBox::keyPressEvent(event);
    }
    void closeEvent(QCloseEvent* event) override { QDialog::closeEvent(event); }
};

QString explanation(const Alert& asked)
{
    auto text = QString::fromStdString(asked.message);
    if (!asked.details.empty())
        text += QStringLiteral("\n\n") + QString::fromStdString(asked.details);
    return text;
}

void setTexts(Box& box, const Alert& asked)
{
    const auto title = QString::fromStdString(asked.title);
    box.setWindowTitle(title);
    box.setText(title);
    box.setInformativeText(explanation(asked));
    for (auto* label : box.findChildren<QLabel*>()) {
        label->setTextFormat(Qt::PlainText);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    }
}

} // namespace

int MessageBoxAlerts::run(const Alert& asked)
{
    Box box(QApplication::activeWindow());
    box.setIcon(asked.style == AlertStyle::critical ? QMessageBox::Critical
                                                    : QMessageBox::Information);
    setTexts(box, asked);
    const bool isQuestion = !asked.alternateButton.empty();
    const auto* yes = box.addButton(QString::fromStdString(asked.defaultButton),
                                    isQuestion ? QMessageBox::YesRole : QMessageBox::AcceptRole);
    QPushButton* no = nullptr;
    if (isQuestion)
        no = box.addButton(QString::fromStdString(asked.alternateButton), QMessageBox::NoRole);
    if (no != nullptr && asked.returnKey == AlertReturn::pressesAlternate)
        box.setDefaultButton(no);
    box.exec();
    if (box.clickedButton() == nullptr)
        return alert::kOther;
    return box.clickedButton() == yes ? alert::kDefault : alert::kAlternate;
}
