// SPDX-License-Identifier: MIT
#include "tests/support/TruthOracle.h"

#include <algorithm>

namespace {

constexpr int kSuccess = 1;
constexpr int kDeviceError = -1;
constexpr int kDamaged = -2;

class Judgement {
public:
    Judgement(const FirmwareClaim& claim, const PrinterLedger& ledger, const PeerTraits& peer,
              std::vector<std::string>& found)
        : m_claim(claim), m_peer(peer), m_found(found)
    {
        if (const auto* facts = ledger.firmware(claim.name))
            m_facts = *facts;
    }

    void pass()
    {
        if (!m_claim.sent)
            say(m_facts.packets != 0, "\"nothing sent\", but the printer has taken packets of it");
        judgeBytes();
        if (m_claim.result == kSuccess && m_claim.sent)
            judgeSuccess();
        say(m_claim.confirmed && !m_facts.finished && m_peer.honest,
            "\"confirmed\", but the printer never reported the end of its writing");
        judgeRefusal();
    }

private:
    void say(bool untrue, const char* what)
    {
        if (untrue)
            m_found.push_back(m_claim.name + ": " + what);
    }

    void judgeBytes()
    {
        const auto& got = m_facts.bytes;
        say(got.size() > m_claim.image.size() || m_claim.image.compare(0, got.size(), got) != 0,
            "the printer has bytes that are not those of the image");
        say(!m_facts.inOrder, "a piece came twice, not at its place, or after the last block");
        say(!m_facts.sumsRight, "a checksum was wrong");
    }

    void judgeSuccess()
    {
        const bool answered = m_facts.lastAnswer
            && (*m_facts.lastAnswer == wire::kFinished || *m_facts.lastAnswer == wire::kWriting);
        // A printer that answers without a request can make any answer look like the last one.
        if (!m_peer.honest || (m_peer.fellSilent && m_facts.answers == 1))
            return;
        say(m_facts.bytes.size() < m_claim.image.size(),
            "success, but the printer lacks bytes of the image");
        say(!m_facts.lastTaken, "success, but the printer never took the last block");
        say(!answered, "success, but the last block's own answer was never given");
    }

    void judgeRefusal()
    {
        if (m_claim.sent && m_peer.honest && !m_facts.refusal && !m_facts.statusRefused)
            say(m_claim.result == kDeviceError || m_claim.result == kDamaged,
                "a refusal is claimed that the printer never gave");
        if (!m_facts.refusal || !m_peer.honest || !m_peer.undisturbed || m_peer.interrupted)
            return;
        say(*m_facts.refusal == wire::kDeviceRefused && m_claim.result != kDeviceError,
            "the printer refused with 0x0803, and the result is not -1");
        say(*m_facts.refusal == wire::kDataRefused && m_claim.result != kDamaged,
            "the printer refused with 0x0804, and the result is not -2");
    }

    const FirmwareClaim& m_claim;
    const PeerTraits& m_peer;
    std::vector<std::string>& m_found;
    FirmwareFacts m_facts;
};

} // namespace

std::vector<std::string> untruths(const std::vector<FirmwareClaim>& claims,
                                  const PrinterLedger& ledger, const PeerTraits& peer)
{
    std::vector<std::string> found;
    for (const auto& claim : claims) {
        Judgement(claim, ledger, peer, found).pass();
        const bool failed = claim.result < 0 && claim.result != -11;
        if (peer.mustSucceed && failed)
            found.push_back(claim.name + ": a sound printer that answered in time was given up ("
                            + std::to_string(claim.result) + ')');
    }
    const bool anySent =
        std::any_of(claims.begin(), claims.end(), [](const auto& claim) { return claim.sent; });
    if (!anySent && ledger.firmwareBytes() != 0)
        found.emplace_back("\"nothing sent\" for every firmware, but bytes of a file packet came");
    return found;
}
