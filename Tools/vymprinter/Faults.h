// SPDX-License-Identifier: MIT
// The failures that the printer can simulate, by name, and the times at which they strike.
// A fault is written NAME[=VALUE][@STAGE[:N]].
//
// Owns:      the table of faults, constant; a FaultPlan owns the counters of one connection.
// Threads:   the table any; a FaultPlan none of its own.
// Invariant: a parsed Fault's stage is one that its row allows; it has a value exactly if the row
//            requires one.
// Does not perform a fault: PrinterSession, FileBlocks and shapeReply do.
#pragma once
#include <bitset>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vymprinter {

enum class Stage { connect, enter, getFile, piece, lastBlock, status, exit, deviceId };

enum class FaultKind {
    refuseBusy,
    refuseFax,
    wrongModel,
    close,
    reset,
    stall,
    die,
    silent,
    status0803,
    status0804,
    statusUnknown,
    garbage,
    wrongCode,
    shortReply,
    splitReply,
    splitBody,
    oversized,
    lengthLie,
    endless,
    endlessEmpty,
    hugeTotal,
    badChecksum,
    offsetWrap,
    noMaxPacket,
    noModel,
    badMaxPacket,
    hugeLine,
    busyForever,
    statusOver100,
    oldVersion,
    gone,
    drip,
    haltOut,
    haltIn,
    emptyPacket,
    idHalt,
    idSilent,
    count // the number of kinds, not a kind
};

struct Fault {
    FaultKind kind = FaultKind::count;
    Stage stage = Stage::connect;
    std::optional<std::uint64_t> at; // number of the request; bytes before a piece
    std::string value;
};

struct ParsedFault {
    std::optional<Fault> fault;
    std::string error; // what is wrong and what to write instead; empty if there is a `fault`
};

[[nodiscard]] ParsedFault parseFault(const std::string& text);
// All names, with the effect of each and what the updater's user sees.
[[nodiscard]] std::string faultList();
[[nodiscard]] std::string_view faultName(FaultKind kind);

// The faults that strike one request.
class FaultSet {
public:
    void add(FaultKind kind) { m_kinds.set(static_cast<std::size_t>(kind)); }
    void add(const FaultSet& others) { m_kinds |= others.m_kinds; }
    [[nodiscard]] bool has(FaultKind kind) const { return m_kinds[static_cast<std::size_t>(kind)]; }
    [[nodiscard]] bool none() const { return m_kinds.none(); }
    // The names, separated by commas.
    [[nodiscard]] std::string names() const;

private:
    std::bitset<static_cast<std::size_t>(FaultKind::count)> m_kinds;
};

// Counts the events of one connection and returns the faults that strike now.
class FaultPlan {
public:
    explicit FaultPlan(std::vector<Fault> faults);

    // This connection is the printer's n-th; numbers are from 1.
    FaultSet atConnect(std::uint64_t connection);
    // Call for a request of that stage; pieces have a call of their own.
    FaultSet atRequest(Stage stage);
    // Call for a piece; `bytes` of firmware have arrived so far, including its own.
    FaultSet atPiece(std::uint64_t bytes);
    // Whether the connection breaks once that many bytes of firmware have arrived.
    FaultSet breakAt(std::uint64_t bytes) const;
    // Those that strike every request from now on.
    [[nodiscard]] const FaultSet& lasting() const { return m_lasting; }
    [[nodiscard]] const std::string& value(FaultKind kind) const;

private:
    void strike(std::size_t index, FaultSet& now);

    std::vector<Fault> m_faults;
    std::vector<bool> m_struck; // parallel to m_faults: strikes once and has done so
    std::vector<std::uint64_t> m_requests; // the number handled, by stage
    FaultSet m_lasting; // those that last for every later request
};

} // namespace vymprinter
