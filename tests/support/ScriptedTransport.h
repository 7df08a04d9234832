// SPDX-License-Identifier: MIT
// A transport with a scripted peer: gives queued replies, keeps the sent packets, fails sends on
// request. Replaces the network in the manager during a test.
#pragma once
#include "DevConn/ConnResult.h"
#include "DevConn/DevConnMgr.h"
#include "VYM/vymUtil.h"

#include <cstring>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

// The script and the record of one test's transports. Each exchange takes the next reply from the
// queue; an empty text means "no reply".
class TransportScript {
public:
    TransportScript()
    {
        current() = this;
        DevConnMgr::Instance()->plugIn(DevConnMgr::Transport::network, &make);
    }
    ~TransportScript()
    {
        delete DevConnMgr::Instance(); // the next one has the real transports again
        current() = nullptr;
    }
    TransportScript(const TransportScript&) = delete;
    TransportScript& operator=(const TransportScript&) = delete;

    TransportScript& queueReply(std::string bytes)
    {
        const std::lock_guard lock(m_mutex);
        m_replies.push_back(std::move(bytes));
        return *this;
    }
    // Answers every packet for which no reply is queued.
    void answerWith(std::function<std::string(const std::string&)> answer)
    {
        m_answer = std::move(answer);
    }
    void failConnect(long code) { m_connectResult = code; }
    // The n-th exchange from now (0: the next one) gives this result.
    void failNextSend(std::size_t n, long code)
    {
        m_failAt = m_exchanges + n;
        m_failCode = code;
    }
    // The state of the link, queried each time; without it, the state is unknown.
    void linkStateIs(std::function<LinkState()> state)
    {
        const std::lock_guard lock(m_mutex);
        m_linkState = std::move(state);
    }
    [[nodiscard]] std::size_t queuedReplies() const
    {
        const std::lock_guard lock(m_mutex);
        return m_replies.size();
    }
    // Done first in every call that sends, receives or sets a time-out.
    void beforeEachCall(std::function<void()> action) { m_beforeCall = std::move(action); }
    void refuseTimeout(unsigned long milliseconds) { m_refusedTimeout = milliseconds; }

    [[nodiscard]] std::vector<std::string> sent() const
    {
        const std::lock_guard lock(m_mutex);
        return m_sent;
    }
    [[nodiscard]] std::vector<unsigned long> timeouts() const
    {
        const std::lock_guard lock(m_mutex);
        return m_timeouts;
    }
    // The largest reply that was kept in each exchange.
    [[nodiscard]] std::vector<unsigned long> receiveSizes() const
    {
        const std::lock_guard lock(m_mutex);
        return m_receiveSizes;
    }
    [[nodiscard]] std::size_t openConnections() const { return m_open; }

private:
    class Transport;
    static TransportScript*& current()
    {
        static TransportScript* script = nullptr;
        return script;
    }
    static std::unique_ptr<DevConnBase> make();
    long exchange(const std::string& packet, std::string& reply);

    mutable std::mutex m_mutex;
    std::deque<std::string> m_replies;
    std::vector<std::string> m_sent;
    std::vector<unsigned long> m_timeouts;
    std::vector<unsigned long> m_receiveSizes;
    std::function<std::string(const std::string&)> m_answer;
    std::function<LinkState()> m_linkState;
    std::function<void()> m_beforeCall;
    long m_connectResult = 0;
    std::size_t m_exchanges = 0;
    std::size_t m_failAt = static_cast<std::size_t>(-1);
    long m_failCode = 0;
    unsigned long m_refusedTimeout = 0;
    std::size_t m_open = 0;
};

class TransportScript::Transport : public DevConnBase {
public:
    explicit Transport(TransportScript& script) : m_script(script) { ++m_script.m_open; }
    ~Transport() override { --m_script.m_open; }
    Transport(const Transport&) = delete;
    Transport& operator=(const Transport&) = delete;

    long Connect(const char* /*name*/, const char* /*port*/, unsigned short /*tcpPort*/) override
    {
        m_connected = m_script.m_connectResult >= 0;
        return m_script.m_connectResult;
    }
    long SendRecvData(unsigned char* send, unsigned long sendLength, unsigned char** reply,
                      unsigned long* replyLength) override
    {
        const HoldLock hold(m_lock);
        if (m_script.m_beforeCall)
            m_script.m_beforeCall();
        *reply = nullptr;
        *replyLength = 0;
        std::string answer;
        const std::string packet(reinterpret_cast<const char*>(send), sendLength);
        {
            const std::lock_guard lock(m_script.m_mutex);
            m_script.m_receiveSizes.push_back(m_recvPacketSize);
        }
        const long result = m_script.exchange(packet, answer);
        if (result < 0 || answer.empty())
            return result;
        *reply = static_cast<unsigned char*>(AllocMem(answer.size()));
        std::memcpy(*reply, answer.data(), answer.size());
        *replyLength = answer.size();
        addMemList(*reply);
        return result;
    }
    long GetModelName(char** /*model*/, unsigned long* /*length*/) override
    {
        return conn::kNotSupported;
    }
    long SetTimeout(unsigned long milliseconds) override
    {
        if (m_script.m_beforeCall)
            m_script.m_beforeCall();
        const std::lock_guard lock(m_script.m_mutex);
        m_script.m_timeouts.push_back(milliseconds);
        return milliseconds == m_script.m_refusedTimeout ? conn::kInvalidArgument : conn::kSuccess;
    }
    long Disconnect() override { return conn::kNetworkClosed; }
    LinkState LookAtLink() override
    {
        std::function<LinkState()> state;
        {
            const std::lock_guard lock(m_script.m_mutex);
            state = m_script.m_linkState;
        }
        return state ? state() : LinkState();
    }

private:
    TransportScript& m_script;
};

inline std::unique_ptr<DevConnBase> TransportScript::make()
{
    return std::make_unique<Transport>(*current());
}

inline long TransportScript::exchange(const std::string& packet, std::string& reply)
{
    const std::lock_guard lock(m_mutex);
    m_sent.push_back(packet);
    if (m_exchanges++ == m_failAt)
        return m_failCode;
    if (!m_replies.empty()) {
        reply = m_replies.front();
        m_replies.pop_front();
    } else if (m_answer) {
        reply = m_answer(packet);
    }
    return conn::kSuccess;
}
