// SPDX-License-Identifier: MIT
#include "UI/Pages/UnlistedPrinters.h"

#include "UI/Pages/Words.h"
#include "UI/Text/PlainText.h"
#include "UI/Text/TextKeys.h"
#include "UI/Widgets/LetterWidth.h"
#include "UI/Widgets/Look.h"
#include "UI/Widgets/ScreenRoom.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QStyle>
#include <QVBoxLayout>
#include <sstream>

namespace {

constexpr int kLineLength = 64; // letters of the user's font

QLabel* addText(QBoxLayout& column, const QString& text, const char* look = "")
{
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setWordWrap(true);
    label->setProperty("look", QLatin1String(look));
    column.addWidget(label);
    return label;
}

QPushButton* addChoice(QBoxLayout& column, const QString& text)
{
    auto* button = new QPushButton(text);
    button->setAutoDefault(false);
    column.addWidget(button);
    column.setAlignment(button, Qt::AlignLeft);
    return button;
}

QString nameOf(const PrinterFinding& finding)
{
    const auto& printer = *finding.printer;
    return QString::fromStdString(
        plainText(printer.printerName().value_or(printer.printerID().value_or(""))));
}

std::vector<std::string> numbersOf(const std::string& address)
{
    std::vector<std::string> numbers;
    std::istringstream text(address);
    for (std::string number; std::getline(text, number, '.');)
        numbers.push_back(number);
    return numbers;
}

} // namespace

QString unlistedReason(const PrinterFinding& finding)
{
    switch (finding.reason) {
    case PrinterReason::candidate:
        return {};
    case PrinterReason::noModel:
        return words::text(textkey::kDeviceWhyNoModel);
    case PrinterReason::otherDriver:
        return words::text(textkey::kDeviceWhyOtherDriver);
    case PrinterReason::noDeviceUri:
        return words::text(textkey::kDeviceWhyNoAddress);
    case PrinterReason::otherConnection:
        return words::text(helpFor(finding).kind == PrinterHelpKind::typeAddress
                               ? textkey::kDeviceWhyOtherConnection
                               : textkey::kDeviceWhyDriverAddress);
    case PrinterReason::noSerial:
        return words::text(textkey::kDeviceWhyNoSerial);
    case PrinterReason::duplicate:
        return words::text(textkey::kDeviceWhyDuplicate, plainText(finding.sameAs));
    case PrinterReason::notPermitted:
        return words::text(textkey::kDeviceWhyNotPermitted);
    case PrinterReason::noAnswer:
        return words::text(textkey::kDeviceWhyNoAnswer);
    case PrinterReason::otherModel:
        return words::text(textkey::kDeviceWhyOtherModel, plainText(finding.answeredModel));
    }
    return {};
}

UnlistedPrinters::UnlistedPrinters(const TargetPrinters& found, bool acceptsAddress,
                                   QWidget* parent)
    : QDialog(parent), m_acceptsAddress(acceptsAddress)
{
    setWindowTitle(words::text(textkey::kDeviceWhyTitle));
    auto* contents = new QWidget;
    auto* column = new QVBoxLayout(contents);
    addText(*column, windowTitle(), "title");
    if (!found.serverProblem.empty())
        addText(*column, words::text(textkey::kDeviceWhyServer));
    bool isEmpty = true;
    for (const auto& finding : found.findings) {
        if (finding.reason == PrinterReason::candidate)
            continue;
        addPrinter(*column, finding);
        isEmpty = false;
    }
    if (isEmpty)
        addText(*column, words::text(textkey::kDeviceWhyNothing));
    if (acceptsAddress)
        addText(*column, words::text(textkey::kDeviceWhyNetwork), "caption");
    column->addStretch();
    m_area = new QScrollArea;
    m_area->setFrameShape(QFrame::NoFrame);
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_area->setWidgetResizable(true);
    m_area->setWidget(contents);
    m_area->setAccessibleName(windowTitle());
    auto* buttons = new QDialogButtonBox;
    auto* close =
        buttons->addButton(words::text(textkey::kDeviceClose), QDialogButtonBox::AcceptRole);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    auto* whole = new QVBoxLayout(this);
    whole->addWidget(m_area);
    whole->addWidget(buttons);
    close->setDefault(true);
    close->setFocus();
    dressWindow(*this);
    fit();
}

void UnlistedPrinters::addPrinter(QBoxLayout& column, const PrinterFinding& finding)
{
    constexpr std::size_t kAddressLimit = 255; // what a connection takes
    addText(column, nameOf(finding), "section");
    const auto uri = plainText(finding.printer->printerURI().value_or(""), kAddressLimit);
    if (!uri.empty())
        addText(column, QString::fromStdString(uri), "comment");
    addText(column, unlistedReason(finding));
    const auto help = helpFor(finding);
    if (help.kind == PrinterHelpKind::typeAddress && m_acceptsAddress)
        addAddress(column, help.text);
    else if (help.kind == PrinterHelpKind::addRule)
        addRule(column, help.text);
}

void UnlistedPrinters::addAddress(QBoxLayout& column, const std::string& address)
{
    addText(column, words::text(textkey::kDeviceHelpAddress));
    if (address.empty())
        return;
    auto* use = addChoice(column, words::text(textkey::kDeviceUseAddress, address));
    connect(use, &QPushButton::clicked, this, [this, address] {
        m_address = numbersOf(address);
        accept();
    });
}

void UnlistedPrinters::addRule(QBoxLayout& column, const std::string& rule)
{
    auto* help = addText(column, words::text(textkey::kDeviceHelpRule, udevRuleFile()));
    auto* line = new QLineEdit(QString::fromStdString(rule));
    line->setReadOnly(true);
    line->setCursorPosition(0);
    line->setAccessibleName(help->text());
    help->setBuddy(line);
    column.addWidget(line);
    auto* copy = addChoice(column, words::text(textkey::kDeviceCopyLine));
    connect(copy, &QPushButton::clicked, line,
            [line] { QGuiApplication::clipboard()->setText(line->text() + u'\n'); });
}

// As high as its texts, if the screen has the room; otherwise they scroll.
void UnlistedPrinters::fit()
{
    const auto room = screenRoom(*this);
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
    const auto margins = layout()->contentsMargins();
    const int beside = margins.left() + margins.right() + bar;
    const int width = std::min(letterWidth(fontMetrics()) * kLineLength + beside, room.width());
    m_area->setFixedHeight(0);
    const int below = layout()->totalSizeHint().height();
    m_area->setMinimumHeight(fontMetrics().height());
    m_area->setMaximumHeight(QWIDGETSIZE_MAX);
    auto* texts = m_area->widget()->layout();
    texts->activate();
    resize(QSize(width, below + texts->totalHeightForWidth(width - beside)).boundedTo(room));
}

std::vector<std::string> explainUnlisted(const TargetPrinters& found, bool acceptsAddress,
                                         QWidget& window)
{
    UnlistedPrinters reasons(found, acceptsAddress, &window);
    reasons.exec();
    return reasons.address();
}

#include "moc_UnlistedPrinters.cpp"
