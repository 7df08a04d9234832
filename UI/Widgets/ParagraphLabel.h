// A text of several paragraphs, set for reading: air between the paragraphs, and what follows a
// bullet stands beside it, not below. To everybody else it is a label with that text.
//
// Owns:    nothing beyond its base class.
// Threads: the interface's own.
// Reads no markup: a bullet is a line that begins with one.
#pragma once
#include <QLabel>
#include <memory>

class QTextDocument;

class ParagraphLabel final : public QLabel {
    Q_OBJECT

public:
    explicit ParagraphLabel(QWidget* parent = nullptr);
    ~ParagraphLabel() override;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] std::unique_ptr<QTextDocument> document(int width) const;
};
