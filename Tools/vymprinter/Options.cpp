// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/Options.h"

#include "Tools/vymprinter/FaultTable.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <fstream>
#include <iostream>

namespace vymprinter {
namespace {

constexpr std::uint32_t kMostPrinters = 1000;
constexpr std::uint64_t kFastestWrite = 1'000'000'000'000; // keeps rate times time within 64 bits
constexpr int kLargestWindow = 64 << 20;
constexpr std::int64_t kLongestDelay = 3'600'000; // an hour
constexpr double kLongestRestart = 3600; // seconds: an hour, too
constexpr double kMillisPerSecond = 1000;
constexpr std::size_t kLongestTargetInfo = 16U << 20;
constexpr std::size_t kLongestSession = 64U << 20; // of text: enough for images of 30 MB

constexpr const char* kDescription =
    "A virtual printer: the printer's side of a firmware update over TCP or on a USB bus, with\n"
    "every failure that an update can meet. Prints one line per printer as soon as it is there.";
constexpr const char* kExamples =
    "Examples:\n"
    "  vymprinter --model \"Model 100\" --firmware MAIN=01.00 --store received\n"
    "      a printer on 127.0.0.1:48350 that keeps what it is sent\n"
    "  vymprinter --listen 127.0.0.1 --count 50 --write-rate 200000\n"
    "      fifty printers on 127.0.0.1 to 127.0.0.50, each slow in writing\n"
    "  vymprinter --fault close@piece:100000\n"
    "      the connection breaks after 100000 bytes of firmware\n"
    "  vymprinter --fault list\n"
    "      all failures that it can show\n"
    "  vymprinter --usb any --model \"Model 100\"\n"
    "      a printer on the USB bus, where the kernel has a device controller\n\n"
    "Exit codes: 0 ended as asked, 1 an address, a USB controller or a folder cannot be used, or "
    "a\n"
    "replayed session went another way, 64 wrong usage.";

// The raw values of the command line, before they are combined.
struct Raw {
    std::vector<std::string> listen;
    std::uint32_t count = 1;
    std::vector<std::string> firmware;
    std::string targetInfo;
    std::string replies; // empty: "every" over TCP, "tenths" over USB
    std::int64_t replyDelay = 0;
    std::int64_t pieceTime = 0;
    double restart = -1; // seconds; below 0: not at all
    std::vector<std::string> updated;
    std::string store;
    std::vector<std::string> faults;
    std::string recording;
    std::string replay;
    std::string relay;
};

struct RepliesWord {
    const char* word;
    Replies replies;
};
constexpr std::array<RepliesWord, 4> kReplies = {{{"every", Replies::every},
                                                  {"last", Replies::last},
                                                  {"none", Replies::none},
                                                  {"tenths", Replies::tenths}}};

const RepliesWord* repliesWord(const std::string& text)
{
    const auto* const found = std::find_if(kReplies.begin(), kReplies.end(),
                                           [&](const auto& row) { return text == row.word; });
    return found == kReplies.end() ? nullptr : found;
}

std::string oneOfReplies(const std::string& text)
{
    return repliesWord(text) != nullptr ? "" : "'" + text + "' is not every, tenths, last or none";
}

void addPrinterOptions(CLI::App& app, Raw& raw, PrinterModel& model)
{
    app.add_option("--model", model.name, "Model name that the printer reports")
        ->capture_default_str();
    app.add_option("--firmware", raw.firmware, "Firmware that the printer has (MAIN=01.00)")
        ->type_name("NAME=VERSION")
        ->allow_extra_args(false);
    app.add_option("--max-packet", model.maxPacket, "Longest packet that the printer takes")
        ->check(CLI::Range(kSmallestPacket, kLargestPacket))
        ->capture_default_str();
    app.add_flag("--status-query,!--no-status-query", model.statusQuery,
                 "Whether it reports how far it has written (it does)");
    app.add_option("--write-rate", model.writeRate,
                   "Bytes per second that it writes after the last block; 0 writes at once")
        ->check(CLI::Range(std::uint64_t{0}, kFastestWrite))
        ->capture_default_str();
    app.add_option("--replies", raw.replies,
                   "Which pieces of firmware it acknowledges (every over TCP, tenths over USB)")
        ->check(oneOfReplies)
        ->type_name("every|tenths|last|none");
    app.add_option("--reply-delay", raw.replyDelay,
                   "Milliseconds by which every reply is late while the printer reads on")
        ->check(CLI::Range(std::int64_t{0}, kLongestDelay))
        ->capture_default_str();
    app.add_option("--piece-time", raw.pieceTime,
                   "Milliseconds that it works on each packet with firmware before it acknowledges "
                   "it and reads on")
        ->check(CLI::Range(std::int64_t{0}, kLongestDelay))
        ->capture_default_str();
    app.add_option("--restart", raw.restart,
                   "Seconds for which it is away after an update, before it is back with the "
                   "versions of --updated (over TCP)")
        ->check(CLI::Range(0.0, kLongestRestart))
        ->type_name("SECONDS")
        ->default_str("stays");
    app.add_option("--updated", raw.updated,
                   "Firmware that the printer has after its restart (MAIN=01.01)")
        ->type_name("NAME=VERSION")
        ->allow_extra_args(false);
    app.add_option("--block-size", model.blockSize,
                   "Longest block in which it hands out TargetInfo.txt, with its head")
        ->check(CLI::Range(kSmallestBlock, kFirstReplyLimit))
        ->capture_default_str();
    app.add_option("--target-info", raw.targetInfo,
                   "File to hand out as TargetInfo.txt instead of a made one")
        ->check(CLI::ExistingFile)
        ->type_name("FILE");
}

void addDeskOptions(CLI::App& app, Raw& raw, Options& options)
{
    app.add_option("--listen", raw.listen,
                   "Where a printer listens; repeatable; port 0 takes a free one "
                   "(127.0.0.1:48350)")
        ->type_name("ADDRESS[:PORT]")
        ->allow_extra_args(false);
    app.add_option("--window", options.window,
                   "Bytes that the system takes for it before it reads them (over TCP); 0: as many "
                   "as the system likes")
        ->check(CLI::Range(0, kLargestWindow))
        ->capture_default_str();
    app.add_option("--count", raw.count,
                   "Number of printers, on consecutive addresses from the first --listen, or on "
                   "as many controllers")
        ->check(CLI::Range(1U, kMostPrinters))
        ->capture_default_str();
    app.add_option("--store", raw.store,
                   "Keep received firmware and a transcript in FOLDER/ADDRESS/ (or CONTROLLER/)")
        ->type_name("FOLDER");
    app.add_option("--fault", raw.faults,
                   "Failure to show, NAME[@STAGE[:N]]; repeatable; 'list' explains all")
        ->type_name("SPEC")
        ->allow_extra_args(false);
    app.add_option("--faulty-connections", options.faultyConnections,
                   "Show failures on the first N connections only; 0: on all")
        ->capture_default_str();
    app.add_option("--sessions", options.sessions, "End after that many connections have ended");
    app.add_flag("--quiet", options.quiet, "Write nothing to standard error but errors");
}

void addSessionOptions(CLI::App& app, Raw& raw)
{
    app.add_option("--record", raw.recording,
                   "Write the first connection into FILE, one line for each packet")
        ->type_name("FILE");
    app.add_option("--replay", raw.replay,
                   "Play the printer of a recorded connection; end with 1 where the updater sends "
                   "other bytes")
        ->check(CLI::ExistingFile)
        ->type_name("FILE");
    app.add_option("--relay", raw.relay,
                   "Pass the first connection on to a real printer; with --record")
        ->type_name("ADDRESS[:PORT]");
}

FirmwareVersion readFirmware(const std::string& text, const char* option)
{
    const auto equals = text.find('=');
    const bool blank = text.find_first_of(" \t\r\n\"") != text.npos;
    if (blank || equals == 0 || equals >= text.size() - 1)
        throw CLI::ValidationError(option,
                                   "'" + text + "' is not NAME=VERSION without blanks and quotes");
    return {text.substr(0, equals), text.substr(equals + 1)};
}

std::string readTextFile(const std::string& path, std::size_t longest, const char* option)
{
    std::ifstream file(path, std::ios::binary);
    std::string text(longest + 1, '\0');
    file.read(text.data(), static_cast<std::streamsize>(text.size()));
    if (file.bad() || !file.eof())
        throw CLI::ValidationError(option,
                                   "cannot read " + path + ", or it is over "
                                       + std::to_string(longest >> 20) + " MiB");
    text.resize(static_cast<std::size_t>(file.gcount()));
    return text;
}

std::vector<SessionLine> readSession(const std::string& path)
{
    auto parsed = parseSession(readTextFile(path, kLongestSession, "--replay"));
    if (parsed.wrongLine != 0)
        throw CLI::ValidationError("--replay",
                                   path + ":" + std::to_string(parsed.wrongLine)
                                       + ": is not MILLISECONDS >|< HEX");
    if (parsed.lines.empty())
        throw CLI::ValidationError("--replay", path + " holds no packet");
    return std::move(parsed.lines);
}

void readSessionOptions(const Raw& raw, bool onUsb, Options& options)
{
    const bool isPlayed = !raw.replay.empty();
    const bool isRelayed = !raw.relay.empty();
    if (isPlayed && (isRelayed || !raw.recording.empty()))
        throw CLI::ValidationError("--replay", "is not for --record and --relay");
    if (isRelayed && raw.recording.empty())
        throw CLI::ValidationError("--relay", "needs --record FILE");
    if (onUsb && (isPlayed || !raw.recording.empty()))
        throw CLI::ValidationError("--usb", "sessions are recorded and played over TCP only");
    if (isPlayed)
        options.replay = readSession(raw.replay);
    if (!raw.recording.empty())
        options.recording = raw.recording;
    if (isRelayed)
        options.relay = parseEndpoint(raw.relay);
    if (isRelayed && !options.relay)
        throw CLI::ValidationError("--relay", "'" + raw.relay + "' is not ADDRESS[:PORT]");
}

std::vector<Endpoint> readEndpoints(const Raw& raw)
{
    std::vector<Endpoint> endpoints;
    const auto listen = raw.listen.empty() ? std::vector<std::string>{"127.0.0.1"} : raw.listen;
    for (const auto& text : listen) {
        const auto endpoint = parseEndpoint(text);
        if (!endpoint)
            throw CLI::ValidationError(
                "--listen", "'" + text + "' is not ADDRESS[:PORT], such as 127.0.0.1:48350");
        const auto more = consecutive(*endpoint, endpoints.empty() ? raw.count : 1);
        if (more.empty())
            throw CLI::ValidationError(
                "--count", "there are not that many addresses from " + endpoint->host() + " on");
        endpoints.insert(endpoints.end(), more.begin(), more.end());
    }
    return endpoints;
}

Fault readFault(const std::string& spec, bool onUsb)
{
    auto parsed = parseFault(spec);
    if (!parsed.fault)
        throw CLI::ValidationError("--fault", parsed.error);
    if (!onUsb && faultRow(parsed.fault->kind).usbOnly)
        throw CLI::ValidationError("--fault", "'" + spec + "' needs a printer with --usb");
    return std::move(*parsed.fault);
}

void readRestart(const Raw& raw, bool onUsb, Options& options)
{
    const bool restarts = raw.restart >= 0;
    if (restarts && onUsb)
        throw CLI::ValidationError("--restart", "works over TCP only");
    if (!restarts && !raw.updated.empty())
        throw CLI::ValidationError("--updated", "needs --restart SECONDS");
    for (const auto& fault : options.faults) {
        if (!restarts && (fault.kind == FaultKind::oldVersion || fault.kind == FaultKind::gone))
            throw CLI::ValidationError(
                "--fault", "'" + std::string(faultName(fault.kind)) + "' needs --restart SECONDS");
    }
    if (restarts)
        options.model.restart = Millis(static_cast<std::int64_t>(raw.restart * kMillisPerSecond));
    for (const auto& text : raw.updated)
        options.model.updated.push_back(readFirmware(text, "--updated"));
}

void putTogether(const Raw& raw, Options& options)
{
    auto& model = options.model;
    if (model.name.find_first_of("\r\n\"") != model.name.npos)
        throw CLI::ValidationError("--model", "a model name has no quotes and no line ends");
    const bool onUsb = !options.usb.controllers.empty();
    if (onUsb && !raw.listen.empty())
        throw CLI::ValidationError("--usb", "a printer is on the USB bus or listens, not both");
    if (onUsb)
        completeUsbOptions(options.usb, raw.count, model.name);
    else
        options.endpoints = readEndpoints(raw);
    if (!raw.firmware.empty())
        model.firmware.clear();
    for (const auto& text : raw.firmware)
        model.firmware.push_back(readFirmware(text, "--firmware"));
    for (const auto& spec : raw.faults)
        options.faults.push_back(readFault(spec, onUsb));
    readRestart(raw, onUsb, options);
    const auto* const replies = repliesWord(raw.replies);
    model.replies = replies != nullptr ? replies->replies
        : onUsb                        ? Replies::tenths
                                       : Replies::every;
    model.replyDelay = Millis(raw.replyDelay);
    model.pieceTime = Millis(raw.pieceTime);
    if (!raw.targetInfo.empty())
        model.targetInfo = readTextFile(raw.targetInfo, kLongestTargetInfo, "--target-info");
    if (!raw.store.empty())
        options.store = raw.store;
    readSessionOptions(raw, onUsb, options);
}

} // namespace

ParsedOptions parseOptions(int argc, const char* const* argv)
{
    Raw raw;
    Options options;
    CLI::App app(kDescription, "vymprinter");
    app.footer(kExamples);
    app.set_version_flag("--version", "vymprinter " VYMKIT_VERSION);
    addDeskOptions(app, raw, options);
    addPrinterOptions(app, raw, options.model);
    addSessionOptions(app, raw);
    addUsbOptions(app, options.usb);
    try {
        app.parse(argc, argv);
        if (std::find(raw.faults.begin(), raw.faults.end(), "list") != raw.faults.end()) {
            std::cout << faultList();
            return {};
        }
        putTogether(raw, options);
    } catch (const CLI::ParseError& error) {
        return {std::nullopt, app.exit(error) == 0 ? 0 : kExitUsage};
    }
    return {std::move(options), 0};
}

} // namespace vymprinter
