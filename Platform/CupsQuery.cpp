// SPDX-License-Identifier: MIT
#include "Platform/CupsQuery.h"

#include "Platform/IppAnswer.h"
#include "Platform/Libcups.h"

#include <array>
#include <cassert>
#include <cerrno>
#include <memory>
#include <string>
#include <string_view>
#include <sys/socket.h>
#include <unistd.h>

namespace {

// For code that runs only after libcups was found.
const Libcups& api()
{
    assert(libcups() != nullptr);
    return *libcups();
}

struct CloseConnection {
    void operator()(http_t* http) const { api().httpClose(http); }
};
using Connection = std::unique_ptr<http_t, CloseConnection>;

struct DeleteRequest {
    void operator()(ipp_t* request) const { api().ippDelete(request); }
};
using Request = std::unique_ptr<ipp_t, DeleteRequest>;

std::string noConnection()
{
    return std::string("The print system does not answer at \"") + api().cupsServer() + "\" ("
        + api().cupsLastErrorString() + "). Is its service, usually \"cups\", running?";
}

std::string refusal(const std::string& words)
{
    return std::string("The print system does not list its printers: ") + words + ".";
}

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

Request makeRequest()
{
    constexpr std::array kWanted = {"printer-name", "printer-info", "printer-location",
                                    "device-uri", "printer-make-and-model"};
    Request request(api().ippNewRequest(IPP_OP_CUPS_GET_PRINTERS));
    auto* raw = request.get();
    api().ippAddInteger(raw, IPP_TAG_OPERATION, IPP_TAG_ENUM, "printer-type", 0);
    api().ippAddInteger(raw, IPP_TAG_OPERATION, IPP_TAG_ENUM, "printer-type-mask",
                        CUPS_PRINTER_CLASS);
    api().ippAddString(raw, IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr,
                       api().cupsUser());
    api().ippAddStrings(raw, IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes",
                        static_cast<int>(kWanted.size()), nullptr, kWanted.data());
    return request;
}

bool send(http_t* http, ipp_t* request)
{
    api().httpClearFields(http);
    api().httpSetField(http, HTTP_FIELD_CONTENT_TYPE, "application/ipp");
    api().httpSetLength(http, api().ippLength(request));
    if (api().httpPost(http, "/") != 0)
        return false;
    ipp_state_t state = IPP_STATE_IDLE;
    while (state != IPP_STATE_DATA && state != IPP_STATE_ERROR)
        state = api().ippWrite(http, request);
    return state == IPP_STATE_DATA;
}

http_status_t awaitStatus(http_t* http)
{
    auto status = HTTP_STATUS_CONTINUE;
    while (status == HTTP_STATUS_CONTINUE)
        status = api().httpUpdate(http);
    return status;
}

std::string readBody(http_t* http)
{
    std::string body;
    std::array<char, 16384> piece{};
    while (body.size() <= kLongestAnswer) {
        const auto count = api().httpRead2(http, piece.data(), piece.size());
        if (count <= 0)
            break; // the parser notices if the end is missing
        body.append(piece.data(), static_cast<std::size_t>(count));
    }
    return body;
}

// A server without queues answers "not found".
bool isList(std::uint16_t status)
{
    return status <= IPP_STATUS_OK_EVENTS_COMPLETE || status == IPP_STATUS_ERROR_NOT_FOUND;
}

std::string refused(const std::string& reason)
{
    return kRefused + reason;
}

// The answer with its mark.
std::string ask(std::chrono::milliseconds limit)
{
    if (libcups() == nullptr)
        return refused("This computer has no print system: libcups.so.2 is not installed.");
    const auto http = connect(limit);
    if (http == nullptr)
        return refused(noConnection());
    const auto request = makeRequest();
    const bool isSent = send(http.get(), request.get());
    const auto status = isSent ? awaitStatus(http.get()) : HTTP_STATUS_ERROR;
    if (status >= HTTP_STATUS_BAD_REQUEST)
        return refused(refusal(api().httpStatus(status)));
    const auto body = status == HTTP_STATUS_OK ? readBody(http.get()) : std::string();
    IppAnswer answer;
    if (readIppAnswer(body, answer) && !isList(answer.status))
        return refused(refusal(api().ippErrorString(static_cast<ipp_status_t>(answer.status))));
    return kAnswered + body;
}

void writeAll(int out, std::string_view bytes)
{
    while (!bytes.empty()) {
        const auto count = write(out, bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR)
            return; // the reading end is closed
        bytes.remove_prefix(count > 0 ? static_cast<std::size_t>(count) : 0);
    }
}

} // namespace

void queryCups(int out, std::chrono::milliseconds limit)
{
    writeAll(out, ask(limit));
}
