// For a build without the library that speaks to the login manager.
#include "Platform/SleepInhibitor.h"

SleepInhibitor::SleepInhibitor(const char*, const char*)
    : m_note("no sleep inhibitor: built without libsystemd")
{
}

SleepInhibitor::~SleepInhibitor() = default;
