// SPDX-License-Identifier: MIT
// Any bytes as a print server's answer.
#include "Platform/IppAnswer.h"
#include "fuzz/Fuzz.h"

#include <vector>

namespace {

bool isGoodText(const std::optional<std::string>& text)
{
    return !text || (!text->empty() && text->find('\0') == std::string::npos);
}

void check(const PrintQueue& queue)
{
    require(queue.identifier.has_value() && queue.name.has_value(), "a queue has its names");
    for (const auto* text :
         {&queue.identifier, &queue.name, &queue.location, &queue.deviceUri, &queue.makeAndModel})
        require(isGoodText(*text), "a text is not empty and has no NUL");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::vector<char> bytes(data, data + size); // exact size: reading past the end is noticed
    const std::string_view text(bytes.data(), bytes.size());
    IppAnswer answer;
    const bool isWhole = readIppAnswer(text, answer);
    require(isWhole || (answer.queues.empty() && answer.status == 0), "half an answer is none");
    require(answer.queues.size() <= std::min(kMostQueues, size), "no more queues than bytes");
    for (const auto& queue : answer.queues)
        check(queue);
    IppAnswer longer;
    require(!isWhole || readIppAnswer(std::string(text) + "more", longer), "more after the end");
    require(longer.queues.size() == answer.queues.size(), "what is after the end has no queue");
    return 0;
}
