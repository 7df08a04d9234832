// The entry of an address: one row of text cells with dots between them, four decimal numbers in
// mode 0. An address reads from left to right in every language.
//
// Owns:      its cells.
// Threads:   the interface's own.
// Invariant: whatever way a text takes into a cell (typing, paste, drop, input method, undo), it
//            obeys the mode's rules or the cell stays as it was. Only setCellValue is not asked.
// Does not say whether the address is a good one.
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
    static constexpr std::int32_t kAddressMode = 0; // any other mode takes any character

    explicit InputNSMatrixControl(QWidget* parent = nullptr);

    void setInputMode(std::int32_t mode);
    // What a screen reader calls the cells, from the first on.
    void setCellNames(const QStringList& names);
    // Whether the Tab key reaches the cells; a click does in any case.
    void setInKeyboardOrder(bool isReached);

    // In mode 0 each cell's number in decimal, "0" where there is none; in other modes zeros.
    [[nodiscard]] std::vector<std::string> cellValueArray() const;
    // Values beyond the last cell are dropped; cells beyond the last value keep theirs.
    void setCellValue(const std::vector<std::string>& values);

    // Takes the focus, and says so with VYMMatrixSelect; always true.
    bool becomeFirstResponder();
    void selectText(); // of the cell that is typed into, or of the first
    void selectTextAtColumn(int column) const;

    [[nodiscard]] int numberOfColumns() const { return static_cast<int>(m_cells.size()); }
    [[nodiscard]] QLineEdit* cellAtColumn(int column) const; // null where there is none

signals:
    // The control has taken the focus, by a click or otherwise.
    void VYMMatrixSelect(InputNSMatrixControl* control);
    void beeped(); // a text that would be too long was refused

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    class Cell;
    class Rule;

    // Whether the cell may take this in place of its characters [position, position + length).
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
    QLineEdit* _textView = nullptr; // the cell that is typed into, or was last
    std::vector<Cell*> m_cells;
    bool m_isFirstResponder = false;
};
