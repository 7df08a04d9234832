// The wizard: one window with five pages, the questions that it puts, and the run that follows it
// in a window of its own. Which printers there are, which page comes next and what a result means
// is decided on the floors below; here it is shown.
//
// Owns:      both windows, the lists that their tables show, the chosen printer and the search for
//            printers.
// Threads:   the interface's own. Printers are asked on the search's thread.
// Invariant: content and button row always show the same page. While the page with printers shows
//            a list that is being made, the list is empty.
// Rooms:     start-up and the fields' first values in MainWindowController.cpp, then one source a
//            concern: Texts, Pages, Devices, Run.
#pragma once
#include "Platform/SleepInhibitor.h"
#include "UI/FirmwareList.h"
#include "UI/Pages/DevicePageRule.h"
#include "UI/Pages/EndRequests.h"
#include "UI/Pages/Form.h"
#include "UI/Pages/PrinterSearchThread.h"
#include "UI/PrinterList.h"
#include "UI/Run/RunLog.h"
#include "UI/Widgets/Alerts.h"

#include <QTimer>
#include <functional>
#include <string>

// What the window needs of the world around it.
struct MainWindowSetup {
    QString formFile; // "MainWindow.ui", wherever it lies
    Alerts* alerts = nullptr;
    PrinterSearchThread::Find findPrinters;
    std::string packageProblem; // why there is no usable package; empty where there is one
    std::string version; // of the program
    bool isUseDriverOnly = false; // choose among print queues only
    const EndingSignals* endings = nullptr; // outlive the window
};

class MainWindowController final : public QObject, private Form {
    Q_OBJECT

public:
    // Null where the interface file cannot be used; problem says why. A system that the package is
    // not for is told by an alert, and leaves a controller that has ended.
    static std::unique_ptr<MainWindowController> create(MainWindowSetup setup, QString& problem);
    ~MainWindowController() override;

    void show();
    // The program ends with this; where no event loop runs yet, none must be started.
    [[nodiscard]] bool hasEnded() const { return m_hasEnded; }

    void showOpeningPage();
    void showPreferencePage();
    void showSelectDevicePage();
    void inputCheckAndShowPrepPage();
    void showPrepPage2();
    void startUpdateAction(); // the question before the run
    void cancelUpdate();
    void assignPrtNameBtnCellAction();
    void assignIPAddressBtnCellAction();
    void selectIPAddressTextEvent();

    void startUpdate(); // the run itself
    void updateStatusTimerFunc();
    void endUpdate(std::int32_t code);

signals:
    void ended();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit MainWindowController(MainWindowSetup setup);

    // Start-up.
    void awakeFromNib();
    [[nodiscard]] static bool checkOSVersion();
    void tellUnsupportedSystem();
    void connectTables();
    void connectActions();
    void _makeFirmWareList();
    int ask(const Alert& question); // as Alerts answers; neither button while a question stands
    void end();
    bool endUnlessRunning(const std::string& what); // that asks for it, in words for the log

    // Texts and look.
    static QString text(const char* key); // the key's text, as a format without arguments
    static std::string plain(const char* key); // the same for an alert
    void _setLocalizedStrings();
    void setOpeningTexts();
    void setPreferenceTexts();
    void setSelectDevice1Texts();
    void setSelectDevice2Texts();
    void setConfirmationTexts();
    void setUpdateTexts();
    void nameControls();
    void showIcon(QLabel& label, std::uint32_t type);
    void showTargetSign();
    void dressAll();

    // Pages.
    void selectPage(const char* identifier);
    void didSelectTabViewItem(const QString& identifier);
    QPushButton* forwardButtonOf(const QString& identifier) const;
    void showTarget();

    // Device pages.
    void _makeTargetPrinterList();
    void takeTargetPrinterList(const TargetPrinters& found);
    void applyDevicePageRule();
    void applyDevicePage2Rule();
    void leaveDevicePage();
    void rememberSelectedRow();
    void keepOneRowSelected();
    void showSearch(const QString& words, bool isSearching);
    void showMode(DeviceMode mode);
    void updateNextButton();
    void setTabOrderForIPAddressSelect();
    void setTabOrderForPrinterSelect();
    [[nodiscard]] vymTableView& printerTable() const;
    [[nodiscard]] bool isTypingAddress() const;

    // The run.
    void fitProgressLine();
    void fitUpdateWindow();
    void showUpdateWindow();
    void refuseClosing();
    void keepAwake();
    void beginLog();
    void logPackageProblem() const;
    void endLog(int code);
    void showStage(const char* key, std::optional<std::uint32_t> number);
    void showProgress(double percent);
    [[nodiscard]] std::string detailsOf(int code) const;
    [[nodiscard]] Alert resultAlert(int code) const;

    MainWindowSetup m_setup;
    FirmwareList _firmware_list;
    PrinterList _printer_list;
    std::shared_ptr<PrinterInfo> _targetPrinterInfo;
    std::int32_t _selectedRowPrtList = 0;
    QTimer* _updateStatusTimer = nullptr;
    bool _isUseDriverOnly = false;

    std::optional<EndRequests> m_ending;
    PrinterSearchThread m_search;
    PrinterList::Records m_formerPrinters; // what the list held before it was made anew
    bool m_allowsEmptySelection = true; // of the first page's table
    std::optional<RunLog> m_log; // of the run
    std::optional<SleepInhibitor> m_inhibitor; // while a run goes on
    bool m_isDressing = false;
    bool m_isAsking = false;
    bool m_hasEnded = false;
};
