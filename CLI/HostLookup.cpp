// SPDX-License-Identifier: MIT
#include "CLI/HostLookup.h"

#include "CLI/BackgroundTask.h"
#include "UI/Text/PlainText.h"

#include <arpa/inet.h>
#include <array>
#include <memory>
#include <netdb.h>
#include <new>

namespace {

// All data of the look-up thread, so that the thread can outlive the wait for it.
struct HostQuery {
    std::string name;
    HostLookup found;
    BackgroundTask task; // last, so that it ends before its data
};

HostLookup found(const std::string& name)
{
    addrinfo hints{};
    hints.ai_family = AF_INET; // connections accept no other
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* list = nullptr;
    if (const int error = getaddrinfo(name.c_str(), nullptr, &hints, &list); error != 0)
        return {{}, gai_strerror(error)};
    const std::unique_ptr<addrinfo, decltype(&freeaddrinfo)> owned(list, &freeaddrinfo);
    std::array<char, INET_ADDRSTRLEN> text{};
    inet_ntop(AF_INET, &reinterpret_cast<const sockaddr_in*>(list->ai_addr)->sin_addr, text.data(),
              text.size());
    return {text.data(), {}};
}

} // namespace

HostLookup lookUpHost(Workplace& place, const std::string& name)
{
    auto lookup = std::make_unique<HostQuery>();
    lookup->name = name;
    lookup->task.start(place.session, [&each = *lookup] { each.found = found(each.name); });
    const auto stage = "Looking up " + plainText(name);
    while (!lookup->task.isDone()) {
        const auto wake = place.session.wait();
        place.report.waiting(stage, place.session.seconds());
        if (wake != Wake::signal && wake != Wake::deadline)
            continue;
        place.isThreadLeft = true;
        static_cast<void>(lookup.release()); // the thread keeps using it until the process ends
        return {{}, {}, wake == Wake::signal ? StopCause::user : StopCause::deadline};
    }
    if (lookup->task.hasFailed())
        throw std::bad_alloc();
    return lookup->found;
}
