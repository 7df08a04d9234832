// SPDX-License-Identifier: MIT
#include "Platform/CupsPrintServer.h"

#include "Platform/IppAnswer.h"
#include "Platform/IppQuery.h"
#include "Platform/Libcups.h"
#include "Platform/SystemPrintServer.h"

#include <array>
#include <cassert>
#include <cerrno>
#include <condition_variable>
#include <fcntl.h>
#include <mutex>
#include <sys/socket.h>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

// For code that runs only after libcups was found.
const Libcups& api()
{
    assert(libcups() != nullptr);
    return *libcups();
}

// libcups leaks the memory of its decompressor unless the whole answer is read, so this reads the
// rest. The connection is shut down by then, so no read waits.
struct CloseConnection {
    void operator()(http_t* http) const
    {
        shutdown(api().httpGetFd(http), SHUT_RDWR);
        api().httpFlush(http);
        api().httpClose(http);
    }
};
using Connection = std::unique_ptr<http_t, CloseConnection>;

// A duplicate descriptor of an open socket, so that closing the first one does no harm.
class SocketCopy {
public:
    explicit SocketCopy(int socket) : m_number(fcntl(socket, F_DUPFD_CLOEXEC, 0))
    {
        if (m_number < 0)
            throw std::system_error(errno, std::generic_category());
    }
    ~SocketCopy() { close(m_number); }
    SocketCopy(const SocketCopy&) = delete;
    SocketCopy& operator=(const SocketCopy&) = delete;

    void shutDown() const { shutdown(m_number, SHUT_RDWR); }

private:
    int m_number;
};

// Ends a connection when its time is over, whatever its owner waits for then: limits on single
// waits do not stop a server that sends a byte now and then.
class CutOff {
public:
    CutOff(int socket, Clock::time_point end) : m_socket(socket), m_end(end) { }
    ~CutOff()
    {
        {
            const std::lock_guard lock(m_mutex);
            m_isOver = true;
        }
        m_over.notify_one();
        m_thread.join();
    }
    CutOff(const CutOff&) = delete;
    CutOff& operator=(const CutOff&) = delete;

    bool happened()
    {
        const std::lock_guard lock(m_mutex);
        return m_happened;
    }

private:
    void watch()
    {
        std::unique_lock lock(m_mutex);
        if (m_over.wait_until(lock, m_end, [this] { return m_isOver; }))
            return;
        m_happened = true;
        m_socket.shutDown();
    }

    SocketCopy m_socket; // libcups may close the other one at any time
    Clock::time_point m_end;
    std::mutex m_mutex;
    std::condition_variable m_over;
    bool m_isOver = false;
    bool m_happened = false;
    std::thread m_thread{[this] { watch(); }};
};

// libcups gives null where its own memory was too short for a text.
std::string textOf(const char* text)
{
    return text != nullptr ? text : "not known";
}

std::string noConnection()
{
    return "The print system does not answer at \"" + textOf(api().cupsServer()) + "\" ("
        + textOf(api().cupsLastErrorString()) + "). Is its service, usually \"cups\", running?";
}

std::string refusal(const char* words)
{
    return "The print system does not list its printers: " + textOf(words) + ".";
}

constexpr const char* kNotInTime =
    "The print system does not answer: it took a connection, but sent no complete answer in time.";
constexpr const char* kNotUnderstood =
    "The print system's answer is incomplete or cannot be understood.";

// Opens without blocking: otherwise libcups would wait forever for a silent encrypted server.
Connection connect(std::chrono::milliseconds limit)
{
    Connection http(api().httpConnect2(api().cupsServer(), api().ippPort(), nullptr, AF_UNSPEC,
                                       api().cupsEncryption(), 0, static_cast<int>(limit.count()),
                                       nullptr));
    if (http != nullptr)
        api().httpBlocking(http.get(), 1);
    return http;
}

bool send(http_t* http, std::string_view query)
{
    api().httpClearFields(http);
    api().httpSetField(http, HTTP_FIELD_CONTENT_TYPE, "application/ipp");
    api().httpSetLength(http, query.size());
    return api().httpPost(http, "/") == 0
        && api().httpWrite2(http, query.data(), query.size()) == static_cast<ssize_t>(query.size());
}

http_status_t awaitStatus(http_t* http, CutOff& cutOff)
{
    auto status = HTTP_STATUS_CONTINUE;
    while (status == HTTP_STATUS_CONTINUE && !cutOff.happened())
        status = api().httpUpdate(http);
    return status;
}

// Reads the whole body; false if it exceeds the limit.
bool readBody(http_t* http, std::string& body)
{
    std::array<char, 16384> piece{};
    for (;;) {
        const auto count = api().httpRead2(http, piece.data(), piece.size());
        if (count <= 0)
            return true; // the parser notices if the end is missing
        body.append(piece.data(), static_cast<std::size_t>(count));
        if (body.size() > kLongestAnswer)
            return false;
    }
}

bool ask(http_t* http, CutOff& cutOff, IppAnswer& answer, std::string& reason)
{
    const char* const user = api().cupsUser();
    const bool isSent = send(http, ippQuery(user != nullptr ? user : "anonymous"));
    const auto status = isSent ? awaitStatus(http, cutOff) : HTTP_STATUS_ERROR;
    std::string body;
    if (status == HTTP_STATUS_OK && readBody(http, body) && !cutOff.happened()
        && readIppAnswer(body, answer))
        return true;
    if (cutOff.happened())
        reason = kNotInTime;
    else if (status >= HTTP_STATUS_BAD_REQUEST)
        reason = refusal(api().httpStatus(status));
    else
        reason = kNotUnderstood;
    return false;
}

// A server without queues answers "not found".
bool isList(std::uint16_t status)
{
    return status <= IPP_STATUS_OK_EVENTS_COMPLETE || status == IPP_STATUS_ERROR_NOT_FOUND;
}

bool list(std::chrono::milliseconds limit, std::vector<PrintQueue>& found, std::string& reason)
{
    const auto end = Clock::now() + limit;
    const auto http = connect(limit);
    if (http == nullptr) {
        reason = noConnection();
        return false;
    }
    IppAnswer answer;
    CutOff cutOff(api().httpGetFd(http.get()), end);
    if (!ask(http.get(), cutOff, answer, reason))
        return false;
    if (!isList(answer.status)) {
        reason = refusal(api().ippErrorString(static_cast<ipp_status_t>(answer.status)));
        return false;
    }
    found = std::move(answer.queues);
    return true;
}

} // namespace

bool CupsPrintServer::queues(std::vector<PrintQueue>& found, std::string& reason)
{
    found.clear();
    reason.clear();
    if (libcups() == nullptr) {
        reason = "This computer has no print system: libcups.so.2 is not installed.";
        return false;
    }
    try {
        return list(m_limit, found, reason);
    } catch (const std::system_error&) { // no thread or no descriptor for the watchdog
        reason = "The print system was not asked: the computer is too busy.";
        return false;
    }
}

std::unique_ptr<PrintServer> makeSystemPrintServer()
{
    return std::make_unique<CupsPrintServer>();
}
