// SPDX-License-Identifier: MIT
#include "tests/system/defects/Defective.h"

namespace defects {

namespace {

constexpr std::size_t kImageSize = 5000;

Json resultOf(std::vector<std::string> arguments, const std::string& folder)
{
    arguments.insert(arguments.end(), {"--package", folder, "--json"});
    return desk::CliRun(std::move(arguments)).result();
}

} // namespace

std::string description(const std::vector<Change>& changes)
{
    auto text =
        rows({"TGMNAME MODEL-A", "MODELNAME \"Model A\"", "DRIVERNAME A", "PORT NET",
              "PORTNO 48350", "ENTERTIME 1", "EXITTIME 2", "UPDATETIME 3", "ALLOWVERSIONDOWN NO",
              "PLATFORMVERSION MACOS=0", "VERSION MAIN=AB010200 main.img MAIN.FW"});
    for (const auto& [from, to] : changes) {
        const auto at = text.find(from);
        EXPECT_NE(at, text.npos) << from;
        text.replace(at, from.size(), to);
    }
    return text;
}

std::string mainImage()
{
    return imageBytes(kImageSize);
}

Files filesWith(const std::string& text)
{
    return {{"VYMINFO.txt", text}, {"main.img", mainImage()}};
}

std::string packed(const Files& files, const std::function<void(Package&)>& change)
{
    Package package;
    for (const auto& [name, bytes] : files)
        package.file(name, bytes);
    if (change)
        change(package);
    return package.bytes();
}

std::string Defective::write(const Row& row) const
{
    if (row.image.empty()) {
        m_folder.write("VYMBINDDATA", row.bytes());
        return file();
    }
    m_folder.write("VYMINFO.txt", row.bytes());
    m_folder.write(row.image, "");
    std::filesystem::resize_file(m_folder / row.image, row.imageSize); // takes no room on the disk
    return m_folder.path().string();
}

Json Defective::info() const
{
    return resultOf({"info"}, m_folder.path().string());
}

void Defective::switchOn(const std::string& installed)
{
    m_printer.reset(); // gives its address back
    m_printer =
        std::make_unique<desk::VirtualPrinter>(std::vector<std::string>{"--firmware", installed});
}

Json Defective::update(const std::string& installed)
{
    switchOn(installed);
    return resultOf({"update", "--address", m_printer->address(), "--yes"},
                    m_folder.path().string());
}

Json Defective::check(const std::string& installed)
{
    switchOn(installed);
    return resultOf({"check", "--address", m_printer->address()}, m_folder.path().string());
}

std::optional<std::string> Defective::stored(const std::string& name) const
{
    return m_printer->stored(name);
}

std::function<std::string()> changed(std::string from, std::string to)
{
    return changed({{std::move(from), std::move(to)}});
}

std::function<std::string()> changed(std::vector<Change> changes)
{
    return [changes] { return packed(filesWith(description(changes))); };
}

void isNoPackage(Defective& package)
{
    EXPECT_EQ(package.info()["exit_code"], 66);
}

void isNotSent(Defective& package)
{
    EXPECT_EQ(package.info()["exit_code"], 0);
    EXPECT_EQ(package.check()["exit_code"], 66);
    const auto result = package.update();
    EXPECT_EQ(result["exit_code"], 66);
    EXPECT_EQ(result["firmware_bytes_sent"], false);
}

void isSentAll(Defective& package)
{
    EXPECT_EQ(package.update()["exit_code"], 0);
    EXPECT_TRUE(package.stored("MAIN.FW") == mainImage());
}

std::function<void(Defective&)> endsWith(int code, std::string installed)
{
    return [code, installed](Defective& package) {
        EXPECT_EQ(package.check(installed)["exit_code"], code);
        const auto result = package.update(installed);
        EXPECT_EQ(result["exit_code"], code) << result;
        EXPECT_EQ(result["firmware_bytes_sent"], code == 0);
    };
}

} // namespace defects
