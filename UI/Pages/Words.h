// The words of the string tables, as pages and alerts use them.
//
// Owns:    nothing.
// Threads: the interface's own.
#pragma once
#include <QString>
#include <cstdint>
#include <string>

namespace words {

// The key's text as the table has it: for an alert, or as a format.
std::string plain(const char* key);
// The key's text as a format, with one argument or without.
std::string filled(const char* key, const std::string& argument);
QString text(const char* key);
QString text(const char* key, const std::string& argument);
QString text(const char* key, std::uint32_t argument);

} // namespace words
