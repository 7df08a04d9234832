#include "tests/CLI/FakeEngine.h"

#include "VYM/vymMac.h"

#include <atomic>

namespace {

FakeEngine g_engine;
std::atomic<bool> g_stopped{false};

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

void takeDestination(const char* port, const char* address, unsigned short portNo)
{
    g_engine.address = address;
    g_engine.identifier = port != nullptr ? std::optional<std::string>(port) : std::nullopt;
    g_engine.port = portNo;
}

template <class T> bool giveValue(T value, T& out)
{
    out = value;
    return true;
}

} // namespace

FakeEngine& resetFakeEngine()
{
    g_engine = FakeEngine();
    g_stopped = false;
    return g_engine;
}

int vyminfo_loadfile()
{
    return g_engine.loadResult;
}

bool vyminfo_getTgmName(std::string& name)
{
    return give(g_engine.model, name);
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
    return giveValue(g_engine.portNumber, portNo);
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
    return giveValue(g_engine.needsExitOperation, answer);
}

bool vyminfo_getAllowVersionDown(yesno_type& answer)
{
    return giveValue(g_engine.versionRule, answer);
}

bool vyminfo_getSpecialCmdPattern(yesno_type& answer)
{
    return giveValue(yesno_no, answer);
}

bool vyminfo_getPlatformVersion(int platform, long& maxVersion, long& minVersion)
{
    if (platform != 4 || !g_engine.systemBounds.has_value())
        return false;
    minVersion = g_engine.systemBounds->first;
    maxVersion = g_engine.systemBounds->second;
    return true;
}

bool vyminfo_getVersion(unsigned index, std::string& firmName, std::string& updateVersion,
                        std::string& fileName, std::string& subFileName,
                        std::string& compatibleVersion, std::string& /*headerValue*/)
{
    if (index >= g_engine.firmware.size())
        return false;
    const auto& firmware = g_engine.firmware[index];
    firmName = firmware.name;
    updateVersion = firmware.version;
    fileName = firmware.file;
    subFileName = firmware.nameInPrinter;
    compatibleVersion = firmware.compatible;
    return true;
}

bool vyminfo_getDispFirmVersion(unsigned index, std::string& dispFirm, std::string& dispVer)
{
    if (index >= g_engine.firmware.size())
        return false;
    dispFirm = g_engine.firmware[index].displayName;
    dispVer = g_engine.firmware[index].displayVersion;
    return !dispFirm.empty() && !dispVer.empty();
}

bool vymbind_isContainer()
{
    return g_engine.isContainer;
}

bool vymbind_getFileSize(const char* name, unsigned long& size)
{
    const auto file = g_engine.files.find(name);
    if (file == g_engine.files.end())
        return false;
    size = file->second;
    return true;
}

std::string vymParseController::getTgmName()
{
    return g_engine.model;
}

std::vector<std::string> vymParseController::getDriverName()
{
    return {"Driver 100"};
}

std::vector<std::string> vymParseController::getDeviceIDModelName()
{
    return {"Model 100"};
}

bool is_std_usb_port(const char* port)
{
    return IsStdUSBPort(port);
}

bool is_mp_usb_prn_port(const char* /*port*/)
{
    return false;
}

bool is_usb_prn_port(const char* /*port*/)
{
    return false;
}

void* vym_thread_create()
{
    if (!g_engine.canCreate)
        return nullptr;
    ++g_engine.workers;
    return &g_engine;
}

void vym_thread_delete(void* worker)
{
    if (worker != nullptr)
        --g_engine.workers;
}

bool vymThread_UpdateStart(void* worker, char* port, char* address, unsigned short portNo)
{
    if (worker == nullptr || !g_engine.canStart)
        return false;
    takeDestination(port, address, portNo);
    return true;
}

bool vymThread_StopThread(void* worker)
{
    if (worker == nullptr)
        return false;
    ++g_engine.stops;
    g_stopped = true;
    if (g_engine.atStop)
        g_engine.atStop();
    return true;
}

bool vymThread_SetPolling(void* worker, unsigned long milliseconds)
{
    g_engine.polling = milliseconds;
    return worker != nullptr;
}

bool vymThread_SetVymInfo(void* /*worker*/)
{
    return false;
}

bool vymThread_CheckState(void* worker, tag_devinfo* info)
{
    if (worker == nullptr)
        return false;
    const auto look = std::atomic_ref(g_engine.looks)++;
    while (look > g_engine.stopFollowsLook && !g_stopped)
        yieldProcessor();
    *info = g_engine.records[std::min(look, g_engine.records.size() - 1)];
    if (g_stopped && g_engine.recordAfterStop.has_value())
        *info = *g_engine.recordAfterStop;
    if (g_engine.atLook)
        g_engine.atLook(look);
    pauseMilliseconds(1000); // a second goes by between two looks
    return true;
}

bool vymThread_GetEntryOutcome(void* worker, unsigned index, tag_entryoutcome* outcome)
{
    if (worker == nullptr || index >= g_engine.outcomes.size())
        return false;
    *outcome = g_engine.outcomes[index];
    return true;
}

CheckReport vymCheck_Run(char* port, char* address, unsigned short portNo,
                         const std::atomic<bool>& stop)
{
    takeDestination(port, address, portNo);
    if (g_engine.duringCheck)
        g_engine.duringCheck(stop);
    return g_engine.report;
}
