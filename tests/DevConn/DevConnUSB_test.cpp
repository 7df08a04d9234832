// SPDX-License-Identifier: MIT
#include "tests/DevConn/UsbFixture.h"

namespace {

using UsbConnect = UsbTransport;
using UsbModelName = UsbTransport;

class ModelBlock {
public:
    explicit ModelBlock(DevConnUSB& usb) : m_usb(usb)
    {
        result = usb.GetModelName(&m_model, &length);
        text = m_model != nullptr ? m_model : "(null)";
    }
    ~ModelBlock()
    {
        if (m_model != nullptr) {
            EXPECT_EQ(m_usb.DisposeData(m_model), 0);
        }
    }
    ModelBlock(const ModelBlock&) = delete;
    ModelBlock& operator=(const ModelBlock&) = delete;
    long result = 99;
    unsigned long length = 99;
    std::string text;

private:
    DevConnUSB& m_usb;
    char* m_model = nullptr;
};

} // namespace

TEST_F(UsbConnect, OpensThePrinterOfItsPortStringOnce)
{
    EXPECT_EQ(usb.Connect("any queue", "usb://Acme/P1?serial=S1", 48350), 0);
    EXPECT_EQ(printer.open, 1);
    EXPECT_EQ(connect(), conn::kAlreadyConnected);
    EXPECT_EQ(usb.Connect(nullptr, nullptr, 0), conn::kInvalidArgument);
    EXPECT_EQ(usb.Disconnect(), 0);
    EXPECT_EQ(printer.open, 0);
    EXPECT_EQ(usb.Disconnect(), conn::kNotConnected);
    EXPECT_EQ(connect(), 0) << "and again";
}

TEST_F(UsbConnect, CannotOpenWhatItDoesNotFind)
{
    EXPECT_EQ(usb.Connect(nullptr, nullptr, 0), conn::kInvalidArgument);
    for (const char* port : {"usb", "usb://Acme?serial=S1", "usb://Acme/P1", "usb://Acme/P1?",
                             "usb://Acme/P1?serial=S2"})
        EXPECT_EQ(connect(port), conn::kCannotOpen) << port;
    describe("DEVICEIDMODELNAME P9\r\n");
    EXPECT_EQ(connect(), conn::kCannotOpen);
    EXPECT_EQ(printer.open, 0);
}

TEST_F(UsbConnect, TakesAPrinterWithoutADeviceByItsModel)
{
    printer.parent = false;
    EXPECT_EQ(connect("usb://Acme/P1?serial=another"), 0);
}

TEST_F(UsbConnect, WaitsForABusyPrinter)
{
    printer.busyFor = 4;
    EXPECT_EQ(connect(), 0);
    EXPECT_EQ(printer.attempts, 6) << "five to read its model, one to open it";
    EXPECT_EQ(host.time.pauses(), std::vector<unsigned long>(4, 1000));
}

TEST_F(UsbConnect, ClosesAPrinterWhosePipesItCannotLearn)
{
    printer.pipes.emplace_back(std::nullopt);
    EXPECT_EQ(connect(), conn::kCannotOpen);
    EXPECT_EQ(printer.open, 0);
    printer.pipes.pop_back();
    printer.countsPipes = false;
    EXPECT_EQ(connect(), conn::kCannotOpen);
    EXPECT_EQ(printer.open, 0);
}

TEST_F(UsbConnect, UsesTheLastPipeOfEachKind)
{
    using Type = UsbPipe::Type;
    const auto bulkIn = UsbPipe{true, Type::bulk};
    const auto bulkOut = UsbPipe{false, Type::bulk};
    printer.pipes = {bulkIn,
                     bulkOut,
                     UsbPipe{true, Type::interrupt},
                     bulkOut,
                     bulkIn,
                     UsbPipe{true, Type::isochronous},
                     UsbPipe{false, Type::interrupt}};
    const auto record = usb.StdUsbOpen("usb://Acme/P1?serial=S1");
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(record->m_bulkOut, 4);
    EXPECT_EQ(record->m_bulkIn, 5);
    EXPECT_EQ(record->m_interruptIn, 3);
}

TEST_F(UsbConnect, QueriesOnlyTheModelOfAPrinter)
{
    const auto found = usb.searchDevice("usb://Acme/P1?serial=S1");
    ASSERT_NE(found, nullptr);
    std::string product;
    EXPECT_TRUE(DevConnUSB::getProductName(*found, product));
    EXPECT_EQ(product, "P1");
    EXPECT_EQ(usb.searchDevice(nullptr), nullptr);
    EXPECT_EQ(usb.StdUsbOpen(nullptr), nullptr);
}

TEST_F(UsbConnect, ClosesThePrinterWhenItEnds)
{
    {
        DevConnUSB other(host);
        EXPECT_EQ(other.Connect(nullptr, "usb://Acme/P1?serial=S1", 0), 0);
        unsigned char byte = 0;
        unsigned long received = 0;
        EXPECT_TRUE(other.ReadPort(&byte, 1, &received, 10));
        EXPECT_EQ(printer.open, 1);
    }
    EXPECT_EQ(printer.open, 0);
    EXPECT_EQ(printer.aborted, std::vector<unsigned>{2}) << "the read that was outstanding";
}

TEST_F(UsbConnect, TakesATimeOutOnlyWhileConnected)
{
    EXPECT_EQ(usb.SetTimeout(5), conn::kNotConnected);
    EXPECT_EQ(usb.SetTimeout(0), conn::kInvalidArgument);
    EXPECT_EQ(connect(), 0);
    EXPECT_EQ(usb.SetTimeout(0), conn::kInvalidArgument);
    EXPECT_EQ(usb.SetTimeout(5), 0);
}

TEST_F(UsbConnect, AbortsTheOutstandingReadAndForgetsItsBytesWhenItDisconnects)
{
    ASSERT_EQ(connect(), 0);
    printer.sends("abcd");
    EXPECT_EQ(read(1), "a");
    EXPECT_EQ(usb.GetCacheDataSize(), 3U);
    EXPECT_EQ(read(5), "bcd");
    EXPECT_EQ(usb.Disconnect(), 0);
    EXPECT_EQ(printer.aborted, std::vector<unsigned>{2});
    EXPECT_EQ(usb.GetCacheDataSize(), 0U);
    ASSERT_EQ(connect(), 0);
    printer.sends("new");
    EXPECT_EQ(read(3), "new") << "with a read of its own";
    EXPECT_EQ(usb.Disconnect(), 0);
    EXPECT_EQ(printer.aborted.size(), 1U) << "nothing was outstanding";
}

TEST_F(UsbModelName, IsTheDeviceIdsModelWithItsNul)
{
    ASSERT_EQ(connect(), 0);
    printer.deviceId = "MFG:Acme;MDL:P 1 (x);";
    const ModelBlock model(usb);
    EXPECT_EQ(model.result, 0);
    EXPECT_EQ(model.text, "P 1 (x)");
    EXPECT_EQ(model.length, 8U);
    EXPECT_EQ(printer.requests.back().length, 1024);
    EXPECT_EQ(printer.requests.back().noDataTimeoutMs, 2000U) << "where no time-out was set";
    EXPECT_EQ(printer.requests.back().completionTimeoutMs, 2000U);
}

TEST_F(UsbModelName, IsQueriedWithTheConnectionsTimeOut)
{
    ASSERT_EQ(connect(), 0);
    EXPECT_EQ(usb.SetTimeout(700), 0);
    EXPECT_EQ(ModelBlock(usb).text, "P1");
    EXPECT_EQ(printer.requests.back().completionTimeoutMs, 700U);
}

TEST_F(UsbModelName, NeedsAConnectionAndPlacesForItsAnswer)
{
    char* model = nullptr;
    unsigned long length = 0;
    EXPECT_EQ(usb.GetModelName(&model, &length), conn::kNotConnected);
    EXPECT_EQ(usb.GetModelName(nullptr, &length), conn::kInvalidArgument);
    EXPECT_EQ(usb.GetModelName(&model, nullptr), conn::kInvalidArgument);
}

TEST_F(UsbModelName, IsMissingIfTheDeviceIdNamesNoModel)
{
    ASSERT_EQ(connect(), 0);
    for (const char* text : {"MFG:Acme;CMD:X;", "", "mdl:P1;"}) {
        printer.deviceId = text;
        const ModelBlock model(usb);
        EXPECT_EQ(model.result, 0);
        EXPECT_EQ(model.text, "(null)");
        EXPECT_EQ(model.length, 0U);
    }
}

TEST_F(UsbModelName, FailsWhereTheRequestDoes)
{
    ASSERT_EQ(connect(), 0);
    printer.configuration.reset();
    EXPECT_EQ(ModelBlock(usb).result, conn::kDeviceIdFailed);
    printer.configuration = 1;
    printer.deviceId.reset();
    const ModelBlock model(usb);
    EXPECT_EQ(model.result, conn::kDeviceIdFailed);
    EXPECT_EQ(model.text, "(null)");
    EXPECT_EQ(model.length, 0U);
}

TEST_F(UsbModelName, IsBoundedWhateverTheDeviceClaims)
{
    ASSERT_EQ(connect(), 0);
    const struct {
        const char* why;
        std::string reply;
        std::optional<std::uint32_t> claimed;
        std::string model;
    } rows[] = {
        {"fills the buffer to its end",
         "xxMDL:" + std::string(5000, 'p'),
         {},
         std::string(1024 - 6 - 1, 'p')},
        {"one byte less than the buffer",
         "xxMDL:" + std::string(1023 - 6, 'p'),
         {},
         std::string(1023 - 6, 'p')},
        {"claims 4 GiB", "xxMDL:P1;", 0xFFFFFFFF, "P1"},
        {"claims nothing", "xxMDL:P1;", 0, "P1"},
        {"claims less than it sent", "xxMDL:P123", 7, "P"},
        {"sends nothing", "", {}, "(null)"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        printer.wholeReply = row.reply;
        printer.claimedLength = row.claimed;
        const ModelBlock model(usb);
        EXPECT_EQ(model.result, 0);
        EXPECT_EQ(model.text, row.model);
    }
}
