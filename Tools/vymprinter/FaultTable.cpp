// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/FaultTable.h"

#include <array>

namespace vymprinter {
namespace {

constexpr unsigned kEnter = stageBit(Stage::enter);
constexpr unsigned kGetFile = stageBit(Stage::getFile);
constexpr unsigned kStatus = stageBit(Stage::status);
constexpr unsigned kAnswered = kEnter | kGetFile | stageBit(Stage::piece)
    | stageBit(Stage::lastBlock) | kStatus | stageBit(Stage::exit);
constexpr unsigned kAny = stageBit(Stage::connect) | kAnswered;

// clang-format off
constexpr std::array<FaultRow, static_cast<std::size_t>(FaultKind::count)> kFaults = {{
    {FaultKind::refuseBusy, "refuse-busy", Stage::enter, kEnter, Span::stage, false,
     "answers the request to enter download mode with 0x1001",
     "the printer is in use; try again later"},
    {FaultKind::refuseFax, "refuse-fax", Stage::enter, kEnter, Span::stage, false,
     "answers the request to enter download mode with 0x1002",
     "the printer is sending or receiving a fax; try again later"},
    {FaultKind::wrongModel, "wrong-model", Stage::getFile, kGetFile, Span::stage, false,
     "says in TargetInfo.txt that it is another model",
     "the firmware is not for this printer; nothing was sent"},
    {FaultKind::close, "close", Stage::piece, kAny, Span::once, false,
     "closes the connection, also in the middle of a packet",
     "an awaited answer is missing, or the connection was lost"},
    {FaultKind::reset, "reset", Stage::piece, kAny, Span::once, false,
     "breaks the connection off with a reset, also in the middle of a packet",
     "the connection was lost"},
    {FaultKind::stall, "stall", Stage::piece, kAny, Span::once, false,
     "stops reading but keeps the connection open, like a printer that hangs",
     "no progress, then a time-out"},
    {FaultKind::die, "die", Stage::piece, kAny, Span::once, false,
     "loses its power with everything that it has not handled yet; 4 s later its network is back "
     "and knows of no connection",
     "no progress, then a time-out, or the connection was lost"},
    {FaultKind::silent, "silent", Stage::enter, kAny, Span::connection, false,
     "goes on reading but never replies again",
     "no progress, then a time-out"},
    {FaultKind::status0803, "status-0803", Stage::lastBlock, kAnswered, Span::once, false,
     "refuses the request with status 0x0803",
     "the printer refused; the update stops"},
    {FaultKind::status0804, "status-0804", Stage::lastBlock, kAnswered, Span::once, false,
     "answers with status 0x0804, as if the checksum were wrong",
     "the data arrived damaged; the update stops"},
    {FaultKind::statusUnknown, "status-unknown", Stage::lastBlock, kAnswered, Span::once, false,
     "answers with the unknown status 0x7777",
     "an unexpected answer; the update stops"},
    {FaultKind::garbage, "garbage", Stage::enter, kAnswered, Span::once, false,
     "sends 64 random-looking bytes, always the same, instead of the reply",
     "an unexpected answer; the update stops, but not for a piece, which needs none"},
    {FaultKind::wrongCode, "wrong-code", Stage::enter, kAnswered, Span::once, false,
     "replies with the code of another command",
     "an unexpected answer; the update stops, but not for a piece, which needs none"},
    {FaultKind::shortReply, "short-reply", Stage::enter, kAnswered, Span::once, false,
     "replies with a header that announces no body",
     "an unexpected answer; the update stops, but not for a piece, which needs none"},
    {FaultKind::splitReply, "split-reply", Stage::enter, kAnswered, Span::once, false,
     "sends half of the header, and the rest 30 ms later",
     "the connection counts as lost"},
    {FaultKind::splitBody, "split-body", Stage::enter, kAnswered, Span::once, false,
     "sends the header, and 3 ms later the body in small fragments",
     "nothing: a good updater puts the reply together"},
    {FaultKind::oversized, "oversized", Stage::enter, kAnswered, Span::once, false,
     "announces and sends a body 64 KiB longer than any updater has room for",
     "an unexpected answer; the update stops, but not for a piece, which needs none"},
    {FaultKind::lengthLie, "length-lie", Stage::enter, kAnswered, Span::once, false,
     "announces a body of 0xFFFFFFFF bytes and sends four",
     "an unexpected answer after a time-out; little memory is used"},
    {FaultKind::endless, "endless", Stage::getFile, kGetFile, Span::once, false,
     "sends blocks of TargetInfo.txt without end, never the last one",
     "the update gives up after a while"},
    {FaultKind::endlessEmpty, "endless-empty", Stage::getFile, kGetFile, Span::once, false,
     "sends blocks without data without end, never the last one",
     "the update gives up after a while"},
    {FaultKind::hugeTotal, "huge-total", Stage::getFile, kGetFile, Span::once, false,
     "announces TargetInfo.txt to be 0xFFFFFFF0 bytes long",
     "a system error; little memory is used"},
    {FaultKind::badChecksum, "bad-checksum", Stage::getFile, kGetFile, Span::once, false,
     "sends TargetInfo.txt with a wrong checksum in its last block",
     "the data arrived damaged; the update stops"},
    {FaultKind::offsetWrap, "offset-wrap", Stage::getFile, kGetFile, Span::once, false,
     "sends a block whose offset plus length runs past 32 bits",
     "the data arrived damaged; the update stops"},
    {FaultKind::noMaxPacket, "no-maxpacket", Stage::getFile, kGetFile, Span::stage, false,
     "leaves MAXPACKET out of TargetInfo.txt",
     "the printer's information is incomplete; the update stops"},
    {FaultKind::noModel, "no-model", Stage::getFile, kGetFile, Span::stage, false,
     "leaves TGMNAME out of TargetInfo.txt",
     "the printer's information is incomplete; the update stops"},
    {FaultKind::badMaxPacket, "bad-maxpacket", Stage::getFile, kGetFile, Span::stage, true,
     "writes VALUE as MAXPACKET into TargetInfo.txt (60, 0, -5, 7, 2147483647, ...)",
     "the printer's information makes no sense; the update stops"},
    {FaultKind::hugeLine, "target-info-huge-line", Stage::getFile, kGetFile, Span::stage, false,
     "begins TargetInfo.txt with a row of one MiB",
     "nothing, or the update stops; it neither hangs nor fails hard"},
    {FaultKind::busyForever, "busy-forever", Stage::status, kStatus, Span::stage, false,
     "says that it is still writing, and never finishes",
     "the progress stands still; the update can be stopped"},
    {FaultKind::statusOver100, "status-over-100", Stage::status, kStatus, Span::stage, false,
     "claims to have written twice as much as there is",
     "the update ends well; the bar never passes its end"},
    {FaultKind::oldVersion, "old-version", Stage::exit, stageBit(Stage::exit), Span::once, false,
     "comes back from its restart (--restart) with the versions that it had before",
     "nothing; update --verify says that the update is not installed"},
    {FaultKind::gone, "gone", Stage::exit, stageBit(Stage::exit), Span::once, false,
     "never comes back from its restart (--restart)",
     "nothing; update --verify says that the update is not confirmed"},
    {FaultKind::drip, "drip", Stage::enter, kAnswered, Span::connection, false,
     "from there on sends every reply byte by byte, one each 100 ms",
     "the connection counts as lost"},
    {FaultKind::haltOut, "halt-out", Stage::piece, kAny, Span::once, false,
     "halts its bulk-out pipe (STALL), also in the middle of a packet, and forgets the updater",
     "the connection was lost", true},
    {FaultKind::haltIn, "halt-in", Stage::enter, kAny, Span::once, false,
     "halts its bulk-in pipe (STALL) instead of replying, and forgets the updater",
     "the connection was lost", true},
    {FaultKind::emptyPacket, "empty-packet", Stage::enter, kAnswered, Span::once, false,
     "sends an empty packet ahead of the reply",
     "nothing: a good updater reads on", true},
    {FaultKind::idHalt, "id-halt", Stage::deviceId, stageBit(Stage::deviceId), Span::stage, false,
     "refuses to send its device ID (STALL)",
     "the printer is not found", true},
    {FaultKind::idSilent, "id-silent", Stage::deviceId, stageBit(Stage::deviceId), Span::stage,
     false, "does not answer a request for its device ID for 10 s",
     "the printer is not found", true},
}};

constexpr std::array<StageRow, 8> kStages = {{
    {Stage::connect, "connect"}, {Stage::enter, "enter"},   {Stage::getFile, "get-file"},
    {Stage::piece, "piece"},     {Stage::lastBlock, "last-block"},
    {Stage::status, "status"},   {Stage::exit, "exit"},
    {Stage::deviceId, "device-id"},
}};
// clang-format on

constexpr bool everyRowIsInItsPlace()
{
    for (std::size_t i = 0; i < kFaults.size(); ++i)
        if (static_cast<std::size_t>(kFaults.at(i).kind) != i
            || (kFaults.at(i).stages & stageBit(kFaults.at(i).usual)) == 0)
            return false;
    return true;
}
static_assert(everyRowIsInItsPlace());

} // namespace

std::span<const FaultRow> faultTable()
{
    return kFaults;
}

const FaultRow& faultRow(FaultKind kind)
{
    return kFaults.at(static_cast<std::size_t>(kind));
}

std::span<const StageRow> stageTable()
{
    return kStages;
}

} // namespace vymprinter
