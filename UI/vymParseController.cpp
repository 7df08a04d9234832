// SPDX-License-Identifier: MIT
#include "UI/vymParseController.h"

#include "VYM/vymBindInfo.h"
#include "VYM/vymUtil.h"

#include <exception>
#include <memory>

namespace {

constexpr const char* kDescription = "VYMINFO.txt";
constexpr int kThisPlatform = 4;

using Block = std::unique_ptr<unsigned char, decltype(&FreeMem)>;

} // namespace

int vyminfo_loadfile()
{
    auto* container = vymBindInfo::Instance();
    if (container == nullptr)
        return -1;
    if (!container->IsBindVymFile()) {
        container->CloseVymFile();
        return 0;
    }
    unsigned long size = 0;
    container->getBindFileSize(kDescription, size);
    if (size > kLargestDescription)
        return -1;
    const Block buffer(static_cast<unsigned char*>(AllocMem(size)), &FreeMem);
    if (buffer == nullptr)
        return -1;
    container->getBindFileData(kDescription, 0, buffer.get(), size);
    try {
        g_VymInfo.loadData(reinterpret_cast<const char*>(buffer.get()), size, load_vyminfo);
    } catch (const std::exception&) {
        return -1;
    }
    return 0;
}

bool vyminfo_getTgmName(std::string& name)
{
    return g_VymInfo.getTgmName(name);
}

bool vyminfo_getModelName(std::string& name)
{
    return g_VymInfo.getModelName(name);
}

bool vyminfo_getModelNameArray(std::vector<std::string>& names)
{
    return g_VymInfo.getModelName(names);
}

bool vyminfo_getDriverName(std::vector<std::string>& names)
{
    return g_VymInfo.getDriverName(names);
}

bool vyminfo_getPort(std::vector<std::string>& ports)
{
    return g_VymInfo.getPort(ports);
}

bool vyminfo_getPortNo(int& portNo)
{
    return g_VymInfo.getPortNo(portNo);
}

bool vyminfo_getUseDXRL(yesno_type& answer)
{
    return g_VymInfo.getUseDXRL(answer);
}

bool vyminfo_getNeedEnterOperation(yesno_type& answer)
{
    return g_VymInfo.getNeedEnterOperation(answer);
}

bool vyminfo_getNeedExitOparetion(yesno_type& answer)
{
    return g_VymInfo.getNeedExitOparetion(answer);
}

bool vyminfo_getEnterTime(int& seconds)
{
    return g_VymInfo.getEnterTime(seconds);
}

bool vyminfo_getExitTime(int& seconds)
{
    return g_VymInfo.getExitTime(seconds);
}

bool vyminfo_getUpdateTime(int& seconds)
{
    return g_VymInfo.getUpdateTime(seconds);
}

bool vyminfo_getAllowVersionDown(yesno_type& answer)
{
    return g_VymInfo.getAllowVersionDown(answer);
}

bool vyminfo_getSpecialCmdPattern(yesno_type& answer)
{
    return g_VymInfo.getSpecialCmdPattern(answer);
}

bool vyminfo_getDeviceIDModelName(std::vector<std::string>& names)
{
    return g_VymInfo.getDeviceIDModelName(names);
}

bool vyminfo_getDispFirmVersion(unsigned index, std::string& dispFirm, std::string& dispVer)
{
    return g_VymInfo.getDispFirmVersion(index, dispFirm, dispVer);
}

bool vyminfo_getVersion(unsigned index, std::string& firmName, std::string& updateVersion,
                        std::string& fileName, std::string& subFileName,
                        std::string& compatibleVersion, std::string& headerValue)
{
    return g_VymInfo.getVersion(index, firmName, updateVersion, fileName, subFileName,
                                compatibleVersion, headerValue);
}

bool vyminfo_getTargetInfoVersion(unsigned index, std::string& name, std::string& version)
{
    return g_VymInfo.getTargetInfoVersion(index, name, version);
}

bool vyminfo_getVymBindVersion(unsigned index, std::string& bindVersion, std::string& headerValue)
{
    return g_VymInfo.getVymBindVersion(index, bindVersion, headerValue);
}

bool vyminfo_getPlatformVersion(int platform, long& maxVersion, long& minVersion)
{
    return g_VymInfo.getPlatformVersion(platform, maxVersion, minVersion);
}

bool vyminfo_getMaxPacket(int& bytes)
{
    return g_VymInfo.getMaxPacket(bytes);
}

bool vyminfo_getSupportCommand(std::vector<int>& commands)
{
    return g_VymInfo.getSupportCommand(commands);
}

bool vyminfo_getProductName(std::string& name)
{
    return g_VymInfo.getProductName(name);
}

const char* vyminfo_toString(std::string& text)
{
    return vymParse::toString(text);
}

bool vyminfo_isEmpty(std::string& text)
{
    return vymParse::isEmpty(text);
}

int vyminfo_getStringArraySize(std::vector<std::string>& values)
{
    return vymParse::getArraySize(values);
}

int vyminfo_getIntArraySize(std::vector<int>& values)
{
    return vymParse::getArraySize(values);
}

bool vymbind_isContainer()
{
    const auto* container = vymBindInfo::Instance();
    return container != nullptr && container->IsBindVymFile();
}

bool vymbind_getFileSize(const char* name, unsigned long& size)
{
    const auto* container = vymBindInfo::Instance();
    return container != nullptr && container->getBindFileSize(name, size)
        && container->holdsEveryByte(name);
}

int vymParseController::loadData()
{
    return vyminfo_loadfile();
}

std::string vymParseController::getModelName()
{
    std::vector<std::string> names;
    g_VymInfo.getModelName(names);
    return names.empty() ? std::string() : names.front();
}

std::string vymParseController::getTgmName()
{
    std::string name;
    g_VymInfo.getTgmName(name);
    return name;
}

std::vector<std::string> vymParseController::getDriverName()
{
    std::vector<std::string> names;
    g_VymInfo.getDriverName(names);
    return names;
}

std::vector<std::string> vymParseController::getDeviceIDModelName()
{
    std::vector<std::string> names;
    g_VymInfo.getDeviceIDModelName(names);
    return names;
}

bool vymParseController::getDispFirmVersion(unsigned index, std::string& dispFirm,
                                            std::string& dispVer)
{
    std::string firm;
    std::string version;
    if (!g_VymInfo.getDispFirmVersion(index, firm, version))
        return false;
    dispFirm = firm;
    dispVer = version;
    return true;
}

bool vymParseController::getPlatformMaxVersion(long& maxVersion, long& minVersion)
{
    return g_VymInfo.getPlatformVersion(kThisPlatform, maxVersion, minVersion);
}

int vymParseController::getPortNo()
{
    int portNo = 0;
    g_VymInfo.getPortNo(portNo);
    return portNo;
}

yesno_type vymParseController::getNeedEnterOperation()
{
    yesno_type answer = yesno_none;
    g_VymInfo.getNeedEnterOperation(answer);
    return answer;
}

yesno_type vymParseController::getNeedExitOperation()
{
    yesno_type answer = yesno_none;
    g_VymInfo.getNeedExitOparetion(answer);
    return answer;
}

yesno_type vymParseController::getAllowVersionDown()
{
    yesno_type answer = yesno_none;
    g_VymInfo.getAllowVersionDown(answer);
    return answer;
}
