// SPDX-License-Identifier: MIT
// A bus with the model printer on it, which answers at once, and whose plug can be pulled after any
// byte. Plugged in as the process's host while it lives.
//
// Owns:    nothing of the printer.
// Threads: one.
#pragma once
#include "Platform/UsbHost.h"
#include "tests/support/ModelPrinter.h"

#include <cstdint>
#include <limits>
#include <string>

namespace sim {

struct UsbManners {
    static constexpr auto kNever = std::numeric_limits<std::uint64_t>::max();
    std::uint64_t bytesOut = kNever; // that get through before it is cut
    std::uint64_t bytesBack = kNever;
    // Its end: it stops to take and to send; otherwise every transfer fails.
    bool standsStill = false;
};

class UsbBus : public UsbHost {
public:
    UsbBus(const UsbManners& manners, ModelPrinter& printer);
    ~UsbBus() override { plugIn(nullptr); }
    UsbBus(const UsbBus&) = delete;
    UsbBus& operator=(const UsbBus&) = delete;

    bool interfaces(InterfaceList& found) override;
    [[nodiscard]] bool disturbed() const { return m_cut; }
    [[nodiscard]] static int openConnections() { return s_open; }
    void atTheEnd() { m_printer.lost(m_line.rest()); }

private:
    class Interface;
    class Connection;

    void carryOut(std::string_view bytes);
    std::string carryBack(std::size_t most);

    inline static int s_open = 0;
    UsbManners m_manners;
    ModelPrinter& m_printer;
    PacketAssembler m_line;
    std::string m_answers; // not read yet
    bool m_cut = false;
};

} // namespace sim
