// The interface file: its reading, and the finding of the controls in it. A control that the file
// lacks, or has as another kind, makes the file a broken one.
//
// Owns:      both windows, and with them every control.
// Threads:   the interface's own.
// Invariant: a control that was looked for is found, or its name is among the missing ones.
#pragma once
#include "UI/Widgets/ListTable.h"

#include <QStackedWidget>
#include <QStringList>
#include <memory>

class Form {
public:
    // Why the file cannot be read; empty when the controls can be looked for.
    QString load(const QString& path);

    // Sets the field to the control of that object name; null where the file lacks it.
    template <typename Control> void find(Control*& field, const char* name)
    {
        field = m_whole->findChild<Control*>(QLatin1String(name));
        if (field == nullptr)
            m_missing << QLatin1String(name);
    }
    // For a control that nothing is done with beyond what the file says.
    template <typename Control> void require(const char* name)
    {
        Control* found = nullptr;
        find(found, name);
    }
    // A table, the list that it shows and the controller's names of its columns.
    template <typename Table> void findTable(Table*& view, ListTable*& list, const char* name)
    {
        find(view, name);
        list = view != nullptr ? new ListTable(*view) : nullptr;
    }
    void findColumn(ListColumn& column, ListTable* list, const char* name);
    void findPage(QWidget*& page, const char* view, const char* identifier);

    // After all were looked for: makes the two windows of the file windows of their own. Which
    // controls are missing; empty where all were found.
    QString finish();

private:
    std::unique_ptr<QWidget> m_whole; // both windows, until each is its own
    std::unique_ptr<QWidget> m_wizard;
    std::unique_ptr<QWidget> m_update;
    QStringList m_missing;
};
