// One printer on the USB bus: moves bytes between its interface and the session behind it.
//
// The bus has no connections, so a session is made of what there is: it begins with the first byte
// that arrives, and ends when the printer is pulled out or reset, breaks off by a fault, or when
// nothing has moved for a while.
//
// Owns:      the gadget, its function, the printer and its session.
// Threads:   one, the server's.
// Invariant: no session while the printer is not plugged in.
// Does not understand a byte of what it moves.
#pragma once
#include "Tools/vymprinter/PrinterSession.h"
#include "Tools/vymprinter/UsbFunction.h"
#include "Tools/vymprinter/UsbGadget.h"

#include <memory>

namespace vymprinter {

class UsbPrinter {
public:
    // The record belongs to the caller and outlives it.
    UsbPrinter(std::unique_ptr<UsbGadget> gadget, UsbIdentity identity, Printer printer);

    // Plugs it in; what went wrong, or empty.
    [[nodiscard]] std::string begin();
    // What to poll for reading.
    [[nodiscard]] int controlFile() const { return m_silentUntil ? -1 : m_function.controlFile(); }
    [[nodiscard]] int transferEvent() const { return m_function.transferEvent(); }
    // Moves what can be moved.
    void serve(Millis now);
    // When there is something to do though the bus stays quiet.
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
    [[nodiscard]] bool quiet() const;

    std::unique_ptr<UsbGadget> m_gadget;
    const UsbIdentity m_identity;
    UsbFunction m_function; // before the gadget's folders go
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
