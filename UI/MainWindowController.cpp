#include "UI/MainWindowController.h"

#include "UI/Package/SystemCheck.h"
#include "UI/Text/PlainText.h"
#include "UI/Text/TextFormat.h"
#include "UI/Text/TextKeys.h"
#include "UI/VYM_Utilities.h"
#include "UI/Widgets/LetterWidth.h"
#include "UI/Widgets/Look.h"
#include "UI/vymParseController.h"
#include "UI/vym_etc.h"

#include <QApplication>
#include <QHeaderView>
#include <QScreen>
#include <QScrollArea>

namespace {

// Far above any printer family; each row costs a walk through the whole description.
constexpr unsigned kMostFirmware = 1000;
// The window at first, in letters and lines of the user's font.
constexpr int kLettersWide = 108;
constexpr int kLinesHigh = 35;

template <typename List>
ListTable::DataSource sourceOf(const List& list, std::function<bool(int)> shouldSelectRow)
{
    return {[&list] { return list.numberOfRowsInTableView(); },
            [&list](std::string_view column, int row) {
                return list.objectValueForTableColumn(column, row);
            },
            std::move(shouldSelectRow),
            {}};
}

} // namespace

std::unique_ptr<MainWindowController> MainWindowController::create(MainWindowSetup setup,
                                                                   QString& problem)
{
    std::unique_ptr<MainWindowController> controller(new MainWindowController(std::move(setup)));
    problem = controller->loadForm(controller->m_setup.formFile);
    if (!problem.isEmpty())
        return nullptr;
    controller->awakeFromNib();
    return controller;
}

MainWindowController::MainWindowController(MainWindowSetup setup)
    : m_setup(std::move(setup)), _isUseDriverOnly(m_setup.isUseDriverOnly),
      m_search(m_setup.findPrinters)
{
}

void MainWindowController::awakeFromNib()
{
    m_ending.emplace(m_setup.endings,
                     [this](const std::string& what) { return endUnlessRunning(what); });
    vymParseController::loadData();
    if (!m_setup.packageProblem.empty())
        logPackageProblem();
    if (!checkOSVersion()) {
        tellUnsupportedSystem();
        return;
    }
    _IPAddressMatrix->setInputMode(InputNSMatrixControl::kAddressMode);
    connectTables();
    connectActions();
    _setLocalizedStrings();
    _targetDeviceTxt->setText(
        QString::fromStdString(plainText(vymParseController::getModelName())));
    _makeFirmWareList();
    dressAll();
    for (auto* window : {_mainwindow, _updateWindow})
        window->installEventFilter(this);
    showOpeningPage();
}

bool MainWindowController::checkOSVersion()
{
    long maxVersion = 0;
    long minVersion = 0;
    vymParseController::getPlatformMaxVersion(maxVersion, minVersion);
    return isSystemSupported(static_cast<std::int32_t>(get_system_version()),
                             static_cast<std::int32_t>(maxVersion),
                             static_cast<std::int32_t>(minVersion));
}

void MainWindowController::tellUnsupportedSystem()
{
    Alert told;
    told.title = plain(textkey::kUnSupportOSTitle);
    told.message = plain(textkey::kUnSupportOSMes);
    if (!m_setup.packageProblem.empty())
        told.details = formatText(plain(textkey::kUnSupportOSPackage), m_setup.packageProblem);
    told.style = AlertStyle::critical;
    told.defaultButton = plain(textkey::kOk);
    ask(told);
    end();
}

void MainWindowController::connectTables()
{
    m_firmwareTable->setDataSource(sourceOf(_firmware_list, &FirmwareList::shouldSelectRow));
    _firmInfoTblView->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    const auto anyRow = [](int) { return true; };
    auto* table = _isUseDriverOnly ? m_printerTable2 : m_printerTable;
    auto source = sourceOf(_printer_list, anyRow);
    source.picture = [this](int row) {
        const auto printer = _printer_list.printerInfoAtIndex(row);
        const bool isUsb = printer->printerURI().value_or("").starts_with("usb:");
        return signIcon(isUsb ? QStringLiteral("usb") : QStringLiteral("network"), printerTable(),
                        1);
    };
    table->setDataSource(std::move(source));
    connect(table, &QAbstractItemModel::modelReset, this, &MainWindowController::updateNextButton);
    connect(printerTable().selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &MainWindowController::keepOneRowSelected);
    connect(&m_search, &PrinterSearchThread::asking, this, [this](const QString& printer) {
        const auto named = formatText(plain(textkey::kDeviceAsking), printer.toStdString());
        showSearch(printer.isEmpty() ? text(textkey::kDeviceSearching)
                                     : QString::fromStdString(named),
                   true);
    });
    connect(&m_search, &PrinterSearchThread::finished, this,
            &MainWindowController::takeTargetPrinterList);
}

void MainWindowController::connectActions()
{
    using Action = void (MainWindowController::*)();
    const std::pair<QPushButton*, Action> actions[] = {
        {_openingNextBtn, &MainWindowController::showPreferencePage},
        {_prefBackBtn, &MainWindowController::showOpeningPage},
        {_prefNextBtn, &MainWindowController::showSelectDevicePage},
        {_selDev1BackBtn, &MainWindowController::showPreferencePage},
        {_selDev1NextBtn, &MainWindowController::inputCheckAndShowPrepPage},
        {_selDev2BackBtn, &MainWindowController::showPreferencePage},
        {_selDev2NextBtn, &MainWindowController::showPrepPage2},
        {_prepBackBtn, &MainWindowController::showSelectDevicePage},
        {_prepStartBtn, &MainWindowController::startUpdateAction},
        {_openingCancelBtn, &MainWindowController::cancelUpdate},
        {_prefCancelBtn, &MainWindowController::cancelUpdate},
        {_selDev1CancelBtn, &MainWindowController::cancelUpdate},
        {_selDev2CancelBtn, &MainWindowController::cancelUpdate},
        {_prepCancelBtn, &MainWindowController::cancelUpdate},
    };
    for (const auto& [button, action] : actions)
        connect(button, &QPushButton::clicked, this, action);
    // A screen reader switches a radio button without a click.
    connect(_assignPrtNameBtnCell, &QRadioButton::toggled, this,
            &MainWindowController::assignPrtNameBtnCellAction);
    connect(_assignIPAddressBtnCell, &QRadioButton::toggled, this,
            &MainWindowController::assignIPAddressBtnCellAction);
    connect(_IPAddressMatrix, &InputNSMatrixControl::VYMMatrixSelect, this,
            &MainWindowController::selectIPAddressTextEvent);
    if (!_isUseDriverOnly) // a click into the table chooses its mode, as one into the address does
        connect(_prtListTblView, &QTableView::pressed, this,
                &MainWindowController::assignPrtNameBtnCellAction);
    _mainwindow->setLeaveAction([this] { cancelUpdate(); });
    // The toolkit scrolls to what the Tab key reaches, but not to what gets the focus otherwise.
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        auto* page = qobject_cast<QScrollArea*>(_mainTabView->currentWidget());
        if (page != nullptr && page->isAncestorOf(now))
            page->ensureWidgetVisible(now);
    });
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
    m_firmwareTable->reloadData();
}

void MainWindowController::show()
{
    const QFontMetrics metrics(QApplication::font());
    const auto screen = _mainwindow->screen()->availableGeometry();
    // Room for the title bar, which is not known yet; as much below keeps the window in the middle.
    const int bar = _mainwindow->style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const auto most = screen.size() - QSize(0, 2 * bar);
    const QSize wanted(letterWidth(metrics) * kLettersWide, metrics.height() * kLinesHigh);
    _mainwindow->resize(wanted.expandedTo(_mainwindow->minimumSizeHint()).boundedTo(most));
    _mainwindow->move(screen.center() - _mainwindow->rect().center());
    _mainwindow->show();
    _mainwindow->raise();
    _mainwindow->activateWindow();
}

int MainWindowController::ask(const Alert& question)
{
    if (m_isAsking) // some assistive programs reach a window behind the question
        return alert::kOther;
    m_isAsking = true;
    const int answer = m_setup.alerts->run(question);
    m_isAsking = false;
    return m_hasEnded ? alert::kOther : answer; // the program was ended from outside meanwhile
}

void MainWindowController::end()
{
    if (m_hasEnded)
        return;
    m_hasEnded = true;
    emit ended();
}

// A question needs no answer any more; an event loop of its own would go on for it.
bool MainWindowController::endUnlessRunning(const std::string& what)
{
    if (_updateWindow->isVisible()) {
        refuseClosing();
        if (m_log.has_value())
            m_log->note(what + " asked the program to end; an update is never cut, so it goes on");
        return false;
    }
    end();
    if (auto* question = QApplication::activeModalWidget(); question != nullptr)
        question->close();
    return true;
}

bool MainWindowController::eventFilter(QObject* watched, QEvent* event)
{
    if (changesLook(*event))
        dressAll();
    return QObject::eventFilter(watched, event);
}
