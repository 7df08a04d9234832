// SPDX-License-Identifier: MIT
#include "UI/Pages/Form.h"

#include "UI/InputNSMatrixControl.h"
#include "UI/Widgets/BusySign.h"
#include "UI/Widgets/ParagraphLabel.h"
#include "UI/Widgets/StepBar.h"
#include "UI/Widgets/WizardWindow.h"
#include "UI/vymTableView.h"

#include <QCoreApplication>
#include <QFile>
#include <QUiLoader>
#include <array>
#include <cassert>

namespace {

template <typename Widget> QWidget* make(QWidget* parent)
{
    return new Widget(parent);
}

struct OwnClass {
    const char* name;
    QWidget* (*make)(QWidget* parent);
};
constexpr std::array<OwnClass, 6> kOwnClasses = {{
    {"WizardWindow", &make<WizardWindow>},
    {"BusySign", &make<BusySign>},
    {"StepBar", &make<StepBar>},
    {"ParagraphLabel", &make<ParagraphLabel>},
    {"InputNSMatrixControl", &make<InputNSMatrixControl>},
    {"vymTableView", &make<vymTableView>},
}};

// Without this, a control of our own classes silently becomes one of the toolkit's.
class Loader : public QUiLoader {
public:
    QWidget* createWidget(const QString& className, QWidget* parent, const QString& name) override
    {
        for (const auto& own : kOwnClasses) {
            if (className != QLatin1String(own.name))
                continue;
            auto* widget = own.make(parent);
            widget->setObjectName(name);
            return widget;
        }
        return QUiLoader::createWidget(className, parent, name);
    }
};

// Otherwise the loader would load all installed Designer plugins.
class WithoutPlugins {
public:
    WithoutPlugins() { QCoreApplication::setLibraryPaths({}); }
    ~WithoutPlugins() { QCoreApplication::setLibraryPaths(m_paths); }
    WithoutPlugins(const WithoutPlugins&) = delete;
    WithoutPlugins& operator=(const WithoutPlugins&) = delete;

private:
    QStringList m_paths = QCoreApplication::libraryPaths();
};

} // namespace

QString Form::load(const QString& path)
{
    assert(m_whole == nullptr);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return file.errorString();
    const WithoutPlugins withoutPlugins;
    Loader loader;
    m_whole.reset(loader.load(&file));
    return m_whole != nullptr ? QString() : loader.errorString();
}

void Form::findColumn(ListColumn& column, ListTable* list, const char* name)
{
    column = {list, list != nullptr ? list->columnOfField(name) : -1};
    if (column.column < 0)
        m_missing << QLatin1String(name);
}

void Form::findPage(QWidget*& page, const char* view, const char* identifier)
{
    assert(m_whole != nullptr);
    page = nullptr;
    const auto* stack = m_whole->findChild<QStackedWidget*>(QLatin1String(view));
    for (int i = 0; stack != nullptr && i < stack->count(); ++i) {
        if (stack->widget(i)->objectName() == QLatin1String(identifier))
            page = stack->widget(i);
    }
    if (page == nullptr)
        m_missing << QLatin1String(view) + u'/' + QLatin1String(identifier);
}

QString Form::finish()
{
    QWidget* wizard = nullptr;
    QWidget* update = nullptr;
    find(wizard, "_mainwindow");
    find(update, "_updateWindow");
    m_missing.removeDuplicates();
    if (!m_missing.isEmpty())
        return QStringLiteral("these controls are missing: ")
            + m_missing.join(QStringLiteral(", "));
    for (auto* window : {wizard, update})
        window->setParent(nullptr, Qt::Window);
    m_wizard.reset(wizard);
    m_update.reset(update);
    return {};
}
