// SPDX-License-Identifier: MIT
// Calls every getter of a description of 60 rows, and makes the one walk that a reader without an
// index cannot avoid: memchr from row end to row end. For callgrind; each in its own function.
//
//   bench_getters          prints the number of questions that askEverything() asks
#include "VYM/vymParse.h"

#include <cstdio>
#include <cstring>

namespace {

constexpr unsigned kFirmware = 24; // VERSION rows
constexpr unsigned kRows = 60;

struct Answers {
    std::string text, text2, text3, text4, text5, text6;
    std::vector<std::string> list;
    std::vector<int> numbers;
    yesno_type yesNo = yesno_none;
    int number = 0;
    long highest = 0;
    long lowest = 0;
};

std::string versionRow(const std::string& number)
{
    std::string row;
    for (const char c : std::string_view(
             "VERSION FIRM#=VP0102# firm#.bin FIRM#.BIN COMPATIBLE=VP010100 HEADER=1 DISPVER=1.2.# "
             "DISPFIRM=\"Firmware #\"\r\n"))
        row += c == '#' ? number : std::string(1, c);
    return row;
}

std::string description()
{
    std::string text = "# An invented printer family.\r\nTGMNAME \"Vymprint 200\"\r\n"
                       "MODELNAME \"Vymprint 200\" \"Vymprint 210\"\r\n"
                       "DRIVERNAME \"Vymprint 200\" \"Vymprint 210\"\r\n"
                       "DEVICEIDMODELNAME \"Vymprint 200\" \"Vymprint 210\"\r\n"
                       "PRODUCT \"Vymprint 200 series\"\r\nPORT USB NET\r\nPORTNO 48350\r\n"
                       "USEDXRL NO\r\nNEEDENTEROPERATION NO\r\nNEEDEXITOPERATION NO\r\n"
                       "ENTERTIME 5\r\nEXITTIME 5\r\nUPDATETIME 30\r\nALLOWVERSIONDOWN BOTH\r\n"
                       "SPECIALCMDPATTERN NO\r\nMAXPACKET 65536\r\nSUPPORT_COMMAND 5103\r\n"
                       "PLATFORMVERSION MACOS=0\r\nUSEDRIVERONLY YES\r\n"
                       "DEFAULTIPADDRESS 192.0.2.7\r\n";
    constexpr unsigned kKeyRows = 21;
    for (unsigned i = kKeyRows; i < kRows - kFirmware; ++i)
        text += "# What the next firmware is for, in the words of its makers.\r\n";
    for (unsigned i = 0; i < kFirmware; ++i)
        text += versionRow(std::to_string(10 + i));
    return text;
}

// Returns how many questions were asked.
[[gnu::noinline]] unsigned askEverything(const vymParse& parse, Answers& to)
{
    unsigned asked = 0;
    const auto count = [&](bool /*answered*/) { ++asked; };
    count(parse.getTgmName(to.text));
    count(parse.getModelName(to.text));
    count(parse.getModelName(to.list));
    count(parse.getDriverName(to.list));
    count(parse.getPort(to.list));
    count(parse.getPortNo(to.number));
    count(parse.getUseDXRL(to.yesNo));
    count(parse.getNeedEnterOperation(to.yesNo));
    count(parse.getNeedExitOparetion(to.yesNo));
    count(parse.getEnterTime(to.number));
    count(parse.getExitTime(to.number));
    count(parse.getUpdateTime(to.number));
    count(parse.getAllowVersionDown(to.yesNo));
    count(parse.getSpecialCmdPattern(to.yesNo));
    count(parse.getDeviceIDModelName(to.list));
    count(parse.getMaxPacket(to.number));
    count(parse.getSupportCommand(to.numbers));
    count(parse.getProductName(to.text));
    count(parse.getPlatformVersion(4, to.highest, to.lowest));
    count(parse.getUseDriverOnly(to.yesNo));
    count(parse.getDefaltIPAddress(to.text));
    for (unsigned i = 0; i <= kFirmware; ++i) { // the last one finds no row
        count(parse.getVersion(i, to.text, to.text2, to.text3, to.text4, to.text5, to.text6));
        count(parse.getDispFirmVersion(i, to.text, to.text2));
    }
    return asked;
}

[[gnu::noinline]] unsigned walkRowEnds(const std::string& text)
{
    unsigned rows = 0;
    const auto* end = text.data() + text.size();
    const auto* at = text.data();
    while (at < end) {
        const auto* found = std::memchr(at, '\n', static_cast<std::size_t>(end - at));
        if (found == nullptr)
            break;
        at = static_cast<const char*>(found) + 1;
        ++rows;
    }
    return rows;
}

} // namespace

int main()
{
    const auto text = description();
    if (walkRowEnds(text) != kRows) {
        std::fputs("bench_getters: the description has not 60 rows\n", stderr);
        return 1;
    }
    vymParse parse;
    parse.loadData(text.data(), text.size(), load_vyminfo);
    Answers answers;
    std::printf("%u\n", askEverything(parse, answers));
    return 0;
}
