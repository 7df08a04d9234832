#include "tests/support/ScriptedWorker.h"

#include "UI/vym_etc.h"

#include <gtest/gtest.h>
#include <thread>

namespace {

ScriptedWorker* g_script = nullptr;

ScriptedWorker* asScript(void* worker)
{
    EXPECT_TRUE(worker == nullptr || worker == g_script);
    return static_cast<ScriptedWorker*>(worker);
}

std::string shown(const char* text)
{
    return text != nullptr ? text : "none";
}

} // namespace

ScriptedWorker::ScriptedWorker()
{
    record.m_result = 1;
    g_script = this;
}

ScriptedWorker::~ScriptedWorker()
{
    g_script = nullptr;
}

void ScriptedWorker::note(const std::string& call)
{
    const std::lock_guard lock(m_mutex);
    m_calls.push_back(call);
}

std::vector<std::string> ScriptedWorker::calls() const
{
    const std::lock_guard lock(m_mutex);
    return m_calls;
}

void* vym_thread_create()
{
    g_script->note("create");
    return g_script->canBeCreated ? g_script : nullptr;
}

void vym_thread_delete(void* worker)
{
    if (auto* script = asScript(worker))
        script->note("delete");
}

bool vymThread_UpdateStart(void* worker, char* port, char* address, unsigned short portNo)
{
    auto* script = asScript(worker);
    if (script == nullptr)
        return false;
    script->note("start " + shown(port) + ' ' + shown(address) + ' ' + std::to_string(portNo));
    return script->canStart;
}

bool vymThread_StopThread(void* worker)
{
    auto* script = asScript(worker);
    if (script == nullptr)
        return false;
    std::this_thread::sleep_for(script->stopTakes);
    script->note("stop");
    return true;
}

bool vymThread_SetPolling(void* worker, unsigned long milliseconds)
{
    if (auto* script = asScript(worker))
        script->note("polling " + std::to_string(milliseconds));
    return worker != nullptr;
}

bool vymThread_SetVymInfo(void*)
{
    return false;
}

bool vymThread_CheckState(void* worker, tag_devinfo* info)
{
    auto* script = asScript(worker);
    if (script != nullptr)
        *info = script->record;
    return script != nullptr;
}

bool vymThread_GetEntryOutcome(void*, unsigned, tag_entryoutcome*)
{
    return false;
}

CheckReport vymCheck_Run(char*, char*, unsigned short, const std::atomic<bool>&)
{
    return {};
}

unsigned long get_system_version()
{
    return 0x1200;
}

char* get_locale_string()
{
    return nullptr;
}

bool is_std_usb_port(const char*)
{
    return false;
}

bool is_mp_usb_prn_port(const char*)
{
    return false;
}

bool is_usb_prn_port(const char*)
{
    return false;
}
