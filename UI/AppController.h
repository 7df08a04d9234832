// The application's delegate: makes the window's controller and, once everything stands, shows it.
//
// Owns:    the window's controller.
// Threads: the interface's own.
#pragma once
#include "UI/MainWindowController.h"

class AppController {
public:
    // The interface file: that of the installation, else the one beside the program.
    static QString formFile();

    // Makes the controller; without a usable interface file there is none.
    explicit AppController(MainWindowSetup setup);

    // Why there is no window; empty where there is one.
    [[nodiscard]] const QString& problem() const { return m_problem; }
    // Shows the window, and runs the program until it ends; gives its exit code.
    int run();

private:
    QString m_problem;
    std::unique_ptr<MainWindowController> _mainwindowController;
};
