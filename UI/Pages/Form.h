// SPDX-License-Identifier: MIT
// Reads the interface file and finds its controls. A control that is missing or of another kind
// makes the file a broken one.
//
// Owns:      both windows, and with them every control.
// Threads:   the interface's own.
// Invariant: a control that was looked up was found, or its name is in the list of missing ones.
#pragma once
#include "UI/Widgets/ListTable.h"

#include <QStackedWidget>
#include <QStringList>
#include <cassert>
#include <memory>

class Form {
public:
    // Call once, before all else. Why the file cannot be read; empty if the controls can be looked
    // up.
    QString load(const QString& path);

    // Sets the field to the control with that object name; null if the file lacks it.
    template <typename Control> void find(Control*& field, const char* name)
    {
        assert(m_whole != nullptr);
        field = m_whole->findChild<Control*>(QLatin1String(name));
        if (field == nullptr)
            m_missing << QLatin1String(name);
    }
    // For a control that code does not use further.
    template <typename Control> void require(const char* name)
    {
        Control* found = nullptr;
        find(found, name);
    }
    // A table, its list, and the controller's names of its columns.
    template <typename Table> void findTable(Table*& view, ListTable*& list, const char* name)
    {
        find(view, name);
        list = view != nullptr ? new ListTable(*view) : nullptr;
    }
    void findColumn(ListColumn& column, ListTable* list, const char* name);
    void findPage(QWidget*& page, const char* view, const char* identifier);

    // After all look-ups: makes the two windows of the file separate windows. Returns the missing
    // controls; empty if all were found.
    QString finish();

private:
    std::unique_ptr<QWidget> m_whole; // both windows, until they are separated
    std::unique_ptr<QWidget> m_wizard;
    std::unique_ptr<QWidget> m_update;
    QStringList m_missing;
};
