// SPDX-License-Identifier: MIT
// A test's configuration of the driver: as bytes, Conf(text).addressOf("A"), or as the file in a
// driver's folder, ConfFolder(text).addressOf("A").
#pragma once
#include "UI/rlpd_conf_access.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace conf {

using Text = std::optional<std::string>;

inline Text taken(char* text)
{
    const HeldText held(text);
    return text == nullptr ? Text() : Text(text);
}

struct Answer {
    bool known;
    Text address;
    Text signature;
    bool operator==(const Answer&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const Answer& answer)
{
    return out << answer.known << ", address " << answer.address.value_or("(none)")
               << ", signature " << answer.signature.value_or("(none)");
}

// Exactly these bytes, so that the sanitizer notices reading past the end.
class Conf {
public:
    explicit Conf(std::string_view text) : m_bytes(text.begin(), text.end()) { }

    [[nodiscard]] char* begin() { return m_bytes.data(); }
    [[nodiscard]] char* end() { return m_bytes.data() + m_bytes.size(); }
    [[nodiscard]] std::string bytes() const { return {m_bytes.begin(), m_bytes.end()}; }

    Answer addressOf(const char* queue)
    {
        char* address = begin();
        char* signature = begin();
        const bool known =
            zGetPrinterAddressAndIOLibType(begin(), end(), queue, &address, &signature);
        return {known, taken(address), taken(signature)};
    }
    Text queueOf(const char* address)
    {
        char* queue = begin();
        const bool found = zGetQueueNameFromPrinterAddress(begin(), end(), address, &queue);
        EXPECT_EQ(found, queue != nullptr);
        return taken(queue);
    }
    std::vector<std::string> queues()
    {
        std::vector<std::string> names;
        char* next = begin();
        for (;;) {
            char* queue = nullptr;
            EXPECT_TRUE(zGetFirstQueueName(next, end(), &next, &queue));
            if (queue == nullptr)
                return names;
            names.push_back(*taken(queue));
        }
    }
    unsigned count() { return zGetQueueCount(begin(), end()); }

private:
    std::vector<char> m_bytes;
};

class ConfFolder {
public:
    ConfFolder() { std::filesystem::create_directory(m_folder.path() / "RLPD"); }
    explicit ConfFolder(std::string_view text) : ConfFolder()
    {
        m_folder.write("RLPD/rlpd.conf", text);
    }
    [[nodiscard]] std::string path() const { return m_folder.path().string(); }
    [[nodiscard]] std::string file() const { return m_folder / "RLPD/rlpd.conf"; }
    [[nodiscard]] Answer addressOf(const char* queue) const
    {
        char* address = nullptr;
        char* signature = nullptr;
        const int result = GetPrinterAddress(path().c_str(), queue, &address, &signature);
        return {result == 0, taken(address), taken(signature)};
    }

private:
    TempFolder m_folder;
};

inline const Answer kUnknown{false, {}, {}};
inline const Answer kWithoutAddress{true, {}, {}};

inline std::string manyQueues(int count)
{
    std::string text;
    for (int i = 0; i < count; ++i) {
        const auto number = std::to_string(i);
        text += "<Printer queue" + number + ">\nDevicePath net:10.0.0." + number + "/PDLType PS\n";
    }
    return text;
}

} // namespace conf
