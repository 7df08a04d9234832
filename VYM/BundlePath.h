// SPDX-License-Identifier: MIT
// The limit of the path of a package or of its folder.
#pragma once

// Including its NUL. A longer path is refused: truncated, it would name another folder.
constexpr unsigned long kBundlePathSize = 1024;
