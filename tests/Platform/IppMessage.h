// SPDX-License-Identifier: MIT
// A handwritten IPP message: IppMessage().group(4).attribute(0x42, "printer-name", "q").end()
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

class IppMessage {
public:
    explicit IppMessage(std::uint16_t status = 0)
    {
        m_bytes = {2, 0};
        number(status);
        m_bytes += std::string("\0\0\0\1", 4); // the request's number
    }
    IppMessage& group(int tag)
    {
        m_bytes += static_cast<char>(tag);
        return *this;
    }
    IppMessage& attribute(int tag, std::string_view name, std::string_view value)
    {
        m_bytes += static_cast<char>(tag);
        return counted(name).counted(value);
    }
    IppMessage& queue(std::string_view identifier)
    {
        return group(4).attribute(0x42, "printer-name", identifier);
    }
    [[nodiscard]] std::string end() const { return m_bytes + '\3'; }
    [[nodiscard]] std::string unended() const { return m_bytes; }

    static std::string withLanguage(std::string_view text)
    {
        return IppMessage().counted("en").counted(text).m_bytes.substr(8);
    }

private:
    IppMessage& counted(std::string_view text)
    {
        number(static_cast<std::uint16_t>(text.size()));
        m_bytes += text;
        return *this;
    }
    void number(std::uint16_t value)
    {
        m_bytes += static_cast<char>(value >> 8);
        m_bytes += static_cast<char>(value & 0xFF);
    }

    std::string m_bytes;
};
