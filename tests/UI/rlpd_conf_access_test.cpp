// SPDX-License-Identifier: MIT
#include "tests/UI/RlpdFixture.h"

using namespace conf;
using namespace std::string_literals;
using namespace std::string_view_literals;

TEST(IOSignature, IsWhatThePathBeginsWith)
{
    EXPECT_STREQ(zGetIOSignatureFromRlpdUri("net:10.0.0.5"), "net:");
    EXPECT_STREQ(zGetIOSignatureFromRlpdUri("net6:fe80::1"), "net6:");
    EXPECT_STREQ(zGetIOSignatureFromRlpdUri("mdns:printer"), "mdns:");
    EXPECT_STREQ(zGetIOSignatureFromRlpdUri("usb://Acme/P1"), "usb://");
    for (const char* path : {"", "net", "usb:/Acme", " net:1", "NET:1", "lpd://10.0.0.5"})
        EXPECT_EQ(zGetIOSignatureFromRlpdUri(path), nullptr) << path;
    EXPECT_EQ(zGetIOSignatureFromRlpdUri(nullptr), nullptr);
}

TEST(AddressOfAQueue, IsReadByTheRulesOfTheFile)
{
    const struct {
        const char* why;
        std::string_view text;
        Answer answer;
    } rows[] = {
        {"up to /PDLType",
         "<Printer A>\nDevicePath net:10.0.0.5/PDLType X\n"sv,
         {true, "10.0.0.5", "net:"}},
        {"up to the line's end",
         "<Printer A>\nDevicePath net:10.0.0.5\n"sv,
         {true, "10.0.0.5", "net:"}},
        {"up to /PDLType without a line end",
         "<Printer A>\nDevicePath net:10.0.0.5/PDLType"sv,
         {true, "10.0.0.5", "net:"}},
        {"nothing ends it", "<Printer A>\nDevicePath net:10.0.0.5"sv, {true, {}, "net:"}},
        {"/PDLType on the line after does not count",
         "<Printer A>\nDevicePath net:10.0.0.5\n/PDLType\n"sv,
         {true, "10.0.0.5", "net:"}},
        {"an empty address", "<Printer A>\nDevicePath net:\n"sv, {true, "", "net:"}},
        {"a USB device",
         "<Printer A>\nDevicePath usb://Acme/P%201?serial=7\n"sv,
         {true, "Acme/P%201?serial=7", "usb://"}},
        {"IPv6", "<Printer A>\nDevicePath net6:fe80::1\n"sv, {true, "fe80::1", "net6:"}},
        {"Bonjour", "<Printer A>\nDevicePath mdns:p1.local\n"sv, {true, "p1.local", "mdns:"}},
        {"marks may stand after other words",
         "  x <Printer A> y\n  DevicePath net:1.2.3.4\n"sv,
         {true, "1.2.3.4", "net:"}},
        {"a comment line between them", "<Printer A>\n# note\nDevicePath net:1.2.3.4\n"sv,
         kWithoutAddress},
        {"a path that is commented out", "<Printer A>\n#DevicePath net:1.2.3.4\n"sv,
         kWithoutAddress},
        {"another line between them", "<Printer A>\n\nDevicePath net:1.2.3.4\n"sv, kWithoutAddress},
        {"the entry is the last line", "<Printer A>\n"sv, kWithoutAddress},
        {"the entry is the last line, without its end", "<Printer A>"sv, kWithoutAddress},
        {"the path on the queue's own line", "<Printer A> DevicePath net:1.2.3.4\n"sv,
         kWithoutAddress},
        {"no blank after the key", "<Printer A>\nDevicePath\tnet:1.2.3.4\n"sv, kWithoutAddress},
        {"an LPD path is no signature", "<Printer A>\nDevicePath lpd://1.2.3.4\n"sv, kUnknown},
        {"no signature at all", "<Printer A>\nDevicePath 1.2.3.4\n"sv, kUnknown},
        {"nothing after the key", "<Printer A>\nDevicePath "sv, kUnknown},
        {"a commented queue", "#<Printer A>\nDevicePath net:1.2.3.4\n"sv, kUnknown},
        {"no '>' on the line", "<Printer A\n>\nDevicePath net:1.2.3.4\n"sv, kUnknown},
        {"'>' before the mark only", ">x<Printer A\nDevicePath net:1.2.3.4\n"sv, kUnknown},
        {"no blank after the mark", "<PrinterA>\nDevicePath net:1.2.3.4\n"sv, kUnknown},
        {"only the first entry of a name counts",
         "<Printer A>\nDevicePath tty:1\n<Printer A>\nDevicePath net:1.2.3.4\n"sv, kUnknown},
        {"a name that goes on", "<Printer AB>\nDevicePath net:1.2.3.4\n"sv, kUnknown},
        {"a name in lower case", "<Printer a>\nDevicePath net:1.2.3.4\n"sv, kUnknown},
        {"a name with a NUL", "<Printer A\0>\nDevicePath net:1.2.3.4\n"sv, kUnknown},
        {"a NUL before the entry",
         "x\0\n<Printer A>\nDevicePath net:1.2.3.4\n"sv,
         {true, "1.2.3.4", "net:"}},
        {"a NUL in the address ends the text",
         "<Printer A>\nDevicePath net:1.2\0.3\n"sv,
         {true, "1.2", "net:"}},
        {"an empty file", ""sv, kUnknown},
        {"empty lines", "\n\n\n"sv, kUnknown},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(Conf(row.text).addressOf("A"), row.answer);
    }
}

TEST(AddressOfAQueue, IsThatOfTheRequestedQueue)
{
    Conf conf("<Printer A>\nDevicePath net:1.1.1.1\n<Printer B>\n<Printer C>\n"
              "DevicePath net:3.3.3.3\n");
    EXPECT_EQ(conf.addressOf("A"), (Answer{true, "1.1.1.1", "net:"}));
    EXPECT_EQ(conf.addressOf("B"), kWithoutAddress);
    EXPECT_EQ(conf.addressOf("C"), (Answer{true, "3.3.3.3", "net:"}));
    EXPECT_EQ(conf.addressOf("D"), kUnknown);
    EXPECT_EQ(conf.addressOf(""), kUnknown);
}

TEST(AddressOfAQueue, LeavesTheBytesAsTheyWere)
{
    const auto text = manyQueues(3);
    Conf conf(text);
    conf.addressOf("queue2");
    EXPECT_EQ(conf.bytes(), text);
}

TEST(AddressOfAQueue, NeedsEveryArgument)
{
    Conf conf("<Printer A>\nDevicePath net:1.2.3.4\n");
    char* out = nullptr;
    EXPECT_FALSE(zGetPrinterAddressAndIOLibType(nullptr, conf.end(), "A", &out, &out));
    EXPECT_FALSE(zGetPrinterAddressAndIOLibType(conf.begin(), nullptr, "A", &out, &out));
    EXPECT_FALSE(zGetPrinterAddressAndIOLibType(conf.begin(), conf.end(), nullptr, &out, &out));
    EXPECT_FALSE(zGetPrinterAddressAndIOLibType(conf.begin(), conf.end(), "A", nullptr, &out));
    EXPECT_FALSE(zGetPrinterAddressAndIOLibType(conf.begin(), conf.end(), "A", &out, nullptr));
    EXPECT_FALSE(zGetPrinterAddressAndIOLibType(conf.end(), conf.begin(), "A", &out, &out));
    EXPECT_EQ(out, nullptr);
}

TEST(QueueCount, CountsTheLinesThatOpenAnEntry)
{
    EXPECT_EQ(
        Conf("<Printer A>\nDevicePath net:1\n#<Printer B>\n<Printer C\n<Printer D> <Printer E>"
             "\n<Printer >")
            .count(),
        3U);
    EXPECT_EQ(Conf("").count(), 0U);
    EXPECT_EQ(zGetQueueCount(nullptr, nullptr), 0U);
}

TEST(FirstQueueName, CalledAgainAndAgainWalksAllQueues)
{
    Conf conf("# printers\n<Printer A>\nDevicePath net:1\n#<Printer B>\n<Printer C>\n<Printer D>");
    EXPECT_EQ(conf.queues(), (std::vector<std::string>{"A", "C", "D"}));
}

TEST(FirstQueueName, IsNullWithoutFailureAfterTheLast)
{
    Conf conf("DevicePath net:1\n");
    char* next = nullptr;
    char* queue = conf.begin();
    EXPECT_TRUE(zGetFirstQueueName(conf.begin(), conf.end(), &next, &queue));
    EXPECT_EQ(queue, nullptr);
    EXPECT_EQ(next, conf.end());
}

TEST(FirstQueueName, OverwritesTheBracketAfterTheNameAndNoOther)
{
    Conf conf("<Printer A> >\n<Printer B>\n");
    char* next = nullptr;
    char* queue = nullptr;
    ASSERT_TRUE(zGetFirstQueueName(conf.begin(), conf.end(), &next, &queue));
    EXPECT_EQ(taken(queue), "A");
    EXPECT_EQ(next, conf.begin() + 14);
    EXPECT_EQ(conf.bytes(), "<Printer A\0 >\n<Printer B>\n"s);
}

TEST(FirstQueueName, NeedsEveryArgument)
{
    Conf conf("<Printer A>\n");
    char* out = nullptr;
    EXPECT_FALSE(zGetFirstQueueName(nullptr, conf.end(), &out, &out));
    EXPECT_FALSE(zGetFirstQueueName(conf.begin(), nullptr, &out, &out));
    EXPECT_FALSE(zGetFirstQueueName(conf.begin(), conf.end(), nullptr, &out));
    EXPECT_FALSE(zGetFirstQueueName(conf.begin(), conf.end(), &out, nullptr));
}

TEST(QueueOfAnAddress, IsTheFirstWhosePathHasIt)
{
    const auto text =
        "<Printer A>\nDevicePath net:10.0.0.1\n<Printer B>\nDevicePath net:10.0.0.2\n";
    EXPECT_EQ(Conf(text).queueOf("10.0.0.2"), "B");
    EXPECT_EQ(Conf(text).queueOf("10.0.0.3"), std::nullopt);
}

TEST(QueueOfAnAddress, TakesALongerAddressForTheOneItBeginsWith)
{
    Conf conf("<Printer A>\nDevicePath net:10.0.0.55\n<Printer B>\nDevicePath net:10.0.0.5\n");
    EXPECT_EQ(conf.queueOf("10.0.0.5"), "A");
}

TEST(QueueOfAnAddress, LooksOnlyAtTheLineAfterTheQueueAndAfterTheKey)
{
    EXPECT_EQ(Conf("<Printer A>\n\nDevicePath net:1.2.3.4\n").queueOf("1.2.3.4"), std::nullopt);
    EXPECT_EQ(Conf("<Printer A>\n1.2.3.4 DevicePath net:5\n").queueOf("1.2.3.4"), std::nullopt);
    EXPECT_EQ(Conf("<Printer A>\n#DevicePath net:1.2.3.4\n").queueOf("1.2.3.4"), std::nullopt);
    EXPECT_EQ(Conf("<Printer A>\nDevicePath net:1.2.3.4").queueOf("1.2.3.4"), "A");
}

TEST(QueueOfAnAddress, OverwritesTheBracketAfterTheNameFound)
{
    Conf conf("<Printer A>\nDevicePath net:1\n<Printer B>\nDevicePath net:2\n");
    EXPECT_EQ(conf.queueOf("2"), "B");
    EXPECT_EQ(conf.bytes(), "<Printer A>\nDevicePath net:1\n<Printer B\0\nDevicePath net:2\n"s);
    EXPECT_EQ(conf.queueOf("2"), std::nullopt);
}

TEST(QueueOfAnAddress, NeedsEveryArgument)
{
    Conf conf("<Printer A>\nDevicePath net:1\n");
    char* out = nullptr;
    EXPECT_FALSE(zGetQueueNameFromPrinterAddress(nullptr, conf.end(), "1", &out));
    EXPECT_FALSE(zGetQueueNameFromPrinterAddress(conf.begin(), nullptr, "1", &out));
    EXPECT_FALSE(zGetQueueNameFromPrinterAddress(conf.begin(), conf.end(), nullptr, &out));
    EXPECT_FALSE(zGetQueueNameFromPrinterAddress(conf.begin(), conf.end(), "1", nullptr));
}

TEST(ConnectionTypeOfAUri, IsTheFirstRowWhoseTextOccursAnywhere)
{
    const struct {
        const char* uri;
        int type;
        Text text;
    } rows[] = {
        {"net:10.0.0.5", 1, "net:"},
        {"net6:fe80::1", 2, "net6:"},
        {"usb://Acme/P1?serial=7", 3, "usb://"},
        {"mdns:p1", 4, "mdns:"},
        {"lpd://10.0.0.5/queue", 1, "lpd://"},
        {"socket://net:x", 1, "net:"},
        {"lpd://host/usb://x", 3, "usb://"},
        {"lpd://host/net:x", 1, "net:"},
        {"ipp://host", 0, {}},
        {"NET:10.0.0.5", 0, {}},
        {"lpd:/host", 0, {}},
        {"", 0, {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.uri);
        int type = -1;
        char* text = nullptr;
        getConnectionTypeFromURI(row.uri, &type, &text);
        EXPECT_EQ(type, row.type);
        EXPECT_EQ(taken(text), row.text);
    }
}

TEST(ConnectionTypeOfAUri, LeavesTheTextUntouchedWhereThereIsNone)
{
    char kept[] = "kept";
    char* text = kept;
    int type = -1;
    getConnectionTypeFromURI("ipp://host", &type, &text);
    EXPECT_EQ(text, kept);
    EXPECT_EQ(type, 0);
}

TEST(ConnectionTypeOfAUri, IsUnknownWithoutAUriOrAPlaceForTheText)
{
    int type = -1;
    char* text = nullptr;
    getConnectionTypeFromURI(nullptr, &type, &text);
    EXPECT_EQ(type, 0);
    EXPECT_EQ(text, nullptr);
    type = -1;
    getConnectionTypeFromURI("net:1", &type, nullptr);
    EXPECT_EQ(type, 0);
    getConnectionTypeFromURI(nullptr, nullptr, nullptr);
    getConnectionTypeFromURI("net:1", nullptr, &text);
    EXPECT_EQ(taken(text), "net:");
}
