// SPDX-License-Identifier: MIT
#include "tests/Platform/LibusbFixture.h"

#include <climits>
#include <cstring>
#include <thread>

namespace {

constexpr std::uint8_t kOut = 1;
constexpr std::uint8_t kIn = 2;
constexpr std::uint8_t kInterrupt = 3;

class LibusbConnectionTest : public OnLibusb {
protected:
    LibusbConnectionTest() { EXPECT_EQ(open(), UsbStatus::ok); }

    static void wrote(void* reference, UsbStatus result)
    {
        static_cast<LibusbConnectionTest*>(reference)->writeEnd = result;
    }
    static void read(void* reference, UsbStatus result, std::uint32_t bytes)
    {
        auto& self = *static_cast<LibusbConnectionTest*>(reference);
        self.readEnd = result;
        self.got.assign(self.buffer, std::min<std::size_t>(bytes, sizeof self.buffer));
    }
    bool startWrite(const std::string& text, std::uint8_t pipe = kOut)
    {
        writeEnd.reset();
        const std::string copy = text; // freed as soon as the call has returned
        return connection->startWrite(pipe, reinterpret_cast<const unsigned char*>(copy.data()),
                                      copy.size(), &wrote, this);
    }
    bool startRead(std::uint8_t pipe = kIn)
    {
        readEnd.reset();
        std::memset(buffer, '?', sizeof buffer);
        return connection->startRead(pipe, reinterpret_cast<unsigned char*>(buffer), sizeof buffer,
                                     &read, this);
    }
    // Sets the end of the next transfer.
    void ends(libusb_transfer_status status, std::optional<int> moved = {})
    {
        FakeEnd end;
        end.status = status;
        end.moved = moved;
        library.ends.push_back(end);
    }
    void sends(const std::string& bytes)
    {
        FakeEnd end;
        end.bytes = bytes;
        library.ends.push_back(end);
    }

    char buffer[512] = {};
    std::string got;
    std::optional<UsbStatus> writeEnd;
    std::optional<UsbStatus> readEnd;
};

} // namespace

TEST_F(LibusbConnectionTest, KnowsItsNumbersAndPipes)
{
    std::uint8_t value = 0;
    EXPECT_TRUE(connection->configurationValue(value));
    EXPECT_EQ(value, 1);
    EXPECT_TRUE(connection->interfaceNumber(value));
    EXPECT_EQ(value, 4);
    EXPECT_TRUE(connection->pipeCount(value));
    EXPECT_EQ(value, 3);
    const UsbPipe expected[] = {{false, UsbPipe::Type::bulk},
                                {true, UsbPipe::Type::bulk},
                                {true, UsbPipe::Type::interrupt}};
    for (std::uint8_t number = 1; number <= value; ++number) {
        UsbPipe pipe{};
        EXPECT_TRUE(connection->pipe(number, pipe));
        EXPECT_EQ(pipe.in, expected[number - 1].in);
        EXPECT_EQ(pipe.type, expected[number - 1].type);
    }
    UsbPipe pipe{};
    EXPECT_FALSE(connection->pipe(0, pipe));
    EXPECT_FALSE(connection->pipe(4, pipe));
}

TEST_F(LibusbConnectionTest, BeginsWithoutTheAnswersAndTheHaltThatAnEarlierRunLeft)
{
    connection.reset();
    library.oldAnswers = {"one", "two"};
    EXPECT_EQ(open(), UsbStatus::ok);
    EXPECT_EQ(library.oldAnswers.size(), 2U) << "it may only be identified";
    ends(LIBUSB_TRANSFER_COMPLETED);
    EXPECT_TRUE(startWrite("enter"));
    EXPECT_TRUE(library.oldAnswers.empty());
    EXPECT_TRUE(library.haltsCleared.empty());
    for (const auto& endpoint : {library.endpoints.at(0), library.endpoints.at(1)}) {
        connection.reset();
        library.haltedPipe = endpoint.bEndpointAddress;
        EXPECT_EQ(open(), UsbStatus::ok);
        EXPECT_TRUE(startRead());
        EXPECT_EQ(library.haltedPipe, 0U);
    }
}

TEST_F(LibusbConnectionTest, BeginsAlsoOnAPrinterThatNeverStopsSending)
{
    library.oldAnswers = {"again"};
    library.repeatsOldAnswer = true;
    EXPECT_TRUE(startRead());
}

TEST_F(LibusbConnectionTest, LeavesTheInterfaceToItsDriverUntilTheFirstTransfer)
{
    connection.reset();
    library.driverActive = true;
    library.attachedAgain = 0;
    library.reply = "\0\x05MDL";
    EXPECT_EQ(only().openToIdentify(connection), UsbStatus::ok);
    unsigned char bytes[8] = {};
    std::uint32_t moved = 0;
    const UsbControlRequest request{0xA1, 0, 0, 0, sizeof bytes, 100, 100};
    EXPECT_EQ(connection->controlRequest(request, bytes, moved), UsbStatus::ok);
    EXPECT_EQ(library.claims, 0);
    EXPECT_TRUE(startRead());
    EXPECT_EQ(library.claims, 1);
    connection.reset();
    EXPECT_EQ(library.claims, 0);
}

TEST_F(LibusbConnectionTest, StartsNothingWhereTheClaimFails)
{
    connection.reset();
    library.driverActive = true;
    EXPECT_EQ(only().openToIdentify(connection), UsbStatus::ok);
    library.claimResult = LIBUSB_ERROR_BUSY;
    EXPECT_FALSE(startRead());
    EXPECT_FALSE(startWrite("enter"));
}

class SuperSpeed : public LibusbConnectionTest {
protected:
    SuperSpeed()
    {
        connection.reset();
        for (auto& endpoint : library.endpoints)
            endpoint.wMaxPacketSize = 1024;
        EXPECT_EQ(open(), UsbStatus::ok);
    }
};

TEST_F(SuperSpeed, AsksTheBusForWholePacketsAndKeepsTheSurplus)
{
    std::string answer;
    for (int i = 0; i < 1000; ++i)
        answer += static_cast<char>('a' + i % 26);
    sends(answer);
    EXPECT_TRUE(startRead());
    EXPECT_EQ(library.readSizes, std::vector<int>{1024});
    EXPECT_TRUE(connection->wait(1));
    EXPECT_EQ(readEnd, UsbStatus::ok);
    EXPECT_EQ(got, answer.substr(0, 512));
    EXPECT_TRUE(startRead());
    EXPECT_FALSE(startRead()) << "one at a time";
    EXPECT_TRUE(connection->wait(0));
    EXPECT_EQ(got, answer.substr(512));
    EXPECT_EQ(library.readSizes.size(), 1U);
    EXPECT_FALSE(connection->wait(0));
    sends("next");
    EXPECT_TRUE(startRead());
    EXPECT_TRUE(connection->wait(1));
    EXPECT_EQ(got, "next");
}

TEST_F(SuperSpeed, EndsAReadOfTheSurplusThatIsAborted)
{
    sends(std::string(600, 'x'));
    EXPECT_TRUE(startRead());
    EXPECT_TRUE(connection->wait(1));
    EXPECT_TRUE(startRead());
    connection->abort(kIn);
    EXPECT_TRUE(connection->wait(0));
    EXPECT_EQ(readEnd, UsbStatus::failed);
}

TEST_F(LibusbConnectionTest, CountsOnlyTheEndpointsThatAreThere)
{
    connection.reset();
    library.endpoints.resize(200, library.endpoints.back());
    library.endpoints[1] = {}; // descriptors cut off in the middle
    ASSERT_EQ(open(), UsbStatus::ok);
    std::uint8_t count = 0;
    EXPECT_TRUE(connection->pipeCount(count));
    EXPECT_EQ(count, 30) << "there are no more addresses";
    connection.reset();
    found.clear();
    library.describe();
    library.settings.front().endpoint = nullptr;
    ASSERT_TRUE(host.interfaces(found));
    ASSERT_EQ(found.at(0)->open(connection), UsbStatus::ok);
    EXPECT_TRUE(connection->pipeCount(count));
    EXPECT_EQ(count, 0);
}

TEST_F(LibusbConnectionTest, WritesAndReads)
{
    ends(LIBUSB_TRANSFER_COMPLETED);
    ASSERT_TRUE(startWrite("question"));
    EXPECT_FALSE(writeEnd) << "told inside wait only";
    EXPECT_TRUE(connection->wait(0));
    EXPECT_EQ(writeEnd, UsbStatus::ok);
    EXPECT_EQ(library.written, std::vector<std::string>{"question"});
    sends("answer");
    ASSERT_TRUE(startRead());
    EXPECT_TRUE(connection->wait(0));
    EXPECT_EQ(readEnd, UsbStatus::ok);
    EXPECT_EQ(got, "answer");
    EXPECT_EQ(buffer[6], '?') << "no more than came";
}

TEST_F(LibusbConnectionTest, ReportsOneEndPerWait)
{
    ends(LIBUSB_TRANSFER_COMPLETED);
    sends("answer");
    ASSERT_TRUE(startWrite("question") && startRead());
    EXPECT_TRUE(connection->wait(0));
    EXPECT_NE(writeEnd.has_value(), readEnd.has_value());
    EXPECT_TRUE(connection->wait(0));
    EXPECT_TRUE(writeEnd && readEnd);
    EXPECT_FALSE(connection->wait(0));
}

TEST_F(LibusbConnectionTest, ReportsATransferThatFailed)
{
    const struct {
        const char* why;
        libusb_transfer_status status;
        std::optional<int> moved;
    } rows[] = {
        {"an error", LIBUSB_TRANSFER_ERROR, {}},
        {"pulled out", LIBUSB_TRANSFER_NO_DEVICE, {}},
        {"more than asked for", LIBUSB_TRANSFER_OVERFLOW, {}},
        {"refused", LIBUSB_TRANSFER_STALL, {}},
        {"cut short", LIBUSB_TRANSFER_COMPLETED, 3},
        {"a count that cannot be", LIBUSB_TRANSFER_COMPLETED, -1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        ends(row.status, row.moved);
        ASSERT_TRUE(startWrite("text"));
        EXPECT_TRUE(connection->wait(0));
        EXPECT_EQ(writeEnd, UsbStatus::failed);
    }
    EXPECT_EQ(library.haltsCleared, std::vector<unsigned>{0x01}) << "after the refusal alone";
}

TEST_F(LibusbConnectionTest, TakesNoMoreThanTheBufferHolds)
{
    ends(LIBUSB_TRANSFER_COMPLETED, INT_MAX);
    ASSERT_TRUE(startRead());
    EXPECT_TRUE(connection->wait(0));
    EXPECT_EQ(got.size(), sizeof buffer);
}

TEST_F(LibusbConnectionTest, ClearsAnUnreportedHalt)
{
    ends(LIBUSB_TRANSFER_STALL);
    ASSERT_TRUE(startRead());
    ASSERT_TRUE(startWrite("text"));
    connection->abort(kOut); // handles both ends on the bus
    connection.reset();
    EXPECT_FALSE(readEnd.has_value());
    EXPECT_EQ(library.haltsCleared, std::vector<unsigned>{0x82});
}

TEST_F(LibusbConnectionTest, StartsOnlyWhatAPipeCanDo)
{
    EXPECT_FALSE(startWrite("text", kIn));
    EXPECT_FALSE(startWrite("text", kInterrupt));
    EXPECT_FALSE(startWrite("text", 0));
    EXPECT_FALSE(startRead(kOut));
    EXPECT_FALSE(startRead(4));
    unsigned char byte = 0;
    EXPECT_FALSE(connection->startRead(kIn, nullptr, 1, &read, this));
    EXPECT_FALSE(connection->startRead(kIn, &byte, INT_MAX + 1UL, &read, this));
    library.submitResult = LIBUSB_ERROR_NO_DEVICE;
    EXPECT_FALSE(startWrite("text"));
    library.submitResult = 0;
    ASSERT_TRUE(startRead());
    EXPECT_FALSE(startRead()) << "one at a time";
}

TEST_F(LibusbConnectionTest, ReturnsAtOnceWithoutATransfer)
{
    EXPECT_FALSE(connection->wait(1000));
    connection->abort(kOut);
    connection->abort(9);
    EXPECT_FALSE(connection->wait(ULONG_MAX));
}

TEST_F(LibusbConnectionTest, ALookIsShortAndLeavesTheTransferOutstanding)
{
    ASSERT_TRUE(startRead());
    EXPECT_FALSE(connection->wait(0));
    EXPECT_GT(library.waited.count(), 0);
    EXPECT_LT(library.waited, std::chrono::milliseconds(500));
    EXPECT_EQ(library.inFlight(), 1);
    EXPECT_FALSE(readEnd.has_value());
}

TEST_F(LibusbConnectionTest, AnAbortFreesTheBufferAndIsReportedByTheNextWait)
{
    ASSERT_TRUE(startRead());
    connection->abort(kOut); // of another pipe
    EXPECT_EQ(library.inFlight(), 1);
    connection->abort(kIn);
    EXPECT_EQ(library.inFlight(), 0);
    EXPECT_FALSE(readEnd.has_value());
    EXPECT_TRUE(connection->wait(0));
    EXPECT_EQ(readEnd, UsbStatus::failed);
    sends("next");
    EXPECT_TRUE(startRead());
    EXPECT_TRUE(connection->wait(0));
    EXPECT_EQ(got, "next");
}

TEST_F(LibusbConnectionTest, AnAbortThatComesTooLateIsStillOne)
{
    sends("answer");
    ASSERT_TRUE(startRead());
    library.cancels = false;
    connection->abort(kIn);
    EXPECT_TRUE(connection->wait(0));
    EXPECT_EQ(readEnd, UsbStatus::failed);
    EXPECT_EQ(buffer[0], '?');
}

TEST_F(LibusbConnectionTest, ATransferThatTheKernelKeepsIsNeitherUsedAgainNorFreedBeforeTheEnd)
{
    ASSERT_TRUE(startWrite("text"));
    library.cancels = false;
    library.eventsResult = LIBUSB_ERROR_IO;
    connection->abort(kOut);
    EXPECT_TRUE(connection->wait(0));
    EXPECT_EQ(writeEnd, UsbStatus::failed);
    EXPECT_FALSE(startWrite("more"));
    EXPECT_EQ(library.inFlight(), 1);
    EXPECT_EQ(library.transfers, 2);
}

TEST_F(LibusbConnectionTest, EndsQuietlyWithBothOutstanding)
{
    ASSERT_TRUE(startWrite("text") && startRead());
    connection.reset();
    EXPECT_FALSE(writeEnd || readEnd);
    EXPECT_EQ(library.attachedAgain, 1);
}

TEST_F(LibusbConnectionTest, GoesOnAfterASignalAndStopsWhereTheBusIsGone)
{
    ASSERT_TRUE(startRead());
    library.eventsResult = LIBUSB_ERROR_INTERRUPTED;
    EXPECT_FALSE(connection->wait(0));
    library.eventsResult = LIBUSB_ERROR_IO;
    EXPECT_FALSE(connection->wait(1000));
    library.eventsResult = 0;
}

TEST_F(LibusbConnectionTest, AnEndHandledByAnotherThreadIsReportedByItsOwnWait)
{
    auto& second = *found.at(0);
    std::unique_ptr<UsbConnection> other;
    ASSERT_EQ(second.open(other), UsbStatus::ok);
    const std::string text = "text";
    for (int i = 0; i < 200; ++i) {
        ends(LIBUSB_TRANSFER_COMPLETED);
        ends(LIBUSB_TRANSFER_COMPLETED);
        ASSERT_TRUE(startWrite(text));
        std::optional<UsbStatus> end;
        std::thread thread([&] {
            other->startWrite(
                kOut, reinterpret_cast<const unsigned char*>(text.data()), text.size(),
                [](void* reference, UsbStatus status) {
                    *static_cast<std::optional<UsbStatus>*>(reference) = status;
                },
                &end);
            other->wait(5);
        });
        EXPECT_TRUE(connection->wait(5));
        thread.join();
        EXPECT_EQ(writeEnd, UsbStatus::ok);
        EXPECT_EQ(end, UsbStatus::ok);
    }
}

TEST_F(LibusbConnectionTest, RequestsWithTheShorterTimeOutAndNeverWithoutOne)
{
    const struct {
        const char* why;
        unsigned long noData, completion;
        unsigned used;
    } rows[] = {
        {"as it is used", 500, 500, 500},
        {"the first byte is late", 100, 2000, 100},
        {"the whole is late", 2000, 100, 100},
        {"only the whole", 0, 7000, 7000},
        {"only the first byte", 300, 0, 300},
        {"none: libusb would wait for ever", 0, 0, 5000},
        {"more than it can count", 0, ULONG_MAX, INT_MAX},
    };
    library.reply = "id";
    for (const auto& row : rows) {
        unsigned char reply[8] = {};
        std::uint32_t transferred = 0;
        EXPECT_EQ(connection->controlRequest({0xA1, 0, 0, 0, 8, row.noData, row.completion}, reply,
                                             transferred),
                  UsbStatus::ok);
        EXPECT_EQ(transferred, 2U);
        EXPECT_EQ(library.timeouts.back(), row.used) << row.why;
    }
    library.reply.reset();
    std::uint32_t transferred = 77;
    EXPECT_EQ(connection->controlRequest({0xA1, 0, 0, 0, 8, 1, 1}, nullptr, transferred),
              UsbStatus::failed);
}
