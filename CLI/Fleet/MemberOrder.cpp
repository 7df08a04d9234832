// SPDX-License-Identifier: MIT
#include "CLI/Fleet/MemberOrder.h"

#include <cstdlib>
#include <nlohmann/json.hpp>

namespace {

using ReadJson = nlohmann::json;

constexpr const char* kVariable = "VYMKIT_FLEET_MEMBER";

ReadJson textOrNull(const std::optional<std::string>& text)
{
    return text ? ReadJson(*text) : ReadJson();
}

std::optional<std::string> optionalText(const ReadJson& json, const char* key)
{
    const auto found = json.find(key);
    if (found == json.end() || !found->is_string())
        return std::nullopt;
    return found->get<std::string>();
}

PrintQueue queueOf(const ReadJson& json)
{
    PrintQueue queue;
    queue.name = optionalText(json, "name");
    queue.identifier = optionalText(json, "identifier");
    queue.deviceUri = optionalText(json, "uri");
    queue.makeAndModel = optionalText(json, "model");
    return queue;
}

} // namespace

std::string asEnvironment(const MemberOrder& order)
{
    ReadJson json = {{"printer", order.printer}, {"results", textOrNull(order.results)}};
    if (order.queue)
        json["queue"] = {{"name", textOrNull(order.queue->name)},
                         {"identifier", textOrNull(order.queue->identifier)},
                         {"uri", textOrNull(order.queue->deviceUri)},
                         {"model", textOrNull(order.queue->makeAndModel)}};
    return std::string(kVariable) + "="
        + json.dump(-1, ' ', true, ReadJson::error_handler_t::replace); // ASCII only
}

std::optional<MemberOrder> orderFromEnvironment()
{
    const char* text = std::getenv(kVariable);
    if (text == nullptr)
        return std::nullopt;
    const auto json = ReadJson::parse(text, nullptr, false);
    const auto printer = json.is_object() ? optionalText(json, "printer") : std::nullopt;
    if (!printer)
        return std::nullopt;
    MemberOrder order;
    order.printer = *printer;
    order.results = optionalText(json, "results");
    if (const auto queue = json.find("queue"); queue != json.end() && queue->is_object())
        order.queue = queueOf(*queue);
    return order;
}
