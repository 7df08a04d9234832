// SPDX-License-Identifier: MIT
// The data path: sends a firmware image with vymProtocol::UpdateFirmware, and the same bytes with
// the smallest loop that could deliver them, to the same peer.
//
//   bench_data_path FOLDER pairs N        N interleaved pairs: the median of their ratios
//   bench_data_path FOLDER engine|bare    one of the two, once, for callgrind and strace
//
// FOLDER holds a container with "image.bin".
#include "VYM/vymBindInfo.h"
#include "VYM/vymProtocol.h"
#include "bench/BareLoop.h"
#include "bench/Measure.h"
#include "bench/NoPauses.h"
#include "bench/Peer.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>

namespace {

constexpr std::string_view kDescription = "TGMNAME BENCH\r\nENTERTIME 5\r\nEXITTIME 5\r\n"
                                          "UPDATETIME 30\r\n";
constexpr char kImage[] = "image.bin";

double engineSeconds(std::uint16_t port)
{
    vymProtocol protocol;
    tag_devinfo info{};
    char address[] = "127.0.0.1";
    int code = protocol.EnterDownLoadMode(nullptr, address, port, false);
    require(code == result::kSuccess, "the peer cannot be entered");
    const auto taken = secondsOf([&] {
        code = protocol.UpdateFirmware("BENCH", "MAIN", "AB010200", kImage, "MAINFW", "", info);
    });
    require(code == result::kSuccess && protocol.FirmwareBytesWentOut(), "the engine has failed");
    protocol.ExitDownLoadMode();
    return taken;
}

BareLoop bareLoop()
{
    const auto* container = vymBindInfo::Instance();
    unsigned long place = 0;
    unsigned long size = 0;
    require(container != nullptr && container->IsBindVymFile()
                && container->getBindMngData(kImage, place, size),
            "FOLDER has no container with image.bin");
    return {place, static_cast<std::uint32_t>(size)};
}

double bareSeconds(BareLoop& loop, std::uint16_t port)
{
    require(loop.connect(port), "the bare loop cannot connect");
    bool done = false;
    const auto taken = secondsOf([&] { done = loop.run(); });
    require(done, "the bare loop has failed");
    return taken;
}

void runPairs(long count, std::uint16_t port)
{
    auto loop = bareLoop();
    std::vector<double> ratios;
    engineSeconds(port); // both have run once before the first pair counts
    bareSeconds(loop, port);
    for (long i = 0; i < count; ++i) {
        const bool engineFirst = i % 2 == 0;
        const auto first = engineFirst ? engineSeconds(port) : bareSeconds(loop, port);
        const auto second = engineFirst ? bareSeconds(loop, port) : engineSeconds(port);
        // Speed is the inverse of time, so the quotient is turned over.
        ratios.push_back(engineFirst ? second / first : first / second);
    }
    const auto middle = ratios.begin() + count / 2;
    std::nth_element(ratios.begin(), middle, ratios.end());
    std::printf("%.4f\n", *middle);
}

} // namespace

int main(int argc, char** argv)
{
    const std::string mode = argc > 2 ? argv[2] : "";
    const long pairs = argc == 4 && mode == "pairs" ? std::strtol(argv[3], nullptr, 10) : 0;
    if (pairs < 1 && mode != "engine" && mode != "bare") {
        std::fputs("usage: bench_data_path FOLDER pairs N | engine | bare\n", stderr);
        return 64;
    }
    const Peer peer;
    const NoPauses noPauses;
    setBundleLocation(argv[1]);
    g_VymInfo.loadData(kDescription.data(), kDescription.size(), load_vyminfo);
    if (mode == "pairs") {
        runPairs(pairs, peer.port());
    } else if (mode == "engine") {
        engineSeconds(peer.port());
    } else {
        auto loop = bareLoop();
        bareSeconds(loop, peer.port());
    }
    return 0;
}
