// SPDX-License-Identifier: MIT
// One description text in memory, with typed getters: the package's own "VYMINFO.txt", the
// "TargetInfo.txt" that a printer sends, or a package version text. DescriptionText has the row and
// token rules; this class knows the keys, their types and their defaults.
//
// A getter returns whether it found a value; a missing row leaves its output untouched unless the
// key has a default. The text is walked once for the first rows of all keys, and once more for the
// rows of a key that are read in order.
//
// Owns:    the text, by value.
// Threads: any; every getter and loader holds the object's lock throughout. The readers at the end
//          take no lock and run only under it (or on an object that no other thread uses).
#pragma once
#include "VYM/RowIndex.h"
#include "VYM/vymLock.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

enum loadFile_type : std::uint32_t {
    load_vyminfo = 0, // the package description
    load_targetinfo = 1, // target information received from the printer
    load_bindinfo = 2, // package version text
};

// The value of a yes/no row. In version rules: no = newer only, yes = any, both = newer or same.
enum yesno_type : std::uint32_t {
    yesno_none = 0,
    yesno_no = 1,
    yesno_yes = 2,
    yesno_both = 3,
};

class vymParse {
public:
    // Replaces text and type; false without any change for null data.
    bool loadData(const char* data, unsigned long length, loadFile_type type);
    // Reads a whole file from disk; false without any change if that fails.
    bool loadtargetFile(const char* path, loadFile_type type);
    // 0 no byte-order mark, 1 UTF-8, 2 UTF-16 little-endian. The first byte must be one of the two
    // lead bytes; only the second and third identify the mark. bytes has at least 3.
    int getFileFormat(const char* bytes, unsigned long& bomLength) const;

    bool getTgmName(std::string& name) const;
    bool getModelName(std::string& name) const;
    bool getModelName(std::vector<std::string>& names) const;
    bool getDriverName(std::vector<std::string>& names) const;
    bool getPort(std::vector<std::string>& ports) const;
    bool getPortNo(int& portNo) const; // 48350 without a row
    bool getUseDXRL(yesno_type& answer) const;
    bool getNeedEnterOperation(yesno_type& answer) const;
    bool getNeedExitOparetion(yesno_type& answer) const;
    bool getEnterTime(int& seconds) const; // the three times: 0 without a row
    bool getExitTime(int& seconds) const;
    bool getUpdateTime(int& seconds) const;
    bool getAllowVersionDown(yesno_type& answer) const;
    bool getSpecialCmdPattern(yesno_type& answer) const;
    bool getDeviceIDModelName(std::vector<std::string>& names) const;
    bool getMaxPacket(int& bytes) const;
    bool getSupportCommand(std::vector<int>& commands) const; // every row, appended
    bool getProductName(std::string& name) const;
    bool getUseDriverOnly(yesno_type& answer) const; // yes without a row
    bool getDefaltIPAddress(std::string& address) const;

    // The index-th VERSION row. Of a description: all six fields, headerValue and the names only if
    // the row has them; of target information: firmName and updateVersion. Any other type of text
    // stops the process.
    bool getVersion(unsigned index, std::string& firmName, std::string& updateVersion,
                    std::string& fileName, std::string& subFileName, std::string& compatibleVersion,
                    std::string& headerValue) const;
    // Name and version for users; only of a description, any other text stops the process.
    bool getDispFirmVersion(unsigned index, std::string& dispFirm, std::string& dispVer) const;
    bool getTargetInfoVersion(unsigned index, std::string& name, std::string& version) const;
    bool getVymBindVersion(unsigned index, std::string& bindVersion,
                           std::string& headerValue) const;
    // The lowest and highest supported system version of this platform (4); a negative highest
    // means no upper limit.
    bool getPlatformVersion(int platform, long& maxVersion, long& minVersion) const;

    // The number of VERSION rows, in one walk.
    unsigned countVersionRows() const;
    // The bytes of the longest row that belongs to a known key; 0 without such a row.
    std::size_t longestKnownRow() const;
    // The installed version of a firmware in a printer's list, ignoring the case of its name; only
    // of target information, in one walk for any number of rows.
    bool findTargetInfoVersion(std::string_view firmName, std::string& version) const;

    static bool isEmpty(const std::string& text) { return text.empty(); }
    static const char* toString(const std::string& text) { return text.c_str(); }
    static int getArraySize(const std::vector<std::string>& values);
    static int getArraySize(const std::vector<int>& values);

    // The readers. A null key has no value; index selects the n-th row of the key.
    std::string getTargetKeyRowData(const char* key, unsigned index) const VYM_REQUIRES(m_lock);
    std::string getNextRowData(const std::string& row) const;
    unsigned getSeparatePoint(const std::string& text) const;
    bool isSeparator(const std::string& text) const;
    int findString(const std::string& text, const char* needle, unsigned long from) const;
    int compareString(const std::string& text, const char* literal) const;
    bool getStringValue(const char* key, std::string& value, unsigned index) const
        VYM_REQUIRES(m_lock);
    bool getStringArrayValue(const char* key, std::vector<std::string>& values,
                             unsigned index) const VYM_REQUIRES(m_lock);
    bool getIntValue(const char* key, int& value, unsigned index, unsigned base) const
        VYM_REQUIRES(m_lock);
    bool getYesNoValue(const char* key, yesno_type& value, unsigned index) const
        VYM_REQUIRES(m_lock);
    std::string removeDoubleQuot(const std::string& text) const;
    std::string removeWhiteSpace(const std::string& text) const; // spaces only: tabs stay
    std::string getNumberBeforeString(const std::string& text) const;
    bool getExtVersion(const std::string& text, int& major, int& minor) const;

private:
    std::string_view row(const char* key, unsigned index) const VYM_REQUIRES(m_lock);
    bool defaultedYesNo(const char* key, yesno_type& answer, yesno_type missing) const
        VYM_REQUIRES(m_lock);
    bool defaultedInt(const char* key, int& value, int missing) const VYM_REQUIRES(m_lock);

    std::string m_text VYM_GUARDED_BY(m_lock);
    mutable RowIndex m_index VYM_GUARDED_BY(m_lock);
    mutable CRITSECT m_lock;
    loadFile_type m_type VYM_GUARDED_BY(m_lock) = load_vyminfo;
};

// The package description of this process, empty until it is loaded.
extern vymParse g_VymInfo;
