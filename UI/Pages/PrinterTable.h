// SPDX-License-Identifier: MIT
// The list of printers on a device page: the table, the search that fills it, and the row to select
// again in the next list.
//
// Owns:      the list, the search and the remembered row. The form owns the controls.
// Threads:   the interface's own; devices are queried on the search's thread.
// Invariant: during a search the list has the printers that were found so far: the first rows of
//            the list that follows. If an empty selection is not allowed, a list with rows has a
//            selected one.
#pragma once
#include "UI/Pages/Form.h"
#include "UI/Pages/PrinterSearchThread.h"
#include "UI/PrinterList.h"
#include "UI/Widgets/Announcer.h"
#include "UI/Widgets/BusySign.h"
#include "UI/vymTableView.h"

#include <QLabel>
#include <QPushButton>

class PrinterTable final : public QObject {
    Q_OBJECT

public:
    // suffix: the end of its controls' names.
    PrinterTable(Form& form, const std::string& suffix, PrinterSearchThread::Find find);

    void connectControls(); // call when no control is missing
    void setTexts();

    void makeList(bool driverOnly); // emits listed later, unless it is cancelled
    void cancel() { m_search.cancel(); }
    [[nodiscard]] bool isBusy() const { return m_search.isBusy(); } // also after a cancel
    [[nodiscard]] bool isEmpty() const { return m_printers.numberOfRowsInTableView() == 0; }
    void showNote(const QString& words); // below the list

    void rememberSelectedRow();
    void forgetRow() { _selectedRowPrtList = 0; }
    void refit(); // rows and columns, after a change of the font
    [[nodiscard]] const TargetPrinters& found() const { return m_found; } // by the last search
    void selectRememberedRow(bool allowsEmptySelection);
    void deselect();
    [[nodiscard]] bool hasSelectedRow() const;
    [[nodiscard]] std::shared_ptr<PrinterInfo>
    selectedPrinter() const; // null if no row is selected
    [[nodiscard]] vymTableView& view() const { return *_prtListTblView; }

signals:
    void listed(); // a new list is ready; no row is selected yet
    void appeared(); // the list has grown during a search; no row is selected by that
    void selectionChanged();
    void searchAgainWanted();
    void reasonsWanted(); // why a printer is not in the list

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void addPrinter(const std::shared_ptr<PrinterInfo>& printer);
    void takeList(const TargetPrinters& found);
    void keepOneRowSelected();
    void describe();
    void showSearch(const QString& words, bool isSearching);

    PrinterList m_printers;
    PrinterList::Records m_formerPrinters; // the rows when one of them was remembered
    TargetPrinters m_found;
    PrinterSearchThread m_search;
    Announcer m_announcer;
    int _selectedRowPrtList = 0;
    bool m_allowsEmptySelection = true;

    vymTableView* _prtListTblView = nullptr;
    ListTable* m_table = nullptr; // the view's rows
    ListColumn _printerList_name_col;
    ListColumn _printerList_port_col;
    BusySign* _searchAnimation = nullptr;
    QLabel* _searchTxt = nullptr;
    QPushButton* _searchAgainBtn = nullptr;
    QPushButton* _reasonsBtn = nullptr;
};
