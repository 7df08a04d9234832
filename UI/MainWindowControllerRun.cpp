// The run: from the confirmed question to the result that the user has read.
#include "UI/MainWindowController.h"
#include "UI/Run/RunTarget.h"
#include "UI/Run/UpdateRun.h"
#include "UI/Text/PlainText.h"
#include "UI/Text/TextFormat.h"
#include "UI/Text/TextKeys.h"
#include "UI/VYM_Utilities.h"
#include "UI/Widgets/Aside.h"
#include "UI/Widgets/LetterWidth.h"
#include "UI/vymParseController.h"
#include "UI/vym_etc.h"
#include "VYM/ProtocolResult.h"

#include <QAccessible>
#include <QLayout>
#include <QScreen>
#include <QShortcut>
#include <QStyle>
#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr int kDisplayInterval = 1000; // milliseconds between two looks at the worker
constexpr unsigned long kWorkerPolling = 500; // milliseconds between its questions to the printer
constexpr std::size_t kPathSize = 1024; // of the package's folder, as long as the engine keeps one
constexpr double kBarEnd = 100;
constexpr int kMargins = 2; // around the window's content, in margins of the style
constexpr int kLettersWide = 72; // of the window with the progress, in letters of the user's font

// The texts of stages are taken to be no wider for one firmware than for several.
constexpr std::array kMeasuredTexts = {textkey::kStateConnection, textkey::kStateCheckVersionPlural,
                                       textkey::kStatePrepUpdatePlural,
                                       textkey::kStateWriteUpdatePlural, textkey::kStateUpdated};

// One run a process. The worker keeps pointing to the target's texts (the port's name and the
// queue's) until it has ended, so they live as long as the process.
void* g_Thread = nullptr;
RunTarget g_target;

bool startWorker(PrinterInfo* printer)
{
    g_Thread = vym_thread_create();
    if (g_Thread == nullptr || printer == nullptr || g_target.take(*printer) != TargetFit::fits)
        return false;
    const auto portNumber = static_cast<unsigned short>(vymParseController::getPortNo());
    if (!vymThread_UpdateStart(g_Thread, g_target.queue(), g_target.port(), portNumber))
        return false;
    vymThread_SetPolling(g_Thread, kWorkerPolling);
    return true;
}

std::string packageFolder()
{
    std::array<char, kPathSize> folder{};
    return getBundleLocation(folder.data(), folder.size()) ? folder.data() : "";
}

void deleteWorker()
{
    vym_thread_delete(g_Thread);
    g_Thread = nullptr;
}

} // namespace

// A worker must not outlive its window, nor be cut off: this waits for it.
MainWindowController::~MainWindowController()
{
    vymThread_StopThread(g_Thread);
    deleteWorker();
}

void MainWindowController::startUpdate()
{
    if (_updateWindow->isVisible()) // one run a process
        return;
    _mainwindow->hide();
    _closeRefusedTxt->hide();
    showIcon(*_updateWdwWarningImgView, kCautionIcon); // the texts get the width beside it
    fitProgressLine();
    fitUpdateWindow();
    _progressAnimation->startAnimation();
    _progressCmtTxt->setText(text(textkey::kStateConnection));
    _updatePrg->setValue(0);
    showUpdateWindow();
    beginLog();
    keepAwake();
    if (!startWorker(_targetPrinterInfo.get())) {
        endUpdate(result::kSystem);
        return;
    }
    _updateStatusTimer = new QTimer(this);
    connect(_updateStatusTimer, &QTimer::timeout, this,
            &MainWindowController::updateStatusTimerFunc);
    _updateStatusTimer->start(kDisplayInterval);
}

// The line is as wide as its widest text from the start on, so that nothing jumps meanwhile.
void MainWindowController::fitProgressLine()
{
    const auto metrics = _progressCmtTxt->fontMetrics();
    int widest = 0;
    for (const auto* key : kMeasuredTexts)
        widest = std::max(widest, metrics.horizontalAdvance(text(key)));
    const auto line = letterWidth(metrics) * kLettersWide;
    _progressCmtTxt->setWordWrap(widest > line); // rather two lines than a text that is cut
    _progressCmtTxt->setMinimumWidth(std::min(widest, line));
}

void MainWindowController::fitUpdateWindow()
{
    auto* layout = _updateWindow->layout();
    const int space =
        _updateWindow->style()->pixelMetric(QStyle::PM_LayoutLeftMargin, nullptr, _updateWindow);
    const int margin = kMargins * space;
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(space);
    layout->activate();
    const auto screen = _updateWindow->screen()->availableGeometry();
    const auto wanted = letterWidth(_updateWindow->fontMetrics()) * kLettersWide;
    const int width =
        std::min(std::max(wanted, layout->totalMinimumSize().width()), screen.width());
    const int height = layout->hasHeightForWidth() ? layout->totalHeightForWidth(width)
                                                   : layout->totalSizeHint().height();
    _updateWindow->resize(QSize(width, height).expandedTo(_updateWindow->size()));
}

void MainWindowController::showUpdateWindow()
{
    new QShortcut(Qt::Key_Escape, _updateWindow); // the key does nothing during the run
    _updateWindow->setLeaveAction([this] { refuseClosing(); });
    _updateWindow->move(_updateWindow->screen()->availableGeometry().center()
                        - _updateWindow->rect().center());
    _updateWindow->show();
    _updateWindow->raise();
    _updateWindow->activateWindow();
}

void MainWindowController::refuseClosing()
{
    _closeRefusedTxt->setText(text(textkey::kUpdateCloseRefused));
    _closeRefusedTxt->show();
    fitUpdateWindow();
    QAccessibleEvent said(_closeRefusedTxt, QAccessible::Alert);
    QAccessible::updateAccessibility(&said);
}

// The system may take a second to answer.
void MainWindowController::keepAwake()
{
    const auto who = plain(textkey::kApplication);
    const auto why = plain(textkey::kUpdateDescription);
    doAside([this, &who, &why] { m_inhibitor.emplace(who.c_str(), why.c_str()); });
    m_log->note(m_inhibitor->note());
}

// A log of its own: for such a package there may never be a run.
void MainWindowController::logPackageProblem() const
{
    RunLogFacts facts;
    facts.program = "vymkit " + m_setup.version;
    facts.packageFolder = packageFolder();
    RunLog().badPackage(facts, m_setup.packageProblem);
}

void MainWindowController::beginLog()
{
    RunLogFacts facts;
    facts.program = "vymkit " + m_setup.version;
    facts.packageFolder = packageFolder();
    facts.model = vymParseController::getModelName();
    for (int row = 0; row < _firmware_list.numOfFirmware(); ++row)
        facts.firmware.push_back(
            {_firmware_list.objectValueForTableColumn("FirmwareType", row).value_or(""),
             _firmware_list.objectValueForTableColumn("FirmwareVersion", row).value_or("")});
    if (_targetPrinterInfo != nullptr) {
        facts.printer = _targetPrinterInfo->printerName().value_or("");
        facts.address = _targetPrinterInfo->printerURI().value_or("");
    }
    m_log.emplace();
    m_log->start(facts);
}

void MainWindowController::endLog(int code)
{
    tag_entryoutcome outcome{};
    for (unsigned i = 0; vymThread_GetEntryOutcome(g_Thread, i, &outcome); ++i)
        m_log->outcome(outcome);
    m_log->end(resultName(code), code);
}

void MainWindowController::updateStatusTimerFunc()
{
    tag_devinfo info{};
    vymThread_CheckState(g_Thread, &info);
    if (m_log.has_value())
        m_log->look(info);
    const auto step = runStep(info, static_cast<unsigned long>(_firmware_list.numOfFirmware()));
    if (step.endCode.has_value()) {
        endUpdate(*step.endCode);
        return;
    }
    if (step.textKey.has_value())
        showStage(std::string(*step.textKey).c_str(), step.number);
    if (step.progress.has_value())
        showProgress(*step.progress);
    _updateWindow->update();
}

void MainWindowController::showStage(const char* key, std::optional<std::uint32_t> number)
{
    _progressCmtTxt->setText(
        number.has_value() ? QString::fromStdString(formatText(plain(key), *number)) : text(key));
}

// A printer may tell of progress without a total: what is no number leaves the bar where it is.
void MainWindowController::showProgress(double percent)
{
    if (!std::isnan(percent))
        _updatePrg->setValue(static_cast<int>(std::clamp(percent, 0.0, kBarEnd)));
}

void MainWindowController::endUpdate(std::int32_t code)
{
    if (_updateStatusTimer != nullptr) {
        _updateStatusTimer->stop();
        _updateStatusTimer->deleteLater();
        _updateStatusTimer = nullptr;
    }
    // A transfer is never cut, so this may take its time; the window goes on moving meanwhile.
    doAside([] { vymThread_StopThread(g_Thread); });
    if (m_log.has_value())
        endLog(code);
    deleteWorker();
    m_inhibitor.reset();
    _progressAnimation->stopAnimation();
    _updateWindow->hide();
    ask(resultAlert(code));
    end();
}

Alert MainWindowController::resultAlert(int code) const
{
    const bool automaticEnd = vymParseController::getNeedExitOperation() == yesno_no;
    const auto words = resultText(code, automaticEnd);
    const auto shown = [&words](std::string_view key) {
        const auto found = plain(std::string(key).c_str());
        return words.isError ? found : formatText(found);
    };
    Alert told;
    told.title = shown(words.titleKey);
    told.message = shown(words.messageKey);
    told.style = words.isError ? AlertStyle::critical : AlertStyle::informational;
    told.defaultButton = plain(textkey::kOk);
    if (words.isError)
        told.details = detailsOf(code);
    return told;
}

// What somebody who is asked for help wants to know.
std::string MainWindowController::detailsOf(int code) const
{
    const auto printer = _targetPrinterInfo != nullptr ? *_targetPrinterInfo : PrinterInfo();
    const auto name = plainText(printer.printerName().value_or("")) + ", "
        + plainText(printer.printerURI().value_or(""));
    auto details = formatText(plain(textkey::kDetailsPrinter), name) + '\n'
        + formatText(plain(textkey::kDetailsPackage), plainText(packageFolder(), kPathSize)) + '\n'
        + formatText(plain(textkey::kDetailsResult), resultName(code));
    if (m_log.has_value() && !m_log->path().empty())
        details += '\n' + formatText(plain(textkey::kDetailsLog), m_log->path());
    return details;
}
