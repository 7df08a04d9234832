// SPDX-License-Identifier: MIT
// The wizard: one window with five pages, the questions between them, and the run that follows in a
// window of its own. A page shows and keeps the user's choices; the controller knows their order.
//
// Owns:    both windows, the pages, the chosen printer and the run.
// Threads: the interface's own.
#pragma once
#include "UI/FirmwareList.h"
#include "UI/Package/PackageReason.h"
#include "UI/Pages/ConfirmationPage.h"
#include "UI/Pages/DevicePage.h"
#include "UI/Pages/EndRequests.h"
#include "UI/Pages/OpeningPage.h"
#include "UI/Pages/PreparationPage.h"
#include "UI/Pages/ProgressWindow.h"
#include "UI/Pages/ReportOffer.h"
#include "UI/Pages/RunOnScreen.h"
#include "UI/Pages/WizardFrame.h"
#include "UI/Widgets/Alerts.h"
#include "UI/Widgets/FileQuestions.h"

#include <QTimer>
#include <array>
#include <functional>
#include <optional>
#include <string>

// The window's environment.
struct MainWindowSetup {
    QString formFile; // the path of "MainWindow.ui"
    Alerts* alerts = nullptr; // must be set
    PrinterSearchThread::Find findPrinters;
    std::string packageProblem; // why there is no usable package; empty if there is one
    PackageReason packageReason; // the same for the user's language; none: the problem is shown
    std::string packageSignature; // whose signature it bears; empty where none was checked
    std::string version; // of the program
    bool isUseDriverOnly = false; // offer only print queues
    const EndingSignals* endings = nullptr; // must outlive the window
    FileQuestions* files = nullptr; // null: no file can be chosen
    bool isPackageMissing = false; // none was named, and none is where packages are kept
    ReportOffer::Compose composeReport; // empty: no report is offered
};

class MainWindowController final : public QObject {
    Q_OBJECT

public:
    // Null if the interface file cannot be used; problem says why. On an unsupported system an
    // alert is shown, and the returned controller has already ended.
    static std::unique_ptr<MainWindowController> create(MainWindowSetup setup, QString& problem);
    // Stops a run that is still going on, and waits for it: a transfer is never cut.
    ~MainWindowController() override;

    void show();
    // The program ends with this code; if no event loop runs yet, none must be started.
    [[nodiscard]] bool hasEnded() const { return m_hasEnded; }
    // A search for printers still waits for one; destruction would wait for it.
    [[nodiscard]] bool isStillSearching() const;
    // The package that the user chose where there was none: the process can open only one, so the
    // caller starts the program again with it. Empty if none was chosen.
    [[nodiscard]] const std::string& chosenPackage() const { return m_chosenPackage; }

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
    MainWindowController(MainWindowSetup setup, std::unique_ptr<Form> form);

    void awakeFromNib();
    [[nodiscard]] bool checkOSVersion();
    void showStart();
    void connectControls();
    void _makeFirmWareList();
    void _setLocalizedStrings();
    void dressAll();
    void showTarget(std::shared_ptr<PrinterInfo> printer);
    [[nodiscard]] DevicePage& devicePage();
    [[nodiscard]] std::array<Page*, 5> pages();
    // The answer of Alerts; neither button while another question is open.
    int ask(const Alert& question);
    void tell(const Alert& message); // and save the report, if the user wants it
    void choosePackage();
    void end();
    bool endUnlessRunning(const std::string& what); // the source of the request, for the log

    MainWindowSetup m_setup;
    ReportOffer m_report;
    std::string m_chosenPackage;
    std::unique_ptr<Form> m_form;
    FirmwareList _firmware_list;
    std::shared_ptr<PrinterInfo> _targetPrinterInfo;
    QTimer* _updateStatusTimer = nullptr;
    bool _isUseDriverOnly = false;

    WizardFrame m_frame;
    OpeningPage m_opening;
    PreparationPage m_preparation;
    DevicePage m_device1;
    DevicePage m_device2;
    ConfirmationPage m_confirmation;
    ProgressWindow m_progress;
    RunOnScreen m_run;

    std::optional<EndRequests> m_ending;
    bool m_isDressing = false;
    bool m_isAsking = false;
    bool m_hasEnded = false;
};
