// SPDX-License-Identifier: MIT
#include "UI/Pages/Page.h"

#include "UI/Pages/Words.h"
#include "UI/Text/TextKeys.h"

Page::Page(Form& form, const char* identifier, const ButtonNames& names)
{
    form.findPage(m_content, "_mainTabView", identifier);
    form.findPage(m_buttonRow, "_buttonTabView", identifier);
    if (names.back != nullptr)
        form.find(m_back, names.back);
    form.find(m_forward, names.forward);
    form.find(m_cancel, names.cancel);
}

void Page::setButtonTexts(const char* forwardKey)
{
    if (m_back != nullptr)
        m_back->setText(words::text(textkey::kBack));
    m_forward->setText(words::text(forwardKey));
    m_cancel->setText(words::text(textkey::kCancel));
}
