// SPDX-License-Identifier: MIT
// The meaning of one option's text, as far as the text alone allows.
//
// Threads: any. Pure functions.
#pragma once
#include <optional>
#include <string>

// A name that may be a host's: letters, digits, hyphens and underscores, with points between them,
// and at least one letter.
bool isHostName(const std::string& text);
// Four decimal numbers from 0 to 255 without leading zeros, and an address that one printer can
// have.
bool isPrinterAddress(const std::string& text);
// Why connections do not accept a text as port string; empty if they do.
std::string portStringError(const std::string& text);
// A positive number of seconds, up to a year.
std::optional<double> parseSeconds(const std::string& text);
// A whole number from 1 to highest, in decimal digits.
std::optional<int> parseNumber(const std::string& text, int highest);
