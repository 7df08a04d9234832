// The text of --help: the whole of what the program can do, on one page.
#pragma once
#include <string_view>

extern const std::string_view kHelpText;
