// SPDX-License-Identifier: MIT
// USB transports that know only the model behind a port string. Replace the real ones in the
// manager during a test, and count the blocks that were not given back.
#pragma once
#include "DevConn/ConnResult.h"
#include "DevConn/DevConnMgr.h"
#include "VYM/vymUtil.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

class ScriptedModels {
public:
    ScriptedModels()
    {
        current() = this;
        DevConnMgr::Instance()->plugIn(DevConnMgr::Transport::usb, &make);
    }
    ~ScriptedModels()
    {
        delete DevConnMgr::Instance(); // the next one has the real transports again
        current() = nullptr;
    }
    ScriptedModels(const ScriptedModels&) = delete;
    ScriptedModels& operator=(const ScriptedModels&) = delete;

    // A port that is in neither list cannot be connected.
    std::map<std::string, std::string> models;
    std::vector<std::string> silent; // connect, but do not report their model
    std::vector<std::string> nameless; // answer without a model
    std::function<void()> whileAsked = [] {};

    // The calls that arrived.
    std::vector<std::string> ports;
    int open = 0;
    int kept = 0; // blocks that were still out when a connection was closed

private:
    class Transport;
    static ScriptedModels*& current()
    {
        static ScriptedModels* script = nullptr;
        return script;
    }
    static std::unique_ptr<DevConnBase> make();
};

class ScriptedModels::Transport : public DevConnBase {
public:
    explicit Transport(ScriptedModels& script) : m_script(script) { }

    long Connect(const char* name, const char* port, unsigned short tcpPort) override
    {
        m_script.ports.emplace_back(port);
        m_script.whileAsked();
        m_port = port;
        const bool known =
            m_script.models.contains(m_port) || has(m_script.silent) || has(m_script.nameless);
        if (name != nullptr || tcpPort != 0 || !known)
            return conn::kCannotOpen;
        ++m_script.open;
        return conn::kSuccess;
    }
    long GetModelName(char** model, unsigned long* length) override
    {
        const HoldLock hold(m_lock);
        *model = nullptr;
        *length = 0;
        if (has(m_script.nameless))
            return conn::kSuccess;
        if (has(m_script.silent))
            return conn::kDeviceIdFailed;
        const auto& text = m_script.models[m_port];
        m_block = static_cast<char*>(AllocMem(text.size() + 1));
        std::memcpy(m_block, text.c_str(), text.size() + 1);
        addMemList(m_block);
        *model = m_block;
        *length = text.size() + 1;
        return conn::kSuccess;
    }
    long Disconnect() override
    {
        --m_script.open;
        m_script.kept += m_block != nullptr && DisposeData(m_block) == conn::kSuccess ? 1 : 0;
        return conn::kSuccess;
    }
    long SendRecvData(unsigned char* /*send*/, unsigned long /*sendLength*/,
                      unsigned char** /*reply*/, unsigned long* /*replyLength*/) override
    {
        return conn::kNotSupported;
    }
    long SetTimeout(unsigned long /*milliseconds*/) override { return conn::kNotSupported; }

private:
    [[nodiscard]] bool has(const std::vector<std::string>& all) const
    {
        return std::find(all.begin(), all.end(), m_port) != all.end();
    }
    ScriptedModels& m_script;
    std::string m_port;
    char* m_block = nullptr;
};

inline std::unique_ptr<DevConnBase> ScriptedModels::make()
{
    return std::make_unique<Transport>(*current());
}
