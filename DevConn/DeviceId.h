// SPDX-License-Identifier: MIT
// The key search in an IEEE 1284 device ID: KEY:value pairs, each ended by a semicolon.
// Destructive: turns the semicolons that it passes into NULs, so that a value is a string of its
// own. The result points into the text; the last match wins; null if there is none.
//
// Threads: any, one at a time per text.
#pragma once

namespace deviceId {

char* findModelKey(char* text); // "MODEL:" or "MDL:"
char* findMfgKey(char* text); // "MFG:"

} // namespace deviceId
