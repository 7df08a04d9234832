// SPDX-License-Identifier: MIT
// The window that replaces the wizard during a run: shows the stage, what not to do meanwhile, and
// the progress.
//
// Owns:    nothing; the form owns the window and its controls.
// Threads: the interface's own.
// Does not watch the run: the controller supplies the texts.
#pragma once
#include "UI/Pages/Form.h"
#include "UI/Widgets/Announcer.h"
#include "UI/Widgets/BusySign.h"
#include "UI/Widgets/WizardWindow.h"

#include <QLabel>
#include <QProgressBar>
#include <QScrollArea>
#include <QTime>
#include <optional>

class ProgressWindow {
public:
    explicit ProgressWindow(Form& form);

    [[nodiscard]] WizardWindow& window() const { return *_updateWindow; }
    void setTexts();
    void dress(); // for the user's font, palette and style; again when they change

    // hasSeveralFirmware: it makes room for their names.
    void open(bool hasSeveralFirmware); // centred and in front, without progress
    void close();
    [[nodiscard]] bool isOpen() const { return _updateWindow->isVisible(); }
    void refuseClosing(); // shows the reason
    // A note for as long as nothing changes: that this can be normal, and what not to do.
    void showQuiet(const QTime& since);
    void hideQuiet();

    void showStage(const char* key, std::optional<std::uint32_t> number); // of the firmware
    void showFirmware(const std::string& name); // that the stage is about
    // For NaN, when the printer reports progress without a total, the bar stays unchanged.
    void showProgress(double percent);

private:
    [[nodiscard]] int space() const; // between its parts
    [[nodiscard]] int margin() const;
    void fitProgressLine();
    void fitWindow();
    void showNote(QLabel& note, const QString& text);
    void announce(QLabel& text);

    Announcer m_announcer;
    WizardWindow* _updateWindow = nullptr;
    QScrollArea* m_texts = nullptr; // those above the progress
    BusySign* _progressAnimation = nullptr;
    QLabel* _updateWdwWarningImgView = nullptr;
    QLabel* _updateCmtTxt = nullptr;
    QLabel* _attentionCmtTxt = nullptr;
    QLabel* _progressCmtTxt = nullptr;
    QLabel* _firmwareNameTxt = nullptr;
    QProgressBar* _updatePrg = nullptr;
    QLabel* _closeRefusedTxt = nullptr;
    QLabel* _quietTxt = nullptr;
};
