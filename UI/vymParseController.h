// SPDX-License-Identifier: MIT
// The package description for the interface: loads it out of the container, and forwards every
// question to the description of the process. The class gives the same answers as values.
//
// Threads: loading on one thread, before any question; questions from any thread.
#pragma once
#include "VYM/vymParse.h"

#include <string>
#include <vector>

// Descriptions are a few dozen rows; a table that promises gigabytes is no reason to hold them.
constexpr unsigned long kLargestDescription = 16UL * 1024 * 1024;
// Reads "VYMINFO.txt" out of the container. 0 also where there is no usable container (the
// description is then empty and every key answers its default); -1 where memory is short or the
// description is larger than that.
int vyminfo_loadfile();

bool vyminfo_getTgmName(std::string& name);
bool vyminfo_getModelName(std::string& name);
bool vyminfo_getModelNameArray(std::vector<std::string>& names);
bool vyminfo_getDriverName(std::vector<std::string>& names);
bool vyminfo_getPort(std::vector<std::string>& ports);
bool vyminfo_getPortNo(int& portNo);
bool vyminfo_getUseDXRL(yesno_type& answer);
bool vyminfo_getNeedEnterOperation(yesno_type& answer);
bool vyminfo_getNeedExitOparetion(yesno_type& answer);
bool vyminfo_getEnterTime(int& seconds);
bool vyminfo_getExitTime(int& seconds);
bool vyminfo_getUpdateTime(int& seconds);
bool vyminfo_getAllowVersionDown(yesno_type& answer);
bool vyminfo_getSpecialCmdPattern(yesno_type& answer);
bool vyminfo_getDeviceIDModelName(std::vector<std::string>& names);
bool vyminfo_getDispFirmVersion(unsigned index, std::string& dispFirm, std::string& dispVer);
bool vyminfo_getVersion(unsigned index, std::string& firmName, std::string& updateVersion,
                        std::string& fileName, std::string& subFileName,
                        std::string& compatibleVersion, std::string& headerValue);
bool vyminfo_getTargetInfoVersion(unsigned index, std::string& name, std::string& version);
bool vyminfo_getVymBindVersion(unsigned index, std::string& bindVersion, std::string& headerValue);
bool vyminfo_getPlatformVersion(int platform, long& maxVersion, long& minVersion);
bool vyminfo_getMaxPacket(int& bytes);
bool vyminfo_getSupportCommand(std::vector<int>& commands);
bool vyminfo_getProductName(std::string& name);
const char* vyminfo_toString(std::string& text);
bool vyminfo_isEmpty(std::string& text);
int vyminfo_getStringArraySize(std::vector<std::string>& values);
int vyminfo_getIntArraySize(std::vector<int>& values);

// How the container looked when it was opened: whether it is one (more than one embedded file),
// and the size of an embedded file, where all of its bytes lie inside the container.
bool vymbind_isContainer();
bool vymbind_getFileSize(const char* name, unsigned long& size);

class vymParseController {
public:
    static int loadData();
    static std::string getModelName(); // the first; empty when missing
    static std::string getTgmName();
    static std::vector<std::string> getDriverName();
    static std::vector<std::string> getDeviceIDModelName();
    static bool getDispFirmVersion(unsigned index, std::string& dispFirm, std::string& dispVer);
    static bool getPlatformMaxVersion(long& maxVersion, long& minVersion);
    static int getPortNo();
    static yesno_type getNeedEnterOperation();
    static yesno_type getNeedExitOperation();
    static yesno_type getAllowVersionDown();
};
