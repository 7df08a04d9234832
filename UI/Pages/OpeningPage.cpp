// SPDX-License-Identifier: MIT
#include "UI/Pages/OpeningPage.h"

#include "UI/Pages/Words.h"
#include "UI/Text/PlainText.h"
#include "UI/Text/TextKeys.h"
#include "UI/Widgets/Look.h"

#include <QApplication>
#include <QHeaderView>
#include <QVBoxLayout>

namespace {

constexpr double kHeroIcon = 2; // in sizes of a message's icon

} // namespace

OpeningPage::OpeningPage(Form& form, const FirmwareList& firmware, std::string version)
    : Page(form, "OpeningPage", {nullptr, "_openingNextBtn", "_openingCancelBtn"}),
      m_firmware(firmware), m_version(std::move(version))
{
    form.find(_openingImgView, "_openingImgView");
    form.find(_AppCommentTxtField, "_AppCommentTxtField");
    form.find(_targetDeviceTitle, "_targetDeviceTitle");
    form.find(_targetDeviceTxt, "_targetDeviceTxt");
    form.find(_firmInfoTxt, "_firmInfoTxt");
    form.require<QFrame>("_firmInfoScrView");
    form.findTable(_firmInfoTblView, m_table, "_firmInfoTblView");
    form.findColumn(_firmList_type_col, m_table, "_firmList_type_col");
    form.findColumn(_firmList_version_col, m_table, "_firmList_version_col");
    form.find(_openingVersionTxt, "_openingVersionTxt");
}

void OpeningPage::setTexts()
{
    _AppCommentTxtField->setText(words::text(textkey::kStartDescription));
    _targetDeviceTitle->setText(words::text(textkey::kStartDevNameTitle));
    _firmInfoTxt->setText(words::text(textkey::kStartFirmInfoTitle));
    _firmList_type_col.setTitle(words::text(textkey::kStartListTypeTitle));
    _firmList_version_col.setTitle(words::text(textkey::kStartListVerTitle));
    _openingVersionTxt->setText(words::text(textkey::kStartVersionTxt, m_version));
    setButtonTexts(textkey::kNext);
    _targetDeviceTitle->setBuddy(_targetDeviceTxt); // to a screen reader, its value's caption
    _firmInfoTxt->setBuddy(_firmInfoTblView);
    _firmInfoTblView->setAccessibleName(_firmInfoTxt->text());
    _openingImgView->setAccessibleName(words::text(textkey::kApplication));
}

void OpeningPage::dress()
{
    showPicture(*_openingImgView, QApplication::windowIcon(), kHeroIcon);
}

void OpeningPage::showPackage(const std::string& model)
{
    _targetDeviceTxt->setText(QString::fromStdString(plainText(model)));
    m_table->setDataSource({[this] { return m_firmware.numberOfRowsInTableView(); },
                            [this](std::string_view column, int row) {
                                return m_firmware.objectValueForTableColumn(column, row);
                            },
                            &FirmwareList::shouldSelectRow,
                            {}});
    _firmInfoTblView->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    if (m_firmware.numOfFirmware() == 0)
        _firmInfoTblView->setFocusPolicy(Qt::NoFocus);
}

void OpeningPage::showSignature(const std::string& signature)
{
    _AppCommentTxtField->setText(_AppCommentTxtField->text() + QStringLiteral("\n\n")
                                 + words::text(textkey::kStartSignedWith, signature));
}

void OpeningPage::showMissingPackage()
{
    _targetDeviceTitle->hide();
    _targetDeviceTxt->setText(words::text(textkey::kStartNoPackageTitle));
    _targetDeviceTxt->setAlignment(Qt::AlignLeading | Qt::AlignVCenter);
    _AppCommentTxtField->setText(words::text(textkey::kStartNoPackage));
    _firmInfoTxt->hide();
    _firmInfoTblView->parentWidget()->hide();
    m_choose = new QPushButton(words::text(textkey::kStartChoosePackage));
    m_choose->setObjectName(QStringLiteral("_choosePackageBtn"));
    auto* column = content()->findChild<QVBoxLayout*>(QStringLiteral("openingPageLayout"));
    if (column != nullptr)
        column->insertWidget(column->indexOf(_AppCommentTxtField) + 1, m_choose, 0,
                             Qt::AlignLeading);
    forwardButton()->setEnabled(false);
}

void OpeningPage::takeFocus()
{
    if (m_choose != nullptr)
        m_choose->setFocus();
    else
        Page::takeFocus();
}
