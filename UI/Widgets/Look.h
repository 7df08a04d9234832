// How the windows look: sizes of text, colours of lesser texts, room around things, icons. All of
// it is derived from the user's own font, palette, style and icon theme; no size and no colour is
// ours. What a control is to look like stands in the interface file, as its property "look".
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

// Gives every control below the window its look, anew after a change of font, palette or style.
void dressWindow(QWidget& window);
// Whether this event of a window means that it has to be dressed again.
bool changesLook(const QEvent& event);

// Lesser text: softer than the text around it, and still readable on light and dark.
QColor mutedColour(const QPalette& palette);
QColor lineColour(const QPalette& palette);

// From the user's theme, else our own drawing.
QIcon namedIcon(const QString& themeName, const QString& ownName);
// One of our own drawings in the ink of the text around it; size in those of a small icon.
QIcon signIcon(const QString& ownName, const QWidget& where, double size);
// At a size counted in sizes of a message's icon; without an icon the label takes no room.
void showPicture(QLabel& label, const QIcon& icon, double size);
