// The controls of both windows, by the names that they have in the interface file, and the file's
// reading. A control that the file lacks, or has as another kind, makes the file a broken one.
//
// Owns:      both windows, and with them every control.
// Threads:   the interface's own.
// Invariant: after loadForm has answered with no problem, every field is set and each of the page
//            identifiers is a page of both tab views.
#pragma once
#include "UI/InputNSMatrixControl.h"
#include "UI/Widgets/BusySign.h"
#include "UI/Widgets/ListTable.h"
#include "UI/Widgets/ParagraphLabel.h"
#include "UI/Widgets/StepBar.h"
#include "UI/Widgets/WizardWindow.h"
#include "UI/vymTableView.h"

#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <memory>

namespace page {
constexpr const char* kOpening = "OpeningPage";
constexpr const char* kPreference = "PreferencePage";
constexpr const char* kSelectDevice1 = "SelectDevice1";
constexpr const char* kSelectDevice2 = "SelectDevice2";
constexpr const char* kConfirmation = "ConfirmationScreen";
} // namespace page

class Form {
protected:
    Form() = default;
    ~Form();

    // What is wrong with the file; empty when every field is set.
    QString loadForm(const QString& path);
    // The page of that identifier, null where the view has none.
    static QWidget* pageOf(const QStackedWidget& view, const char* identifier);

    WizardWindow* _mainwindow = nullptr;
    QStackedWidget* _mainTabView = nullptr;
    QStackedWidget* _buttonTabView = nullptr;
    QFrame* _horizontalLine = nullptr;
    StepBar* _stepBar = nullptr;

    QLabel* _openingImgView = nullptr;
    QLabel* _AppCommentTxtField = nullptr;
    QLabel* _targetDeviceTitle = nullptr;
    QLabel* _targetDeviceTxt = nullptr;
    QLabel* _firmInfoTxt = nullptr;
    QFrame* _firmInfoScrView = nullptr;
    QTableView* _firmInfoTblView = nullptr;
    ListColumn _firmList_type_col;
    ListColumn _firmList_version_col;
    QPushButton* _openingNextBtn = nullptr;
    QPushButton* _openingCancelBtn = nullptr;
    QLabel* _openingVersionTxt = nullptr;

    QLabel* _updatePrepTitleTxt = nullptr;
    QLabel* _updatePrepVerificationTxt = nullptr;
    QLabel* _updatePrepItemsTxt = nullptr;
    QLabel* _updatePrepModeTxt = nullptr;
    QLabel* _updateInfoImgView = nullptr;
    QPushButton* _prefBackBtn = nullptr;
    QPushButton* _prefNextBtn = nullptr;
    QPushButton* _prefCancelBtn = nullptr;

    QLabel* _selectDeviceTitle = nullptr;
    QLabel* _selectDeviceCmt = nullptr;
    QRadioButton* _assignPrtNameBtnCell = nullptr;
    QRadioButton* _assignIPAddressBtnCell = nullptr;
    QFrame* _prtListScrView = nullptr;
    vymTableView* _prtListTblView = nullptr;
    ListColumn _printerList_name_col;
    ListColumn _printerList_port_col;
    BusySign* _searchAnimation = nullptr;
    QLabel* _searchTxt = nullptr;
    InputNSMatrixControl* _IPAddressMatrix = nullptr;
    QPushButton* _selDev1BackBtn = nullptr;
    QPushButton* _selDev1NextBtn = nullptr;
    QPushButton* _selDev1CancelBtn = nullptr;

    QLabel* _updateVerificationTitle = nullptr;
    QLabel* _updateVerificationTxt = nullptr;
    QLabel* _targetDevNameTitle = nullptr;
    QLabel* _targetDevNameTxt = nullptr;
    QLabel* _portNameTitle = nullptr;
    QLabel* _portNameTxt = nullptr;
    QLabel* _targetImgView = nullptr;
    QLabel* _startUpdateCmtTxt = nullptr;
    QPushButton* _prepBackBtn = nullptr;
    QPushButton* _prepStartBtn = nullptr;
    QPushButton* _prepCancelBtn = nullptr;

    WizardWindow* _updateWindow = nullptr;
    BusySign* _progressAnimation = nullptr;
    QLabel* _updateWdwWarningImgView = nullptr;
    QLabel* _updateCmtTxt = nullptr;
    QLabel* _attentionCmtTxt = nullptr;
    QLabel* _progressCmtTxt = nullptr;
    QProgressBar* _updatePrg = nullptr;
    QLabel* _closeRefusedTxt = nullptr;

    QLabel* _selectDeviceTitle2 = nullptr;
    QLabel* _selectDeviceCmt2 = nullptr;
    QLabel* _assignPrtNameTxt2 = nullptr;
    QFrame* _prtListScrView2 = nullptr;
    vymTableView* _prtListTblView2 = nullptr;
    ListColumn _printerList_name_col2;
    ListColumn _printerList_port_col2;
    BusySign* _searchAnimation2 = nullptr;
    QLabel* _searchTxt2 = nullptr;
    QPushButton* _selDev2BackBtn = nullptr;
    QPushButton* _selDev2NextBtn = nullptr;
    QPushButton* _selDev2CancelBtn = nullptr;

    // The tables' rows; columns are fields above.
    ListTable* m_firmwareTable = nullptr;
    ListTable* m_printerTable = nullptr;
    ListTable* m_printerTable2 = nullptr;

private:
    class Finder;

    void findWindows(Finder& find);
    void findOpeningPage(Finder& find);
    void findPreferencePage(Finder& find);
    void findSelectDevice1(Finder& find);
    void findSelectDevice2(Finder& find);
    void findConfirmationScreen(Finder& find);
    void findUpdateWindow(Finder& find);

    std::unique_ptr<QWidget> m_form; // both windows, until each is its own
    std::unique_ptr<QWidget> m_wizardOwner;
    std::unique_ptr<QWidget> m_updateOwner;
};
