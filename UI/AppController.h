// SPDX-License-Identifier: MIT
// The application's delegate: makes the window's controller and, when all is ready, shows it.
//
// Owns:    the window's controller.
// Threads: the interface's own.
#pragma once
#include "UI/MainWindowController.h"

class AppController {
public:
    // The interface file: the installed one, otherwise the one beside the program.
    static QString formFile();

    // Makes the controller; fails without a usable interface file, see problem.
    explicit AppController(MainWindowSetup setup);

    // Why there is no window; empty if there is one.
    [[nodiscard]] const QString& problem() const { return m_problem; }
    // Shows the window, and runs the program until it ends; returns its exit code.
    int run();
    // With this package the program is to be started again; empty if not.
    [[nodiscard]] std::string chosenPackage() const;
    // Whether a search for printers would keep the destructor waiting.
    [[nodiscard]] bool isStillSearching() const;

private:
    QString m_problem;
    std::unique_ptr<MainWindowController> _mainwindowController;
};
