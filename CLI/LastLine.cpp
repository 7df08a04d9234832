// SPDX-License-Identifier: MIT
#include "CLI/LastLine.h"

#include <algorithm>
#include <cassert>
#include <cstdio>
#include <cstring>

namespace {

constexpr const char* kSentence =
    "This computer ran out of memory, so the details of the result are missing.";

const char* wordOf(std::optional<bool> value)
{
    if (!value.has_value())
        return "null";
    return *value ? "true" : "false";
}

const char* nextOf(const LastFacts& facts)
{
    return facts.bytesWentOut == false ? "retry" : "check-printer";
}

int writeJson(const LastFacts& facts, LastText& room)
{
    std::array<char, 16> code{"null"};
    if (facts.resultCode.has_value())
        std::snprintf(code.data(), code.size(), "%d", *facts.resultCode);
    const auto tenths = static_cast<long long>(facts.seconds * 10);
    return std::snprintf(
        room.data(), room.size(),
        R"({"type":"result","schema_version":1,"command":"%s","exit_code":%d,"name":"%.*s",)"
        R"("result_code":%s,"message":"%s","next":"%s","seconds":%lld.%lld,)"
        R"("firmware_bytes_sent":%s,"address":null,"printer_name":null,"printer_model":null,)"
        R"("firmware":[],"package":null,"printers":null,"udev_rule":null,"warning":null,)"
        R"("verdict":null})"
        "\n",
        facts.command, facts.exitCode, static_cast<int>(facts.name.size()), facts.name.data(),
        code.data(), kSentence, nextOf(facts), tenths / 10, tenths % 10,
        wordOf(facts.bytesWentOut));
}

int writeSentence(const LastFacts& facts, LastText& room)
{
    const char* sent = "No firmware was sent.";
    if (!facts.bytesWentOut.has_value())
        sent = "Firmware may have been sent: do not switch the printer off, and look at it.";
    else if (*facts.bytesWentOut)
        sent = "Firmware was sent: do not switch the printer off, and look at it.";
    return std::snprintf(room.data(), room.size(), "%.*s: %s %s\n",
                         static_cast<int>(facts.name.size()), facts.name.data(), kSentence, sent);
}

} // namespace

std::string_view lastLine(const LastFacts& facts, LastText& room)
{
    const int length = facts.json ? writeJson(facts, room) : writeSentence(facts, room);
    assert(length < static_cast<int>(room.size()));
    return {room.data(), std::min(static_cast<std::size_t>(std::max(length, 0)), room.size() - 1)};
}

bool wantsJson(int argc, const char* const* argv)
{
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--json") == 0)
            return true;
    }
    return false;
}
