// SPDX-License-Identifier: MIT
// Shared by the sources of vymProtocol, and included only by them: a reply that returns its block
// to the connection by itself, and the small conversions around an exchange.
//
// Owns:    a Reply owns the block of one exchange; it must not outlive the connection.
// Threads: the update worker's.
#pragma once
#include "VYM/vymProtocol.h"

#include <optional>
#include <span>

class vymProtocol::Reply {
public:
    explicit Reply(const vymProtocol& protocol) : m_protocol(protocol) { }
    ~Reply() { giveBack(); }
    Reply(const Reply&) = delete;
    Reply& operator=(const Reply&) = delete;

    void giveBack()
    {
        if (m_bytes != nullptr)
            m_protocol.m_manager->DisposeData(m_protocol.m_handle, m_bytes);
        m_bytes = nullptr;
        m_length = 0;
    }
    [[nodiscard]] std::span<const unsigned char> bytes() const { return {m_bytes, m_length}; }

    unsigned char* m_bytes = nullptr;
    unsigned long m_length = 0;

private:
    const vymProtocol& m_protocol;
};

template <class Record> std::span<unsigned char> asBytes(Record& record)
{
    return {reinterpret_cast<unsigned char*>(&record), sizeof(Record)};
}

// The result code for the status of an answer to a file packet; empty: kBadReply.
int fileReplyResult(std::optional<std::uint16_t> status);
