// SPDX-License-Identifier: MIT
// The status record of an update, the only way in which a run reports its progress.
// The engine writes it under one lock and copies it under another, so a copy may mix fields of two
// moments; every field is stored and loaded atomically, so no access is a data race.
//
// Owns:      the worker owns the record, the caller owns a copy.
// Threads:   the worker thread writes, any thread copies.
// Invariant: a copied firmware name always ends in a NUL.
#pragma once
#include <atomic>
#include <cstdint>
#include <string_view>
#include <type_traits>

enum update_state : std::uint32_t {
    state_initial = 0,
    state_entered = 1, // download mode entered
    state_checked = 2, // the version check of the current firmware is done
    state_sending = 3,
    state_writing = 4, // the printer reports that it is writing
    state_finished = 5, // the current firmware is finished
    state_done = 6, // all entries handled
    state_failed = 7, // stopped by an error
};

struct tag_devinfo {
    update_state m_updateState;
    char m_firmwareName[32]; // NUL-padded
    std::uint32_t m_bytesDone; // of the current firmware: sent, or written according to the printer
    std::uint32_t m_bytesTotal;
    std::int32_t m_result; // a protocol result code; 1 while all is well
    std::uint32_t m_firmwareNumber; // from 1: the entry being handled
    std::uint32_t m_updatedCount; // entries that ended with result 1
    std::uint8_t m_checkStateSupported; // 1: the printer reports its writing progress
};
static_assert(sizeof(tag_devinfo) == 60);

// The state is stored last and copied first: a reader that sees a state also sees the result and
// the counts that were published with it.
inline void storeState(tag_devinfo& info, update_state state)
{
    std::atomic_ref(info.m_updateState).store(state, std::memory_order_release);
}

template <class T> void storeField(T& field, T value)
{
    static_assert(!std::is_same_v<T, update_state>, "a state goes through storeState");
    std::atomic_ref(field).store(value, std::memory_order_relaxed);
}

void storeFirmwareName(tag_devinfo& info, std::string_view name); // a longer name is left out
void copyDevInfo(const tag_devinfo& from, tag_devinfo& to);
