// SPDX-License-Identifier: MIT
#include "CLI/Fleet/MemberEnd.h"

#include "CLI/Outcome.h"

#include <array>
#include <nlohmann/json.hpp>

namespace {

using ReadJson = nlohmann::json;

MemberClass classOf(const std::string& command, int exitCode)
{
    if (exitCode == exitcode::kDone)
        return command == commandName(Command::check) ? MemberClass::updateAvailable
                                                      : MemberClass::updated;
    if (exitCode == exitcode::kNothingToUpdate)
        return MemberClass::nothingToUpdate;
    return exitCode == exitcode::kStopped ? MemberClass::stopped : MemberClass::failed;
}

std::string textOf(const ReadJson& json, const char* key)
{
    const auto found = json.find(key);
    return found != json.end() && found->is_string() ? found->get<std::string>() : "";
}

} // namespace

const char* memberClassName(MemberClass memberClass)
{
    constexpr std::array<const char*, kMemberClasses> kNames = {
        "updated",     "update_available", "nothing_to_update", "failed",     "stopped",
        "not_started", "left_alone",       "skipped",           "same_device"};
    return kNames.at(static_cast<std::size_t>(memberClass));
}

bool isWell(MemberClass memberClass)
{
    return memberClass == MemberClass::updated || memberClass == MemberClass::updateAvailable
        || memberClass == MemberClass::nothingToUpdate;
}

bool isResultLine(std::string_view line)
{
    return line.starts_with(R"({"type":"result",)");
}

std::optional<MemberEnd> memberEnd(std::string_view line)
{
    const auto json = ReadJson::parse(line, nullptr, false);
    if (!json.is_object() || textOf(json, "type") != "result")
        return std::nullopt;
    const auto code = json.find("exit_code");
    if (code == json.end() || !code->is_number_integer())
        return std::nullopt;
    MemberEnd end;
    end.printer = textOf(json, "printer");
    end.command = textOf(json, "command");
    end.memberClass = classOf(end.command, code->get<int>());
    end.next = textOf(json, "next");
    end.message = textOf(json, "message");
    const auto bytes = json.find("firmware_bytes_sent");
    if (bytes != json.end() && bytes->is_boolean())
        end.bytesWentOut = bytes->get<bool>();
    return end;
}

std::string printerKey(const std::string& printer)
{
    return R"(,"printer":)"
        + ReadJson(printer).dump(-1, ' ', false, ReadJson::error_handler_t::replace);
}

std::string withPrinter(std::string_view line, const std::string& printer)
{
    const auto comma = line.find(',');
    if (!line.starts_with(R"({"type":")") || comma == std::string_view::npos)
        return std::string(line);
    return std::string(line.substr(0, comma)) + printerKey(printer)
        + std::string(line.substr(comma));
}
