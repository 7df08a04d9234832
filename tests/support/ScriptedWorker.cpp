// SPDX-License-Identifier: MIT
#include "tests/support/ScriptedWorker.h"

#include <gtest/gtest.h>

namespace {

ScriptedWorker* g_script = nullptr;
constexpr unsigned long kSystemWithoutScript = 0x1200; // one that every package allows

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

void ScriptedWorker::takeDestination(const char* givenQueue, const char* givenPort,
                                     unsigned short portNo)
{
    port = givenPort;
    queue = givenQueue != nullptr ? std::optional<std::string>(givenQueue) : std::nullopt;
    portNumber = portNo;
}

tag_devinfo ScriptedWorker::look()
{
    const auto now = looks++;
    while (now > stopFollowsLook && !m_isStopped)
        yieldProcessor();
    auto found = records.empty() ? record : records[std::min(now, records.size() - 1)];
    if (m_isStopped && recordAfterStop.has_value())
        found = *recordAfterStop;
    if (atLook)
        atLook(now);
    if (lookTakes != 0)
        pauseMilliseconds(lookTakes);
    return found;
}

void ScriptedWorker::stop()
{
    ++stops;
    m_isStopped = true;
    if (atStop)
        atStop();
    note("stop");
}

void* vym_thread_create()
{
    g_script->note("create");
    if (!g_script->canBeCreated)
        return nullptr;
    ++g_script->workers;
    return g_script;
}

void vym_thread_delete(void* worker)
{
    if (auto* script = asScript(worker)) {
        --script->workers;
        script->note("delete");
    }
}

bool vymThread_UpdateStart(void* worker, char* queue, char* port, unsigned short portNo)
{
    auto* script = asScript(worker);
    if (script == nullptr)
        return false;
    script->note("start " + shown(queue) + ' ' + shown(port) + ' ' + std::to_string(portNo));
    if (script->canStart)
        script->takeDestination(queue, port, portNo);
    return script->canStart;
}

bool vymThread_ChooseEntries(void* worker, const EntryChoice& choice)
{
    if (auto* script = asScript(worker))
        script->choice = choice;
    return worker != nullptr;
}

bool vymThread_StopThread(void* worker)
{
    auto* script = asScript(worker);
    if (script != nullptr)
        script->stop();
    return script != nullptr;
}

bool vymThread_SetPolling(void* worker, unsigned long milliseconds)
{
    if (auto* script = asScript(worker)) {
        script->polling = milliseconds;
        script->note("polling " + std::to_string(milliseconds));
    }
    return worker != nullptr;
}

bool vymThread_RefuseFirmware(void* worker)
{
    auto* script = asScript(worker);
    return script != nullptr && script->mayRefuseFirmware;
}

bool vymThread_GetPrinterModel(void* worker, std::string& model)
{
    auto* script = asScript(worker);
    model = script != nullptr ? script->printerModel : "";
    return !model.empty();
}

bool vymThread_SetVymInfo(void*)
{
    return false;
}

bool vymThread_CheckState(void* worker, tag_devinfo* info)
{
    auto* script = asScript(worker);
    if (script != nullptr)
        *info = script->look();
    return script != nullptr;
}

bool vymThread_GetEntryOutcome(void* worker, unsigned index, tag_entryoutcome* outcome)
{
    auto* script = asScript(worker);
    if (script == nullptr || index >= script->outcomes.size())
        return false;
    *outcome = script->outcomes[index];
    return true;
}

CheckReport vymCheck_Run(char* queue, char* port, unsigned short portNo,
                         const std::atomic<bool>& stop, const EntryChoice& choice)
{
    g_script->choice = choice;
    g_script->takeDestination(queue, port, portNo);
    if (g_script->duringCheck)
        g_script->duringCheck(stop);
    return g_script->report;
}

unsigned long get_system_version()
{
    return g_script != nullptr ? g_script->systemVersion : kSystemWithoutScript;
}

char* get_locale_string()
{
    return nullptr;
}

bool is_std_usb_port(const char* port)
{
    return IsStdUSBPort(port);
}

bool is_mp_usb_prn_port(const char*)
{
    return false;
}

bool is_usb_prn_port(const char*)
{
    return false;
}
