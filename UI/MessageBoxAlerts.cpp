#include "UI/MessageBoxAlerts.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <algorithm>

namespace {

constexpr int kLineLength = 48; // characters of the message in one line, which reads well
constexpr auto kTitleLabel = "qt_msgbox_label"; // as the toolkit names the two texts of a box
constexpr auto kMessageLabel = "qt_msgbox_informativelabel";

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
    if (auto* label = box.findChild<QLabel*>(kTitleLabel); label != nullptr) {
        auto font = label->font();
        font.setBold(true);
        label->setFont(font);
    }
    if (auto* label = box.findChild<QLabel*>(kMessageLabel); label != nullptr)
        label->setMinimumWidth(std::min(label->fontMetrics().averageCharWidth() * kLineLength,
                                        box.screen()->availableSize().width() / 2));
}

// A question is a warning before something happens, not something that went wrong.
QMessageBox::Icon iconOf(const Alert& asked)
{
    if (asked.style == AlertStyle::informational)
        return QMessageBox::Information;
    return asked.alternateButton.empty() ? QMessageBox::Critical : QMessageBox::Warning;
}

} // namespace

int MessageBoxAlerts::run(const Alert& asked)
{
    Box box(QApplication::activeWindow());
    box.setIcon(iconOf(asked));
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
