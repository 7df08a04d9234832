// SPDX-License-Identifier: MIT
#include "UI/vymTableView.h"

#include "VYM/vymMac.h"

#include <QMouseEvent>

namespace {

// Some window managers bring the window to the front before they pass on the click that did it; no
// user clicks twice within this time, in milliseconds.
constexpr std::uint64_t kSameClick = 50;

} // namespace

void vymTableView::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::ActivationChange) {
        if (isActiveWindow() && m_wasInactive)
            m_reactivated = tickMilliseconds();
        m_wasInactive = isVisible() && !isActiveWindow();
    }
    QTableView::changeEvent(event);
}

bool vymTableView::isFirstMouse() const
{
    return !isActiveWindow()
        || (m_reactivated.has_value() && tickMilliseconds() - *m_reactivated <= kSameClick);
}

void vymTableView::mousePressEvent(QMouseEvent* event)
{
    m_ignoresClick = !acceptsFirstMouse() && isFirstMouse();
    if (m_ignoresClick)
        event->accept();
    else
        QTableView::mousePressEvent(event);
}

void vymTableView::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_ignoresClick)
        QTableView::mouseMoveEvent(event);
}

void vymTableView::mouseReleaseEvent(QMouseEvent* event)
{
    if (!m_ignoresClick)
        QTableView::mouseReleaseEvent(event);
    m_ignoresClick = false;
}

void vymTableView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (!m_ignoresClick)
        QTableView::mouseDoubleClickEvent(event);
}

#include "moc_vymTableView.cpp"
