// SPDX-License-Identifier: MIT
// Any text as a description of each kind: calls every getter of vymParse, and compares the row and
// token rules with a second implementation.
#include "VYM/DescriptionText.h"
#include "VYM/vymParse.h"
#include "fuzz/MemoryFile.h"
#include "fuzz/RowModel.h"

namespace {

constexpr unsigned kMostRows = 32; // checked one by one, each with a walk from the start

void checkRows(std::string_view text)
{
    description::Rows rows(text);
    std::string_view row;
    for (const auto& expected : model::rowsOf(text))
        require(rows.next(row) && row == expected, "a row");
    require(!rows.next(row), "no row after the last");
    for (const std::string_view key : {"VERSION", "PORT", "MODELNAME", ""}) {
        const auto expected = model::rowsOfKey(text, key);
        const auto most = std::min<std::size_t>(expected.size(), kMostRows);
        for (unsigned i = 0; i < most; ++i)
            require(description::findRow(text, key, i) == expected[i], "the row of a key");
        const auto afterLast = static_cast<unsigned>(expected.size());
        require(description::findRow(text, key, afterLast).empty(), "no row after a key's last");
    }
}

void checkNumbers(const std::string& text)
{
    require(description::leadingNumber(text, 10) == model::number(text, 10), "a decimal number");
    require(description::leadingNumber(text, 16) == model::number(text, 16), "a BCD number");
}

void checkToken(const std::string& token)
{
    const auto named = description::splitNamed(token);
    const auto sign = token.find('=');
    require(named.value.has_value() == (sign != std::string::npos), "a token has a value");
    require(named.name == token.substr(0, sign), "a token's name");
    require(!named.value || *named.value == token.substr(sign + 1), "a token's value");
    const auto bare = description::withoutQuotes(token);
    require(bare.find('"') == std::string::npos && bare.size() <= token.size(), "no quotes");
    require(token.starts_with(description::beforeDigits(token)), "what stands before digits");
    checkNumbers(token);
    checkNumbers(std::string(named.value.value_or("")));
}

void checkTokens(const std::string& row)
{
    description::Tokens tokens(row);
    std::string_view token;
    for (const auto& expected : model::tokensOf(row)) {
        require(tokens.next(token) && token == expected, "a token");
        checkToken(expected);
    }
    require(!tokens.next(token), "no token after the last");
    require(row.ends_with(description::afterToken(row)), "what follows the first token");
    for (const std::string_view needle : {"YES", "no", "", "="}) {
        const auto found = model::upper(row).find(model::upper(needle));
        require(description::findNoCase(row, needle, 0) == found, "a word in any case");
    }
}

// Every getter returns.
void askAll(const vymParse& parse)
{
    std::string text;
    std::vector<std::string> texts;
    std::vector<int> numbers;
    int number = 0;
    yesno_type answer = yesno_none;
    for (const auto get :
         {&vymParse::getTgmName, &vymParse::getProductName, &vymParse::getDefaltIPAddress})
        (parse.*get)(text);
    parse.getModelName(text);
    parse.getModelName(texts);
    for (const auto get :
         {&vymParse::getDriverName, &vymParse::getPort, &vymParse::getDeviceIDModelName})
        (parse.*get)(texts);
    for (const auto get : {&vymParse::getPortNo, &vymParse::getEnterTime, &vymParse::getExitTime,
                           &vymParse::getUpdateTime, &vymParse::getMaxPacket})
        (parse.*get)(number);
    for (const auto get : {&vymParse::getUseDXRL, &vymParse::getNeedEnterOperation,
                           &vymParse::getNeedExitOparetion, &vymParse::getAllowVersionDown,
                           &vymParse::getSpecialCmdPattern, &vymParse::getUseDriverOnly}) {
        const bool answered = (parse.*get)(answer);
        require(answer <= yesno_both && answered == (answer != yesno_none), "a yes or no");
    }
    require(parse.getSupportCommand(numbers) == !numbers.empty(), "the commands found");
    long most = 0;
    long least = 0;
    for (const int platform : {0, 4})
        parse.getPlatformVersion(platform, most, least);
    for (unsigned i = 0; i < kMostRows && parse.getVymBindVersion(i, text, text); ++i) { }
}

// The getters find exactly the rows that are counted.
void checkPackageVersions(const vymParse& parse)
{
    std::string field[6];
    unsigned answered = 0;
    while (
        answered < kMostRows
        && parse.getVersion(answered, field[0], field[1], field[2], field[3], field[4], field[5])) {
        parse.getDispFirmVersion(answered, field[0], field[1]);
        ++answered;
    }
    require(answered == std::min(parse.countVersionRows(), kMostRows), "the VERSION rows counted");
    require(!parse.getDispFirmVersion(parse.countVersionRows(), field[0], field[1]),
            "nothing to show after the last row");
}

// The first row with that name, found by a walk; empty if the walk would be too long.
void checkInstalled(const vymParse& parse, const std::string& firmName)
{
    std::string name;
    std::string walked;
    unsigned i = 0;
    bool found = false;
    while (!found && i < kMostRows && parse.getTargetInfoVersion(i, name, walked)) {
        found = model::upper(name) == model::upper(firmName);
        ++i;
    }
    if (!found && i == kMostRows)
        return;
    std::string version;
    require(parse.findTargetInfoVersion(firmName, version) == found, "a firmware listed");
    require(!found || version == walked, "the version installed");
}

void checkPrinterVersions(const vymParse& parse)
{
    std::string name;
    std::string version;
    std::string ignored;
    checkInstalled(parse, "");
    checkInstalled(parse, "main");
    for (unsigned i = 0; i < kMostRows && parse.getTargetInfoVersion(i, name, version); ++i)
        checkInstalled(parse, name);
    for (unsigned i = 0; i < kMostRows; ++i)
        parse.getVersion(i, name, version, ignored, ignored, ignored, ignored);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const MemoryFile file;
    const std::string text(asText(data, size));
    checkRows(text);
    for (const auto& row : model::rowsOf(text))
        checkTokens(row);

    vymParse parse;
    unsigned long mark = 0;
    if (size >= 3)
        require(parse.getFileFormat(text.c_str(), mark) <= 2 && mark <= 3, "a byte-order mark");
    file.write(text);
    require(parse.loadtargetFile(file.path().c_str(), load_bindinfo), "a file is loaded");
    require(parse.getTargetKeyRowData("", 0) == model::rowsOf(text).front(), "as it is on disk");
    askAll(parse);
    require(parse.loadData(text.data(), size, load_vyminfo), "a description is loaded");
    askAll(parse);
    checkPackageVersions(parse);
    require(parse.loadData(text.data(), size, load_targetinfo), "target information is loaded");
    askAll(parse);
    checkPrinterVersions(parse);
    return 0;
}
