// SPDX-License-Identifier: MIT
// The page that shows the printer to be updated, before the question.
//
// Owns:    nothing.
// Threads: the interface's own.
#pragma once
#include "UI/Pages/Page.h"
#include "UI/PrinterInfo.h"

#include <QLabel>

class ConfirmationPage final : public Page {
public:
    explicit ConfirmationPage(Form& form);

    void setTexts() override;
    void dress() override;
    void enter() override;
    void showTarget(const PrinterInfo& printer);

private:
    QLabel* _updateVerificationTitle = nullptr;
    QLabel* _updateVerificationTxt = nullptr;
    QLabel* _targetDevNameTitle = nullptr;
    QLabel* _targetDevNameTxt = nullptr;
    QLabel* _portNameTitle = nullptr;
    QLabel* _portNameTxt = nullptr;
    QLabel* _targetImgView = nullptr;
    QLabel* _startUpdateCmtTxt = nullptr;
};
