// SPDX-License-Identifier: MIT
#include "UI/vym_etc.h"

#include <exception>

namespace {

vymThread* asWorker(void* worker)
{
    return static_cast<vymThread*>(worker);
}

} // namespace

void* vym_thread_create()
{
    try {
        return new vymThread;
    } catch (const std::exception&) {
        return nullptr;
    }
}

void vym_thread_delete(void* worker)
{
    delete asWorker(worker);
}

bool vymThread_UpdateStart(void* worker, char* queue, char* port, unsigned short portNo)
{
    return worker != nullptr && asWorker(worker)->UpdateStart(queue, port, portNo);
}

bool vymThread_ChooseEntries(void* worker, const EntryChoice& choice)
{
    if (worker == nullptr)
        return false;
    try {
        asWorker(worker)->ChooseEntries(choice);
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

bool vymThread_StopThread(void* worker)
{
    return worker != nullptr && asWorker(worker)->StopThread();
}

bool vymThread_SetPolling(void* worker, unsigned long milliseconds)
{
    return worker != nullptr && asWorker(worker)->SetPolling(milliseconds);
}

bool vymThread_SetVymInfo(void* worker)
{
    return worker != nullptr && asWorker(worker)->SetVymInfo();
}

bool vymThread_CheckState(void* worker, tag_devinfo* info)
{
    return worker != nullptr && info != nullptr && asWorker(worker)->CheckState(*info);
}

bool vymThread_GetEntryOutcome(void* worker, unsigned index, tag_entryoutcome* outcome)
{
    return worker != nullptr && outcome != nullptr
        && asWorker(worker)->GetEntryOutcome(index, *outcome);
}

CheckReport vymCheck_Run(char* queue, char* port, unsigned short portNo,
                         const std::atomic<bool>& stop, const EntryChoice& choice)
{
    try {
        return checkPrinter(queue, port, portNo, stop, choice);
    } catch (const std::exception&) {
        CheckReport report{};
        report.result = result::kSystem;
        return report;
    }
}

unsigned long get_system_version()
{
    return getSystemVersion();
}

char* get_locale_string()
{
    return getLocaleString();
}

bool is_std_usb_port(const char* port)
{
    return IsStdUSBPort(port);
}

bool is_mp_usb_prn_port(const char* port)
{
    return IsMPUSBPRNPort(port);
}

bool is_usb_prn_port(const char* port)
{
    return IsUSBPRNPort(port);
}
