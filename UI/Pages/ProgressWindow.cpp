// SPDX-License-Identifier: MIT
#include "UI/Pages/ProgressWindow.h"

#include "UI/Pages/SystemSign.h"
#include "UI/Pages/Words.h"
#include "UI/Text/PlainText.h"
#include "UI/Text/TextKeys.h"
#include "UI/VYM_Utilities.h"
#include "UI/Widgets/LetterWidth.h"
#include "UI/Widgets/Look.h"
#include "UI/Widgets/ScreenRoom.h"

#include <QLayout>
#include <QLocale>
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

} // namespace

ProgressWindow::ProgressWindow(Form& form)
{
    form.find(_updateWindow, "_updateWindow");
    form.find(m_texts, "updateTextsArea");
    form.find(_progressAnimation, "_progressAnimation");
    form.find(_updateWdwWarningImgView, "_updateWdwWarningImgView");
    form.find(_updateCmtTxt, "_updateCmtTxt");
    form.find(_attentionCmtTxt, "_attentionCmtTxt");
    form.find(_progressCmtTxt, "_progressCmtTxt");
    form.find(_firmwareNameTxt, "_firmwareNameTxt");
    form.find(_updatePrg, "_updatePrg");
    form.find(_closeRefusedTxt, "_closeRefusedTxt");
    form.find(_quietTxt, "_quietTxt");
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
    if (!isOpen())
        return;
    showSystemSign(*_updateWdwWarningImgView, kCautionIcon);
    fitWindow();
}

void ProgressWindow::open(bool hasSeveralFirmware)
{
    _firmwareNameTxt->setText(QStringLiteral(" ")); // the room for it from the start on
    _firmwareNameTxt->setVisible(hasSeveralFirmware);
    _closeRefusedTxt->hide();
    _quietTxt->hide();
    showSystemSign(*_updateWdwWarningImgView, kCautionIcon); // the texts get the width beside it
    fitWindow();
    _progressAnimation->startAnimation();
    _progressCmtTxt->setText(words::text(textkey::kStateConnection));
    _updatePrg->setValue(0);
    new QShortcut(Qt::Key_Escape, _updateWindow); // the key does nothing during the run
    _updateWindow->setLeaveAction([this] { refuseClosing(); });
    centreOnScreen(*_updateWindow);
    _updateWindow->show();
    _updateWindow->raise();
    _updateWindow->activateWindow();
    announce(*_progressCmtTxt);
}

void ProgressWindow::close()
{
    _progressAnimation->stopAnimation();
    _updateWindow->hide();
}

int ProgressWindow::space() const
{
    return _updateWindow->style()->pixelMetric(QStyle::PM_LayoutLeftMargin, nullptr, _updateWindow);
}

int ProgressWindow::margin() const
{
    return kMargins * space();
}

// The line is as wide as its widest text from the start, so that the layout never jumps.
void ProgressWindow::fitProgressLine()
{
    const auto metrics = _progressCmtTxt->fontMetrics();
    int widest = 0;
    for (const auto* key : kMeasuredTexts)
        widest = std::max(widest, metrics.horizontalAdvance(words::text(key)));
    const int margins = 2 * margin() + _progressAnimation->sizeHint().width() + space();
    const auto line = std::min(letterWidth(metrics) * kRunLettersWide,
                               screenRoom(*_updateWindow).width() - margins);
    _progressCmtTxt->setWordWrap(widest > line); // two lines are better than a cut text
    _progressCmtTxt->setMinimumWidth(std::min(widest, line));
}

// As high as its texts, if the screen has the room; otherwise they scroll above the progress.
void ProgressWindow::fitWindow()
{
    fitProgressLine();
    auto* layout = _updateWindow->layout();
    layout->setContentsMargins(margin(), margin(), margin(), margin());
    layout->setSpacing(space());
    auto* texts = m_texts->widget()->layout();
    texts->setSpacing(space());
    layout->activate();
    const auto room = screenRoom(*_updateWindow);
    const auto wanted = letterWidth(_updateWindow->fontMetrics()) * kRunLettersWide;
    const int width = std::min(std::max(wanted, layout->totalMinimumSize().width()), room.width());
    m_texts->setFixedHeight(0);
    const int below = layout->totalHeightForWidth(width);
    texts->activate(); // also the layouts inside
    const int bar = _updateWindow->style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    const int wholeTexts = texts->totalHeightForWidth(width - 2 * margin() - bar);
    m_texts->setMinimumHeight(std::min(wholeTexts, room.height() - below));
    m_texts->setMaximumHeight(QWIDGETSIZE_MAX);
    const QSize fitting(width, below + wholeTexts);
    _updateWindow->resize(fitting.expandedTo(_updateWindow->size()).boundedTo(room));
    if (_updateWindow->isVisible())
        keepOnScreen(*_updateWindow);
}

void ProgressWindow::refuseClosing()
{
    showNote(*_closeRefusedTxt, words::text(textkey::kUpdateCloseRefused));
}

void ProgressWindow::showQuiet(const QTime& since)
{
    const auto time = QLocale().toString(since, QLocale::ShortFormat).toStdString();
    showNote(*_quietTxt, words::text(textkey::kUpdateQuiet, time));
}

void ProgressWindow::hideQuiet()
{
    _quietTxt->hide();
}

// A screen reader does not follow a text that has no focus.
void ProgressWindow::announce(QLabel& text)
{
    m_announcer.announce(*_updateWindow, text.text());
}

void ProgressWindow::showNote(QLabel& note, const QString& text)
{
    note.setText(text);
    note.show();
    fitWindow();
    _updateWindow->layout()->activate();
    m_texts->widget()->layout()->activate();
    m_texts->ensureWidgetVisible(&note);
    announce(note);
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
