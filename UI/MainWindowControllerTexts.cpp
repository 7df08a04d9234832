// The words of both windows, what a screen reader says of them, and how they look.
#include "UI/MainWindowController.h"
#include "UI/Text/TextFormat.h"
#include "UI/Text/TextKeys.h"
#include "UI/VYM_Utilities.h"
#include "UI/Widgets/Look.h"
#include "UI/vymParseController.h"

#include <QApplication>
#include <QStyle>

namespace {

constexpr int kNumbersOfAddress = 4;
constexpr double kCardSign = 3; // in sizes of a small icon
constexpr double kHeroIcon = 2; // in sizes of a message's icon

QString formatted(const char* key, std::uint32_t argument)
{
    const auto format = QCoreApplication::translate(kTextContext, key).toStdString();
    return QString::fromStdString(formatText(format, argument));
}

} // namespace

QString MainWindowController::text(const char* key)
{
    return QString::fromStdString(formatText(plain(key)));
}

std::string MainWindowController::plain(const char* key)
{
    return QCoreApplication::translate(kTextContext, key).toStdString();
}

void MainWindowController::_setLocalizedStrings()
{
    _mainwindow->setWindowTitle(text(textkey::kApplication));
    setOpeningTexts();
    setPreferenceTexts();
    setSelectDevice1Texts();
    setConfirmationTexts();
    setUpdateTexts();
    setSelectDevice2Texts();
    _stepBar->setSteps({text(textkey::kStepOpening), text(textkey::kStepPreparation),
                        text(textkey::kStepDevice), text(textkey::kStepConfirmation),
                        text(textkey::kStepUpdate)});
    nameControls();
}

void MainWindowController::setOpeningTexts()
{
    _AppCommentTxtField->setText(text(textkey::kStartDescription));
    _targetDeviceTitle->setText(text(textkey::kStartDevNameTitle));
    _firmInfoTxt->setText(text(textkey::kStartFirmInfoTitle));
    _firmList_type_col.setTitle(text(textkey::kStartListTypeTitle));
    _firmList_version_col.setTitle(text(textkey::kStartListVerTitle));
    _openingVersionTxt->setText(
        QString::fromStdString(formatText(plain(textkey::kStartVersionTxt), m_setup.version)));
    _openingNextBtn->setText(text(textkey::kNext));
    _openingCancelBtn->setText(text(textkey::kCancel));
}

void MainWindowController::setPreferenceTexts()
{
    _updatePrepTitleTxt->setText(text(textkey::kPreferenceDescription));
    _updatePrepVerificationTxt->setText(text(textkey::kPreferenceCheckPointTitle));
    _updatePrepItemsTxt->setText(text(textkey::kPreferenceCheckPoint));
    const bool needsOperation = vymParseController::getNeedEnterOperation() == yesno_yes;
    _updatePrepModeTxt->setText(needsOperation ? text(textkey::kPreferenceDownLoadMode)
                                               : QString());
    _updatePrepModeTxt->setVisible(needsOperation);
    _prefBackBtn->setText(text(textkey::kBack));
    _prefNextBtn->setText(text(textkey::kNext));
    _prefCancelBtn->setText(text(textkey::kCancel));
}

void MainWindowController::setSelectDevice1Texts()
{
    _selectDeviceTitle->setText(text(textkey::kDeviceDescription));
    _selectDeviceCmt->setText(text(textkey::kDeviceComment));
    _assignPrtNameBtnCell->setText(text(textkey::kDeviceSpecifyPrinterName));
    _assignIPAddressBtnCell->setText(text(textkey::kDeviceSpecifyIPAddress));
    _printerList_name_col.setTitle(text(textkey::kDeviceListPrinterName));
    _printerList_port_col.setTitle(text(textkey::kDeviceListPortName));
    _selDev1BackBtn->setText(text(textkey::kBack));
    _selDev1NextBtn->setText(text(textkey::kNext));
    _selDev1CancelBtn->setText(text(textkey::kCancel));
}

void MainWindowController::setSelectDevice2Texts()
{
    _selectDeviceTitle2->setText(text(textkey::kDeviceDescription));
    _selectDeviceCmt2->setText(text(textkey::kDeviceComment2));
    _assignPrtNameTxt2->setText(text(textkey::kDeviceSpecifyPrinterName));
    _printerList_name_col2.setTitle(text(textkey::kDeviceListPrinterName));
    _printerList_port_col2.setTitle(text(textkey::kDeviceListPortName));
    _selDev2BackBtn->setText(text(textkey::kBack));
    _selDev2NextBtn->setText(text(textkey::kNext));
    _selDev2CancelBtn->setText(text(textkey::kCancel));
}

void MainWindowController::setConfirmationTexts()
{
    _updateVerificationTitle->setText(text(textkey::kGuideDescription));
    _updateVerificationTxt->setText(text(textkey::kGuideComment));
    _targetDevNameTitle->setText(text(textkey::kGuideTargetDeviceTitle));
    _portNameTitle->setText(text(textkey::kGuidePortNameTitle));
    _startUpdateCmtTxt->setText(text(textkey::kGuideStartUpdateCmt));
    _prepBackBtn->setText(text(textkey::kBack));
    _prepStartBtn->setText(text(textkey::kStart));
    _prepCancelBtn->setText(text(textkey::kCancel));
}

void MainWindowController::setUpdateTexts()
{
    _updateWindow->setWindowTitle(text(textkey::kApplication));
    _updateCmtTxt->setText(text(textkey::kUpdateDescription));
    _attentionCmtTxt->setText(text(textkey::kUpdatePrecaution));
    _progressCmtTxt->setText({});
}

void MainWindowController::nameControls()
{
    const auto printers = text(textkey::kDeviceSpecifyPrinterName).remove(u'&');
    _firmInfoTblView->setAccessibleName(_firmInfoTxt->text());
    _prtListTblView->setAccessibleName(printers);
    _prtListTblView2->setAccessibleName(printers);
    for (auto* sign : {_searchAnimation, _searchAnimation2})
        sign->setAccessibleName(text(textkey::kDeviceSearching));
    _progressAnimation->setAccessibleName(text(textkey::kUpdateProgressName));
    _updatePrg->setAccessibleName(text(textkey::kUpdateProgressName));
    _openingImgView->setAccessibleName(text(textkey::kApplication));
    _targetImgView->setAccessibleName(text(textkey::kStepDevice));
    _updateInfoImgView->setAccessibleName(text(textkey::kNoteName));
    _updateWdwWarningImgView->setAccessibleName(text(textkey::kCautionName));
    _IPAddressMatrix->setAccessibleName(text(textkey::kDeviceAddressName));
    QStringList cells;
    for (std::uint32_t cell = 1; cell <= kNumbersOfAddress; ++cell)
        cells << formatted(textkey::kDeviceAddressCell, cell);
    _IPAddressMatrix->setCellNames(cells);
}

void MainWindowController::showIcon(QLabel& label, std::uint32_t type)
{
    const auto size = static_cast<unsigned>(
        label.style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, &label));
    const auto icon = VYM_Utilities::getSystemIcon(type, size);
    const auto own = type == kNoteIcon ? QStringLiteral("note") : QStringLiteral("caut");
    showPicture(label, icon.has_value() ? namedIcon(QString::fromLatin1(icon->name), own) : QIcon(),
                1);
}

void MainWindowController::showTargetSign()
{
    showPicture(*_targetImgView, signIcon(QStringLiteral("printer"), *_targetImgView, kCardSign),
                1);
}

void MainWindowController::dressAll()
{
    if (m_isDressing) // a control's new font or colours are told to its window as well
        return;
    m_isDressing = true;
    dressWindow(*_mainwindow);
    dressWindow(*_updateWindow);
    showPicture(*_openingImgView, QApplication::windowIcon(), kHeroIcon);
    // Drawings and icon themes take long to read: not before somebody sees the icon.
    if (_targetImgView->isVisible())
        showTargetSign();
    if (_updateInfoImgView->isVisible())
        showIcon(*_updateInfoImgView, kNoteIcon);
    if (_updateWdwWarningImgView->isVisible())
        showIcon(*_updateWdwWarningImgView, kCautionIcon);
    m_isDressing = false;
}
