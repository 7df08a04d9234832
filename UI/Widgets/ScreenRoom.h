// SPDX-License-Identifier: MIT
// The room for a window on its screen.
//
// Owns:    nothing.
// Threads: the interface's own.
// The frame is known only after the window has been shown; until then the style's title bar counts.
#pragma once
#include <QSize>
#include <QWidget>

QSize screenRoom(const QWidget& window); // for its content
void centreOnScreen(QWidget& window);
void keepOnScreen(QWidget& window); // moves it no further than necessary
