// SPDX-License-Identifier: MIT
// A result of the checks: the kind of defect, its place and the remedy. Texts are the package's
// own; the code that prints them makes them printable.
//
// Owns:      its texts, by value.
// Threads:   none of its own.
// Invariant: at most kKeptPerKind defects of each kind are kept; the counts include all of them.
#pragma once
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vympack {

enum class Severity { warning, error };

// The name is stable: scripts may rely on it.
struct DefectKind {
    std::string_view name;
    Severity severity;
    std::string_view why; // it matters: the effect on a program
};

// A file, perhaps a file embedded in it, and the byte or the row and column. Rows and columns
// count from 1; 0 means that the defect belongs to no single row.
struct Place {
    std::string file;
    std::string member;
    std::optional<std::uint64_t> offset;
    std::size_t row = 0;
    std::size_t column = 0;
};

struct Defect {
    DefectKind kind;
    Place place;
    std::string message;
    std::string instead; // the row to write instead; empty if no single row is the remedy
};

class Defects {
public:
    // A broken text can have millions of the same defect; a person reads the first few.
    static constexpr std::size_t kKeptPerKind = 100;

    void add(DefectKind kind, Place place, std::string message, std::string instead = {});
    [[nodiscard]] const std::vector<Defect>& kept() const { return m_kept; }
    [[nodiscard]] std::size_t errors() const { return m_errors; }
    [[nodiscard]] std::size_t warnings() const { return m_warnings; }

private:
    std::vector<Defect> m_kept;
    std::map<std::string_view, std::size_t> m_perKind;
    std::size_t m_errors = 0;
    std::size_t m_warnings = 0;
};

} // namespace vympack
