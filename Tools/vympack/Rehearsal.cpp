// SPDX-License-Identifier: MIT
#include "Tools/vympack/Rehearsal.h"

#include "Tools/vympack/Interrupt.h"
#include "UI/vym_etc.h"
#include "VYM/ProtocolResult.h"

#include <algorithm>
#include <chrono>
#include <thread>

namespace vympack {

namespace {

constexpr const char* kAddress = "127.0.0.1";
constexpr unsigned long kPolling = 500; // milliseconds between two queries, as in a real run
constexpr auto kLook = std::chrono::milliseconds(5); // between two looks at the record
// Real seconds in one of the quick clock. A printer in this computer answers late only if the
// computer is busy, and that says nothing about the package.
constexpr std::uint64_t kPatience = 30;

// Looks at the worker until it has ended by itself or the user wants to stop.
void watch(void* worker, std::size_t firmwareCount, UpdateFacts& facts)
{
    for (;;) {
        vymThread_CheckState(worker, &facts.lastRecord);
        facts.endCode = runStep(facts.lastRecord, firmwareCount).endCode;
        if (facts.endCode.has_value())
            return;
        if (interrupted()) {
            facts.stop = StopCause::user;
            return;
        }
        std::this_thread::sleep_for(kLook);
    }
}

} // namespace

std::uint64_t WithoutPauses::nowMilliseconds() const
{
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<std::uint64_t>(
               std::chrono::duration_cast<std::chrono::milliseconds>(now).count())
        / kPatience;
}

void WithoutPauses::sleepMilliseconds(unsigned long /*milliseconds*/) { }

unsigned long WithoutPauses::waitLimit(unsigned long milliseconds) const
{
    return std::min(milliseconds, 1UL); // polling without a pause would use a whole processor
}

Outcome rehearse(const PackageFacts& package, std::uint16_t port)
{
    UpdateFacts facts;
    facts.address = kAddress;
    facts.lastRecord.m_result = result::kSuccess;
    std::string address = kAddress; // the worker uses it until it has ended
    void* worker = vym_thread_create();
    if (vymThread_UpdateStart(worker, nullptr, address.data(), port)) {
        vymThread_SetPolling(worker, kPolling);
        watch(worker, package.firmware.size(), facts);
        vymThread_StopThread(worker);
    } else {
        facts.endCode = result::kSystem;
    }
    tag_entryoutcome outcome{};
    for (unsigned i = 0; vymThread_GetEntryOutcome(worker, i, &outcome); ++i)
        facts.outcomes.push_back(outcome);
    vym_thread_delete(worker);
    return concludeUpdate(package, facts);
}

} // namespace vympack
