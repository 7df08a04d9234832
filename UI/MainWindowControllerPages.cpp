// Which page is shown, and the questions that stand between the pages, the run and the end.
#include "UI/MainWindowController.h"
#include "UI/Pages/DevicePageRule.h"
#include "UI/Text/PlainText.h"
#include "UI/Text/TextKeys.h"
#include "UI/VYM_Utilities.h"
#include "UI/vymParseController.h"

#include <QScrollArea>
#include <algorithm>
#include <array>

namespace {

struct StepOfPage {
    const char* page;
    int step; // both device pages are the same step
};
constexpr std::array<StepOfPage, 5> kSteps = {{
    {page::kOpening, 0},
    {page::kPreference, 1},
    {page::kSelectDevice1, 2},
    {page::kSelectDevice2, 2},
    {page::kConfirmation, 3},
}};

int stepOf(const QString& identifier)
{
    const auto* row = std::find_if(kSteps.begin(), kSteps.end(), [&identifier](const auto& each) {
        return identifier == QLatin1String(each.page);
    });
    return row != kSteps.end() ? row->step : 0;
}

} // namespace

void MainWindowController::selectPage(const char* identifier)
{
    auto* shown = pageOf(*_mainTabView, identifier);
    if (auto* area = qobject_cast<QScrollArea*>(shown))
        area->setWidgetResizable(true); // not in the form: a page that nobody sees needs no layout
    _mainTabView->setCurrentWidget(shown);
    _buttonTabView->setCurrentWidget(pageOf(*_buttonTabView, identifier));
    const QString page = QLatin1String(identifier);
    _stepBar->setCurrentStep(stepOf(page));
    auto* forward = forwardButtonOf(page);
    forward->setDefault(true);
    forward->setFocus();
    didSelectTabViewItem(page);
}

QPushButton* MainWindowController::forwardButtonOf(const QString& identifier) const
{
    if (identifier == QLatin1String(page::kPreference))
        return _prefNextBtn;
    if (identifier == QLatin1String(page::kSelectDevice1))
        return _selDev1NextBtn;
    if (identifier == QLatin1String(page::kSelectDevice2))
        return _selDev2NextBtn;
    if (identifier == QLatin1String(page::kConfirmation))
        return _prepStartBtn;
    return _openingNextBtn;
}

void MainWindowController::showOpeningPage()
{
    selectPage(page::kOpening);
}

void MainWindowController::showPreferencePage()
{
    leaveDevicePage();
    showIcon(*_updateInfoImgView, kNoteIcon);
    selectPage(page::kPreference);
}

void MainWindowController::showSelectDevicePage()
{
    _makeTargetPrinterList();
    selectPage(_isUseDriverOnly ? page::kSelectDevice2 : page::kSelectDevice1);
}

void MainWindowController::inputCheckAndShowPrepPage()
{
    const auto address = _IPAddressMatrix->cellValueArray();
    if (_assignIPAddressBtnCell->isChecked() && !inputCheckForIPAddress(address)) {
        Alert told;
        told.title = plain(textkey::kDeviceAlertInputAddressTitle);
        told.message = plain(textkey::kDeviceAlertInputAddressMes);
        told.style = AlertStyle::critical;
        told.defaultButton = plain(textkey::kOk);
        ask(told);
        _IPAddressMatrix->selectTextAtColumn(0);
        return;
    }
    if (_assignPrtNameBtnCell->isChecked()) {
        _targetPrinterInfo = _printer_list.printerInfoAtIndex(selectedRowOf(*_prtListTblView));
    } else {
        const auto model = vymParseController::getModelName();
        _targetPrinterInfo = PrinterInfo::initWithPrinterName(model, model, joinedAddress(address));
        _IPAddressMatrix->setCellValue(address);
    }
    showTarget();
}

void MainWindowController::showPrepPage2()
{
    _targetPrinterInfo = _printer_list.printerInfoAtIndex(selectedRowOf(*_prtListTblView2));
    showTarget();
}

void MainWindowController::showTarget()
{
    if (_targetPrinterInfo == nullptr) // no row was chosen
        return;
    leaveDevicePage();
    const auto shown = [](const PrinterInfo::Text& each) {
        return QString::fromStdString(plainText(each.value_or("")));
    };
    _targetDevNameTxt->setText(shown(_targetPrinterInfo->printerName()));
    _portNameTxt->setText(shown(_targetPrinterInfo->printerURI()));
    showTargetSign();
    selectPage(page::kConfirmation);
}

void MainWindowController::startUpdateAction()
{
    const bool anyVersion = vymParseController::getAllowVersionDown() == yesno_yes;
    Alert question;
    question.title =
        plain(anyVersion ? textkey::kConfirmationVerDownTitle : textkey::kConfirmationNormalTitle);
    question.message = plain(anyVersion ? textkey::kConfirmationVerDownDescription
                                        : textkey::kConfirmationNormalDescription);
    question.style = AlertStyle::critical;
    question.defaultButton = plain(textkey::kYes);
    question.alternateButton = plain(textkey::kNo);
    question.returnKey = AlertReturn::pressesAlternate; // a run cannot be taken back
    const int answer = ask(question);
    if (answer == alert::kDefault)
        startUpdate();
    else if (answer == alert::kAlternate)
        cancelUpdate();
}

void MainWindowController::cancelUpdate()
{
    Alert question;
    question.title = plain(textkey::kCancelMesTitle);
    question.message = plain(textkey::kCancelMessage);
    question.style = AlertStyle::critical;
    question.defaultButton = plain(textkey::kYes);
    question.alternateButton = plain(textkey::kNo);
    question.returnKey = AlertReturn::pressesAlternate; // what was chosen so far would be lost
    if (ask(question) == alert::kDefault)
        end();
}
