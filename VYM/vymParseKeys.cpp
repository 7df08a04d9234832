// SPDX-License-Identifier: MIT
// The keys of a description text: name, type and default of each, and the VERSION rows.
#include "VYM/DescriptionText.h"
#include "VYM/vymParse.h"
#include "VYM/vymUtil.h"

#include <algorithm>
#include <utility>

namespace {

using description::equalNoCase;

constexpr const char* kVersion = "VERSION";
constexpr int kDefaultPortNo = 48350;
constexpr int kThisPlatform = 4; // the number of this system among the platforms
constexpr std::string_view kThisPlatformName = "MACOS";
// Read if a row has no highest version: negative means no upper limit.
constexpr std::string_view kNoHighest = "-0101";
// Support identifies broken callers by these line numbers; they stay even if the lines move.
constexpr unsigned kDisplayPlace = 840;
constexpr unsigned kVersionPlace = 1076;

std::string_view baseName(std::string_view path)
{
    return path.substr(path.find_last_of("/\\") + 1);
}

void keepUnlessEmpty(std::string& kept, std::string&& value)
{
    if (!value.empty())
        kept = std::move(value);
}

// Fills name and version from a display row's tokens; DISPFIRM and DISPVER win at any position.
void readDisplay(description::Tokens tokens, std::string& dispFirm, std::string& dispVer)
{
    std::string shownName;
    std::string shownVersion;
    std::string_view token;
    while (tokens.next(token)) {
        const auto [name, value] = description::splitNamed(token);
        if (value && equalNoCase(name, "DISPVER")) {
            keepUnlessEmpty(shownVersion, description::withoutQuotes(*value));
        } else if (value && equalNoCase(name, "DISPFIRM")) {
            keepUnlessEmpty(shownName, description::withoutQuotes(*value));
        } else if (value && !equalNoCase(name, "COMPATIBLE") && !equalNoCase(name, "HEADER")) {
            if (dispFirm.empty())
                dispFirm = name;
            if (dispVer.empty())
                dispVer = *value;
        }
    }
    if (!shownVersion.empty())
        dispVer = shownVersion;
    if (!shownName.empty())
        dispFirm = shownName;
}

// The name and version of a printer's VERSION row; both empty if its token has no "=".
void readTargetPair(std::string_view valuePart, std::string& name, std::string& version)
{
    std::string packed(valuePart);
    std::erase(packed, ' ');
    const auto token = std::string_view(packed).substr(0, description::tokenEnd(packed));
    const auto pair = description::splitNamed(token);
    name = pair.value ? description::beforeDigits(pair.name) : std::string_view();
    version = pair.value.value_or(std::string_view());
}

} // namespace

bool vymParse::defaultedYesNo(const char* key, yesno_type& answer, yesno_type missing) const
{
    if (!getYesNoValue(key, answer, 0))
        answer = missing;
    return answer != yesno_none;
}

bool vymParse::defaultedInt(const char* key, int& value, int missing) const
{
    if (!getIntValue(key, value, 0, 10))
        value = missing;
    return value != -1;
}

bool vymParse::getTgmName(std::string& name) const
{
    const HoldLock hold(m_lock);
    return getStringValue("TGMNAME", name, 0);
}

bool vymParse::getModelName(std::string& name) const
{
    const HoldLock hold(m_lock);
    return getStringValue("MODELNAME", name, 0);
}

bool vymParse::getModelName(std::vector<std::string>& names) const
{
    const HoldLock hold(m_lock);
    return getStringArrayValue("MODELNAME", names, 0);
}

bool vymParse::getDriverName(std::vector<std::string>& names) const
{
    const HoldLock hold(m_lock);
    return getStringArrayValue("DRIVERNAME", names, 0);
}

bool vymParse::getPort(std::vector<std::string>& ports) const
{
    const HoldLock hold(m_lock);
    return getStringArrayValue("PORT", ports, 0);
}

bool vymParse::getPortNo(int& portNo) const
{
    const HoldLock hold(m_lock);
    return defaultedInt("PORTNO", portNo, kDefaultPortNo);
}

bool vymParse::getUseDXRL(yesno_type& answer) const
{
    const HoldLock hold(m_lock);
    return defaultedYesNo("USEDXRL", answer, yesno_no);
}

bool vymParse::getNeedEnterOperation(yesno_type& answer) const
{
    const HoldLock hold(m_lock);
    return defaultedYesNo("NEEDENTEROPERATION", answer, yesno_no);
}

bool vymParse::getNeedExitOparetion(yesno_type& answer) const
{
    const HoldLock hold(m_lock);
    return defaultedYesNo("NEEDEXITOPERATION", answer, yesno_no);
}

bool vymParse::getEnterTime(int& seconds) const
{
    const HoldLock hold(m_lock);
    return defaultedInt("ENTERTIME", seconds, 0);
}

bool vymParse::getExitTime(int& seconds) const
{
    const HoldLock hold(m_lock);
    return defaultedInt("EXITTIME", seconds, 0);
}

bool vymParse::getUpdateTime(int& seconds) const
{
    const HoldLock hold(m_lock);
    return defaultedInt("UPDATETIME", seconds, 0);
}

bool vymParse::getAllowVersionDown(yesno_type& answer) const
{
    const HoldLock hold(m_lock);
    return defaultedYesNo("ALLOWVERSIONDOWN", answer, yesno_no);
}

bool vymParse::getSpecialCmdPattern(yesno_type& answer) const
{
    const HoldLock hold(m_lock);
    return defaultedYesNo("SPECIALCMDPATTERN", answer, yesno_no);
}

bool vymParse::getDeviceIDModelName(std::vector<std::string>& names) const
{
    const HoldLock hold(m_lock);
    return getStringArrayValue("DEVICEIDMODELNAME", names, 0);
}

bool vymParse::getMaxPacket(int& bytes) const
{
    const HoldLock hold(m_lock);
    return getIntValue("MAXPACKET", bytes, 0, 10);
}

bool vymParse::getSupportCommand(std::vector<int>& commands) const
{
    const HoldLock hold(m_lock);
    description::RowsOfKey rows(m_text, "SUPPORT_COMMAND");
    std::string_view row;
    while (rows.next(row)) {
        const auto valuePart = description::afterToken(row);
        commands.push_back(valuePart.empty() ? -1 : description::leadingNumber(valuePart, 16));
    }
    return !commands.empty();
}

bool vymParse::getProductName(std::string& name) const
{
    const HoldLock hold(m_lock);
    return getStringValue("PRODUCT", name, 0);
}

bool vymParse::getUseDriverOnly(yesno_type& answer) const
{
    const HoldLock hold(m_lock);
    return defaultedYesNo("USEDRIVERONLY", answer, yesno_yes);
}

bool vymParse::getDefaltIPAddress(std::string& address) const
{
    const HoldLock hold(m_lock);
    return getStringValue("DEFAULTIPADDRESS", address, 0);
}

bool vymParse::getVersion(unsigned index, std::string& firmName, std::string& updateVersion,
                          std::string& fileName, std::string& subFileName,
                          std::string& compatibleVersion, std::string& headerValue) const
{
    const HoldLock hold(m_lock);
    if (m_type != load_vyminfo && m_type != load_targetinfo)
        assertionFailed("VYM/vymParse", kVersionPlace, "0");
    const auto found = row(kVersion, index);
    if (found.empty())
        return false;
    description::Tokens tokens(description::afterToken(found));
    std::string_view token;
    if (m_type == load_targetinfo) {
        const auto pair =
            tokens.next(token) ? description::splitNamed(token) : description::NamedToken{};
        if (!pair.value)
            return false;
        firmName = pair.name;
        updateVersion = *pair.value;
        return true;
    }
    compatibleVersion.clear();
    bool fileSeen = false;
    for (bool first = true; tokens.next(token); first = false) {
        const auto [name, value] = description::splitNamed(token);
        if (!value) {
            (fileSeen ? subFileName : fileName) = fileSeen ? token : baseName(token);
            fileSeen = true;
        } else if (equalNoCase(name, "COMPATIBLE")) {
            compatibleVersion = *value;
        } else if (equalNoCase(name, "HEADER")) {
            headerValue = *value;
        } else if (first) {
            firmName = name;
            updateVersion = *value;
        }
    }
    return true;
}

bool vymParse::getDispFirmVersion(unsigned index, std::string& dispFirm, std::string& dispVer) const
{
    const HoldLock hold(m_lock);
    if (m_type != load_vyminfo)
        assertionFailed("VYM/vymParse", kDisplayPlace, "0");
    dispFirm.clear();
    dispVer.clear();
    const auto found = row(kVersion, index);
    if (found.empty())
        return false;
    readDisplay(description::Tokens(description::afterToken(found)), dispFirm, dispVer);
    return !dispFirm.empty() && !dispVer.empty();
}

bool vymParse::getTargetInfoVersion(unsigned index, std::string& name, std::string& version) const
{
    const HoldLock hold(m_lock);
    if (m_type != load_targetinfo)
        return false;
    const auto valuePart = description::afterToken(row(kVersion, index));
    if (valuePart.empty())
        return false;
    readTargetPair(valuePart, name, version);
    return true;
}

unsigned vymParse::countVersionRows() const
{
    const HoldLock hold(m_lock);
    description::RowsOfKey rows(m_text, kVersion);
    std::string_view row;
    unsigned count = 0;
    while (rows.next(row))
        ++count;
    return count;
}

std::size_t vymParse::longestKnownRow() const
{
    const HoldLock hold(m_lock);
    description::Rows rows(m_text);
    std::string_view row;
    std::size_t longest = 0;
    while (rows.next(row)) {
        const auto begins = [row](std::string_view key) {
            return description::belongsTo(row, key);
        };
        if (row.size() > longest
            && std::any_of(RowIndex::kKeys.begin(), RowIndex::kKeys.end(), begins))
            longest = row.size();
    }
    return longest;
}

bool vymParse::findTargetInfoVersion(std::string_view firmName, std::string& version) const
{
    const HoldLock hold(m_lock);
    if (m_type != load_targetinfo)
        return false;
    description::RowsOfKey rows(m_text, kVersion);
    std::string_view row;
    while (rows.next(row)) {
        const auto valuePart = description::afterToken(row);
        if (valuePart.empty())
            return false; // a row without a value ends the printer's list
        std::string name;
        std::string installed;
        readTargetPair(valuePart, name, installed);
        if (equalNoCase(name, firmName)) {
            version = installed;
            return true;
        }
    }
    return false;
}

bool vymParse::getVymBindVersion(unsigned index, std::string& bindVersion,
                                 std::string& headerValue) const
{
    const HoldLock hold(m_lock);
    if (m_type != load_bindinfo)
        return false;
    const auto found = row(kVersion, index);
    if (found.empty())
        return false;
    description::Tokens tokens(description::afterToken(found));
    std::string_view token;
    while (tokens.next(token)) {
        const auto [name, value] = description::splitNamed(token);
        if (!value)
            bindVersion = token;
        else if (equalNoCase(name, "HEADER"))
            headerValue = *value;
    }
    return true;
}

bool vymParse::getPlatformVersion(int platform, long& maxVersion, long& minVersion) const
{
    const HoldLock hold(m_lock);
    if (platform != kThisPlatform || m_type != load_vyminfo)
        return false;
    description::RowsOfKey rows(m_text, "PLATFORMVERSION");
    std::string_view row;
    while (rows.next(row)) {
        description::Tokens tokens(description::afterToken(row));
        std::string_view token;
        const auto pair =
            tokens.next(token) ? description::splitNamed(token) : description::NamedToken{};
        if (!pair.value || !equalNoCase(pair.name, kThisPlatformName))
            continue;
        minVersion = description::leadingNumber(*pair.value, 16);
        maxVersion = description::leadingNumber(tokens.next(token) ? token : kNoHighest, 16);
        return true;
    }
    return false;
}
