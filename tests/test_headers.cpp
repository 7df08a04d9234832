// SPDX-License-Identifier: MIT
// Exists only for its precompiled headers, which every test program uses.
