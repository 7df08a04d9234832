#include "Tools/vymprinter/Store.h"
#include "Tools/vymprinter/TcpServer.h"
#include "tests/Tools/vymprinter_updater.h"

#include <chrono>
#include <gmock/gmock.h>
#include <sys/eventfd.h>
#include <thread>
#include <unistd.h>

using namespace vymprinter;
using ::testing::HasSubstr;

namespace {

constexpr std::uint32_t kLoopback = 0x7F000001;

std::string contents(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// Printers that listen on real sockets, served on a thread of their own until the test ends.
class Desk {
public:
    explicit Desk(const PrinterModel& model = {}, const std::vector<std::string>& faults = {},
                  std::uint32_t printers = 1)
        : m_stop(::eventfd(0, EFD_CLOEXEC))
    {
        std::string pattern = std::filesystem::temp_directory_path() / "vymprinter-XXXXXX";
        m_folder = ::mkdtemp(pattern.data());
        for (const auto& endpoint : consecutive({kLoopback, 0}, printers))
            add(endpoint, model, faults);
        m_thread = std::thread([this] { m_server.run(m_stop.get()); });
    }
    explicit Desk(const char* fault) : Desk(PrinterModel(), {fault}) { }
    ~Desk()
    {
        const std::uint64_t one = 1;
        EXPECT_EQ(::write(m_stop.get(), &one, sizeof one), 8);
        m_thread.join();
        std::filesystem::remove_all(m_folder);
    }
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;

    const Endpoint& printer(std::size_t index = 0) const { return m_endpoints.at(index); }
    std::string stored(std::size_t index, const std::string& name) const
    {
        return contents(m_folder / std::to_string(index) / name);
    }
    bool hasFile(const std::string& name) const
    {
        return std::filesystem::exists(m_folder / "0" / name);
    }

private:
    void add(const Endpoint& endpoint, const PrinterModel& model,
             const std::vector<std::string>& faults)
    {
        auto listening = listenOn(endpoint);
        ASSERT_EQ(listening.error, "");
        const auto folder = m_folder / std::to_string(m_endpoints.size());
        m_stores.push_back(std::make_unique<Store>("printer", folder, true));
        ASSERT_EQ(m_stores.back()->error(), "");
        m_endpoints.push_back(listening.endpoint);
        Printer printer{model, {}, *m_stores.back()};
        for (const auto& spec : faults)
            printer.faults.push_back(parseFault(spec).fault.value());
        m_server.add(std::move(listening), std::move(printer));
    }

    FileHandle m_stop;
    std::filesystem::path m_folder;
    std::vector<std::unique_ptr<Store>> m_stores;
    std::vector<Endpoint> m_endpoints;
    TcpServer m_server;
    std::thread m_thread;
};

std::string text(const requests::Packet& bytes)
{
    return {bytes.begin(), bytes.end()};
}

// Fetches TargetInfo.txt block by block.
std::string targetInfo(Updater& updater)
{
    std::string all;
    auto block = updater.ask(requests::getFile());
    while (block.size() >= 28) {
        all.append(block.begin() + 28, block.end());
        if (block[11] != 0)
            break;
        block = updater.reply();
    }
    return all;
}

TEST(VymprinterTcp, WholeUpdateWorksWithEveryWayOfReplying)
{
    const auto file = requests::firmware(300'001);
    for (const auto replies : {Replies::every, Replies::last, Replies::none}) {
        PrinterModel model;
        model.replies = replies;
        model.maxPacket = 10'000;
        Desk desk(model);
        Updater updater(desk.printer());
        EXPECT_EQ(updater.status(requests::enter()), 128);
        EXPECT_EQ(targetInfo(updater), targetInfoText(model));
        const auto pieces = requests::pieces(file, 9'940);
        for (const auto& piece : pieces) {
            updater.send(piece);
            const bool last = &piece == &pieces.back();
            if (replies == Replies::every || (replies == Replies::last && last)) {
                ASSERT_EQ(updater.reply().at(11), last ? 129 : 128);
            }
        }
        EXPECT_EQ(updater.status(requests::query("MAIN.BIN")), 128);
        EXPECT_EQ(updater.status(requests::exit()), 128);
        EXPECT_EQ(desk.stored(0, "MAIN.BIN"), text(file));
    }
}

TEST(VymprinterTcp, TranscriptHasALineForEveryPacket)
{
    Desk desk;
    Updater updater(desk.printer());
    updater.ask(requests::enter());
    updater.ask(requests::piece(0, 3, {1, 2}));
    updater.ask(requests::piece(1, 3, {3}));
    const auto transcript = desk.stored(0, "transcript.txt");
    EXPECT_EQ(std::count(transcript.begin(), transcript.end(), '\n'), 1 + 6);
    EXPECT_THAT(transcript, HasSubstr("\tin\t0x5101\t-\t0x0000\t0\t0\t0\tok\t1\n"));
    EXPECT_THAT(transcript, HasSubstr("\tin\t0x5002\tMAIN.BIN\t0x0000\t0\t3\t2\tok\t1\n"));
    EXPECT_THAT(transcript, HasSubstr("\t1\t3\t1\tdoes not begin where the last piece ended\t1\n"));
    EXPECT_THAT(transcript, HasSubstr("\tout\t0x5002\t-\t0x0803\t0\t0\t0\tsent\t1\n"));
}

TEST(VymprinterTcp, UnfinishedFirmwareLeavesNoFileBehind)
{
    Desk desk;
    {
        Updater updater(desk.printer());
        updater.ask(requests::enter());
        updater.ask(requests::piece(0, 3, {1, 2}));
        EXPECT_TRUE(desk.hasFile(".MAIN.BIN.part"));
        updater.sendNoMore();
        EXPECT_EQ(updater.endedWith(), 0);
    }
    EXPECT_FALSE(desk.hasFile(".MAIN.BIN.part"));
    EXPECT_FALSE(desk.hasFile("MAIN.BIN"));
}

TEST(VymprinterTcp, ManyPrintersAreUpdatedAtOnceAndKeptApart)
{
    constexpr std::uint32_t kPrinters = 12;
    Desk desk(PrinterModel(), {}, kPrinters);
    std::vector<std::unique_ptr<Updater>> updaters;
    std::vector<std::vector<requests::Packet>> pieces;
    for (std::uint32_t i = 0; i < kPrinters; ++i) {
        updaters.push_back(std::make_unique<Updater>(desk.printer(i)));
        pieces.push_back(requests::pieces(requests::firmware(1000 + i), 100));
        EXPECT_EQ(updaters.back()->status(requests::enter()), 128);
    }
    for (std::size_t at = 0; at < pieces.back().size(); ++at)
        for (std::size_t i = 0; i < kPrinters; ++i)
            if (at < pieces[i].size())
                updaters[i]->send(pieces[i][at]);
    for (std::uint32_t i = 0; i < kPrinters; ++i) {
        while (updaters[i]->reply().at(11) != 129) { }
        EXPECT_EQ(desk.stored(i, "MAIN.BIN"), text(requests::firmware(1000 + i)));
    }
}

TEST(VymprinterTcp, SecondUpdaterGetsBusyUntilTheFirstHangsUp)
{
    Desk desk;
    auto first = std::make_unique<Updater>(desk.printer());
    Updater second(desk.printer());
    EXPECT_EQ(first->status(requests::enter()), 128);
    EXPECT_EQ(second.status(requests::enter()), 0x1001);
    first->sendNoMore();
    EXPECT_EQ(first->endedWith(), 0);
    EXPECT_EQ(second.status(requests::enter()), 128);
}

TEST(VymprinterTcp, RestartingPrinterRefusesConnectionsAndIsBackAtItsAddress)
{
    PrinterModel model;
    model.restart = Millis(200);
    model.updated = {{"MAIN", "01.01"}};
    const Desk desk(model);
    {
        Updater updater(desk.printer());
        updater.ask(requests::enter());
        updater.ask(requests::last(128, {}));
        EXPECT_EQ(updater.ask(requests::exit()).size(), 12U);
        EXPECT_EQ(updater.endedWith(), 0);
    }
    std::string installed;
    int refused = -1;
    for (const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
         installed.empty() && std::chrono::steady_clock::now() < end; ++refused) {
        Updater updater(desk.printer());
        if (updater.connected())
            installed = targetInfo(updater);
    }
    EXPECT_THAT(installed, HasSubstr("VERSION MAIN=01.01"));
    EXPECT_GT(refused, 0);
}

TEST(VymprinterTcp, RequestsRunTogetherAreAnsweredInOrder)
{
    Desk desk;
    Updater updater(desk.printer());
    requests::Packet all = requests::enter();
    for (const auto& packet : {requests::last(129, {}), requests::shortQuery(), requests::exit()})
        all.insert(all.end(), packet.begin(), packet.end());
    updater.send(all);
    updater.sendNoMore();
    for (const int code : {0x01, 0x02, 0x03, 0x02})
        EXPECT_EQ(updater.reply().at(3), code);
    EXPECT_EQ(updater.endedWith(), 0);
}

TEST(VymprinterTcp, UpdaterThatNeverReadsIsMadeToWaitAndDoesNotBlockOthers)
{
    Desk desk("endless");
    Updater greedy(desk.printer());
    greedy.send(requests::getFile());
    Updater other(desk.printer());
    EXPECT_EQ(other.status(requests::enter()), 128);
    EXPECT_EQ(greedy.receive(1'000'000).size(), 1'000'000U);
}

TEST(VymprinterTcp, AbsurdLengthEndsTheConnection)
{
    Desk desk;
    Updater updater(desk.printer());
    updater.send({0, 0, 0x50, 2, 0x7F, 0xFF, 0xFF, 0xFF});
    EXPECT_EQ(updater.endedWith(), 0);
    EXPECT_THAT(desk.stored(0, "transcript.txt"), HasSubstr("absurd length"));
}

// Each row sends only the bytes that trigger the fault: further bytes that arrive after the close
// would turn every close into a reset.
TEST(VymprinterTcpFaults, ConnectionEndsInTheRequestedWay)
{
    const auto piece = requests::piece(0, 900, requests::firmware(120));
    const struct {
        const char* fault;
        std::vector<requests::Packet> answered;
        requests::Packet fatal;
        int error;
    } rows[] = {
        {"close@connect", {}, {}, 0},
        {"reset@connect", {}, {}, ECONNRESET},
        {"close@enter", {}, requests::enter(), 0},
        {"reset@enter", {}, requests::enter(), ECONNRESET},
        {"close@piece:100", {requests::enter()}, piece, 0},
        {"reset@piece", {requests::enter()}, piece, ECONNRESET},
        {"close@exit", {requests::enter(), piece}, requests::exit(), 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.fault);
        Desk desk(row.fault);
        Updater updater(desk.printer());
        for (const auto& packet : row.answered)
            EXPECT_EQ(updater.status(packet), 128);
        updater.send(row.fatal);
        EXPECT_EQ(updater.endedWith(), row.error);
    }
}

TEST(VymprinterTcpFaults, StalledPrinterKeepsTheConnectionAndNoticesTheHangUp)
{
    Desk desk("stall@enter");
    auto updater = std::make_unique<Updater>(desk.printer());
    updater->send(requests::enter());
    EXPECT_FALSE(updater->readable(30));
    updater.reset();
    Updater next(desk.printer());
    EXPECT_TRUE(next.connected());
}

TEST(VymprinterTcpFaults, SilentPrinterReadsOnAndStoresWithoutAWord)
{
    Desk desk("silent@piece");
    Updater updater(desk.printer());
    updater.ask(requests::enter());
    for (const auto& piece : requests::pieces({1, 2, 3}, 2))
        updater.send(piece);
    updater.sendNoMore();
    EXPECT_EQ(updater.endedWith(), 0);
    EXPECT_EQ(desk.stored(0, "MAIN.BIN").size(), 3U);
}

TEST(VymprinterTcpFaults, HeaderInTwoPartsIsThirtyMillisecondsApart)
{
    Desk desk("split-reply");
    Updater updater(desk.printer());
    updater.send(requests::enter());
    EXPECT_EQ(updater.receive(4).size(), 4U);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(updater.receive(8).size(), 8U);
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(15));
}

TEST(VymprinterTcpFaults, FragmentedBodyArrivesWhole)
{
    Desk desk("split-body@get-file");
    Updater updater(desk.printer());
    EXPECT_EQ(targetInfo(updater), targetInfoText(PrinterModel()));
}

TEST(VymprinterTcpFaults, DelayedRepliesKeepTheirOrder)
{
    PrinterModel model;
    model.replyDelay = Millis(40);
    Desk desk(model);
    Updater updater(desk.printer());
    const auto start = std::chrono::steady_clock::now();
    updater.send(requests::enter());
    updater.send(requests::last(129, {}));
    EXPECT_EQ(updater.reply().at(2), 0x51);
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(39));
    EXPECT_EQ(updater.reply().at(2), 0x50);
}

TEST(VymprinterListen, AddressesAreReadStrictly)
{
    EXPECT_EQ(parseEndpoint("127.0.0.1")->text(), "127.0.0.1:48350");
    EXPECT_EQ(parseEndpoint("127.0.0.9:0")->text(), "127.0.0.9:0");
    for (const auto* wrong : {"", "localhost", "127.0.0", "127.0.0.1:", "127.0.0.1:65536",
                              "127.0.0.1:-1", "127.0.0.1:80x", ":80", "127.0.0.256", "::1"})
        EXPECT_FALSE(parseEndpoint(wrong)) << wrong;
}

TEST(VymprinterListen, ConsecutiveAddressesCarryOver)
{
    const auto all = consecutive(*parseEndpoint("127.0.0.254:7"), 4);
    ASSERT_EQ(all.size(), 4U);
    EXPECT_EQ(all[1].text(), "127.0.0.255:7");
    EXPECT_EQ(all[2].text(), "127.0.1.0:7");
    EXPECT_TRUE(consecutive(*parseEndpoint("255.255.255.254"), 3).empty());
}

TEST(VymprinterListen, TakenPortSaysWhatToDo)
{
    const auto first = listenOn({kLoopback, 0});
    const auto second = listenOn(first.endpoint);
    EXPECT_FALSE(second.socket.valid());
    EXPECT_THAT(second.error, HasSubstr("cannot listen on " + first.endpoint.text()));
    EXPECT_THAT(second.error, HasSubstr("--listen 127.0.0.1:PORT"));
}

TEST(VymprinterStore, NamesFromTheWireStayInsideTheFolder)
{
    const struct {
        const char *name, *file;
    } rows[] = {
        {"MAIN.BIN", "MAIN.BIN"},
        {"../../etc", "_._.._etc"},
        {"", "unnamed"},
        {".hidden", "_hidden"},
        {"transcript.txt", "_transcript.txt"},
        {"a b\n\xff", "a_b__"},
        {"..", "_."},
    };
    for (const auto& row : rows)
        EXPECT_EQ(safeFileName(row.name), row.file);
}

TEST(VymprinterStore, FolderThatCannotBeMadeIsAnError)
{
    EXPECT_THAT(Store("x", "/dev/null/folder", true).error(), HasSubstr("/dev/null/folder"));
}

} // namespace
