// The virtual printer's data on the bus; the bus itself is tested in a virtual machine.
#include "Tools/vymprinter/KernelQueue.h"
#include "Tools/vymprinter/UsbFunction.h"
#include "Tools/vymprinter/UsbGadget.h"

#include <algorithm>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <unistd.h>

using namespace vymprinter;

namespace {

UsbIdentity identity()
{
    UsbIdentity made;
    made.maker = "Acme";
    made.productName = "P1";
    return made;
}

std::string textOf(const Bytes& reply)
{
    return {reply.begin() + 2, reply.end()};
}

TEST(VymprinterUsb, DeviceIdIsMadeOfMakerAndProductWithItsLengthAhead)
{
    const auto reply = deviceIdReply(identity());
    EXPECT_EQ(textOf(reply), "MFG:Acme;CMD:VYM;MDL:P1;CLS:PRINTER;DES:Acme P1;");
    EXPECT_EQ(get16(reply, 0), reply.size());
}

TEST(VymprinterUsb, DeviceIdIsTheGivenOneAndClaimsTheGivenLength)
{
    auto given = identity();
    given.deviceId = "MDL:X;";
    EXPECT_EQ(textOf(deviceIdReply(given)), "MDL:X;");
    given.deviceIdLength = 0xFFFF;
    EXPECT_EQ(get16(deviceIdReply(given), 0), 0xFFFF);
    EXPECT_EQ(deviceIdReply(given).size(), 8U);
    given.deviceId = "";
    EXPECT_EQ(deviceIdReply(given).size(), 2U);
}

TEST(VymprinterUsb, DeviceIdIsNoLongerThanItsLengthCanSay)
{
    auto given = identity();
    given.deviceId = std::string(70000, 'x');
    EXPECT_EQ(deviceIdReply(given).size(), 65535U);
}

TEST(VymprinterUsb, DescriptorsAreAnInterfaceAndThreePipesAtEachSpeed)
{
    const auto bytes = functionDescriptors();
    const std::size_t head = 20;
    const std::size_t speed = 9 + 3 * 7;
    ASSERT_EQ(bytes.size(), head + 2 * speed);
    EXPECT_EQ(bytes[4], bytes.size()); // little-endian
    EXPECT_EQ(bytes[12], 4);
    EXPECT_EQ(bytes[16], 4);
    for (const std::size_t at : {head, head + speed}) {
        const Bytes interface(bytes.begin() + static_cast<std::ptrdiff_t>(at),
                              bytes.begin() + static_cast<std::ptrdiff_t>(at + 9));
        EXPECT_EQ(interface, (Bytes{9, 4, 0, 0, 3, 7, 1, 2, 0}));
        const Bytes out(bytes.begin() + static_cast<std::ptrdiff_t>(at + 9),
                        bytes.begin() + static_cast<std::ptrdiff_t>(at + 16));
        const bool full = at == head;
        EXPECT_EQ(out,
                  (Bytes{7, 5, 1, 2, full ? std::uint8_t{64} : std::uint8_t{0},
                         full ? std::uint8_t{0} : std::uint8_t{2}, 0}));
    }
}

TEST(VymprinterUsb, GadgetThatCannotBeMadeSaysWhyAndLeavesNothing)
{
    const UsbGadget gadget("no-such-controller", 7, identity());
    if (gadget.error().empty())
        GTEST_SKIP() << "this machine makes USB devices for us";
    EXPECT_NE(gadget.error().find("cannot make /sys/kernel/config/usb_gadget/"), std::string::npos)
        << gadget.error();
}

TEST(VymprinterUsb, FunctionWithoutItsFilesSaysWhichIsMissing)
{
    const UsbFunction function("/no/such/folder", identity());
    EXPECT_NE(function.error().find("/no/such/folder/ep0"), std::string::npos) << function.error();
}

TEST(VymprinterKernelQueue, ReportsEachEndWithItsTagAndResult)
{
    KernelQueue queue(2);
    ASSERT_TRUE(queue.valid());
    const FileHandle file(::open("/tmp", O_TMPFILE | O_RDWR | O_CLOEXEC, 0600));
    ASSERT_TRUE(file.valid());
    const Bytes written{1, 2, 3};
    ASSERT_TRUE(queue.write(file.get(), written, 1));
    pollfd event{queue.event(), POLLIN, 0};
    ASSERT_EQ(::poll(&event, 1, 10000), 1);
    auto ended = queue.ended();
    ASSERT_EQ(ended.size(), 1U);
    EXPECT_EQ(ended[0].tag, 1U);
    EXPECT_EQ(ended[0].result, 3);
    EXPECT_EQ(::poll(&event, 1, 0), 0);

    Bytes read(8);
    ASSERT_TRUE(queue.read(file.get(), read, 0));
    ASSERT_EQ(::poll(&event, 1, 10000), 1);
    ended = queue.ended();
    ASSERT_EQ(ended.size(), 1U);
    EXPECT_EQ(ended[0].tag, 0U);
    EXPECT_EQ(ended[0].result, 3);
    EXPECT_TRUE(std::equal(written.begin(), written.end(), read.begin()));
}

TEST(VymprinterKernelQueue, RefusesAnInvalidFile)
{
    KernelQueue queue(1);
    Bytes buffer(8);
    EXPECT_FALSE(queue.read(-1, buffer, 0));
    queue.cancel(0);
    EXPECT_TRUE(queue.ended().empty());
}

} // namespace
