// SPDX-License-Identifier: MIT
// The interface file: which files count as broken, and the messages about them.
#include "tests/UI/Wizard.h"
#include "tests/support/TempFolder.h"

#include <QFile>
#include <QFileInfo>
#include <gtest/gtest.h>

namespace {

QString goodForm()
{
    QFile file(Wizard().setup.formFile);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

// The problem of creating the controller from this file; empty if it succeeds.
std::string problemWith(const QString& form)
{
    const TempFolder folder;
    folder.write("MainWindow.ui", form.toStdString());
    Wizard wizard;
    wizard.setup.formFile = QString::fromStdString((folder.path() / "MainWindow.ui").string());
    wizard.open();
    EXPECT_EQ(wizard.controller == nullptr, !wizard.problem.isEmpty());
    return wizard.problem.toStdString();
}

QStringList fieldsOf(const QString& form)
{
    QStringList fields;
    const auto parts = form.split(QStringLiteral("name=\"_"));
    for (qsizetype i = 1; i < parts.size(); ++i)
        fields << u'_' + parts[i].section(u'"', 0, 0);
    for (const auto& column : form.split(QStringLiteral("<string>_")).mid(1))
        fields << u'_' + column.section(u'<', 0, 0);
    return fields;
}

} // namespace

TEST(Form, SetsEveryControlFromTheFile)
{
    EXPECT_EQ(problemWith(goodForm()), "");
}

TEST(Form, GivesNoControllerWithoutTheFile)
{
    Wizard wizard;
    wizard.setup.formFile = QStringLiteral("/nowhere/MainWindow.ui");
    wizard.open();
    EXPECT_EQ(wizard.controller, nullptr);
    EXPECT_FALSE(wizard.problem.isEmpty());
    wizard.setup.formFile = QStringLiteral("/"); // a folder
    wizard.open();
    EXPECT_EQ(wizard.controller, nullptr);
}

TEST(Form, GivesNoControllerForAFileThatIsNoForm)
{
    const auto form = goodForm();
    for (const auto& broken :
         {QString(), QStringLiteral("<ui"), QStringLiteral("<html/>"), QStringLiteral("\0\xFF"),
          form.left(form.size() / 2), form.left(form.size() - 10)}) {
        EXPECT_NE(problemWith(broken), "") << broken.size();
    }
}

TEST(Form, NamesEachControlThatTheFileLacks)
{
    const auto form = goodForm();
    const auto fields = fieldsOf(form);
    EXPECT_GT(fields.size(), 60);
    for (const auto& field : fields) {
        if (field.startsWith(QStringLiteral("_searchRow"))
            || field == QStringLiteral("_targetFrame"))
            continue; // groups without a field
        auto broken = form;
        broken.replace(QStringLiteral("name=\"%1\"").arg(field), QStringLiteral("name=\"other\""));
        broken.replace(QStringLiteral("<string>%1</string>").arg(field),
                       QStringLiteral("<string>other</string>"));
        EXPECT_NE(problemWith(broken).find(field.toStdString()), std::string::npos)
            << field.toStdString();
    }
}

TEST(Form, TakesNoControlOfAnotherKind)
{
    auto broken = goodForm();
    broken.replace(QStringLiteral("class=\"QPushButton\" name=\"_prepStartBtn\""),
                   QStringLiteral("class=\"QLabel\" name=\"_prepStartBtn\""));
    EXPECT_EQ(problemWith(broken), "these controls are missing: _prepStartBtn");
}

TEST(Form, NeedsEveryPageInBothViews)
{
    const auto form = goodForm();
    for (const auto* page : {"OpeningPage", "PreferencePage", "SelectDevice1", "SelectDevice2",
                             "ConfirmationScreen"}) {
        for (const auto* kind : {"QScrollArea", "QWidget"}) {
            const auto name = QStringLiteral("class=\"%1\" name=\"%2\"")
                                  .arg(QLatin1String(kind), QLatin1String(page));
            ASSERT_TRUE(form.contains(name)) << page;
            auto broken = form;
            broken.replace(name,
                           QStringLiteral("class=\"%1\" name=\"x\"").arg(QLatin1String(kind)));
            EXPECT_NE(problemWith(broken).find(page), std::string::npos) << page << ' ' << kind;
        }
    }
}

TEST(Form, LeavesTheToolkitsPluginPathsUnchanged)
{
    const auto before = QCoreApplication::libraryPaths();
    EXPECT_EQ(problemWith(goodForm()), "");
    EXPECT_EQ(QCoreApplication::libraryPaths(), before);
}
