// SPDX-License-Identifier: MIT
// One printer on the USB bus: moves bytes between its interface and its session.
//
// The bus has no connections, so a session begins with the first byte that arrives, and ends when
// the printer is pulled out or reset, when a fault breaks it off, or after a while without traffic.
//
// Owns:      the gadget, its function, the printer and its session.
// Threads:   one, the server's.
// Invariant: no session while the printer is not plugged in.
// Does not interpret the bytes.
#pragma once
#include "Tools/vymprinter/PrinterSession.h"
#include "Tools/vymprinter/UsbFunction.h"
#include "Tools/vymprinter/UsbGadget.h"

#include <memory>

namespace vymprinter {

class UsbPrinter {
public:
    // The caller owns the record, which must outlive this.
    UsbPrinter(std::unique_ptr<UsbGadget> gadget, UsbIdentity identity, Printer printer);

    // Plugs it in; returns what went wrong, or empty.
    [[nodiscard]] std::string begin();
    // The descriptors to poll for reading.
    [[nodiscard]] int controlFile() const { return m_silentUntil ? -1 : m_function.controlFile(); }
    [[nodiscard]] int transferEvent() const { return m_function.transferEvent(); }
    // Moves as many bytes as possible.
    void serve(Millis now);
    // The time of the next work if the bus stays quiet.
    [[nodiscard]] std::optional<Millis> nextDue() const;
    [[nodiscard]] std::uint64_t sessionsEnded() const { return m_sessionsEnded; }

private:
    void handleEvents(Millis now);
    void answerDeviceId(Millis now);
    void receive(Millis now);
    void writeDue(Millis now);
    void writePart();
    void endLink(LinkEnd how, Millis now);
    void endSession();
    void endQuietSession(Millis now);
    [[nodiscard]] bool quiet() const; // during a session only

    std::unique_ptr<UsbGadget> m_gadget;
    const UsbIdentity m_identity;
    UsbFunction m_function; // destroyed before the gadget's folders are removed
    Printer m_printer;
    FaultPlan m_identifying; // faults of the device ID, counted over all sessions
    std::optional<PrinterSession> m_session;
    std::optional<Millis> m_plugAgainAt;
    std::optional<Millis> m_silentUntil; // the control pipe waits for an answer until then
    Millis m_lastMoved{0};
    bool m_owesEmptyPacket = false;
    std::uint64_t m_sessionsEnded = 0;
};

} // namespace vymprinter
