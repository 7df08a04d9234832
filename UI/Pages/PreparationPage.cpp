// SPDX-License-Identifier: MIT
#include "UI/Pages/PreparationPage.h"

#include "UI/Pages/SystemSign.h"
#include "UI/Pages/Words.h"
#include "UI/Text/TextKeys.h"
#include "UI/VYM_Utilities.h"
#include "UI/vymParseController.h"

PreparationPage::PreparationPage(Form& form)
    : Page(form, "PreferencePage", {"_prefBackBtn", "_prefNextBtn", "_prefCancelBtn"})
{
    form.find(_updatePrepTitleTxt, "_updatePrepTitleTxt");
    form.find(_updatePrepVerificationTxt, "_updatePrepVerificationTxt");
    form.find(_updatePrepItemsTxt, "_updatePrepItemsTxt");
    form.find(_updatePrepModeTxt, "_updatePrepModeTxt");
    form.find(_updateInfoImgView, "_updateInfoImgView");
}

void PreparationPage::setTexts()
{
    _updatePrepTitleTxt->setText(words::text(textkey::kPreferenceDescription));
    _updatePrepVerificationTxt->setText(words::text(textkey::kPreferenceCheckPointTitle));
    _updatePrepItemsTxt->setText(words::text(textkey::kPreferenceCheckPoint));
    const bool needsOperation = vymParseController::getNeedEnterOperation() == yesno_yes;
    _updatePrepModeTxt->setText(needsOperation ? words::text(textkey::kPreferenceDownLoadMode)
                                               : QString());
    _updatePrepModeTxt->setVisible(needsOperation);
    _updateInfoImgView->setAccessibleName(words::text(textkey::kNoteName));
    setButtonTexts(textkey::kNext);
}

// Drawings and icon themes take long to read, so this waits until the page is visible.
void PreparationPage::dress()
{
    if (_updateInfoImgView->isVisible())
        enter();
}

void PreparationPage::enter()
{
    showSystemSign(*_updateInfoImgView, kNoteIcon);
}
