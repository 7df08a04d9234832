// SPDX-License-Identifier: MIT
#include "UI/Pages/RunOnScreen.h"

#include "UI/Pages/Words.h"
#include "UI/Run/RunHistory.h"
#include "UI/Text/PlainText.h"
#include "UI/Text/TextKeys.h"
#include "UI/Widgets/Aside.h"
#include "UI/Widgets/WaitingBox.h"
#include "UI/vymParseController.h"
#include "UI/vym_etc.h"
#include "VYM/BundlePath.h"
#include "VYM/ProtocolResult.h"

#include <array>
#include <atomic>
#include <cassert>

namespace {

constexpr int kBeatMs = 1000;

std::string packageFolder()
{
    std::array<char, kBundlePathSize> folder{};
    return getBundleLocation(folder.data(), folder.size()) ? folder.data() : "";
}

std::string versionOf(unsigned row)
{
    std::string version;
    std::string other;
    return vyminfo_getVersion(row, other, version, other, other, other, other) ? version : "";
}

std::string nameInPrinter(unsigned row)
{
    std::string name;
    std::string other;
    return vyminfo_getVersion(row, other, other, other, name, other, other) ? name : "";
}

} // namespace

RunOnScreen::RunOnScreen(ProgressWindow& window, const FirmwareList& firmware, std::string version)
    : m_window(window), m_firmware(firmware), m_version(std::move(version))
{
    m_beat.callOnTimeout([this] {
        if (m_rescue.has_value())
            m_rescue->beat();
    });
}

RunLogFacts RunOnScreen::facts() const
{
    RunLogFacts facts;
    facts.program = "vymkit " + m_version;
    facts.packageFolder = packageFolder();
    facts.model = vymParseController::getModelName();
    for (int row = 0; row < m_firmware.numOfFirmware(); ++row)
        facts.firmware.push_back(
            {m_firmware.objectValueForTableColumn("FirmwareType", row).value_or(""),
             m_firmware.objectValueForTableColumn("FirmwareVersion", row).value_or(""),
             nameInPrinter(static_cast<unsigned>(row))});
    if (m_printer != nullptr) {
        facts.printer = m_printer->printerName().value_or("");
        facts.address = m_printer->printerURI().value_or("");
    }
    return facts;
}

void RunOnScreen::logPackageProblem(const std::string& problem) const
{
    RunLog().badPackage(facts(), problem);
}

std::string RunOnScreen::cutOffAt(const PrinterInfo& printer)
{
    RunTarget target;
    RunLock lock;
    auto copy = printer; // a target changes its printer's address
    const auto port = static_cast<unsigned short>(vymParseController::getPortNo());
    if (target.take(copy) != TargetFit::fits || lock.take(target, port) != RunLock::Status::taken)
        return {};
    const auto address = plainText(printer.printerURI().value_or(""), kLogLineLimit);
    const auto run = unfinishedRun(logFolder(), address);
    return run.has_value() ? run->started : "";
}

std::optional<int> RunOnScreen::begin(std::shared_ptr<PrinterInfo> printer)
{
    assert(!m_run.has_value());
    m_printer = std::move(printer);
    m_window.open(m_firmware.numOfFirmware() > 1);
    m_run.emplace(facts());
    m_rescue.emplace([this](const char* why) { endWithoutWindow(why); });
    m_beat.start(kBeatMs);
    keepAwake();
    if (m_printer != nullptr) // without one it starts no run
        m_target.take(*m_printer);
    m_run->start(m_target, static_cast<unsigned short>(vymParseController::getPortNo()));
    return m_run->endCode();
}

// The system may need a second to answer.
void RunOnScreen::keepAwake()
{
    const auto who = words::plain(textkey::kApplication);
    const auto why = words::plain(textkey::kUpdateDescription);
    doAside([this, &who, &why] { m_inhibitor.emplace(who.c_str(), why.c_str()); });
    m_run->log().note(m_inhibitor->note());
    if (!m_remark.empty())
        m_run->log().note(m_remark);
}

std::optional<int> RunOnScreen::look()
{
    if (!m_run.has_value())
        return std::nullopt;
    const auto step = m_run->look();
    if (step.textKey.has_value())
        m_window.showStage(std::string(*step.textKey).c_str(), step.number);
    if (step.number.has_value())
        m_window.showFirmware(firmwareAt(*step.number));
    if (step.progress.has_value())
        m_window.showProgress(*step.progress);
    watchQuiet();
    return step.endCode;
}

void RunOnScreen::watchQuiet()
{
    if (m_run->isLongQuiet() == m_isQuiet)
        return;
    m_isQuiet = m_run->isLongQuiet();
    if (m_isQuiet)
        m_window.showQuiet(
            QTime::currentTime().addMSecs(-static_cast<int>(m_run->quietMilliseconds())));
    else
        m_window.hideQuiet();
}

// The number beside the name, so that it is not taken for a version. Empty where the package does
// not name it.
std::string RunOnScreen::firmwareAt(std::uint32_t number) const
{
    const auto count = static_cast<std::uint32_t>(m_firmware.numOfFirmware());
    if (number < 1 || number > count)
        return {};
    const auto row = static_cast<int>(number - 1);
    auto name = m_firmware.objectValueForTableColumn("FirmwareType", row).value_or("");
    if (name.empty() || count == 1)
        return name;
    return name + " (" + std::to_string(number) + '/' + std::to_string(count) + ')';
}

void RunOnScreen::refuseEnd(const std::string& what)
{
    m_window.refuseClosing();
    if (m_run.has_value())
        m_run->log().note(what
                          + " asked the program to end; an update is never cut, so it goes on");
}

// The worker's results; also keeps those that a later query of the printer is compared with.
ResultFacts RunOnScreen::takeResults()
{
    ResultFacts facts;
    facts.printer = m_printer != nullptr ? *m_printer : PrinterInfo();
    facts.packageFolder = packageFolder();
    if (!m_run.has_value())
        return facts;
    doAside([this] { m_run->stop(); });
    m_beat.stop();
    m_rescue.reset();
    for (const auto& outcome : m_run->takeOutcomes()) {
        if (!outcome.m_bytesWentOut)
            continue;
        facts.sent.push_back({firmwareAt(outcome.m_number), outcome.m_result == result::kSuccess,
                              outcome.m_confirmed});
        m_sent.push_back({outcome.m_number, versionOf(outcome.m_number - 1)});
    }
    facts.heldBy = m_run->heldBy();
    facts.log = m_run->log().path();
    return facts;
}

Alert RunOnScreen::end(int code)
{
    const auto facts = takeResults();
    if (m_run.has_value()) {
        m_run->finish(resultName(code), code);
        m_run.reset();
    }
    m_inhibitor.reset();
    m_window.close();
    m_end = resultMessage(code, vymParseController::getNeedExitOperation() == yesno_no, facts);
    return m_end;
}

Alert RunOnScreen::checkInstalled()
{
    assert(!m_run.has_value() && !m_target.isEmpty());
    CheckReport report{};
    std::atomic<bool> stop{false};
    const auto port = static_cast<unsigned short>(vymParseController::getPortNo());
    waitFor(
        {words::text(textkey::kCheckWaiting), words::text(textkey::kCancel)},
        [&] { report = vymCheck_Run(m_target.queue(), m_target.port(), port, stop); },
        [&stop] { stop = true; });
    auto told = installedMessage(installedState(report, m_sent));
    told.details = m_end.details;
    told.detailsButton = m_end.detailsButton;
    return told;
}

void RunOnScreen::endWithoutWindow(const char* why)
{
    assert(m_run.has_value());
    m_run->stop(); // first: nothing else here matters as much
    m_run->log().note(std::string(why)
                      + "; what was being sent has been finished, and the printer left");
    m_run->look();
    m_run->takeOutcomes();
    const auto code = m_run->endCode();
    m_run->finish(code.has_value() ? resultName(*code) : "stopped", code);
}
