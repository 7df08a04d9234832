// SPDX-License-Identifier: MIT
// The first page: the model and the firmware of the package.
//
// Owns:    nothing; the controller owns the list of firmware, which outlives the page.
// Threads: the interface's own.
#pragma once
#include "UI/FirmwareList.h"
#include "UI/Pages/Page.h"

#include <QLabel>
#include <string>

class OpeningPage final : public Page {
public:
    // version: of the program.
    OpeningPage(Form& form, const FirmwareList& firmware, std::string version);

    void setTexts() override;
    void dress() override;
    void showPackage(const std::string& model); // and the present rows of the list
    // Instead of a package: there is none yet, and the button to choose one.
    void showMissingPackage();
    [[nodiscard]] QPushButton* chooseButton() const { return m_choose; } // null with a package
    void takeFocus() override;
    void showSignature(const std::string& signature); // whose it is; after the texts are set

private:
    const FirmwareList& m_firmware;
    std::string m_version;

    QLabel* _openingImgView = nullptr;
    QLabel* _AppCommentTxtField = nullptr;
    QLabel* _targetDeviceTitle = nullptr;
    QLabel* _targetDeviceTxt = nullptr;
    QLabel* _firmInfoTxt = nullptr;
    QTableView* _firmInfoTblView = nullptr;
    ListTable* m_table = nullptr; // the view's rows
    ListColumn _firmList_type_col;
    ListColumn _firmList_version_col;
    QLabel* _openingVersionTxt = nullptr;
    QPushButton* m_choose = nullptr;
};
