// SPDX-License-Identifier: MIT
#include "UI/Widgets/FileDialogs.h"
#include "tests/support/TempFolder.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

// Types into the dialog that opens next, and presses the key.
void answerNext(const QString& name, Qt::Key key)
{
    QTimer::singleShot(0, [name, key] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        auto* line = dialog->findChild<QLineEdit*>();
        ASSERT_NE(line, nullptr);
        line->setText(name);
        QTest::keyClick(line, key);
        if (dialog->isVisible())
            dialog->reject();
    });
}

} // namespace

TEST(FileDialogs, GiveTheFileThatWasTyped)
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const TempFolder folder;
    folder.write("a.vymbind", "x");
    FileDialogs dialogs;
    answerNext(QString::fromStdString(folder / "a.vymbind"), Qt::Key_Return);
    EXPECT_EQ(dialogs.fileToOpen("Open", {"*.vymbind", "*"}), folder / "a.vymbind");
    answerNext(QString::fromStdString(folder / "new.txt"), Qt::Key_Return);
    EXPECT_EQ(dialogs.fileToSave("Save", "report.txt"), folder / "new.txt");
}

TEST(FileDialogs, GiveNothingAfterEscape)
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    FileDialogs dialogs;
    answerNext("x", Qt::Key_Escape);
    EXPECT_EQ(dialogs.fileToOpen("Open", {"*"}), "");
    answerNext("x", Qt::Key_Escape);
    EXPECT_EQ(dialogs.fileToSave("Save", "report.txt"), "");
}
