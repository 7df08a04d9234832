// SPDX-License-Identifier: MIT
#include "UI/Widgets/FileDialogs.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>

namespace {

std::string answerOf(QFileDialog& dialog)
{
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    return QFile::encodeName(dialog.selectedFiles().constFirst()).toStdString();
}

} // namespace

std::string FileDialogs::fileToOpen(const std::string& title,
                                    const std::vector<std::string>& filters)
{
    QFileDialog dialog(QApplication::activeWindow(), QString::fromStdString(title),
                       QDir::homePath());
    dialog.setFileMode(QFileDialog::ExistingFile);
    QStringList names;
    for (const auto& filter : filters)
        names << QString::fromStdString(filter);
    dialog.setNameFilters(names);
    return answerOf(dialog);
}

std::string FileDialogs::fileToSave(const std::string& title, const std::string& suggested)
{
    QFileDialog dialog(QApplication::activeWindow(), QString::fromStdString(title),
                       QDir::homePath());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.selectFile(QString::fromStdString(suggested));
    return answerOf(dialog);
}
