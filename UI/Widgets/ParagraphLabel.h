// SPDX-License-Identifier: MIT
// A label that sets a text of several paragraphs for reading: with space between the paragraphs and
// hanging bullets. To other code it is a plain label with that text.
//
// Owns:    nothing beyond its base class.
// Threads: the interface's own.
// Its property "address" makes it a label for addresses: they read from left to right in every
// layout, and a long one is broken anywhere.
// Interprets no markup: a list item is a line that begins with a bullet.
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
