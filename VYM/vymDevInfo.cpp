// SPDX-License-Identifier: MIT
#include "VYM/vymDevInfo.h"

#include <cstddef>

namespace {

template <class T> T loadField(const T& field, std::memory_order order = std::memory_order_relaxed)
{
    // atomic_ref has no form for const objects yet; a load changes nothing.
    return std::atomic_ref(const_cast<T&>(field)).load(order);
}

} // namespace

void storeFirmwareName(tag_devinfo& info, std::string_view name)
{
    if (name.size() >= sizeof info.m_firmwareName)
        name = {};
    for (std::size_t i = 0; i < sizeof info.m_firmwareName; ++i)
        storeField(info.m_firmwareName[i], i < name.size() ? name[i] : '\0');
}

void copyDevInfo(const tag_devinfo& from, tag_devinfo& to)
{
    to.m_updateState = loadField(from.m_updateState, std::memory_order_acquire);
    for (std::size_t i = 0; i < sizeof to.m_firmwareName; ++i)
        to.m_firmwareName[i] = loadField(from.m_firmwareName[i]);
    to.m_firmwareName[sizeof to.m_firmwareName - 1] = '\0';
    to.m_bytesDone = loadField(from.m_bytesDone);
    to.m_bytesTotal = loadField(from.m_bytesTotal);
    to.m_result = loadField(from.m_result);
    to.m_firmwareNumber = loadField(from.m_firmwareNumber);
    to.m_updatedCount = loadField(from.m_updatedCount);
    to.m_checkStateSupported = loadField(from.m_checkStateSupported);
}
