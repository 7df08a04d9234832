// SPDX-License-Identifier: MIT
#include "UI/AppController.h"

#include <QCoreApplication>
#include <QFileInfo>

QString AppController::formFile()
{
    const auto folder = QCoreApplication::applicationDirPath();
    const QFileInfo installed(folder + QStringLiteral("/../share/vymkit/MainWindow.ui"));
    return installed.exists() ? installed.canonicalFilePath()
                              : folder + QStringLiteral("/MainWindow.ui");
}

AppController::AppController(MainWindowSetup setup)
    : _mainwindowController(MainWindowController::create(std::move(setup), m_problem))
{
}

int AppController::run()
{
    if (_mainwindowController->hasEnded())
        return 0;
    // quit() would first ask every window to close, which would raise the cancel question again.
    QObject::connect(_mainwindowController.get(), &MainWindowController::ended,
                     QCoreApplication::instance(), [] { QCoreApplication::exit(0); });
    _mainwindowController->show();
    return QCoreApplication::exec();
}

bool AppController::isStillSearching() const
{
    return _mainwindowController != nullptr && _mainwindowController->isStillSearching();
}

std::string AppController::chosenPackage() const
{
    return _mainwindowController != nullptr ? _mainwindowController->chosenPackage() : "";
}
