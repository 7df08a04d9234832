#include "UI/Pages/RunOnScreen.h"

#include "UI/Pages/ResultMessage.h"
#include "UI/Pages/Words.h"
#include "UI/Text/TextKeys.h"
#include "UI/Widgets/Aside.h"
#include "UI/vymParseController.h"
#include "VYM/BundlePath.h"

#include <array>

namespace {

std::string packageFolder()
{
    std::array<char, kBundlePathSize> folder{};
    return getBundleLocation(folder.data(), folder.size()) ? folder.data() : "";
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

bool RunOnScreen::begin(std::shared_ptr<PrinterInfo> printer)
{
    m_printer = std::move(printer);
    m_window.open();
    m_run.emplace(facts());
    keepAwake();
    RunTarget target; // one that takes no printer starts nothing
    if (m_printer != nullptr)
        target.take(*m_printer);
    return m_run->start(target, static_cast<unsigned short>(vymParseController::getPortNo()));
}

// The system may take a second to answer.
void RunOnScreen::keepAwake()
{
    const auto who = words::plain(textkey::kApplication);
    const auto why = words::plain(textkey::kUpdateDescription);
    doAside([this, &who, &why] { m_inhibitor.emplace(who.c_str(), why.c_str()); });
    m_run->log().note(m_inhibitor->note());
}

std::optional<int> RunOnScreen::look()
{
    if (!m_run.has_value())
        return std::nullopt;
    const auto step = m_run->look();
    if (step.textKey.has_value())
        m_window.showStage(std::string(*step.textKey).c_str(), step.number);
    if (step.progress.has_value())
        m_window.showProgress(*step.progress);
    return step.endCode;
}

void RunOnScreen::refuseEnd(const std::string& what)
{
    m_window.refuseClosing();
    if (m_run.has_value())
        m_run->log().note(what
                          + " asked the program to end; an update is never cut, so it goes on");
}

Alert RunOnScreen::end(int code)
{
    ResultFacts facts{m_printer != nullptr ? *m_printer : PrinterInfo(), packageFolder(), {}};
    if (m_run.has_value()) {
        doAside([this] { m_run->stop(); });
        m_run->takeOutcomes();
        m_run->finish(resultName(code), code);
        facts.log = m_run->log().path();
        m_run.reset();
    }
    m_inhibitor.reset();
    m_window.close();
    return resultMessage(code, vymParseController::getNeedExitOperation() == yesno_no, facts);
}
