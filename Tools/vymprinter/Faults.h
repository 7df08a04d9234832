// The failures that the printer can be told to show, each by a name, and when each strikes.
// A fault is written NAME[=VALUE][@STAGE[:N]].
//
// Owns:      the table of faults, constant; a FaultPlan owns the counters of one connection.
// Threads:   the table any; a FaultPlan none of its own.
// Invariant: a parsed Fault's stage is one that its row allows; a value is present exactly when
//            the row wants one.
// Does not carry a fault out: PrinterSession, FileBlocks and shapeReply do.
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
    drip,
    haltOut,
    haltIn,
    emptyPacket,
    idHalt,
    idSilent,
    count // how many there are; none itself
};

struct Fault {
    FaultKind kind = FaultKind::count;
    Stage stage = Stage::connect;
    std::optional<std::uint64_t> at; // which such request; for a piece, after how many bytes
    std::string value;
};

struct ParsedFault {
    std::optional<Fault> fault;
    std::string error; // what is wrong and what to write instead; empty when `fault` is there
};

[[nodiscard]] ParsedFault parseFault(const std::string& text);
// All names, what each does and what a person sees whose updater meets it.
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

// Counts what happens on one connection and says which faults strike now.
class FaultPlan {
public:
    explicit FaultPlan(std::vector<Fault> faults);

    // The connection is the printer's n-th, from 1.
    FaultSet atConnect(std::uint64_t connection);
    // A request of that stage is being handled; pieces have a question of their own.
    FaultSet atRequest(Stage stage);
    // A piece is being handled; `bytes` of firmware have arrived so far, its own included.
    FaultSet atPiece(std::uint64_t bytes);
    // Whether the connection breaks once that many bytes of firmware have arrived.
    FaultSet breakAt(std::uint64_t bytes) const;
    // Those that strike every request from now on.
    [[nodiscard]] const FaultSet& lasting() const { return m_lasting; }
    [[nodiscard]] const std::string& value(FaultKind kind) const;

private:
    void strike(std::size_t index, FaultSet& now);

    std::vector<Fault> m_faults;
    std::vector<bool> m_struck; // beside m_faults: those that strike once and have
    std::vector<std::uint64_t> m_requests; // by stage: how many have been handled
    FaultSet m_lasting; // those that stay for every later request
};

} // namespace vymprinter
