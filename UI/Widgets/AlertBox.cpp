// SPDX-License-Identifier: MIT
#include "UI/Widgets/AlertBox.h"

#include "UI/Widgets/LetterWidth.h"
#include "UI/Widgets/Look.h"
#include "UI/Widgets/ScreenRoom.h"

#include <QCloseEvent>
#include <QDialogButtonBox>
#include <QFile>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOption>
#include <QTextEdit>
#include <algorithm>
#include <cassert>
#include <cmath>

namespace {

constexpr int kLineLength = 60; // characters of the message in one line, which reads well
// The toolkit's names for the parts of a box.
constexpr auto kTitleLabel = "qt_msgbox_label";
constexpr auto kMessageLabel = "qt_msgbox_informativelabel";
constexpr auto kIconLabel = "qt_msgboxex_icon_label";

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

QString shown(const std::string& text)
{
    return QString::fromStdString(text);
}

QString explanation(const Alert& asked)
{
    auto text = shown(asked.message);
    for (const auto& more : {asked.advice, asked.detailsButton.empty() ? asked.details : ""}) {
        if (!more.empty())
            text += QStringLiteral("\n\n") + shown(more);
    }
    return text;
}

void dressLabel(QLabel& label)
{
    label.setTextInteractionFlags(Qt::TextSelectableByMouse);
    label.setWordWrap(true);
    label.setAlignment(Qt::AlignLeading | Qt::AlignTop);
    label.setContentsMargins(0, 0, 0, 0);
}

// The style's own sign of an opened or a closed fold.
QIcon foldIcon(const QWidget& where, bool isOpen)
{
    const int edge = where.style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, &where) / 2;
    QPixmap sign(QSize(edge, edge) * where.devicePixelRatioF());
    sign.setDevicePixelRatio(where.devicePixelRatioF());
    sign.fill(Qt::transparent);
    QPainter painter(&sign);
    QStyleOption option;
    option.initFrom(&where);
    option.rect = QRect(0, 0, edge, edge);
    const bool fromRight = where.layoutDirection() == Qt::RightToLeft;
    const auto closed = fromRight ? QStyle::PE_IndicatorArrowLeft : QStyle::PE_IndicatorArrowRight;
    where.style()->drawPrimitive(isOpen ? QStyle::PE_IndicatorArrowDown : closed, &option, &painter,
                                 &where);
    return {sign};
}

} // namespace

AlertBox::AlertBox(const Alert& asked, QWidget* parent) : QMessageBox(parent)
{
    setSign(asked);
    setWindowTitle(shown(asked.title));
    setText(shown(asked.title));
    setInformativeText(explanation(asked));
    addButtons(asked);
    arrange(asked);
    dressWindow(*this);
    fit();
    if (m_fold != nullptr) {
        setTabOrder(m_fold, m_details);
        setTabOrder(m_details, m_default);
    }
}

void AlertBox::addButtons(const Alert& asked)
{
    const bool isQuestion = !asked.alternateButton.empty();
    m_default = addButton(shown(asked.defaultButton), isQuestion ? YesRole : AcceptRole);
    setDefaultButton(m_default);
    if (!asked.extraButton.empty())
        m_extra = addButton(shown(asked.extraButton), ActionRole);
    if (!asked.queryButton.empty())
        m_query = addButton(shown(asked.queryButton), ActionRole);
    if (!isQuestion)
        return;
    m_alternate = addButton(shown(asked.alternateButton), NoRole);
    if (asked.returnKey == AlertReturn::pressesAlternate)
        setDefaultButton(m_alternate);
}

// The desktop's sign if it has one, otherwise our own drawing.
void AlertBox::setSign(const Alert& asked)
{
    const auto sign = signOf(asked);
    setIcon(sign.icon);
    const auto file = QStringLiteral(":/icons/%1.svg").arg(QLatin1String(sign.drawing));
    if (QIcon::hasThemeIcon(QLatin1String(sign.themeName)) || !QFile::exists(file))
        return;
    const int edge = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
    setIconPixmap(QIcon(file).pixmap(QSize(edge, edge), devicePixelRatioF()));
}

// In place of the toolkit's own layout, which grows beyond the screen.
void AlertBox::arrange(const Alert& asked)
{
    auto* column = new QWidget;
    auto* texts = new QVBoxLayout(column);
    texts->setContentsMargins(0, 0, 0, 0);
    texts->setSpacing(fontMetrics().height() / 2);
    auto* remarks = new QLabel(shown(asked.remarks));
    remarks->setVisible(!asked.remarks.empty());
    auto* title = findChild<QLabel*>(kTitleLabel);
    title->setProperty("look", QStringLiteral("title"));
    for (auto* label : {title, remarks, findChild<QLabel*>(kMessageLabel)}) {
        if (label == nullptr)
            continue;
        dressLabel(*label);
        texts->addWidget(label);
    }
    addDetails(*column, asked);
    texts->addStretch();
    m_area = new QScrollArea;
    m_area->setFrameShape(QFrame::NoFrame);
    m_area->setFocusPolicy(Qt::NoFocus); // the keys that scroll reach it from the buttons
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_area->setWidgetResizable(true);
    m_area->setWidget(column);
    delete layout();
    auto* grid = new QGridLayout(this);
    grid->addWidget(findChild<QLabel*>(kIconLabel), 0, 0, Qt::AlignTop);
    grid->addWidget(m_area, 0, 1);
    grid->addWidget(findChild<QDialogButtonBox*>(), 1, 0, 1, 2);
    grid->setColumnStretch(1, 1);
    grid->setHorizontalSpacing(fontMetrics().height());
    grid->setSizeConstraint(QLayout::SetNoConstraint);
    for (auto* label : findChildren<QLabel*>())
        label->setTextFormat(Qt::PlainText);
}

// A text field, so that a path can be selected and copied with the keyboard as well.
void AlertBox::addDetails(QWidget& column, const Alert& asked)
{
    if (asked.details.empty() || asked.detailsButton.empty())
        return;
    m_fold = new QPushButton(shown(asked.detailsButton));
    m_fold->setFlat(true);
    m_fold->setCheckable(true);
    m_fold->setIcon(foldIcon(*this, false));
    m_details = new QTextEdit;
    m_details->setReadOnly(true);
    m_details->setTabChangesFocus(true);
    m_details->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_details->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    m_details->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff); // it is as high as its text
    m_details->setPlainText(shown(asked.details));
    m_details->setAccessibleName(m_fold->text().remove(u'&'));
    m_details->hide();
    column.layout()->addWidget(m_fold);
    column.layout()->setAlignment(m_fold, Qt::AlignLeading);
    column.layout()->addWidget(m_details);
    connect(m_fold, &QPushButton::toggled, this, &AlertBox::unfold);
}

void AlertBox::unfold(bool isOpen)
{
    m_details->setVisible(isOpen);
    m_fold->setIcon(foldIcon(*this, isOpen));
    fit();
    if (isOpen)
        m_area->ensureWidgetVisible(m_details);
}

int AlertBox::answer() const
{
    assert(!isVisible());
    if (clickedButton() == nullptr)
        return alert::kOther;
    if (clickedButton() == m_extra)
        return alert::kExtra;
    if (clickedButton() == m_query)
        return alert::kQuery;
    return clickedButton() == m_alternate ? alert::kAlternate : alert::kDefault;
}

// Escape always ends the box, with no answer. The keys for pages scroll it from any button.
void AlertBox::keyPressEvent(QKeyEvent* event)
{
    auto* bar = m_area->verticalScrollBar();
    if (event->matches(QKeySequence::Cancel))
        reject();
    else if (event->key() == Qt::Key_PageDown)
        bar->triggerAction(QAbstractSlider::SliderPageStepAdd);
    else if (event->key() == Qt::Key_PageUp)
        bar->triggerAction(QAbstractSlider::SliderPageStepSub);
    else
        QMessageBox::keyPressEvent(event);
}

void AlertBox::closeEvent(QCloseEvent* event)
{
    reject();
    event->accept();
}

// A message box has a size of its own, which it would take after each change of its layout.
bool AlertBox::event(QEvent* event)
{
    if (m_area == nullptr || m_isDressing)
        return QMessageBox::event(event);
    if (event->type() == QEvent::LayoutRequest) {
        fit();
        return QDialog::event(event); // NOLINT(bugprone-parent-virtual-call): not the box's own
    }
    const bool isDone = QMessageBox::event(event);
    if (changesLook(*event)) {
        m_isDressing = true;
        dressWindow(*this);
        m_isDressing = false;
    }
    if (changesLook(*event) || event->type() == QEvent::Show)
        fit();
    return isDone;
}

void AlertBox::fit()
{
    findChild<QLabel*>(kTitleLabel)->setWordWrap(true); // a message box takes that away
    setFixedSize(fittingSize());
    layout()->activate();
    stayOnScreen();
}

QSize AlertBox::fittingSize()
{
    const auto room = screenRoom(*this);
    const auto margins = layout()->contentsMargins();
    const auto* icon = findChild<QLabel*>(kIconLabel);
    const auto* buttons = findChild<QDialogButtonBox*>();
    const auto* grid = static_cast<QGridLayout*>(layout());
    const int beside =
        margins.left() + margins.right() + icon->sizeHint().width() + grid->horizontalSpacing();
    const int below = margins.top() + margins.bottom() + buttons->sizeHint().height()
        + std::max(0, grid->verticalSpacing());
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
    const int wanted = beside + letterWidth(fontMetrics()) * kLineLength + bar;
    const int least = margins.left() + margins.right() + buttons->sizeHint().width();
    const int width = std::min(std::max(wanted, least), room.width());
    const int textWidth = width - beside - bar;
    if (m_details != nullptr) {
        m_details->document()->setTextWidth(textWidth - 2 * m_details->frameWidth());
        m_details->setFixedHeight(
            static_cast<int>(std::ceil(m_details->document()->size().height()))
            + 2 * m_details->frameWidth());
    }
    auto* texts = m_area->widget()->layout();
    texts->activate(); // also the layouts inside
    const int height = std::max(texts->totalHeightForWidth(textWidth), icon->sizeHint().height());
    return {width, std::min(height + below, room.height())};
}

// In the middle of its parent at first; then where it is, or moved as far as it has to be.
void AlertBox::stayOnScreen()
{
    if (!isVisible())
        return;
    if (!m_isPlaced)
        centreOnScreen(*this);
    if (!m_isPlaced && parentWidget() != nullptr && parentWidget()->isVisible())
        move(parentWidget()->geometry().center() - rect().center());
    m_isPlaced = true;
    keepOnScreen(*this);
}

#include "moc_AlertBox.cpp"
