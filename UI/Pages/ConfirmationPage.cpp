// SPDX-License-Identifier: MIT
#include "UI/Pages/ConfirmationPage.h"

#include "UI/Pages/Words.h"
#include "UI/Text/PlainText.h"
#include "UI/Text/TextKeys.h"
#include "UI/Widgets/Look.h"

namespace {

constexpr double kCardSign = 3; // in sizes of a small icon

// A print server's URIs end before this: none is cut, and with it the serial number at its end.
constexpr std::size_t kLongestUri = 1024;

QString shownText(const PrinterInfo::Text& text, std::size_t limit)
{
    return QString::fromStdString(plainText(text.value_or(""), limit));
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
    _targetDevNameTitle->setBuddy(_targetDevNameTxt); // to a screen reader, its value's caption
    _portNameTitle->setBuddy(_portNameTxt);
    _targetImgView->setAccessibleName(words::text(textkey::kStepDevice));
    setButtonTexts(textkey::kStart);
}

// Drawings take long to read, so this waits until the page is visible.
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
    _targetDevNameTxt->setText(shownText(printer.printerName(), kDisplayLimit));
    _portNameTxt->setText(shownText(printer.printerURI(), kLongestUri));
}
