// SPDX-License-Identifier: MIT
#include "Tools/vympack/ValueCheck.h"
#include "tests/Tools/vympack/description_rows.h"

using namespace vympack;
using namespace vympack_test;

TEST(VympackValueCheck, ValuesAreChecked)
{
    expectRows({
        {"an empty model", "TGMNAME \"Model 100\"", "TGMNAME", {"error empty-value"}, 1, 1},
        {"an empty list", "DRIVERNAME \"Model 100\"", "DRIVERNAME ", {"warning empty-value"}, 3, 1},
        {"a model without its quotes",
         "TGMNAME \"Model 100\"",
         "TGMNAME Model 100",
         {"warning unread-text"},
         1,
         15},
        {"a quote that stays open",
         "TGMNAME \"Model 100\"",
         "TGMNAME \"Model 100",
         {"warning unbalanced-quote"},
         1,
         9},
        {"an answer that is none", "BOTH", "MAYBE", {"error bad-yes-no"}, 9, 18},
        {"an equals sign before the answer", "DOWN BOTH", "DOWN = YES", {}, 0, 0},
        {"no answer", "DOWN BOTH", "DOWN", {"error bad-yes-no"}, 9, 1},
        {"an address that is none",
         "PORT USB",
         "DEFAULTIPADDRESS 192.168.0.256",
         {"warning bad-default-address"},
         4,
         18},
        {"an address", "PORT USB", "DEFAULTIPADDRESS 192.168.0.25", {}, 0, 0},
    });
}

TEST(VympackValueCheck, NumbersAreChecked)
{
    expectRows({
        {"port 0", "48350", "0", {"error bad-number"}, 5, 8},
        {"a port beyond 16 bits", "48350", "65536", {"error bad-number"}, 5, 8},
        {"the highest port", "48350", "65535", {}, 0, 0},
        {"a number beyond 32 bits", "48350", "99999999999999999999", {"error bad-number"}, 5, 8},
        {"a quoted number", "48350", "\"48350\"", {"error bad-number"}, 5, 8},
        {"no number", "48350", "port", {"error bad-number"}, 5, 8},
        {"a negative time", "ENTERTIME 5", "ENTERTIME -5", {"error bad-number"}, 6, 11},
        {"an empty time", "EXITTIME 5", "EXITTIME", {"error bad-number"}, 7, 1},
        {"a time with a unit", "EXITTIME 5", "EXITTIME 5s", {"error bad-number"}, 7, 10},
        {"more than the number",
         "EXITTIME 5",
         "EXITTIME 5 seconds",
         {"warning unread-text"},
         7,
         12},
        {"enter time 0", "ENTERTIME 5", "ENTERTIME 0", {}, 0, 0},
        {"no update time", "UPDATETIME 30\r\n", "", {"error no-update-time"}, 0, 0},
        {"update time 0", "UPDATETIME 30", "UPDATETIME 0", {"error no-update-time"}, 8, 12},
        {"a time that has too many milliseconds",
         "UPDATETIME 30",
         "UPDATETIME 2147484",
         {"error bad-number"},
         8,
         12},
    });
}

TEST(VympackValueCheck, PlatformBoundsAreChecked)
{
    expectRows({
        {"no row", "PLATFORMVERSION MACOS=0\r\n", "", {"error no-platform-version"}, 0, 0},
        {"another platform only", "MACOS=0", "OTHER=0", {"error no-platform-version"}, 0, 0},
        {"another platform first",
         "PLATFORMVERSION",
         "PLATFORMVERSION OTHER=x\r\nPLATFORMVERSION",
         {},
         0,
         0},
        {"no equals sign",
         "MACOS=0",
         "MACOS 0",
         {"error bad-platform-version", "error no-platform-version"},
         10,
         17},
        {"not hexadecimal", "MACOS=0", "MACOS=10.5", {"error bad-platform-version"}, 10, 23},
        {"a quoted bound", "MACOS=0", "MACOS=\"1040\"", {"error bad-platform-version"}, 10, 23},
        {"the highest below the lowest",
         "MACOS=0",
         "MACOS=1060 1040",
         {"error bad-platform-version"},
         10,
         28},
        {"a range", "MACOS=0", "macos=0x1040 1060", {}, 0, 0},
        {"one version", "MACOS=0", "MACOS=1040 1040", {}, 0, 0},
        {"no upper bound", "MACOS=0", "MACOS=1040 -0101", {}, 0, 0},
        {"an upper bound that is no number",
         "MACOS=0",
         "MACOS=1040 any",
         {"error bad-platform-version"},
         10,
         28},
        {"the platform twice",
         "MACOS=0",
         "MACOS=0\r\nPLATFORMVERSION MACOS=1",
         {"warning duplicate-key"},
         11,
         1},
    });
}
