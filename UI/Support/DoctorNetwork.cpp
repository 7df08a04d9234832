// SPDX-License-Identifier: MIT
#include "UI/Support/Doctor.h"
#include "UI/Text/PlainText.h"

#include <arpa/inet.h>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace doctor {

namespace {

constexpr int kPatience = 5000; // milliseconds: far more than a printer on the same network takes
constexpr const char* kNoHost = "No printer on the network was named.";

std::optional<in_addr> resolved(const std::string& host, std::string& problem)
{
    addrinfo wanted{};
    wanted.ai_family = AF_INET;
    wanted.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    if (const int code = getaddrinfo(host.c_str(), nullptr, &wanted, &found); code != 0) {
        problem = gai_strerror(code);
        return std::nullopt;
    }
    const std::unique_ptr<addrinfo, decltype(&freeaddrinfo)> owned(found, freeaddrinfo);
    return reinterpret_cast<const sockaddr_in*>(found->ai_addr)->sin_addr;
}

std::string inWords(in_addr address)
{
    char text[INET_ADDRSTRLEN] = {};
    return inet_ntop(AF_INET, &address, text, sizeof text) != nullptr ? text : "";
}

// Connects and closes at once; 0 or the reason.
int connectOnce(in_addr address, int port)
{
    const int handle = socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (handle < 0)
        return errno;
    sockaddr_in where{};
    where.sin_family = AF_INET;
    where.sin_addr = address;
    where.sin_port = htons(static_cast<std::uint16_t>(port));
    int error = connect(handle, reinterpret_cast<sockaddr*>(&where), sizeof where) == 0 ? 0 : errno;
    if (error == EINPROGRESS) {
        pollfd waiting{handle, POLLOUT, 0};
        socklen_t size = sizeof error;
        if (poll(&waiting, 1, kPatience) == 0)
            error = ETIMEDOUT;
        else
            getsockopt(handle, SOL_SOCKET, SO_ERROR, &error, &size);
    }
    close(handle);
    return error;
}

std::string advice(int error)
{
    if (error == ECONNREFUSED)
        return "check that this is the printer's address, and that nothing blocks the port";
    return "check that the printer is switched on and on this network";
}

Finding portFinding(in_addr address, int port)
{
    const auto where = inWords(address) + " port " + std::to_string(port);
    const auto before = std::chrono::steady_clock::now();
    const int error = connectOnce(address, port);
    if (error != 0)
        return problem("port", "No connection to " + where + ": " + std::strerror(error) + ".",
                       advice(error));
    const auto took = std::chrono::duration_cast<std::chrono::milliseconds>(
        std::chrono::steady_clock::now() - before);
    return ok("port", where + " answers within " + std::to_string(took.count() + 1) + " ms.");
}

} // namespace

void checkNetwork(const Patient& patient, std::optional<int> port, std::vector<Finding>& findings)
{
    if (patient.host.empty()) {
        findings.push_back(skipped("address", kNoHost));
        findings.push_back(skipped("port", kNoHost));
        return;
    }
    std::string why;
    const auto address = resolved(patient.host, why);
    if (!address.has_value()) {
        findings.push_back(problem("address",
                                   "The name '" + plainText(patient.host)
                                       + "' has no IPv4 address: " + plainText(why) + ".",
                                   "give the printer's IPv4 address with --address"));
        findings.push_back(skipped("port", "There is no address to connect to."));
        return;
    }
    findings.push_back(ok("address", "The printer's address is " + inWords(*address) + "."));
    findings.push_back(port.has_value()
                           ? portFinding(*address, *port)
                           : skipped("port", "Without a package the port is not known."));
}

} // namespace doctor
