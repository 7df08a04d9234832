// SPDX-License-Identifier: MIT
// The words of the string tables, for pages and alerts.
//
// Owns:    nothing.
// Threads: the interface's own.
#pragma once
#include <QString>
#include <cstdint>
#include <string>

// A key is never null.
namespace words {

// The key's unchanged text: for an alert, or as a format.
std::string plain(const char* key);
// The key's text, formatted with at most one argument.
std::string filled(const char* key, const std::string& argument);
QString text(const char* key);
QString text(const char* key, const std::string& argument);
QString text(const char* key, std::uint32_t argument);

} // namespace words
