// SPDX-License-Identifier: MIT
#include "UI/Widgets/ScreenRoom.h"

#include <QScreen>
#include <QStyle>
#include <algorithm>

namespace {

QMargins frameOf(const QWidget& window)
{
    const auto inner = window.geometry();
    const auto outer = window.frameGeometry();
    if (inner != outer)
        return {inner.left() - outer.left(), inner.top() - outer.top(),
                outer.right() - inner.right(), outer.bottom() - inner.bottom()};
    return {0, window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window), 0, 0};
}

QRect roomOn(const QWidget& window)
{
    return window.screen()->availableGeometry().marginsRemoved(frameOf(window));
}

} // namespace

QSize screenRoom(const QWidget& window)
{
    return roomOn(window).size();
}

void centreOnScreen(QWidget& window)
{
    window.move(window.screen()->availableGeometry().center() - window.rect().center());
    keepOnScreen(window);
}

void keepOnScreen(QWidget& window)
{
    const auto room = roomOn(window);
    const auto most = room.bottomRight() - window.rect().bottomRight();
    const auto place = window.geometry().topLeft();
    const QPoint kept(std::max(room.left(), std::min(place.x(), most.x())),
                      std::max(room.top(), std::min(place.y(), most.y())));
    if (kept != place)
        window.move(window.pos() + kept - place);
}
