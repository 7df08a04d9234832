// SPDX-License-Identifier: MIT
// The look of the windows: text sizes, colours of secondary texts, spacing, icons. All of them are
// derived from the user's own font, palette, style and icon theme; no size or colour is fixed here.
// The property "look" in the interface file names the look of a control.
//
// Owns:    nothing.
// Threads: the interface's own.
#pragma once
#include <QColor>
#include <QIcon>
#include <QLabel>
#include <QPalette>
#include <QString>
#include <QWidget>

// Gives every control in the window its look; call again after a change of font, palette or style.
void dressWindow(QWidget& window);
// Whether this event of a window requires that its controls get their look again.
bool changesLook(const QEvent& event);

// The colour of secondary text: softer than the text around it, but readable on light and dark.
QColor mutedColour(const QPalette& palette);
QColor lineColour(const QPalette& palette);

// The user's theme's icon, otherwise our own drawing.
QIcon namedIcon(const QString& themeName, const QString& ownName);
// One of our own drawings in the colour of the text around it; size counts in small icons.
QIcon signIcon(const QString& ownName, const QWidget& where, double size);
// Shows an icon; its size counts in message icons. Without an icon the label takes no room.
void showPicture(QLabel& label, const QIcon& icon, double size);
