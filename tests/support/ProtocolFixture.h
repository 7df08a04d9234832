// SPDX-License-Identifier: MIT
// A protocol object over a scripted printer and a scripted clock. A test states packages, replies
// and sent packets in one line each.
#pragma once
#include "VYM/vymProtocol.h"
#include "tests/support/Printer.h"
#include "tests/support/ScriptedTime.h"
#include "tests/support/ScriptedTransport.h"

#include <gtest/gtest.h>
#include <memory>

class ProtocolFixture : public ::testing::Test {
protected:
    void SetUp() override { m_protocol = std::make_unique<vymProtocol>(); }
    void TearDown() override { m_protocol.reset(); }

    // The package's rows other than VERSION rows; the package contains an image "main.bin".
    void package(std::initializer_list<std::string_view> texts, std::size_t imageSize = 100)
    {
        m_image = imageBytes(imageSize);
        m_package = std::make_unique<Package>();
        m_package->description(texts).file("main.bin", m_image).open();
    }
    void open()
    {
        m_script.queueReply(printer::enter());
        ASSERT_EQ(enter(), 1);
    }
    int enter()
    {
        char address[] = "127.0.0.1";
        return m_protocol->EnterDownLoadMode(nullptr, address, 48350, false);
    }
    static std::string targetInfo(std::string_view maxPacket = "160",
                                  std::string_view more = "SUPPORT_COMMAND 5103")
    {
        return rows({"TGMNAME MODEL-A", "VERSION MAIN=AB010100", more,
                     "MAXPACKET " + std::string(maxPacket)});
    }
    // The printer's answer to the request for TargetInfo.txt.
    void tell(const std::string& targetInfo) { m_script.queueReply(printer::file(targetInfo)); }

    int update(const char* version = "AB010200", const char* file = "main.bin",
               const char* name = "MAINFW", const char* compatible = "")
    {
        return m_protocol->UpdateFirmware("MODEL-A", "MAIN", version, file, name, compatible,
                                          m_info);
    }
    // The file packets that were sent, head and data.
    [[nodiscard]] std::vector<std::string> filePackets() const
    {
        std::vector<std::string> found;
        for (const auto& packet : m_script.sent()) {
            if (view(packet).isFile())
                found.push_back(packet);
        }
        return found;
    }
    static packets::FilePacket view(const std::string& packet)
    {
        return {reinterpret_cast<const unsigned char*>(packet.data()), packet.size()};
    }

    ScriptedTime m_time;
    TransportScript m_script;
    std::unique_ptr<Package> m_package;
    std::string m_image;
    tag_devinfo m_info{};
    std::unique_ptr<vymProtocol> m_protocol;
};
