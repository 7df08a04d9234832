// The sign that the system shows beside a note or a caution, from the user's icon theme where that
// has one.
//
// Owns:    nothing.
// Threads: the interface's own.
#pragma once
#include <QLabel>
#include <cstdint>

// type: kNoteIcon or kCautionIcon of VYM_Utilities; another type leaves the label without a
// picture.
void showSystemSign(QLabel& label, std::uint32_t type);
