// SPDX-License-Identifier: MIT
#include "UI/MainWindowController.h"

#include "UI/Package/SystemCheck.h"
#include "UI/Pages/PackageWords.h"
#include "UI/Pages/Questions.h"
#include "UI/Pages/Words.h"
#include "UI/Text/TextKeys.h"
#include "UI/Widgets/Look.h"
#include "UI/vymParseController.h"
#include "UI/vym_etc.h"
#include "VYM/ProtocolResult.h"

#include <QApplication>

namespace {

// Far above any printer family; each row costs a walk through the whole description.
constexpr unsigned kMostFirmware = 1000;
// The steps of the step bar; both device pages are the same step.
enum Step : int { opening, preparation, device, confirmation };
} // namespace

std::unique_ptr<MainWindowController> MainWindowController::create(MainWindowSetup setup,
                                                                   QString& problem)
{
    auto form = std::make_unique<Form>();
    problem = form->load(setup.formFile);
    if (!problem.isEmpty())
        return nullptr;
    std::unique_ptr<MainWindowController> controller(
        new MainWindowController(std::move(setup), std::move(form)));
    problem = controller->m_form->finish();
    if (!problem.isEmpty())
        return nullptr;
    controller->awakeFromNib();
    return controller;
}

MainWindowController::MainWindowController(MainWindowSetup setup, std::unique_ptr<Form> form)
    : m_setup(std::move(setup)), m_report(m_setup.files, m_setup.composeReport),
      m_form(std::move(form)), _isUseDriverOnly(m_setup.isUseDriverOnly), m_frame(*m_form),
      m_opening(*m_form, _firmware_list, m_setup.version), m_preparation(*m_form),
      m_device1(*m_form, DevicePage::Variant::withAddress, m_setup.findPrinters),
      m_device2(*m_form, DevicePage::Variant::queuesOnly, m_setup.findPrinters),
      m_confirmation(*m_form), m_progress(*m_form),
      m_run(m_progress, _firmware_list, m_setup.version)
{
}

MainWindowController::~MainWindowController() = default;

void MainWindowController::awakeFromNib()
{
    m_ending.emplace(m_setup.endings,
                     [this](const std::string& what) { return endUnlessRunning(what); });
    vymParseController::loadData();
    if (!m_setup.packageProblem.empty() && !m_setup.isPackageMissing)
        m_run.logPackageProblem(m_setup.packageProblem);
    if (!m_setup.isPackageMissing && !checkOSVersion()) {
        const auto words = packageWords(m_setup.packageReason);
        tell(unsupportedSystemMessage(words.empty() ? m_setup.packageProblem : words));
        end();
        return;
    }
    connectControls();
    _setLocalizedStrings();
    showStart();
    dressAll();
    for (auto* window : {&m_frame.window(), &m_progress.window()})
        window->installEventFilter(this);
    showOpeningPage();
}

void MainWindowController::showStart()
{
    if (m_setup.isPackageMissing) {
        m_opening.showMissingPackage();
        connect(m_opening.chooseButton(), &QPushButton::clicked, this,
                &MainWindowController::choosePackage);
        return;
    }
    _makeFirmWareList();
    m_opening.showPackage(vymParseController::getModelName());
    if (!m_setup.packageSignature.empty())
        m_opening.showSignature(m_setup.packageSignature);
}

bool MainWindowController::checkOSVersion()
{
    long maxVersion = 0;
    long minVersion = 0;
    vymParseController::getPlatformMaxVersion(maxVersion, minVersion);
    const auto system = static_cast<std::int32_t>(get_system_version());
    const SystemBounds bounds{static_cast<std::int32_t>(maxVersion),
                              static_cast<std::int32_t>(minVersion)};
    m_run.setRemark(systemRemark(system, bounds));
    // A package that was refused is closed, and has no bounds that a system could be outside of.
    const bool wasRefused = !m_setup.packageProblem.empty() && !vymbind_isContainer();
    return !wasRefused && judgeSystem(system, bounds) != SystemVerdict::unsupported;
}

void MainWindowController::connectControls()
{
    using Action = void (MainWindowController::*)();
    const struct {
        const Page& page;
        Action back;
        Action forward;
    } rows[] = {
        {m_opening, nullptr, &MainWindowController::showPreferencePage},
        {m_preparation, &MainWindowController::showOpeningPage,
         &MainWindowController::showSelectDevicePage},
        {m_device1, &MainWindowController::showPreferencePage,
         &MainWindowController::inputCheckAndShowPrepPage},
        {m_device2, &MainWindowController::showPreferencePage,
         &MainWindowController::showPrepPage2},
        {m_confirmation, &MainWindowController::showSelectDevicePage,
         &MainWindowController::startUpdateAction},
    };
    for (const auto& [page, back, forward] : rows) {
        if (back != nullptr)
            connect(page.backButton(), &QPushButton::clicked, this, back);
        connect(page.forwardButton(), &QPushButton::clicked, this, forward);
        connect(page.cancelButton(), &QPushButton::clicked, this,
                &MainWindowController::cancelUpdate);
    }
    m_device1.connectControls();
    m_device2.connectControls();
    m_frame.connectControls();
    m_frame.window().setLeaveAction([this] { cancelUpdate(); });
}

void MainWindowController::_makeFirmWareList()
{
    std::string type;
    std::string version;
    for (unsigned i = 0; i < kMostFirmware; ++i) {
        type.clear();
        version.clear();
        if (!vymParseController::getDispFirmVersion(i, type, version))
            break;
        _firmware_list.addFirmwareList(type, version);
    }
}

std::array<Page*, 5> MainWindowController::pages()
{
    return {&m_opening, &m_preparation, &m_device1, &m_device2, &m_confirmation};
}

void MainWindowController::_setLocalizedStrings()
{
    m_frame.setTexts();
    for (auto* page : pages())
        page->setTexts();
    m_progress.setTexts();
}

void MainWindowController::dressAll()
{
    if (m_isDressing) // the window also gets the events of its controls' new fonts and colours
        return;
    m_isDressing = true;
    dressWindow(m_frame.window());
    m_progress.dress();
    for (auto* page : pages())
        page->dress();
    m_isDressing = false;
}

bool MainWindowController::eventFilter(QObject* watched, QEvent* event)
{
    if (changesLook(*event))
        dressAll();
    return QObject::eventFilter(watched, event);
}

void MainWindowController::show()
{
    m_frame.open();
}

DevicePage& MainWindowController::devicePage()
{
    return _isUseDriverOnly ? m_device2 : m_device1;
}

void MainWindowController::showOpeningPage()
{
    m_frame.showPage(m_opening, Step::opening);
}

void MainWindowController::showPreferencePage()
{
    m_frame.showPage(m_preparation, Step::preparation);
}

void MainWindowController::showSelectDevicePage()
{
    m_frame.showPage(devicePage(), Step::device);
}

void MainWindowController::inputCheckAndShowPrepPage()
{
    if (!m_device1.hasGoodAddress()) {
        ask(addressMessage());
        m_device1.selectFirstNumber();
        return;
    }
    showTarget(m_device1.chosenPrinter());
}

void MainWindowController::showPrepPage2()
{
    showTarget(m_device2.chosenPrinter());
}

void MainWindowController::showTarget(std::shared_ptr<PrinterInfo> printer)
{
    _targetPrinterInfo = std::move(printer);
    if (_targetPrinterInfo == nullptr) // no row was chosen
        return;
    m_confirmation.showTarget(*_targetPrinterInfo);
    m_frame.showPage(m_confirmation, Step::confirmation);
}

void MainWindowController::assignPrtNameBtnCellAction()
{
    m_device1.choosePrinter();
}

void MainWindowController::assignIPAddressBtnCellAction()
{
    m_device1.chooseAddress();
}

void MainWindowController::selectIPAddressTextEvent()
{
    assignIPAddressBtnCellAction();
}

void MainWindowController::startUpdateAction()
{
    const auto cutOffAt =
        _targetPrinterInfo != nullptr ? RunOnScreen::cutOffAt(*_targetPrinterInfo) : "";
    const int answer =
        ask(startQuestion(vymParseController::getAllowVersionDown() == yesno_yes, cutOffAt));
    if (answer == alert::kDefault)
        startUpdate();
    else if (answer == alert::kAlternate)
        cancelUpdate();
}

void MainWindowController::cancelUpdate()
{
    if (ask(cancelQuestion()) == alert::kDefault)
        end();
}

int MainWindowController::ask(const Alert& question)
{
    if (m_isAsking) // some assistive programs reach the window under the question
        return alert::kOther;
    m_isAsking = true;
    const int answer = m_setup.alerts->run(question);
    m_isAsking = false;
    // The program may have been ended from outside during the question.
    return m_hasEnded ? alert::kOther : answer;
}

void MainWindowController::end()
{
    if (m_hasEnded)
        return;
    m_hasEnded = true;
    m_frame.window().hide(); // first: nothing that follows keeps it on the screen
    emit ended();
}

bool MainWindowController::isStillSearching() const
{
    return m_device1.isBusy() || m_device2.isBusy();
}

// An open question needs no answer any more; its event loop must not go on.
bool MainWindowController::endUnlessRunning(const std::string& what)
{
    if (m_progress.isOpen()) {
        m_run.refuseEnd(what);
        return false;
    }
    end();
    if (auto* question = QApplication::activeModalWidget(); question != nullptr)
        question->close();
    return true;
}

void MainWindowController::startUpdate()
{
    if (m_progress.isOpen()) // one run per process
        return;
    m_frame.window().hide();
    if (const auto code = m_run.begin(_targetPrinterInfo); code.has_value()) {
        endUpdate(*code);
        return;
    }
    _updateStatusTimer = new QTimer(this);
    connect(_updateStatusTimer, &QTimer::timeout, this,
            &MainWindowController::updateStatusTimerFunc);
    _updateStatusTimer->start(WatchedRun::kLookInterval);
}

void MainWindowController::updateStatusTimerFunc()
{
    if (const auto code = m_run.look(); code.has_value())
        endUpdate(*code);
}

void MainWindowController::endUpdate(std::int32_t code)
{
    if (_updateStatusTimer != nullptr) {
        _updateStatusTimer->stop();
        _updateStatusTimer->deleteLater();
        _updateStatusTimer = nullptr;
    }
    tell(m_run.end(code));
    end();
}

void MainWindowController::tell(const Alert& message)
{
    auto shown = m_report.withOffer(message);
    const auto printer =
        _targetPrinterInfo != nullptr ? _targetPrinterInfo->printerURI().value_or("") : "";
    for (int answer = ask(shown); answer == alert::kExtra || answer == alert::kQuery;
         answer = ask(shown)) {
        if (answer == alert::kQuery)
            shown = m_report.withOffer(m_run.checkInstalled());
        else if (const auto saved = m_report.save(printer); saved.has_value())
            ask(*saved);
    }
}

void MainWindowController::choosePackage()
{
    if (m_setup.files == nullptr)
        return;
    auto file = m_setup.files->fileToOpen(words::plain(textkey::kStartChoosePackage),
                                          {"VYMBINDDATA *.vymbind", "*"});
    if (file.empty() || m_hasEnded)
        return;
    m_chosenPackage = std::move(file);
    end();
}

#include "moc_MainWindowController.cpp"
