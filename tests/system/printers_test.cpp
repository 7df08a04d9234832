// SPDX-License-Identifier: MIT
// Printers behind the queues of a real print server: lists them, and updates them by queue name.
#include "tests/support/PrivateCups.h"
#include "tests/system/Desk.h"

#include <gmock/gmock.h>
#include <map>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

// Seconds, on a busy computer: a wait without a limit would last for minutes.
constexpr double kAtOnce = 20 * VYMKIT_TEST_SLOWNESS;

using namespace desk;
using std::chrono::steady_clock;
using testing::HasSubstr;

Firmware mainFirmware()
{
    return {"MAIN", "AB010200", 20000};
}

// The folder of the printer driver, with the addresses of its queues.
class DriverFolder {
public:
    explicit DriverFolder(const std::string& configuration)
    {
        const std::string folder = "Library/Printers/Morix/Driver/RLPD";
        std::filesystem::create_directories(m_root.path() / folder);
        m_root.write(folder + "/rlpd.conf", configuration);
    }
    [[nodiscard]] std::string variable() const
    {
        return "VYMKIT_DRIVER_ROOT=" + m_root.path().string();
    }

private:
    TempFolder m_root;
};

// A server that accepts every connection and never answers.
class SilentServer {
public:
    SilentServer() : m_socket(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0))
    {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        path().copy(address.sun_path, sizeof address.sun_path - 1);
        EXPECT_EQ(bind(m_socket, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
        EXPECT_EQ(listen(m_socket, 8), 0);
    }
    ~SilentServer() { close(m_socket); }
    SilentServer(const SilentServer&) = delete;
    SilentServer& operator=(const SilentServer&) = delete;
    [[nodiscard]] Process::Environment environment() const { return {"CUPS_SERVER=" + path()}; }

private:
    [[nodiscard]] std::string path() const { return m_folder / "s"; }
    TempFolder m_folder;
    int m_socket;
};

class SystemPrinters : public testing::Test {
protected:
    void SetUp() override
    {
        if (!PrivateCups::isInstalled())
            GTEST_SKIP() << "needs the packages cups-daemon and cups-client";
    }
    CliRun run(std::vector<std::string> words, Process::Environment environment,
               const std::string& driverVariable = "VYMKIT_DRIVER_ROOT=/nonexistent")
    {
        words.insert(words.end(), {"--package", package.path()});
        environment.push_back(driverVariable);
        return CliRun(words, CliRun::Pauses::shortened, environment);
    }
    PackageFolder package{{mainFirmware()}};
};

std::map<std::string, std::string> reasonsOf(const Json& result)
{
    std::map<std::string, std::string> reasons;
    for (const auto& printer : result["printers"])
        reasons[printer["identifier"].is_null() ? "?" : printer["identifier"].get<std::string>()] =
            printer["reason"];
    return reasons;
}

double secondsSince(steady_clock::time_point start)
{
    return std::chrono::duration<double>(steady_clock::now() - start).count();
}

} // namespace

TEST_F(SystemPrinters, AreListedWithAReasonForEachThatCannotBeUpdated)
{
    const PrivateCups cups({{"again", "lpd://10.0.0.5/", "A printer"},
                            {"b-office", "lpd://10.0.0.5/q", "A printer", "The office", "Floor 2"},
                            {"cable", "usb://Maker/P?serial=77", "A printer"},
                            {"cable2", "usb://Maker/P?serial=77", "A printer"},
                            {"driver", "tzrq:driver", "A printer"},
                            {"driver2", "tzrq:driver2", "A printer"},
                            {"foreign", "lpd://10.0.0.9/q", "Other printer"},
                            {"noserial", "usb://Maker/P", "A printer"},
                            {"socket", "socket://10.0.0.8:9100", "A printer"}});
    const DriverFolder driver("<Printer driver>\nDevicePath net:10.0.0.6/PDLType X\n"
                              "<Printer driver2>\nDevicePath mdns:somewhere\n");
    auto all = run({"printers", "--all", "--json"}, cups.environment(), driver.variable());
    const auto result = all.result();
    EXPECT_EQ(all.exitCode(), 0) << all.process().out();
    const std::map<std::string, std::string> wanted = {
        {"again", "candidate"},      {"b-office", "candidate"}, {"cable", "no-answer"},
        {"cable2", "no-answer"},     {"driver", "candidate"},   {"driver2", "other-connection"},
        {"foreign", "other-driver"}, {"noserial", "no-serial"}, {"socket", "other-connection"}};
    EXPECT_EQ(reasonsOf(result), wanted);
    EXPECT_EQ(result["printers"][1]["name"], "The office");
    EXPECT_EQ(result["printers"][4]["address"], "net:10.0.0.6");
}

TEST_F(SystemPrinters, AreListedOverAnEncryptedConnection)
{
    const PrivateCups cups({{"office", "lpd://10.0.0.5/q", "A printer"}}, ownAddress() + ":6310");
    auto all = run({"printers", "--all", "--json"}, cups.environment());
    EXPECT_EQ(all.exitCode(), 0) << all.process().out();
    EXPECT_EQ(reasonsOf(all.result()),
              (std::map<std::string, std::string>{{"office", "candidate"}}));
    EXPECT_TRUE(cups.hasEncrypted());
}

TEST_F(SystemPrinters, AreTheSameDeviceWhereOneAddressIsContainedInAnEarlierOne)
{
    const PrivateCups cups({{"a-long", "lpd://10.0.0.51/q", "A printer", "Long"},
                            {"b-short", "lpd://10.0.0.5", "A printer", "Short"},
                            {"c-other", "lpd://10.0.0.6/", "A printer"},
                            {"d-longer", "lpd://10.0.0.6/q", "A printer"}});
    auto all = run({"printers", "--all", "--json"}, cups.environment());
    const auto printers = all.result()["printers"];
    ASSERT_EQ(printers.size(), 4U);
    EXPECT_EQ(printers[1]["reason"], "duplicate");
    EXPECT_EQ(printers[1]["same_as"], "Long");
    EXPECT_EQ(printers[3]["reason"], "candidate");
    auto refused = run({"check", "--printer", "b-short", "--json"}, cups.environment());
    EXPECT_EQ(refused.exitCode(), 68);
    EXPECT_THAT(refused.process().out(), HasSubstr("it is the same device as Long"));
}

TEST_F(SystemPrinters, AreATableForPeople)
{
    const PrivateCups cups({{"office", "lpd://10.0.0.5/q", "A printer", "The office"},
                            {"foreign", "lpd://10.0.0.9/q", "Other printer"}});
    auto listed = run({"printers"}, cups.environment());
    EXPECT_EQ(listed.exitCode(), 0);
    EXPECT_EQ(listed.process().out(),
              "Printers: 1 can be updated from this package. 1 more cannot: add --all to see them, "
              "and why.\n\n"
              "  Name        Address           Connection  Model      Found as\n"
              "  The office  lpd://10.0.0.5/q  network     A printer  print queue\n");
}

TEST_F(SystemPrinters, AreUpdatedByTheirQueuesNames)
{
    const VirtualPrinter office({"--firmware", "MAIN=AB010100"});
    const PrivateCups cups({{"office", "lpd://" + office.address() + "/q", "A printer", "The one"},
                            {"driver", "tzrq:driver", "A printer"}});
    for (const char* name : {"office", "The one"}) {
        auto update = run({"update", "--printer", name, "--yes", "--json"}, cups.environment());
        EXPECT_EQ(update.exitCode(), 0) << update.process().out();
        const auto result = update.result();
        EXPECT_EQ(result["name"], "updated");
        EXPECT_EQ(result["address"], "lpd://" + office.address() + "/q/");
        EXPECT_EQ(result["printer_name"], "The one");
    }
    EXPECT_TRUE(office.stored("MAIN.FW") == package.bytesOf(0));
}

TEST_F(SystemPrinters, AreReachedThroughTheDriversConfiguration)
{
    const VirtualPrinter office({"--firmware", "MAIN=AB010100"});
    const PrivateCups cups({{"driver", "tzrq:driver", "A printer"}});
    const DriverFolder driver("<Printer driver>\nDevicePath net:" + office.address() + "\n");
    auto update = run({"update", "--printer", "driver", "--yes", "--json"}, cups.environment(),
                      driver.variable());
    EXPECT_EQ(update.exitCode(), 0) << update.process().out();
    EXPECT_EQ(update.result()["address"], "lpd://" + office.address() + "/");
    EXPECT_TRUE(office.stored("MAIN.FW") == package.bytesOf(0));
}

TEST_F(SystemPrinters, AreReachedByTheirPortStringsWithoutAPrintServer)
{
    const VirtualPrinter office({"--firmware", "MAIN=AB010100"});
    for (const auto& uri : {"net:" + office.address(), "lpd://" + office.address() + "/q"}) {
        auto check = run({"check", "--uri", uri, "--json"}, {"CUPS_SERVER=/nonexistent/s"});
        EXPECT_EQ(check.exitCode(), 0) << check.process().out();
        EXPECT_EQ(check.result()["name"], "update-available");
    }
    auto usb = run({"check", "--uri", "usb://Maker/P?serial=77", "--json"}, {});
    EXPECT_EQ(usb.exitCode(), 16) << usb.process().out();
}

TEST_F(SystemPrinters, AreNotListedByAServerThatIsNotThere)
{
    auto listed = run({"printers", "--json"}, {"CUPS_SERVER=/nonexistent/s"});
    EXPECT_EQ(listed.exitCode(), 69);
    EXPECT_EQ(listed.result()["name"], "print-server-unreachable");
    EXPECT_EQ(listed.lines().size(), 1U);
    auto named = run({"update", "--printer", "office", "--yes"}, {"CUPS_SERVER=/nonexistent/s"});
    EXPECT_EQ(named.exitCode(), 69);
    EXPECT_THAT(named.process().errors(), HasSubstr("No printer is called 'office'"));
}

TEST_F(SystemPrinters, OfAServerThatIsSilentAreGivenUpInTime)
{
    const SilentServer server;
    const auto start = steady_clock::now();
    auto listed = run({"printers", "--json"}, server.environment());
    EXPECT_EQ(listed.exitCode(), 69);
    EXPECT_LT(secondsSince(start), kAtOnce);
}

TEST_F(SystemPrinters, CtrlCEndsTheWaitForASilentServerAtOnce)
{
    const SilentServer server;
    auto listed = run({"printers"}, server.environment());
    ASSERT_TRUE(listed.process().waitForErrors("Asking the print server", kSoon));
    const auto start = steady_clock::now();
    listed.process().signal(SIGINT);
    EXPECT_EQ(listed.exitCode(), 130);
    EXPECT_LT(secondsSince(start), kAtOnce);
    EXPECT_THAT(listed.process().errors(), HasSubstr("Stopped: You stopped the run"));
}

TEST_F(SystemPrinters, TheTimeLimitEndsItToo)
{
    const SilentServer server;
    const auto start = steady_clock::now();
    auto named = run({"update", "--printer", "office", "--yes", "--json", "--deadline", "0.2"},
                     server.environment());
    EXPECT_EQ(named.exitCode(), 130);
    EXPECT_LT(secondsSince(start), kAtOnce);
    EXPECT_EQ(named.result()["name"], "stopped");
    EXPECT_EQ(named.lines().size(), 1U);
}
