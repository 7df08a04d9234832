// SPDX-License-Identifier: MIT
#include "tests/CLI/FakePackage.h"

namespace {

FakePackage g_package;

bool give(const std::string& value, std::string& text)
{
    if (!value.empty())
        text = value;
    return !value.empty();
}

bool giveList(std::vector<std::string>& texts, std::vector<std::string> values)
{
    texts = std::move(values);
    return true;
}

template <class T> bool giveValue(T value, T& out)
{
    out = value;
    return true;
}

} // namespace

FakePackage& resetFakePackage()
{
    g_package = FakePackage();
    return g_package;
}

int vyminfo_loadfile()
{
    return g_package.loadResult;
}

bool vyminfo_getTgmName(std::string& name)
{
    return give(g_package.model, name);
}

bool vyminfo_getProductName(std::string& name)
{
    return give("Model 100 series", name);
}

bool vyminfo_getModelNameArray(std::vector<std::string>& names)
{
    return giveList(names, {"Model 100", "Model 110"});
}

bool vyminfo_getDriverName(std::vector<std::string>& names)
{
    return giveList(names, {"Driver 100"});
}

bool vyminfo_getPort(std::vector<std::string>& ports)
{
    return giveList(ports, {"USB", "NET"});
}

bool vyminfo_getDeviceIDModelName(std::vector<std::string>& names)
{
    return giveList(names, {"Model 100"});
}

bool vyminfo_getPortNo(int& portNo)
{
    return giveValue(g_package.portNumber, portNo);
}

bool vyminfo_getEnterTime(int& seconds)
{
    return giveValue(5, seconds);
}

bool vyminfo_getExitTime(int& seconds)
{
    return giveValue(6, seconds);
}

bool vyminfo_getUpdateTime(int& seconds)
{
    return giveValue(30, seconds);
}

bool vyminfo_getNeedEnterOperation(yesno_type& answer)
{
    return giveValue(yesno_no, answer);
}

bool vyminfo_getNeedExitOparetion(yesno_type& answer)
{
    return giveValue(g_package.needsExitOperation, answer);
}

bool vyminfo_getAllowVersionDown(yesno_type& answer)
{
    return giveValue(g_package.versionRule, answer);
}

bool vyminfo_getSpecialCmdPattern(yesno_type& answer)
{
    return giveValue(yesno_no, answer);
}

bool vyminfo_getPlatformVersion(int platform, long& maxVersion, long& minVersion)
{
    if (platform != 4 || !g_package.systemBounds.has_value())
        return false;
    minVersion = g_package.systemBounds->first;
    maxVersion = g_package.systemBounds->second;
    return true;
}

bool vyminfo_getVersion(unsigned index, std::string& firmName, std::string& updateVersion,
                        std::string& fileName, std::string& subFileName,
                        std::string& compatibleVersion, std::string& /*headerValue*/)
{
    if (index >= g_package.firmware.size())
        return false;
    const auto& firmware = g_package.firmware[index];
    firmName = firmware.name;
    updateVersion = firmware.version;
    fileName = firmware.file;
    subFileName = firmware.nameInPrinter;
    compatibleVersion = firmware.compatible;
    return true;
}

bool vyminfo_getDispFirmVersion(unsigned index, std::string& dispFirm, std::string& dispVer)
{
    if (index >= g_package.firmware.size())
        return false;
    dispFirm = g_package.firmware[index].displayName;
    dispVer = g_package.firmware[index].displayVersion;
    return !dispFirm.empty() && !dispVer.empty();
}

bool vymbind_isContainer()
{
    return g_package.isContainer;
}

bool vymbind_getFileSize(const char* name, unsigned long& size)
{
    const auto file = g_package.files.find(name);
    if (file == g_package.files.end())
        return false;
    size = file->second;
    return true;
}

std::string vymParseController::getTgmName()
{
    return g_package.model;
}

std::vector<std::string> vymParseController::getDriverName()
{
    return {"Driver 100"};
}

std::vector<std::string> vymParseController::getDeviceIDModelName()
{
    return {"Model 100"};
}
