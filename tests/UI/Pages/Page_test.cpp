// SPDX-License-Identifier: MIT
#include "UI/Pages/Page.h"
#include "tests/UI/Wizard.h"

#include <gtest/gtest.h>

namespace {

class BarePage : public Page {
public:
    using Page::Page;
    void setTexts() override { setButtonTexts("Start"); }
};

} // namespace

TEST(Page, FindsItsContentItsButtonRowAndItsButtons)
{
    Form form;
    ASSERT_EQ(form.load(Wizard().setup.formFile), "");
    BarePage page(form, "ConfirmationScreen", {"_prepBackBtn", "_prepStartBtn", "_prepCancelBtn"});
    ASSERT_EQ(form.finish(), "");
    EXPECT_EQ(page.content()->objectName(), "ConfirmationScreen");
    EXPECT_NE(page.content(), page.buttonRow());
    EXPECT_TRUE(page.buttonRow()->isAncestorOf(page.forwardButton()));
    page.setTexts();
    EXPECT_EQ(page.backButton()->text(), "Back");
    EXPECT_EQ(page.forwardButton()->text(), "Start");
    EXPECT_EQ(page.cancelButton()->text(), "Cancel");
}

TEST(Page, MayBeTheFirstOne)
{
    Form form;
    ASSERT_EQ(form.load(Wizard().setup.formFile), "");
    BarePage page(form, "OpeningPage", {nullptr, "_openingNextBtn", "_openingCancelBtn"});
    ASSERT_EQ(form.finish(), "");
    EXPECT_EQ(page.backButton(), nullptr);
    page.setTexts();
    EXPECT_EQ(page.forwardButton()->text(), "Start");
}

TEST(Page, OfAnotherNameIsMissing)
{
    Form form;
    ASSERT_EQ(form.load(Wizard().setup.formFile), "");
    const BarePage page(form, "NoSuchPage", {nullptr, "_openingNextBtn", "_openingCancelBtn"});
    EXPECT_EQ(form.finish(),
              "these controls are missing: _mainTabView/NoSuchPage, "
              "_buttonTabView/NoSuchPage");
}
