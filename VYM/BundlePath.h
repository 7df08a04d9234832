// How long the path of a package, or of its folder, may be.
#pragma once

// With its NUL. A longer path is refused: cut short, it would name another folder.
constexpr unsigned long kBundlePathSize = 1024;
