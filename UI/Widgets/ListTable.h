// The rows of a plain list as a table view shows them. The list is asked anew for every cell, and
// what it gives is made fit to be shown.
//
// Owns:      its columns: identifier and title. The view owns the model.
// Threads:   the interface's own.
// Invariant: a row that the list says not to select cannot be selected, whoever tries.
// The columns stand in the interface file, as the view's properties "columnFields" (the name of
// the controller's field) and "columnIdentifiers" (what the list is asked for).
#pragma once
#include <QAbstractTableModel>
#include <QIcon>
#include <QTableView>
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
        std::function<QIcon(int row)> picture; // before the first column; may be missing
    };

    explicit ListTable(QTableView& view);

    void setDataSource(DataSource source);
    void reloadData(); // no row is selected afterwards

    // -1 for a field that is none of this table's columns.
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

// A column of a table, as the controller's field that titles it.
struct ListColumn {
    ListTable* table = nullptr;
    int column = -1;

    void setTitle(const QString& title) const { table->setColumnTitle(column, title); }
};

int selectedRowOf(const QTableView& view); // -1 without one
void selectRowOf(QTableView& view, int row); // in place of any other; none where it is not there
