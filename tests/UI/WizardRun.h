// SPDX-License-Identifier: MIT
// A run in the wizard for a test: from the first page to the run, with a scripted worker.
#pragma once
#include "tests/UI/Wizard.h"
#include "tests/support/ScriptedWorker.h"

#include <QProgressBar>
#include <gmock/gmock.h>

// Every text has a directive, so that a test sees its argument.
class NumberedTexts : public QTranslator {
public:
    [[nodiscard]] QString translate(const char*, const char* key, const char*, int) const override
    {
        return QLatin1String(key) + QStringLiteral(" <%u>");
    }
    [[nodiscard]] bool isEmpty() const override { return false; }
};

class RunInTheWizard : public ::testing::Test {
protected:
    RunInTheWizard()
    {
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/nowhere");
        qputenv("XDG_STATE_HOME", stateFolder.path().c_str());
    }
    std::string log()
    {
        std::string all;
        for (const auto& file : std::filesystem::recursive_directory_iterator(stateFolder.path())) {
            if (file.is_regular_file())
                all += readFile(file.path());
        }
        return all;
    }

    // Goes up to the question and answers yes: the run has begun.
    void begin()
    {
        wizard.open().toPrinters();
        wizard.typeAddress({"127", "0", "0", "1"});
        wizard.press("_selDev1NextBtn");
        wizard.alerts.queueAnswer(alert::kDefault);
        wizard.controller->startUpdateAction();
    }
    void beginWithOneFirmware()
    {
        wizard.description({"MODELNAME Vymprint", "PLATFORMVERSION MACOS=0", "PORTNO 5001",
                            "VERSION MAIN=1 main.bin MAIN.BIN HEADER=1 DISPVER=1 DISPFIRM=Main"});
        begin();
    }
    void look(update_state state, std::uint32_t done = 0, std::uint32_t total = 0)
    {
        worker.record.m_updateState = state;
        worker.record.m_bytesDone = done;
        worker.record.m_bytesTotal = total;
        wizard.controller->updateStatusTimerFunc();
    }
    std::string line() { return wizard.text("_progressCmtTxt").toStdString(); }
    int bar() { return wizard.find<QProgressBar>("_updatePrg").value(); }
    // The message at the end; the first alert was the question.
    Alert message()
    {
        EXPECT_EQ(wizard.alerts.asked().size(), 2U);
        return wizard.alerts.asked().back();
    }

    TempFolder stateFolder;
    ScriptedWorker worker;
    Wizard wizard;
};
