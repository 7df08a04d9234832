// SPDX-License-Identifier: MIT
// A table view's model of a plain list. It queries the list for every cell, and makes the texts
// safe to show.
//
// Owns:      its columns: identifier and title. The view owns the model.
// Threads:   the interface's own.
// Invariant: a row that the list forbids to select is never selected.
// The interface file defines the columns in the view's properties "columnFields" (the name of the
// controller's field) and "columnIdentifiers" (the list's name for the column).
#pragma once
#include <QAbstractTableModel>
#include <QIcon>
#include <QTableView>
#include <cassert>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class ListTable final : public QAbstractTableModel {
    Q_OBJECT

public:
    struct DataSource {
        std::function<int()> numberOfRows;
        std::function<std::optional<std::string>(std::string_view column, int row)> objectValue;
        std::function<bool(int row)> shouldSelectRow;
        std::function<QIcon(int row)> picture; // before the first column; only this may be empty
    };

    explicit ListTable(QTableView& view);

    void setDataSource(DataSource source);
    void reloadData(); // no row is selected afterwards
    void appendRow(const std::function<void()>& append); // to the list, by one; keeps the selection

    // -1 if no column of this table has this field.
    [[nodiscard]] int columnOfField(const char* field) const;
    void setColumnTitle(int column, const QString& title);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    struct Column {
        QString field;
        std::string identifier;
        QString title;
    };
    std::vector<Column> m_columns;
    DataSource m_source;
};

// A column of a table; a field of the controller, which sets its title.
struct ListColumn {
    ListTable* table = nullptr;
    int column = -1;

    // Only of a column that the table has.
    void setTitle(const QString& title) const
    {
        assert(table != nullptr && column >= 0);
        table->setColumnTitle(column, title);
    }
};

int selectedRowOf(const QTableView& view); // -1 if no row is selected
void selectRowOf(QTableView& view, int row); // no selection if there is no such row
