// SPDX-License-Identifier: MIT
// The page with the user's preparations before an update.
//
// Owns:    nothing.
// Threads: the interface's own.
#pragma once
#include "UI/Pages/Page.h"

#include <QLabel>

class PreparationPage final : public Page {
public:
    explicit PreparationPage(Form& form);

    void setTexts() override;
    void dress() override;
    void enter() override;

private:
    QLabel* _updatePrepTitleTxt = nullptr;
    QLabel* _updatePrepVerificationTxt = nullptr;
    QLabel* _updatePrepItemsTxt = nullptr;
    QLabel* _updatePrepModeTxt = nullptr;
    QLabel* _updateInfoImgView = nullptr;
};
