// SPDX-License-Identifier: MIT
// One line as a queue's name and as an address, then any bytes as the driver's configuration.
#include "UI/rlpd_conf_access.h"
#include "fuzz/Fuzz.h"

#include <optional>
#include <string>
#include <vector>

namespace {

using Text = std::optional<std::string>;
constexpr auto npos = std::string::npos;

// A second reading of the file, as a list of entries.
struct Entry {
    std::string name;
    std::string following; // the next line, with its end; empty for a comment
    std::size_t bracket; // the position of the '>'
};

std::vector<Entry> readEntries(const std::string& bytes)
{
    std::vector<Entry> entries;
    bool isBehindQueue = false;
    for (std::size_t at = 0; at < bytes.size();) {
        const auto end = bytes.find('\n', at);
        const auto line = bytes.substr(at, end == npos ? npos : end + 1 - at);
        const bool isComment = line[0] == '#';
        if (isBehindQueue && !isComment)
            entries.back().following = line;
        const auto mark = line.find("<Printer ");
        const auto bracket = mark == npos ? npos : line.find('>', mark + 9);
        isBehindQueue = !isComment && bracket != npos;
        if (isBehindQueue)
            entries.push_back({line.substr(mark + 9, bracket - mark - 9), "", at + bracket});
        at += line.size();
    }
    return entries;
}

struct Device {
    bool isKnown = false;
    Text signature;
    Text address;
};

Device deviceOf(const std::vector<Entry>& entries, const std::string& queue)
{
    for (const auto& entry : entries) {
        if (entry.name != queue)
            continue;
        const auto key = entry.following.find("DevicePath ");
        if (key == npos)
            return {true, {}, {}};
        const auto path = entry.following.substr(key + 11);
        for (const std::string signature : {"net:", "net6:", "mdns:", "usb://"}) {
            if (path.compare(0, signature.size(), signature) != 0)
                continue;
            auto end = path.find("/PDLType");
            if (end == npos)
                end = path.find('\n');
            const auto length = end - signature.size();
            return {true, signature, end == npos ? Text() : path.substr(signature.size(), length)};
        }
        return {};
    }
    return {};
}

// Texts are returned up to their first NUL.
bool isSame(const char* text, const Text& expected)
{
    return expected ? text != nullptr && std::string(text) == expected->c_str() : text == nullptr;
}

class Reading {
public:
    explicit Reading(const std::string& bytes)
        : m_before(bytes), m_bytes(bytes.begin(), bytes.end()), m_entries(readEntries(bytes))
    {
    }

    void checkAddress(const std::string& queue)
    {
        char* address = nullptr;
        char* signature = nullptr;
        const bool isKnown =
            zGetPrinterAddressAndIOLibType(begin(), end(), queue.c_str(), &address, &signature);
        const HeldText heldAddress(address);
        const HeldText heldSignature(signature);
        const auto device = deviceOf(m_entries, queue);
        require(isKnown == device.isKnown, "the queue is known");
        require(isSame(address, device.address), "its address");
        require(isSame(signature, device.signature), "its signature");
        require(zGetQueueCount(begin(), end()) == m_entries.size(), "so many queues");
        require(bytes() == m_before, "reading writes nothing");
    }
    void checkSearch(const std::string& address)
    {
        char* queue = nullptr;
        const bool isFound =
            zGetQueueNameFromPrinterAddress(begin(), end(), address.c_str(), &queue);
        const HeldText held(queue);
        auto expected = m_before;
        Text name;
        for (const auto& entry : m_entries) {
            const auto key = entry.following.find("DevicePath ");
            if (key == npos || entry.following.find(address, key + 11) == npos)
                continue;
            name = entry.name;
            expected[entry.bracket] = '\0';
            break;
        }
        require(isFound == name.has_value() && isSame(queue, name), "the queue of the address");
        require(bytes() == expected, "only its bracket is written");
    }
    void checkWalk()
    {
        char* next = begin();
        auto expected = m_before;
        for (const auto& entry : m_entries) {
            char* queue = nullptr;
            require(zGetFirstQueueName(next, end(), &next, &queue), "the walk goes on");
            const HeldText held(queue);
            require(isSame(queue, entry.name), "the next queue");
            expected[entry.bracket] = '\0';
        }
        char* queue = nullptr;
        require(zGetFirstQueueName(next, end(), &next, &queue), "the end is no failure");
        require(queue == nullptr && next == end(), "nothing is left");
        require(bytes() == expected, "only brackets are written");
    }

private:
    char* begin() { return m_bytes.data(); }
    char* end() { return m_bytes.data() + m_bytes.size(); }
    std::string bytes() const { return {m_bytes.begin(), m_bytes.end()}; }

    std::string m_before;
    std::vector<char> m_bytes; // exact size: reading past the end is noticed
    std::vector<Entry> m_entries;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    const std::string asked(std::string(input.until('\n')).c_str()); // up to its NUL
    const std::string bytes = std::string(input.text(size)) + ' '; // never a null pointer
    Reading(bytes).checkAddress(asked);
    Reading(bytes).checkSearch(asked);
    Reading(bytes).checkWalk();
    return 0;
}
