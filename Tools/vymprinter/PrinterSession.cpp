// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/PrinterSession.h"

#include "Tools/vymprinter/ReplyShape.h"

#include <algorithm>
#include <cassert>
#include <new>

namespace vymprinter {
namespace {

// A packet that is a little too long is refused; a longer one ends the connection.
constexpr std::size_t kOverlongRefused = 64U << 10;
constexpr Millis kPowerBack{4000}; // no printer starts faster
constexpr std::uint64_t kMillisPerSecond = 1000;
constexpr std::uint32_t kHundred = 100;
constexpr std::uint32_t kTenth = 10; // in per cent

bool isSendFile(ByteView packetSoFar)
{
    return packetSoFar.size() >= kSendFileHeadSize && get16(packetSoFar, 2) == command::kSendFile;
}

std::optional<Stage> stageOf(const Request& request)
{
    switch (request.command) {
    case command::kEnter:
        return Stage::enter;
    case command::kGetFile:
        return Stage::getFile;
    case command::kStatusQuery:
        return Stage::status;
    case command::kSendFile:
        return blockKind::isLast(request.kind) ? Stage::lastBlock : Stage::piece;
    case command::kExit:
        return Stage::exit;
    default:
        return std::nullopt;
    }
}

// The faults of the connection that was counted last.
std::vector<Fault> faultsOf(const Printer& printer)
{
    const bool spared =
        printer.faultyConnections != 0 && printer.connections > printer.faultyConnections;
    return spared ? std::vector<Fault>() : printer.faults;
}

std::string withFaults(const std::string& verdict, const FaultSet& faults)
{
    return faults.none() ? verdict : verdict + "; fault " + faults.names();
}

} // namespace

PrinterSession::PrinterSession(Printer& printer, Millis now)
    : m_printer(printer), m_number(++printer.connections),
      m_packetLimit(packetLimit(printer.model)), m_plan(faultsOf(printer)),
      m_input(std::min<std::size_t>(m_packetLimit + kOverlongRefused, kLargestPacket)),
      m_download(printer.record)
{
    remark("connected");
    breakOff(m_plan.atConnect(m_number), now);
}

PrinterSession::~PrinterSession()
{
    try {
        leaveDownloadMode();
        remark("disconnected");
    } catch (const std::bad_alloc&) { // remarks are for people
    }
}

void PrinterSession::receive(ByteView bytes)
{
    assert(!m_inputEnded);
    m_input.append(bytes);
}

bool PrinterSession::wantsInput() const
{
    return !m_stalled && !m_brokenOff && !m_input.frontIsWhole();
}

bool PrinterSession::hasWork() const
{
    return !m_stalled && !m_brokenOff && !m_busyUntil && !m_outgoing.full()
        && (m_blocks || m_input.frontIsWhole());
}

bool PrinterSession::finished() const
{
    const bool nothingToDo = m_brokenOff || m_stalled || (!m_input.frontIsWhole() && !m_blocks);
    return m_inputEnded && nothingToDo && m_outgoing.empty();
}

void PrinterSession::advance(Millis now)
{
    while (!m_stalled && !m_brokenOff && !m_outgoing.full()) {
        if (m_blocks)
            sendNextBlock(now);
        else if (!handleFront(now))
            break;
    }
    if (m_inputEnded && !m_blocks && !m_input.frontIsWhole())
        leaveDownloadMode();
}

// Handles the arrived part of the packet at the front; returns whether it is finished.
bool PrinterSession::handleFront(Millis now)
{
    const auto packet = m_input.front();
    const auto arrived = m_firmwareBytes + firmwareBytesIn(packet);
    const auto breaks = isSendFile(packet) ? m_plan.breakAt(arrived) : FaultSet();
    if (breakOff(breaks, now)) {
        note(decodeRequest(packet), "broken off in this packet", breaks, now);
        return false;
    }
    if (m_input.frontIsAbsurd()) {
        note(decodeRequest(packet), "absurd length; connection ended", {}, now);
        end(LinkEnd::close, now);
        return false;
    }
    if (!m_input.frontIsWhole() || worksOn(packet, now))
        return false;
    m_firmwareBytes = arrived;
    handle(decodeRequest(packet), now);
    m_input.drop();
    return true;
}

// A slow printer: a whole packet with firmware keeps it busy before it handles and answers that.
bool PrinterSession::worksOn(ByteView packet, Millis now)
{
    if (m_printer.model.pieceTime == Millis(0) || !isSendFile(packet))
        return false;
    if (!m_busyUntil)
        m_busyUntil = now + m_printer.model.pieceTime;
    if (now < *m_busyUntil)
        return true;
    m_busyUntil.reset();
    return false;
}

void PrinterSession::handle(const Request& request, Millis now)
{
    const auto faults = faultsAt(request);
    const auto status = forcedStatus(faults);
    if (breakOff(faults, now)) {
        note(request, "broken off", faults, now);
    } else if (status) {
        m_download.abandon();
        answer(request, {*status, "refused"}, faults, now);
    } else if (!request.defect.empty()) {
        m_download.abandon();
        answer(request, {status::kRefused, std::string(request.defect)}, faults, now);
    } else if (request.command == command::kEnter) {
        enter(request, faults, now);
    } else if (request.command == command::kGetFile) {
        getFile(request, faults, now);
    } else if (!inDownloadMode()) {
        answer(request, {status::kNotInDownloadMode, "not in download mode"}, faults, now);
    } else if (request.command == command::kSendFile) {
        sendFile(request, faults, now);
    } else if (request.command == command::kStatusQuery) {
        statusQuery(request, faults, now);
    } else {
        exit(request, faults, now);
    }
}

FaultSet PrinterSession::faultsAt(const Request& request)
{
    const auto stage = stageOf(request);
    if (!stage)
        return m_plan.lasting();
    return stage == Stage::piece ? m_plan.atPiece(m_firmwareBytes) : m_plan.atRequest(*stage);
}

void PrinterSession::enter(const Request& request, const FaultSet& faults, Millis now)
{
    if (m_printer.downloading != nullptr && !inDownloadMode())
        return answer(request, {status::kBusy, "busy with another session"}, faults, now);
    m_printer.downloading = this;
    remark("is in download mode");
    answer(request, {}, faults, now);
}

void PrinterSession::getFile(const Request& request, const FaultSet& faults, Millis now)
{
    if (request.name != kTargetInfoName)
        return answer(request, {status::kRefused, "no such file"}, faults, now);
    note(request, "ok", faults, now);
    if (faults.has(FaultKind::silent))
        return;
    m_blockFaults = faults;
    m_blocks.emplace(faultyTargetInfo(targetInfoText(m_printer.model), faults,
                                      m_plan.value(FaultKind::badMaxPacket)),
                     blockLimit(m_printer.model), faults);
}

void PrinterSession::sendFile(const Request& request, const FaultSet& faults, Millis now)
{
    if (request.data.size() + kSendFileHeadSize > m_packetLimit) {
        m_download.abandon();
        return answer(request, {status::kRefused, "longer than MAXPACKET"}, faults, now);
    }
    if (!blockKind::isLast(request.kind))
        m_tenthReached = reachesTenth(request);
    const auto verdict = m_download.accept(request);
    if (status::isSuccess(verdict.status) && blockKind::isLast(request.kind)) {
        m_writingSince = now;
        remark("received " + printable(request.name) + ", " + std::to_string(request.end)
               + " bytes");
    }
    answer(request, verdict, faults, now);
}

void PrinterSession::statusQuery(const Request& request, const FaultSet& faults, Millis now)
{
    const auto& firmware = m_download.finished();
    if (!m_printer.model.statusQuery)
        return answer(request, {status::kRefused, "not supported"}, faults, now);
    if (!firmware)
        return answer(request, {status::kRefused, "no firmware was sent"}, faults, now);
    if (!request.name.empty() && request.name != firmware->name)
        return answer(request, {status::kRefused, "not the firmware last sent"}, faults, now);
    note(request, "ok", faults, now);
    auto written = writtenBy(now);
    const bool busy = written < firmware->size || faults.has(FaultKind::busyForever);
    if (faults.has(FaultKind::statusOver100))
        written = std::max(firmware->size, firmware->size * 2 + 1); // the sum may wrap
    auto sent = sentNote(request.command, busy ? status::kWriting : status::kDone, now);
    sent.start = written;
    sent.end = firmware->size;
    reply(encodeStatusReply(sent.kind, firmware->size, written), sent, faults);
}

void PrinterSession::exit(const Request& request, const FaultSet& faults, Millis now)
{
    leaveDownloadMode();
    answer(request, {}, faults, now);
    if (m_printer.model.restart && m_download.finished())
        restart(faults, now);
}

// Goes away once its answer has left. The carrier turns connections away until the printer is back.
void PrinterSession::restart(const FaultSet& faults, Millis now)
{
    assert(m_printer.model.restart.has_value());
    const bool isGone = faults.has(FaultKind::gone);
    m_printer.backAt = isGone ? Millis::max() : now + *m_printer.model.restart;
    if (!faults.has(FaultKind::oldVersion))
        installUpdate(m_printer.model);
    remark("restarts the printer" + (faults.none() ? std::string() : "; fault " + faults.names()));
    end(LinkEnd::close, now);
}

// The number of bytes of the last received firmware that the printer has written.
std::uint32_t PrinterSession::writtenBy(Millis now) const
{
    assert(m_download.finished().has_value());
    const auto size = m_download.finished()->size;
    const auto rate = m_printer.model.writeRate;
    const auto elapsed = static_cast<std::uint64_t>((now - m_writingSince).count());
    if (rate == 0 || elapsed >= std::uint64_t{size} * kMillisPerSecond / rate + 1)
        return size;
    return static_cast<std::uint32_t>(
        std::min<std::uint64_t>(size, elapsed * rate / kMillisPerSecond));
}

void PrinterSession::leaveDownloadMode()
{
    m_download.abandon();
    if (!inDownloadMode())
        return;
    m_printer.downloading = nullptr;
    remark("has left download mode");
}

bool PrinterSession::breakOff(const FaultSet& faults, Millis now)
{
    if (faults.has(FaultKind::die) && !m_stalled)
        die(now);
    else if (faults.has(FaultKind::stall))
        m_stalled = true;
    else if (faults.has(FaultKind::close))
        end(LinkEnd::close, now);
    else if (faults.has(FaultKind::reset))
        end(LinkEnd::reset, now);
    else if (faults.has(FaultKind::haltIn))
        end(LinkEnd::haltIn, now);
    else if (faults.has(FaultKind::haltOut))
        end(LinkEnd::haltOut, now);
    else
        return false;
    remark("fault " + faults.names());
    return true;
}

// The power fails: packets that were not handled are lost, and no more replies leave. After the
// restart, its system does not know the connection.
void PrinterSession::die(Millis now)
{
    m_stalled = true;
    m_outgoing.clear();
    leaveDownloadMode();
    m_outgoing.push({now + kPowerBack, {}, LinkEnd::reset});
}

void PrinterSession::end(LinkEnd how, Millis now)
{
    m_brokenOff = true;
    leaveDownloadMode();
    m_outgoing.push({now, {}, how});
}

void PrinterSession::sendNextBlock(Millis now)
{
    assert(m_blocks.has_value());
    const auto block = m_blocks->next();
    auto sent = sentNote(command::kGetFile, block.status, now);
    sent.start = block.offset;
    sent.end = block.total;
    sent.count = block.data.size();
    reply(encodeFileBlock(block), sent, m_blockFaults);
    if (m_blocks->done())
        m_blocks.reset();
}

bool PrinterSession::repliesTo(const Request& request, std::uint16_t status,
                               const FaultSet& faults) const
{
    if (request.command != command::kSendFile || !status::isSuccess(status) || changesReply(faults))
        return true;
    switch (m_printer.model.replies) {
    case Replies::every:
        return true;
    case Replies::none:
        return false;
    case Replies::last:
        return blockKind::isLast(request.kind);
    case Replies::tenths:
        break;
    }
    return blockKind::isLast(request.kind) || m_tenthReached;
}

// In 32 bits, dropping the overflow: updaters calculate in the same way.
bool PrinterSession::reachesTenth(const Request& request)
{
    const auto percent = request.end != 0 ? request.start * kHundred / request.end : 0;
    const bool reached = percent % kTenth == 0 && percent != m_lastPercent;
    m_lastPercent = percent;
    return reached;
}

void PrinterSession::answer(const Request& request, const Verdict& verdict, const FaultSet& faults,
                            Millis now)
{
    note(request, verdict.text, faults, now);
    if (!status::isSuccess(verdict.status))
        remark("was refused: " + withFaults(verdict.text, faults));
    if (!repliesTo(request, verdict.status, faults))
        return;
    reply(encodeSimpleReply(request.command, verdict.status),
          sentNote(request.command, verdict.status, now), faults);
}

PacketNote PrinterSession::sentNote(std::uint16_t code, std::uint16_t status, Millis now) const
{
    PacketNote sent;
    sent.at = now;
    sent.connection = m_number;
    sent.direction = Direction::out;
    sent.command = code;
    sent.kind = status;
    return sent;
}

void PrinterSession::reply(Bytes bytes, PacketNote note, const FaultSet& faults)
{
    if (faults.has(FaultKind::silent))
        return;
    note.verdict = withFaults("sent", faults);
    m_printer.record.packet(note);
    const auto due = note.at + m_printer.model.replyDelay;
    for (auto& part : shapeReply(std::move(bytes), faults, due, m_packetLimit))
        m_outgoing.push(std::move(part));
}

void PrinterSession::note(const Request& request, const std::string& verdict,
                          const FaultSet& faults, Millis now)
{
    m_printer.record.packet({now, m_number, Direction::in, request.command, request.name,
                             request.kind, request.start, request.end, request.data.size(),
                             withFaults(verdict, faults)});
}

void PrinterSession::remark(const std::string& sentence)
{
    m_printer.record.remark("connection " + std::to_string(m_number) + " " + sentence);
}

} // namespace vymprinter
