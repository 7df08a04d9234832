// SPDX-License-Identifier: MIT
// For builds without the library that talks to the login manager.
#include "Platform/SleepInhibitor.h"

SleepInhibitor::SleepInhibitor(const char*, const char*)
    : m_note("no sleep inhibitor: built without libsystemd")
{
}

SleepInhibitor::~SleepInhibitor() = default;
