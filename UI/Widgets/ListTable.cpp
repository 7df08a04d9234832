// SPDX-License-Identifier: MIT
#include "UI/Widgets/ListTable.h"

#include "UI/Text/PlainText.h"

#include <algorithm>
#include <cassert>

ListTable::ListTable(QTableView& view) : QAbstractTableModel(&view)
{
    const auto fields = view.property("columnFields").toStringList();
    const auto identifiers = view.property("columnIdentifiers").toStringList();
    for (qsizetype i = 0; i < std::min(fields.size(), identifiers.size()); ++i)
        m_columns.push_back({fields[i], identifiers[i].toStdString(), {}});
    view.setModel(this);
}

void ListTable::setDataSource(DataSource source)
{
    assert(source.numberOfRows && source.objectValue && source.shouldSelectRow);
    m_source = std::move(source);
    reloadData();
}

void ListTable::reloadData()
{
    beginResetModel();
    endResetModel();
}

void ListTable::appendRow(const std::function<void()>& append)
{
    const int last = rowCount();
    beginInsertRows({}, last, last);
    append();
    assert(rowCount() == last + 1);
    endInsertRows();
}

int ListTable::columnOfField(const char* field) const
{
    const auto column = std::find_if(m_columns.begin(), m_columns.end(), [field](const auto& each) {
        return each.field == QLatin1String(field);
    });
    return column != m_columns.end() ? static_cast<int>(column - m_columns.begin()) : -1;
}

void ListTable::setColumnTitle(int column, const QString& title)
{
    m_columns.at(static_cast<std::size_t>(column)).title = title;
    emit headerDataChanged(Qt::Horizontal, column, column);
}

int ListTable::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() || !m_source.numberOfRows ? 0 : m_source.numberOfRows();
}

int ListTable::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

QVariant ListTable::data(const QModelIndex& index, int role) const
{
    if (role == Qt::DecorationRole && index.isValid() && index.column() == 0 && m_source.picture)
        return m_source.picture(index.row());
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
        return {};
    const auto& column = m_columns.at(static_cast<std::size_t>(index.column()));
    const auto value = m_source.objectValue(column.identifier, index.row());
    if (!value.has_value())
        return {};
    const auto text = QString::fromStdString(plainText(*value));
    // A tool tip would interpret markup in a printer's name.
    return role == Qt::ToolTipRole ? text.toHtmlEscaped() : text;
}

QVariant ListTable::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return {};
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(Qt::AlignVCenter | Qt::AlignLeading);
    return role == Qt::DisplayRole ? m_columns[static_cast<std::size_t>(section)].title
                                   : QVariant();
}

Qt::ItemFlags ListTable::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    const Qt::ItemFlags shown = Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
    return m_source.shouldSelectRow(index.row()) ? shown | Qt::ItemIsSelectable : shown;
}

int selectedRowOf(const QTableView& view)
{
    const auto* selection = view.selectionModel();
    const auto rows = selection != nullptr ? selection->selectedRows() : QModelIndexList();
    return rows.isEmpty() ? -1 : rows.front().row();
}

void selectRowOf(QTableView& view, int row)
{
    // The view's own selectRow finds no column in right-to-left layouts.
    const auto index = view.model()->index(row, 0);
    auto& selection = *view.selectionModel();
    selection.select(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    if (index.isValid())
        selection.setCurrentIndex(index, QItemSelectionModel::NoUpdate);
}

#include "moc_ListTable.cpp"
