// SPDX-License-Identifier: MIT
// Packages with one defect each, and the programs that meet them: a small language for the rows of
// the defect table.
//
// Threads: one.
#pragma once
#include "Tools/vympack/DefectKinds.h"
#include "tests/support/Package.h"
#include "tests/system/Desk.h"

#include <set>
#include <span>

namespace defects {

using desk::Json;

using Change = std::pair<std::string, std::string>; // of the description: from, to
using Files = std::vector<std::pair<std::string, std::string>>;

// A description without a defect, with those changes, for a package that holds main.img.
std::string description(const std::vector<Change>& changes = {});
Files filesWith(const std::string& text);
// The bytes of a package of these files; change: what else is done to it.
std::string packed(const Files& files, const std::function<void(Package&)>& change = {});
std::string mainImage();

// A file for the programs: a package, or what should be one.
class Defective {
public:
    // Writes the row's files; returns what the linter checks.
    [[nodiscard]] std::string write(const struct Row& row) const;
    [[nodiscard]] const TempFolder& folder() const { return m_folder; }
    [[nodiscard]] std::string file() const { return m_folder / "VYMBINDDATA"; }
    // The result in vymkit-cli's JSON.
    [[nodiscard]] Json info() const;
    [[nodiscard]] Json package() const { return info()["package"]; }
    // An update, or a check, of a printer with this firmware (NAME=VERSION).
    Json update(const std::string& installed = "MAIN=AB010100");
    Json check(const std::string& installed = "MAIN=AB010100");
    // The file that the printer of the last update or check stored; empty if none has that name.
    [[nodiscard]] std::optional<std::string> stored(const std::string& name) const;
    [[nodiscard]] std::string transcript() const { return m_printer->transcript(); }

private:
    void switchOn(const std::string& installed);

    TempFolder m_folder;
    std::unique_ptr<desk::VirtualPrinter> m_printer;
};

struct Row {
    const char* name;
    vympack::DefectKind kind;
    std::function<std::string()> bytes; // of the package; of the description in a maker's folder
    std::function<void(Defective&)> consequence; // what the kind's text says
    std::set<std::string> also{}; // other defects that such a package cannot be without
    // Empty: a package. Otherwise the image that stands beside the description, and its size: the
    // linter checks the folder from which a package would be made.
    std::string image{};
    std::uintmax_t imageSize = 0;
};

inline void PrintTo(const Row& row, std::ostream* out)
{
    *out << row.kind.name;
}

// The bytes of a package whose description has this change.
std::function<std::string()> changed(std::string from, std::string to);
std::function<std::string()> changed(std::vector<Change> changes);
// Consequences that many kinds share.
void isNoPackage(Defective& package); // info ends with 66
void isNotSent(Defective& package); // info shows it, check and update end with 66
void isSentAll(Defective& package); // as if it had no defect
std::function<void(Defective&)> endsWith(int code, std::string installed = "MAIN=AB010100");

std::vector<Row> containerRows();
std::vector<Row> settingRows(); // of the description's bytes, keys and values
std::vector<Row> versionRows();

} // namespace defects
