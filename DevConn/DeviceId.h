// The key search in an IEEE 1284 device ID: KEY:value pairs, each ended by a semicolon.
// Destructive: the semicolons that the search passes become NULs, so that every value found is a
// string of its own. The result points into the text; a later key wins; null when there is none.
//
// Threads: any, one at a time per text.
#pragma once

namespace deviceId {

char* findModelKey(char* text); // "MODEL:" or "MDL:"
char* findMfgKey(char* text); // "MFG:"

} // namespace deviceId
