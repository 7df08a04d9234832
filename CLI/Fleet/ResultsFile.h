// SPDX-License-Identifier: MIT
// The file that remembers how each printer ended, one JSON line for each. Many processes append to
// it at the same time; a line is there whole or not at all.
//
// Owns:    the file's name.
// Threads: any; a lock on the file orders the processes.
// Errors:  append returns why a line could not be written; the file is then as it was before.
#pragma once
#include "CLI/Fleet/MemberEnd.h"

#include <array>
#include <map>
#include <string>
#include <string_view>
#include <utility>

class ResultsFile {
public:
    explicit ResultsFile(std::string path) : m_path(std::move(path)) { }

    // The last end of each printer of an earlier call with this command. Ignores lines that are
    // damaged, such as one that a crash of the system cut off.
    [[nodiscard]] std::map<std::string, MemberEnd> ends(std::string_view command) const;
    // Makes the file if there is none; returns why that is impossible, or an empty text.
    [[nodiscard]] std::string prepare() const;
    // line: one line, without its end. Returns why it could not be written, or an empty text.
    [[nodiscard]] std::string append(std::string_view line) const;
    // The same for a line in three parts, without allocating anything.
    using Parts = std::array<std::string_view, 3>;
    struct Written {
        int error = 0; // a number of the system
        bool isCutOff = false; // by a full disk, or by the error
        bool staysCutOff = false; // a part of the line is left in the file
    };
    [[nodiscard]] Written appendParts(const Parts& parts) const noexcept;

private:
    std::string m_path;
};
