#include "UI/Pages/ProgressWindow.h"

#include "UI/Pages/SystemSign.h"
#include "UI/Pages/Words.h"
#include "UI/Text/PlainText.h"
#include "UI/Text/TextKeys.h"
#include "UI/VYM_Utilities.h"
#include "UI/Widgets/LetterWidth.h"
#include "UI/Widgets/Look.h"

#include <QAccessible>
#include <QLayout>
#include <QScreen>
#include <QShortcut>
#include <QStyle>
#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr double kBarEnd = 100;
constexpr int kMargins = 2; // around the window's content, in margins of the style
constexpr int kRunLettersWide = 72; // of the window, in letters of the user's font

// Assumes that the texts of stages are no wider for one firmware than for several.
constexpr std::array kMeasuredTexts = {textkey::kStateConnection, textkey::kStateCheckVersionPlural,
                                       textkey::kStatePrepUpdatePlural,
                                       textkey::kStateWriteUpdatePlural, textkey::kStateUpdated};

// To a screen reader, which does not follow a text that has no focus.
void announce(QLabel& text)
{
    QAccessibleEvent said(&text, QAccessible::Alert);
    QAccessible::updateAccessibility(&said);
}

} // namespace

ProgressWindow::ProgressWindow(Form& form)
{
    form.find(_updateWindow, "_updateWindow");
    form.find(_progressAnimation, "_progressAnimation");
    form.find(_updateWdwWarningImgView, "_updateWdwWarningImgView");
    form.find(_updateCmtTxt, "_updateCmtTxt");
    form.find(_attentionCmtTxt, "_attentionCmtTxt");
    form.find(_progressCmtTxt, "_progressCmtTxt");
    form.find(_firmwareNameTxt, "_firmwareNameTxt");
    form.find(_updatePrg, "_updatePrg");
    form.find(_closeRefusedTxt, "_closeRefusedTxt");
}

void ProgressWindow::setTexts()
{
    _updateWindow->setWindowTitle(words::text(textkey::kApplication));
    _updateCmtTxt->setText(words::text(textkey::kUpdateDescription));
    _attentionCmtTxt->setText(words::text(textkey::kUpdatePrecaution));
    _progressCmtTxt->setText({});
    _progressAnimation->setAccessibleName(words::text(textkey::kUpdateDescription));
    _updatePrg->setAccessibleName(words::text(textkey::kUpdateProgressName));
    _updateWdwWarningImgView->setAccessibleName(words::text(textkey::kCautionName));
}

// Icon themes take long to read, so this waits until the window is visible.
void ProgressWindow::dress()
{
    dressWindow(*_updateWindow);
    if (_updateWdwWarningImgView->isVisible())
        showSystemSign(*_updateWdwWarningImgView, kCautionIcon);
}

void ProgressWindow::open(bool hasSeveralFirmware)
{
    _firmwareNameTxt->setText(QStringLiteral(" ")); // the room for it from the start on
    _firmwareNameTxt->setVisible(hasSeveralFirmware);
    _closeRefusedTxt->hide();
    showSystemSign(*_updateWdwWarningImgView, kCautionIcon); // the texts get the width beside it
    fitProgressLine();
    fitWindow();
    _progressAnimation->startAnimation();
    _progressCmtTxt->setText(words::text(textkey::kStateConnection));
    _updatePrg->setValue(0);
    new QShortcut(Qt::Key_Escape, _updateWindow); // the key does nothing during the run
    _updateWindow->setLeaveAction([this] { refuseClosing(); });
    _updateWindow->move(_updateWindow->screen()->availableGeometry().center()
                        - _updateWindow->rect().center());
    _updateWindow->show();
    _updateWindow->raise();
    _updateWindow->activateWindow();
}

void ProgressWindow::close()
{
    _progressAnimation->stopAnimation();
    _updateWindow->hide();
}

// The line is as wide as its widest text from the start, so that the layout never jumps.
void ProgressWindow::fitProgressLine()
{
    const auto metrics = _progressCmtTxt->fontMetrics();
    int widest = 0;
    for (const auto* key : kMeasuredTexts)
        widest = std::max(widest, metrics.horizontalAdvance(words::text(key)));
    const auto line = letterWidth(metrics) * kRunLettersWide;
    _progressCmtTxt->setWordWrap(widest > line); // two lines are better than a cut text
    _progressCmtTxt->setMinimumWidth(std::min(widest, line));
}

void ProgressWindow::fitWindow()
{
    auto* layout = _updateWindow->layout();
    const int space =
        _updateWindow->style()->pixelMetric(QStyle::PM_LayoutLeftMargin, nullptr, _updateWindow);
    const int margin = kMargins * space;
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(space);
    layout->activate();
    const auto screen = _updateWindow->screen()->availableGeometry();
    const auto wanted = letterWidth(_updateWindow->fontMetrics()) * kRunLettersWide;
    const int width =
        std::min(std::max(wanted, layout->totalMinimumSize().width()), screen.width());
    const int height = layout->hasHeightForWidth() ? layout->totalHeightForWidth(width)
                                                   : layout->totalSizeHint().height();
    _updateWindow->resize(QSize(width, height).expandedTo(_updateWindow->size()));
}

void ProgressWindow::refuseClosing()
{
    _closeRefusedTxt->setText(words::text(textkey::kUpdateCloseRefused));
    _closeRefusedTxt->show();
    fitWindow();
    announce(*_closeRefusedTxt);
}

void ProgressWindow::showStage(const char* key, std::optional<std::uint32_t> number)
{
    const auto stage = number.has_value() ? words::text(key, *number) : words::text(key);
    if (stage == _progressCmtTxt->text())
        return;
    _progressCmtTxt->setText(stage);
    announce(*_progressCmtTxt);
}

void ProgressWindow::showFirmware(const std::string& name)
{
    _firmwareNameTxt->setText(QString::fromStdString(plainText(name)));
}

void ProgressWindow::showProgress(double percent)
{
    if (!std::isnan(percent))
        _updatePrg->setValue(static_cast<int>(std::clamp(percent, 0.0, kBarEnd)));
}
