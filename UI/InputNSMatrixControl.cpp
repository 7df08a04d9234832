// SPDX-License-Identifier: MIT
#include "UI/InputNSMatrixControl.h"

#include "UI/VYM_Utilities.h"

#include <QApplication>
#include <QDropEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionFrame>
#include <QValidator>
#include <algorithm>
#include <charconv>
#include <limits>

namespace {

constexpr int kColumns = 4; // the numbers of an IPv4 address
constexpr int kAddressDigits = 3; // of one number
constexpr int kAddressMaximum = 255;
constexpr int kWidestCell = 15; // characters shown of a cell that accepts many
const QString kDot = QStringLiteral(".");

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

// The number at the beginning of a text, limited to an int; 0 without a number.
int integerValue(const QString& text)
{
    const auto bytes = text.trimmed().toStdString();
    int value = 0;
    const auto [end, error] = std::from_chars(bytes.data(), bytes.data() + bytes.size(), value);
    if (error == std::errc::result_out_of_range)
        return bytes.front() == '-' ? std::numeric_limits<int>::min()
                                    : std::numeric_limits<int>::max();
    return value;
}

} // namespace

// Validates the text that a change would give, before the cell's editor shows it.
class InputNSMatrixControl::Rule : public QValidator {
public:
    Rule(InputNSMatrixControl& matrix, int column, QLineEdit* cell)
        : QValidator(cell), m_matrix(matrix), m_column(column), m_kept(cell->text())
    {
        QObject::connect(cell, &QLineEdit::textChanged, this, [this, cell] {
            if (!m_refused)
                m_kept = cell->text();
        });
    }

    State validate(QString& text, int&) const override
    {
        m_refused = !m_isOff && text != m_kept && !allows(text);
        return m_refused ? Invalid : Acceptable;
    }

    void setOff(bool isOff) { m_isOff = isOff; }
    // The editor reverts a refused change by itself, except after undo or redo.
    [[nodiscard]] bool isRefused() const { return m_refused; }
    [[nodiscard]] QString kept() const { return m_kept; }

private:
    // The change is the smallest one that turns the kept text into the new one.
    [[nodiscard]] bool allows(const QString& text) const
    {
        const auto shorter = std::min(text.size(), m_kept.size());
        qsizetype head = 0;
        while (head < shorter && text[head] == m_kept[head])
            ++head;
        qsizetype tail = 0;
        while (tail < shorter - head
               && text[text.size() - 1 - tail] == m_kept[m_kept.size() - 1 - tail])
            ++tail;
        return m_matrix.shouldChangeTextInRange(m_column, head, m_kept.size() - tail - head,
                                                text.mid(head, text.size() - tail - head));
    }

    InputNSMatrixControl& m_matrix;
    int m_column;
    QString m_kept;
    mutable bool m_refused = false;
    bool m_isOff = false;
};

class InputNSMatrixControl::Cell : public QLineEdit {
public:
    Cell(InputNSMatrixControl& matrix, int column)
        : QLineEdit(&matrix), m_matrix(matrix), m_column(column),
          m_rule(new Rule(matrix, column, this))
    {
        setValidator(m_rule);
        setAlignment(Qt::AlignCenter);
        setDragEnabled(true);
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        QObject::connect(this, &QLineEdit::textEdited, this, [this] { textWasEdited(); });
    }

    // Accepts any text, and clears the undo history.
    void setTextUnchecked(const QString& text)
    {
        m_rule->setOff(true);
        setText(text);
        m_rule->setOff(false);
    }

    [[nodiscard]] QString keptText() const { return m_rule->kept(); }

    [[nodiscard]] QSize sizeHint() const override
    {
        const auto characters = std::clamp(m_matrix._maxLength, kAddressDigits, kWidestCell);
        const QFontMetrics metrics(font());
        // One more character gives room for the cursor and the margins.
        const QSize text(metrics.horizontalAdvance(u'0') * (characters + 1), metrics.height());
        QStyleOptionFrame frame;
        initStyleOption(&frame);
        const auto whole = style()->sizeFromContents(QStyle::CT_LineEdit, &frame, text, this);
        return {whole.width(), QLineEdit::sizeHint().height()};
    }
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        if (!goesElsewhere(*event))
            QLineEdit::keyPressEvent(event);
    }

    // The drag's source keeps its text: this cell may have refused it, or the text may have moved
    // the focus on to the source.
    void dropEvent(QDropEvent* event) override
    {
        const auto before = text();
        QLineEdit::dropEvent(event);
        event->setDropAction(text() == before ? Qt::IgnoreAction : Qt::CopyAction);
    }

private:
    void textWasEdited()
    {
        if (m_rule->isRefused())
            setTextUnchecked(m_rule->kept());
        else
            m_matrix.textDidChange(m_column);
    }

    // Handles keys that lead to the neighbour; none of them would change this cell's text.
    bool goesElsewhere(const QKeyEvent& event)
    {
        const bool isPlain = (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
        const bool isAtStart = cursorPosition() == 0 && !hasSelectedText();
        const bool isAtEnd = cursorPosition() == text().size() && !hasSelectedText();
        if (m_matrix._controlMode != kAddressMode || !isPlain)
            return false;
        if (event.key() == Qt::Key_Backspace && text().isEmpty())
            return goTo(m_column - 1, true);
        if (event.key() == Qt::Key_Left && isAtStart)
            return goTo(m_column - 1, true);
        if (event.key() == Qt::Key_Right && isAtEnd)
            return goTo(m_column + 1, false);
        // After three digits the focus is already in the next cell, where a dot does not apply.
        if (event.text() == kDot && !text().isEmpty() && isAtEnd
            && m_matrix.isInRow(m_column + 1)) {
            m_matrix.selectTextAtColumn(m_column + 1);
            return true;
        }
        return false;
    }

    bool goTo(int column, bool toItsEnd)
    {
        if (!m_matrix.isInRow(column))
            return false;
        auto& cell = *m_matrix.m_cells[static_cast<std::size_t>(column)];
        cell.setFocus();
        cell.setCursorPosition(toItsEnd ? static_cast<int>(cell.text().size()) : 0);
        return true;
    }

    InputNSMatrixControl& m_matrix;
    int m_column;
    Rule* m_rule;
};

InputNSMatrixControl::InputNSMatrixControl(QWidget* parent) : QWidget(parent)
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins({});
    for (int column = 0; column < kColumns; ++column) {
        m_cells.push_back(new Cell(*this, column));
        m_cells.back()->installEventFilter(this);
        row->addWidget(m_cells.back());
    }
    fitSpacing();
    setLayoutDirection(Qt::LeftToRight);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFocusProxy(m_cells.front());
    connect(this, &InputNSMatrixControl::beeped, this, [] { QApplication::beep(); });
}

void InputNSMatrixControl::setInputMode(std::int32_t mode)
{
    _controlMode = mode;
    const bool isAddress = mode == kAddressMode;
    if (isAddress) {
        _maxLength = kAddressDigits;
        _maximumValue = kAddressMaximum;
        _numOfCell = kColumns;
    }
    for (auto* cell : m_cells) {
        cell->setInputMethodHints(isAddress ? Qt::ImhDigitsOnly : Qt::ImhNone);
        cell->updateGeometry();
    }
}

void InputNSMatrixControl::setCellNames(const QStringList& names)
{
    const auto count = std::min(names.size(), qsizetype{kColumns});
    for (qsizetype i = 0; i < count; ++i)
        m_cells[static_cast<std::size_t>(i)]->setAccessibleName(names[i]);
}

void InputNSMatrixControl::setInKeyboardOrder(bool isReached)
{
    for (auto* cell : m_cells)
        cell->setFocusPolicy(isReached ? Qt::StrongFocus : Qt::ClickFocus);
}

std::vector<std::string> InputNSMatrixControl::cellValueArray() const
{
    std::vector<std::string> values;
    for (int column = 0; column < _numOfCell; ++column) {
        const auto* cell = _controlMode == kAddressMode ? cellAtColumn(column) : nullptr;
        values.push_back(std::to_string(cell != nullptr ? integerValue(cell->text()) : 0));
    }
    return values;
}

void InputNSMatrixControl::setCellValue(const std::vector<std::string>& values)
{
    const auto count = std::min(values.size(), m_cells.size());
    for (std::size_t i = 0; i < count; ++i)
        m_cells[i]->setTextUnchecked(QString::fromStdString(values[i]));
}

bool InputNSMatrixControl::becomeFirstResponder()
{
    m_isFirstResponder = true; // so that the coming focus is not announced twice
    if (!hasFocusInside())
        setFocus();
    emit VYMMatrixSelect(this);
    return true;
}

void InputNSMatrixControl::selectText()
{
    auto* cell = hasFocusInside() ? _textView : m_cells.front();
    cell->setFocus();
    cell->selectAll();
}

void InputNSMatrixControl::selectTextAtColumn(int column) const
{
    auto* cell = cellAtColumn(column);
    if (cell == nullptr)
        return;
    cell->setFocus();
    cell->selectAll();
}

QLineEdit* InputNSMatrixControl::cellAtColumn(int column) const
{
    const bool isThere = column >= 0 && column < numberOfColumns();
    return isThere ? m_cells[static_cast<std::size_t>(column)] : nullptr;
}

bool InputNSMatrixControl::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn) {
        _textView = static_cast<QLineEdit*>(watched);
        if (!m_isFirstResponder)
            becomeFirstResponder();
    } else if (event->type() == QEvent::FocusOut) {
        // After a menu or another window, the focus returns by itself.
        const auto reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason)
            m_isFirstResponder = hasFocusInside();
    }
    return QWidget::eventFilter(watched, event);
}

void InputNSMatrixControl::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        fitSpacing();
    QWidget::changeEvent(event);
}

void InputNSMatrixControl::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    for (std::size_t i = 1; i < m_cells.size(); ++i) {
        const auto left = m_cells[i - 1]->geometry().right() + 1;
        const QRect gap(left, 0, m_cells[i]->geometry().left() - left, height());
        painter.drawText(gap, Qt::AlignCenter, kDot);
    }
}

bool InputNSMatrixControl::shouldChangeTextInRange(int column, qsizetype position, qsizetype length,
                                                   const QString& replacement)
{
    const auto* cell = m_cells[static_cast<std::size_t>(column)];
    const auto after = cell->keptText().replace(position, length, replacement);
    if (VYM_Utilities::stringByteCount(after.toStdString())
        > static_cast<unsigned long>(_maxLength)) {
        emit beeped();
        return false;
    }
    return _controlMode != kAddressMode
        || std::all_of(replacement.begin(), replacement.end(), isDigit);
}

void InputNSMatrixControl::textDidChange(int column)
{
    auto* cell = m_cells[static_cast<std::size_t>(column)];
    if (cell->text().isEmpty())
        return;
    if (_controlMode == kAddressMode && integerValue(cell->text()) > _maximumValue)
        cell->setTextUnchecked(QString::number(_maximumValue));
    if (cell->text().size() >= _maxLength && isInRow(column + 1))
        selectTextAtColumn(column + 1);
}

// The gap between two cells is as wide as the dot with some space on both sides.
void InputNSMatrixControl::fitSpacing()
{
    layout()->setSpacing(fontMetrics().horizontalAdvance(QStringLiteral(" . ")));
}

bool InputNSMatrixControl::hasFocusInside() const
{
    const auto* focus = QApplication::focusWidget();
    return std::any_of(m_cells.begin(), m_cells.end(),
                       [focus](const auto* cell) { return cell == focus; });
}

bool InputNSMatrixControl::isInRow(int column) const
{
    return column >= 0 && column < std::min(_numOfCell, numberOfColumns());
}

#include "moc_InputNSMatrixControl.cpp"
