#include "UI/Widgets/MessageBoxAlerts.h"

#include "UI/Widgets/LetterWidth.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFile>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <algorithm>

namespace {

constexpr int kLineLength = 48; // characters of the message in one line, which reads well
constexpr auto kTitleLabel = "qt_msgbox_label"; // the toolkit's names for the two texts of a box
constexpr auto kMessageLabel = "qt_msgbox_informativelabel";

// A message box that Escape and the close button always end, with neither answer.
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
    void closeEvent(QCloseEvent* event) override
    {
        reject();
        event->accept();
    }
};

QString explanation(const Alert& asked)
{
    auto text = QString::fromStdString(asked.message);
    for (const auto& more : {asked.remarks, asked.details}) {
        if (!more.empty())
            text += QStringLiteral("\n\n") + QString::fromStdString(more);
    }
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
        label->setMinimumWidth(std::min(letterWidth(label->fontMetrics()) * kLineLength,
                                        box.screen()->availableSize().width() / 2));
}

struct Sign {
    QMessageBox::Icon icon;
    const char* themeName;
    const char* drawing; // our own
};

// A question warns before something happens; nothing has failed.
Sign signOf(const Alert& asked)
{
    if (asked.style == AlertStyle::informational)
        return {QMessageBox::Information, "dialog-information", "note"};
    if (!asked.alternateButton.empty())
        return {QMessageBox::Warning, "dialog-warning", "caut"};
    return {QMessageBox::Critical, "dialog-error", "error"};
}

// The desktop's sign if it has one, otherwise our own drawing.
void setSign(QMessageBox& box, const Sign& sign)
{
    box.setIcon(sign.icon);
    const auto file = QStringLiteral(":/icons/%1.svg").arg(QLatin1String(sign.drawing));
    if (QIcon::hasThemeIcon(QLatin1String(sign.themeName)) || !QFile::exists(file))
        return;
    const int edge = box.style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, &box);
    box.setIconPixmap(QIcon(file).pixmap(QSize(edge, edge), box.devicePixelRatioF()));
}

} // namespace

int MessageBoxAlerts::run(const Alert& asked)
{
    Box box(QApplication::activeWindow());
    setSign(box, signOf(asked));
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
