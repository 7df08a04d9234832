#include "UI/MainWindowControllerDialog.h"

MainWindowControllerDialog::MainWindowControllerDialog(QWidget* parent) : QDialog(parent) { }

void MainWindowControllerDialog::reject()
{
    if (m_leave)
        m_leave();
}
