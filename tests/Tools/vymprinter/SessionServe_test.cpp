// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/SessionServe.h"
#include "tests/Tools/vymprinter/program.h"
#include "tests/Tools/vymprinter/tcp_desk.h"

#include <future>
#include <gmock/gmock.h>

using namespace vymprinter;
using ::testing::HasSubstr;

namespace {

// A session that is served on a thread of its own; stop() ends it early.
class Served {
public:
    explicit Served(const char* session)
        : m_listening(listenOn({kLoopback, 0})), m_stop(::eventfd(0, EFD_CLOEXEC)),
          m_wrong(std::async(std::launch::async, [this, session] {
              return playSession(m_listening, Replay(parseSession(session).lines), m_stop.get());
          }))
    {
    }
    const Endpoint& endpoint() const { return m_listening.endpoint; }
    void stop() const { ::eventfd_write(m_stop.get(), 1); }
    std::string wrong() { return m_wrong.get(); }

private:
    Listening m_listening;
    FileHandle m_stop;
    std::future<std::string> m_wrong;
};

TEST(VymprinterSessionServe, PlaysARecordedConnection)
{
    Served served("0 > 01\n1 < 0203\n2 > 04\n");
    {
        Updater updater(served.endpoint());
        updater.send({1});
        EXPECT_EQ(updater.receive(2), (requests::Packet{2, 3}));
        updater.send({4});
    }
    EXPECT_EQ(served.wrong(), "");
}

TEST(VymprinterSessionServe, SaysWhereTheUpdaterWentAnotherWay)
{
    Served other("0 > 01\n1 < 02\n");
    const Updater updater(other.endpoint());
    updater.send({9});
    EXPECT_THAT(other.wrong(), HasSubstr("line 1, byte 1"));
}

TEST(VymprinterSessionServe, EndsWhereItIsStopped)
{
    Served unused("0 > 01\n");
    unused.stop();
    EXPECT_EQ(unused.wrong(), "");
}

TEST(VymprinterSessionServe, RelaysAConnectionAndRecordsIt)
{
    const TcpDesk printer;
    const Folder folder;
    const auto listening = listenOn({kLoopback, 0});
    const FileHandle stop(::eventfd(0, EFD_CLOEXEC));
    SessionRecorder recorder(folder.path / "session");
    auto relayed = std::async(std::launch::async, [&] {
        return relaySession(listening, printer.printer(), recorder, stop.get());
    });
    {
        Updater updater(listening.endpoint);
        EXPECT_EQ(updater.ask(requests::enter()).size(), 12U);
        updater.sendNoMore();
        EXPECT_EQ(updater.endedWith(), 0);
    }
    EXPECT_EQ(relayed.get(), "");
    EXPECT_EQ(parseSession(contents(folder.path / "session")).lines.size(), 2U);
}

TEST(VymprinterSessionServe, SaysThatTheRelaysPrinterCannotBeReached)
{
    const Folder folder;
    const auto listening = listenOn({kLoopback, 0});
    auto nobody = listenOn({ownLoopback(), 0});
    const auto target = nobody.endpoint;
    nobody.socket = FileHandle();
    const FileHandle stop(::eventfd(0, EFD_CLOEXEC));
    SessionRecorder recorder(folder.path / "session");
    const Updater updater(listening.endpoint);
    EXPECT_THAT(relaySession(listening, target, recorder, stop.get()),
                HasSubstr("cannot reach " + target.text()));
}

} // namespace
