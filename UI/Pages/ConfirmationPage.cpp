#include "UI/Pages/ConfirmationPage.h"

#include "UI/Pages/Words.h"
#include "UI/Text/PlainText.h"
#include "UI/Text/TextKeys.h"
#include "UI/Widgets/Look.h"

namespace {

constexpr double kCardSign = 3; // in sizes of a small icon

QString shown(const PrinterInfo::Text& text)
{
    return QString::fromStdString(plainText(text.value_or("")));
}

} // namespace

ConfirmationPage::ConfirmationPage(Form& form)
    : Page(form, "ConfirmationScreen", {"_prepBackBtn", "_prepStartBtn", "_prepCancelBtn"})
{
    form.find(_updateVerificationTitle, "_updateVerificationTitle");
    form.find(_updateVerificationTxt, "_updateVerificationTxt");
    form.find(_targetDevNameTitle, "_targetDevNameTitle");
    form.find(_targetDevNameTxt, "_targetDevNameTxt");
    form.find(_portNameTitle, "_portNameTitle");
    form.find(_portNameTxt, "_portNameTxt");
    form.find(_targetImgView, "_targetImgView");
    form.find(_startUpdateCmtTxt, "_startUpdateCmtTxt");
}

void ConfirmationPage::setTexts()
{
    _updateVerificationTitle->setText(words::text(textkey::kGuideDescription));
    _updateVerificationTxt->setText(words::text(textkey::kGuideComment));
    _targetDevNameTitle->setText(words::text(textkey::kGuideTargetDeviceTitle));
    _portNameTitle->setText(words::text(textkey::kGuidePortNameTitle));
    _startUpdateCmtTxt->setText(words::text(textkey::kGuideStartUpdateCmt));
    _targetImgView->setAccessibleName(words::text(textkey::kStepDevice));
    setButtonTexts(textkey::kStart);
}

// Drawings take long to read: not before the page is seen.
void ConfirmationPage::dress()
{
    if (_targetImgView->isVisible())
        enter();
}

void ConfirmationPage::enter()
{
    showPicture(*_targetImgView, signIcon(QStringLiteral("printer"), *_targetImgView, kCardSign),
                1);
}

void ConfirmationPage::showTarget(const PrinterInfo& printer)
{
    _targetDevNameTxt->setText(shown(printer.printerName()));
    _portNameTxt->setText(shown(printer.printerURI()));
}
