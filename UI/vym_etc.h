// SPDX-License-Identifier: MIT
// The flat functions for the update worker, for a check without an update, and for a few queries to
// the system. A worker is an opaque pointer; every function ignores a null one and returns false.
// No exception leaves a function.
//
// Threads: as vymThread and CheckRun say.
#pragma once
#include "VYM/CheckRun.h"
#include "VYM/vymThread.h"

// Null if out of memory. Delete the worker with vym_thread_delete, after StopThread.
[[nodiscard]] void* vym_thread_create();
void vym_thread_delete(void* worker);
bool vymThread_UpdateStart(void* worker, char* queue, char* port, unsigned short portNo);
// Which entries the run leaves out; before UpdateStart. False also if out of memory.
bool vymThread_ChooseEntries(void* worker, const EntryChoice& choice);
bool vymThread_StopThread(void* worker);
bool vymThread_SetPolling(void* worker, unsigned long milliseconds);
bool vymThread_SetVymInfo(void* worker);
bool vymThread_CheckState(void* worker, tag_devinfo* info);
bool vymThread_GetEntryOutcome(void* worker, unsigned index, tag_entryoutcome* outcome);

// If memory runs out for the report, its result is kSystem.
CheckReport vymCheck_Run(char* queue, char* port, unsigned short portNo,
                         const std::atomic<bool>& stop, const EntryChoice& choice = {});

unsigned long get_system_version();
[[nodiscard]] char* get_locale_string(); // freed with free()
bool is_std_usb_port(const char* port);
bool is_mp_usb_prn_port(const char* port);
bool is_usb_prn_port(const char* port);
