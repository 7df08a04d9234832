// SPDX-License-Identifier: MIT
// Input of an address: a row of text cells with dots between them, four decimal numbers in mode 0.
// An address reads from left to right in every language.
//
// Owns:      its cells.
// Threads:   the interface's own.
// Invariant: however a text gets into a cell (typing, paste, drop, input method, undo), it obeys
//            the mode's rules or the cell stays unchanged. Only setCellValue is not checked.
// Does not validate the address.
#pragma once
#include <QLineEdit>
#include <QStringList>
#include <QWidget>
#include <cstdint>
#include <string>
#include <vector>

class InputNSMatrixControl : public QWidget {
    Q_OBJECT

public:
    static constexpr std::int32_t kAddressMode = 0; // any other mode accepts any character

    explicit InputNSMatrixControl(QWidget* parent = nullptr);

    void setInputMode(std::int32_t mode);
    // The cells' names for screen readers, from the first on.
    void setCellNames(const QStringList& names);
    // Whether the Tab key reaches the cells; a click does in any case.
    void setInKeyboardOrder(bool isReached);

    // In mode 0 each cell's number in decimal, "0" for an empty cell; in other modes zeros.
    [[nodiscard]] std::vector<std::string> cellValueArray() const;
    // Values beyond the last cell are dropped; cells beyond the last value keep theirs.
    void setCellValue(const std::vector<std::string>& values);

    // Takes the focus, and emits VYMMatrixSelect; always true.
    bool becomeFirstResponder();
    void selectText(); // of the focused cell, or of the first
    void selectTextAtColumn(int column) const;

    [[nodiscard]] int numberOfColumns() const { return static_cast<int>(m_cells.size()); }
    [[nodiscard]] QLineEdit* cellAtColumn(int column) const; // null if there is none

signals:
    // The control has the focus now, after a click or otherwise.
    void VYMMatrixSelect(InputNSMatrixControl* control);
    void beeped(); // a text was refused as too long

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    class Cell;
    class Rule;

    // Whether this may replace the cell's characters [position, position + length).
    bool shouldChangeTextInRange(int column, qsizetype position, qsizetype length,
                                 const QString& replacement);
    void textDidChange(int column);
    void fitSpacing();
    [[nodiscard]] bool hasFocusInside() const;
    [[nodiscard]] bool isInRow(int column) const;

    std::int32_t _controlMode = kAddressMode;
    std::int32_t _numOfCell = 0;
    std::int32_t _maxLength = 255; // of one cell, in display bytes
    std::int32_t _maximumValue = 255;
    QLineEdit* _textView = nullptr; // the cell that has or last had the focus
    std::vector<Cell*> m_cells;
    bool m_isFirstResponder = false;
};
