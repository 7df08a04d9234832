// SPDX-License-Identifier: MIT
#include "Platform/IppAnswer.h"

#include <array>
#include <cstring>

namespace {

enum Tag : std::uint8_t {
    kEndOfAttributes = 0x03,
    kPrinterGroup = 0x04,
    kLastDelimiter = 0x0F, // tags up to this one begin a group and have no value
    kTextWithLanguage = 0x35,
    kNameWithLanguage = 0x36,
    kText = 0x41,
    kName = 0x42,
    kUri = 0x45,
};

// Reads the message from its front; after reading past its end, every read fails.
class Bytes {
public:
    explicit Bytes(std::string_view bytes) : m_rest(bytes) { }

    [[nodiscard]] bool failed() const { return m_failed; }
    std::string_view take(std::size_t length)
    {
        m_failed = m_failed || length > m_rest.size();
        if (m_failed)
            return {};
        const auto taken = m_rest.substr(0, length);
        m_rest.remove_prefix(length);
        return taken;
    }
    std::uint8_t byte()
    {
        const auto taken = take(1);
        return taken.empty() ? std::uint8_t{0} : static_cast<std::uint8_t>(taken.front());
    }
    std::uint16_t number() // most significant byte first
    {
        const unsigned high = byte();
        return static_cast<std::uint16_t>(high << 8 | byte());
    }
    std::string_view counted() { return take(number()); }

private:
    std::string_view m_rest;
    bool m_failed = false;
};

struct Attribute {
    std::uint8_t tag;
    std::string_view name; // empty: a further value, or part of a collection
    std::string_view value;
};

// The text of a value of any text type; absent for other types.
std::optional<std::string> textOf(const Attribute& attribute)
{
    Bytes value(attribute.value);
    std::string_view text;
    switch (attribute.tag) {
    case kText:
    case kName:
    case kUri:
        text = attribute.value;
        break;
    case kTextWithLanguage:
    case kNameWithLanguage:
        value.counted(); // the language
        text = value.counted();
        break;
    default:
        return std::nullopt;
    }
    text = text.substr(0, text.find('\0'));
    return text.empty() ? std::nullopt : std::optional<std::string>(text);
}

struct Field {
    std::string_view name;
    std::optional<std::string> PrintQueue::*member;
};
constexpr std::array<Field, 5> kFields = {{
    {"printer-name", &PrintQueue::identifier},
    {"printer-info", &PrintQueue::name},
    {"printer-location", &PrintQueue::location},
    {"device-uri", &PrintQueue::deviceUri},
    {"printer-make-and-model", &PrintQueue::makeAndModel},
}};

void store(const Attribute& attribute, PrintQueue& queue)
{
    for (const auto& field : kFields) {
        if (attribute.name == field.name)
            queue.*field.member = textOf(attribute);
    }
}

// Keeps a queue that has been read completely. Drops one without an identifier; names one without
// a description after its identifier.
bool keep(PrintQueue& queue, std::vector<PrintQueue>& queues)
{
    if (!queue.identifier)
        return true;
    if (queues.size() == kMostQueues)
        return false;
    if (!queue.name)
        queue.name = queue.identifier;
    queues.push_back(std::move(queue));
    queue = {};
    return true;
}

bool readQueues(Bytes& bytes, std::vector<PrintQueue>& queues)
{
    PrintQueue queue;
    bool inQueue = false;
    for (;;) {
        const auto tag = bytes.byte();
        if (bytes.failed())
            return false;
        if (tag > kLastDelimiter) {
            const auto name = bytes.counted();
            const auto value = bytes.counted();
            if (inQueue)
                store({tag, name, value}, queue);
            continue;
        }
        if (!keep(queue, queues))
            return false;
        if (tag == kEndOfAttributes)
            return true;
        inQueue = tag == kPrinterGroup;
    }
}

} // namespace

bool readIppAnswer(std::string_view bytes, IppAnswer& answer)
{
    constexpr std::size_t kVersionLength = 2;
    constexpr std::size_t kRequestIdLength = 4;
    answer = {};
    Bytes message(bytes);
    message.take(kVersionLength);
    answer.status = message.number();
    message.take(kRequestIdLength);
    const bool isWhole = bytes.size() <= kLongestAnswer && readQueues(message, answer.queues);
    if (!isWhole)
        answer = {};
    return isWhole;
}
