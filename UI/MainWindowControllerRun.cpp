// The run: from the confirmed question to the result that the user has read.
#include "UI/MainWindowController.h"

void MainWindowController::startUpdate()
{
    _mainwindow->hide();
    _updateWindow->show();
}
