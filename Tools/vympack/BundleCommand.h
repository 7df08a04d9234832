// SPDX-License-Identifier: MIT
// Fills a folder with what a maker hands to customers: the programs, bare or as Debian packages,
// the update package with its signature if it has one, a start script, a text in six languages and
// the licence of the programs. Everything is checked before the first byte is written.
//
// Threads: one.
#pragma once
#include "Tools/vympack/Commands.h"

namespace vympack {

struct BundleOrder {
    std::string folder; // new or empty
    std::string package; // its file, or the folder with VYMBINDDATA
    std::string debs; // the folder with the Debian packages; empty: bare programs
    std::string programs; // the folder of the bare programs; empty: this program's own
};

int bundlePackage(const BundleOrder& order, Streams streams);

} // namespace vympack
