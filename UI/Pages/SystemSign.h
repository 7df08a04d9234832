// SPDX-License-Identifier: MIT
// The system's sign for a note or a caution, from the user's icon theme if that has one.
//
// Owns:    nothing.
// Threads: the interface's own.
#pragma once
#include <QLabel>
#include <cstdint>

// type: kNoteIcon or kCautionIcon of VYM_Utilities; for other types the label has no picture.
void showSystemSign(QLabel& label, std::uint32_t type);
