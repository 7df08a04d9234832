// SPDX-License-Identifier: MIT
// A table that ignores a click which only brings its window to the front, so that the selection
// stays.
//
// Owns:    nothing beyond its base class.
// Threads: the interface's own.
#pragma once
#include <QTableView>
#include <cstdint>
#include <optional>

class vymTableView : public QTableView {
    Q_OBJECT

public:
    using QTableView::QTableView;

    // Whether a click into the inactive window also acts on the table.
    [[nodiscard]] virtual bool acceptsFirstMouse() const { return false; }

protected:
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    [[nodiscard]] bool isFirstMouse() const;

    bool m_wasInactive = false;
    bool m_ignoresClick = false; // from the press until the release of the button
    std::optional<std::uint64_t> m_reactivated; // when the window returned to the front
};
