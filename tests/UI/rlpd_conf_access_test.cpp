#include "UI/rlpd_conf_access.h"
#include "tests/support/TempFolder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

using namespace std::string_literals;
using namespace std::string_view_literals;

namespace {

using Text = std::optional<std::string>;

Text taken(char* text)
{
    const HeldText held(text);
    return text == nullptr ? Text() : Text(text);
}

struct Answer {
    bool known;
    Text address;
    Text signature;
    bool operator==(const Answer&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Answer& answer)
{
    return out << answer.known << ", address " << answer.address.value_or("(none)")
               << ", signature " << answer.signature.value_or("(none)");
}

// Exactly these bytes and no more: a step too far is noticed by the sanitizer.
class Conf {
public:
    explicit Conf(std::string_view text) : m_bytes(text.begin(), text.end()) { }

    [[nodiscard]] char* begin() { return m_bytes.data(); }
    [[nodiscard]] char* end() { return m_bytes.data() + m_bytes.size(); }
    [[nodiscard]] std::string bytes() const { return {m_bytes.begin(), m_bytes.end()}; }

    Answer addressOf(const char* queue)
    {
        char* address = begin();
        char* signature = begin();
        const bool known =
            zGetPrinterAddressAndIOLibType(begin(), end(), queue, &address, &signature);
        return {known, taken(address), taken(signature)};
    }
    Text queueOf(const char* address)
    {
        char* queue = begin();
        const bool found = zGetQueueNameFromPrinterAddress(begin(), end(), address, &queue);
        EXPECT_EQ(found, queue != nullptr);
        return taken(queue);
    }
    std::vector<std::string> queues()
    {
        std::vector<std::string> names;
        char* next = begin();
        for (;;) {
            char* queue = nullptr;
            EXPECT_TRUE(zGetFirstQueueName(next, end(), &next, &queue));
            if (queue == nullptr)
                return names;
            names.push_back(*taken(queue));
        }
    }
    unsigned count() { return zGetQueueCount(begin(), end()); }

private:
    std::vector<char> m_bytes;
};

class ConfFolder {
public:
    ConfFolder() { std::filesystem::create_directory(m_folder.path() / "RLPD"); }
    explicit ConfFolder(std::string_view text) : ConfFolder()
    {
        m_folder.write("RLPD/rlpd.conf", text);
    }
    [[nodiscard]] std::string path() const { return m_folder.path().string(); }
    [[nodiscard]] std::string file() const { return m_folder / "RLPD/rlpd.conf"; }
    [[nodiscard]] Answer addressOf(const char* queue) const
    {
        char* address = nullptr;
        char* signature = nullptr;
        const int result = GetPrinterAddress(path().c_str(), queue, &address, &signature);
        return {result == 0, taken(address), taken(signature)};
    }

private:
    TempFolder m_folder;
};

const Answer kUnknown{false, {}, {}};
const Answer kWithoutAddress{true, {}, {}};

std::string manyQueues(int count)
{
    std::string text;
    for (int i = 0; i < count; ++i) {
        const auto number = std::to_string(i);
        text += "<Printer queue" + number + ">\nDevicePath net:10.0.0." + number + "/PDLType PS\n";
    }
    return text;
}

} // namespace

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
        {"/PDLType on the line behind does not count",
         "<Printer A>\nDevicePath net:10.0.0.5\n/PDLType\n"sv,
         {true, "10.0.0.5", "net:"}},
        {"an empty address", "<Printer A>\nDevicePath net:\n"sv, {true, "", "net:"}},
        {"a USB device",
         "<Printer A>\nDevicePath usb://Acme/P%201?serial=7\n"sv,
         {true, "Acme/P%201?serial=7", "usb://"}},
        {"IPv6", "<Printer A>\nDevicePath net6:fe80::1\n"sv, {true, "fe80::1", "net6:"}},
        {"Bonjour", "<Printer A>\nDevicePath mdns:p1.local\n"sv, {true, "p1.local", "mdns:"}},
        {"marks may stand behind other words",
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
        {"no blank behind the key", "<Printer A>\nDevicePath\tnet:1.2.3.4\n"sv, kWithoutAddress},
        {"an LPD path is no signature", "<Printer A>\nDevicePath lpd://1.2.3.4\n"sv, kUnknown},
        {"no signature at all", "<Printer A>\nDevicePath 1.2.3.4\n"sv, kUnknown},
        {"nothing behind the key", "<Printer A>\nDevicePath "sv, kUnknown},
        {"a commented queue", "#<Printer A>\nDevicePath net:1.2.3.4\n"sv, kUnknown},
        {"no '>' on the line", "<Printer A\n>\nDevicePath net:1.2.3.4\n"sv, kUnknown},
        {"'>' before the mark only", ">x<Printer A\nDevicePath net:1.2.3.4\n"sv, kUnknown},
        {"no blank behind the mark", "<PrinterA>\nDevicePath net:1.2.3.4\n"sv, kUnknown},
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

TEST(AddressOfAQueue, IsThatOfTheQueueAskedFor)
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

TEST(FirstQueueName, IsNoneAndNoFailureWhereNoneIsLeft)
{
    Conf conf("DevicePath net:1\n");
    char* next = nullptr;
    char* queue = conf.begin();
    EXPECT_TRUE(zGetFirstQueueName(conf.begin(), conf.end(), &next, &queue));
    EXPECT_EQ(queue, nullptr);
    EXPECT_EQ(next, conf.end());
}

TEST(FirstQueueName, OverwritesTheBracketBehindTheNameAndNoOther)
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

TEST(QueueOfAnAddress, LooksOnlyAtTheLineBehindTheQueueAndBehindTheKey)
{
    EXPECT_EQ(Conf("<Printer A>\n\nDevicePath net:1.2.3.4\n").queueOf("1.2.3.4"), std::nullopt);
    EXPECT_EQ(Conf("<Printer A>\n1.2.3.4 DevicePath net:5\n").queueOf("1.2.3.4"), std::nullopt);
    EXPECT_EQ(Conf("<Printer A>\n#DevicePath net:1.2.3.4\n").queueOf("1.2.3.4"), std::nullopt);
    EXPECT_EQ(Conf("<Printer A>\nDevicePath net:1.2.3.4").queueOf("1.2.3.4"), "A");
}

TEST(QueueOfAnAddress, OverwritesTheBracketBehindTheNameFound)
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

TEST(ReadingTheFile, GivesEveryByteWhateverTheSize)
{
    for (const std::size_t size : {0, 1, 63, 64, 65, 127, 128, 129, 100000}) {
        const ConfFolder folder(std::string(size, '\0'));
        auto* handle = FolderPathForConf_Initialize(folder.path().c_str());
        ASSERT_NE(handle, nullptr);
        ASSERT_NE(handle->data, nullptr);
        EXPECT_EQ(handle->size, size);
        EXPECT_EQ(std::string(handle->data, handle->size), std::string(size, '\0'));
        FolderPathForConf_Terminate(handle);
    }
}

TEST(ReadingTheFile, NeedsAStreamAndPlacesForTheAnswer)
{
    const ConfFolder folder("x");
    auto* file = std::fopen(folder.file().c_str(), "r");
    char* data = nullptr;
    std::uint32_t size = 0;
    EXPECT_EQ(zGetAllDataFromStream(nullptr, &data, &size), -1);
    EXPECT_EQ(zGetAllDataFromStream(file, nullptr, &size), -1);
    EXPECT_EQ(zGetAllDataFromStream(file, &data, nullptr), -1);
    EXPECT_EQ(zGetAllDataFromStream(file, &data, &size), 0);
    EXPECT_EQ(std::string(data, size), "x");
    std::free(data);
    std::fclose(file);
}

TEST(ReadingTheFile, FailsWithTheStreamsErrorAndWithoutData)
{
    const TempFolder folder;
    auto* file = std::fopen(folder.path().c_str(), "r"); // opens, but cannot be read
    ASSERT_NE(file, nullptr);
    char* data = nullptr;
    std::uint32_t size = 1;
    EXPECT_GT(zGetAllDataFromStream(file, &data, &size), 0);
    EXPECT_EQ(data, nullptr);
    EXPECT_EQ(size, 0U);
    std::fclose(file);
}

TEST(ReadingTheFile, StopsAtASizeThatNoSuchFileHas)
{
    const ConfFolder folder("<Printer A>\nDevicePath net:1\n");
    ASSERT_EQ(truncate(folder.file().c_str(), 65L * 1024 * 1024), 0); // a hole: takes no room
    EXPECT_EQ(FolderPathForConf_Initialize(folder.path().c_str()), nullptr);
}

TEST(ReadingTheFile, AnswersNothingForWhatIsNoPlainFile)
{
    const ConfFolder missing;
    EXPECT_EQ(FolderPathForConf_Initialize(missing.path().c_str()), nullptr);
    const ConfFolder pipe;
    ASSERT_EQ(mkfifo(pipe.file().c_str(), 0600), 0);
    EXPECT_EQ(FolderPathForConf_Initialize(pipe.path().c_str()), nullptr);
    const ConfFolder device;
    std::filesystem::create_symlink("/dev/zero", device.file());
    EXPECT_EQ(FolderPathForConf_Initialize(device.path().c_str()), nullptr);
    const ConfFolder folder;
    std::filesystem::create_directory(folder.file());
    EXPECT_EQ(FolderPathForConf_Initialize(folder.path().c_str()), nullptr);
    EXPECT_EQ(FolderPathForConf_Initialize(nullptr), nullptr);
}

TEST(ReadingTheFile, TakesAPathOfAtMost2047Bytes)
{
    const ConfFolder folder("<Printer A>\nDevicePath net:1\n");
    const auto longestFolder = 2047 - std::string("/RLPD/rlpd.conf").size();
    auto path = folder.path();
    path += std::string(longestFolder - path.size(), '/');
    auto* handle = FolderPathForConf_Initialize(path.c_str());
    EXPECT_NE(handle, nullptr);
    FolderPathForConf_Terminate(handle);
    EXPECT_EQ(FolderPathForConf_Initialize((path + '/').c_str()), nullptr);
}

TEST(ReadingTheFile, LeavesNoDescriptorOpen)
{
    const ConfFolder folder("<Printer A>\nDevicePath net:1\n");
    const ConfFolder pipe;
    ASSERT_EQ(mkfifo(pipe.file().c_str(), 0600), 0);
    const int before = open("/dev/null", O_RDONLY | O_CLOEXEC);
    close(before);
    FolderPathForConf_Terminate(FolderPathForConf_Initialize(folder.path().c_str()));
    FolderPathForConf_Terminate(FolderPathForConf_Initialize(pipe.path().c_str()));
    const int after = open("/dev/null", O_RDONLY | O_CLOEXEC);
    close(after);
    EXPECT_EQ(after, before);
}

TEST(PrinterAddress, IsReadFromTheFolderOfTheDriver)
{
    const ConfFolder folder("<Printer A>\nDevicePath net:1.2.3.4/PDLType PS\n");
    EXPECT_EQ(folder.addressOf("A"), (Answer{true, "1.2.3.4", "net:"}));
}

TEST(PrinterAddress, SucceedsWithoutAnAddressForAQueueThatIsNotThere)
{
    const ConfFolder folder("<Printer A>\nDevicePath lpd://1.2.3.4\n");
    EXPECT_EQ(folder.addressOf("A"), kWithoutAddress);
    EXPECT_EQ(folder.addressOf("B"), kWithoutAddress);
}

TEST(PrinterAddress, FailsWithoutItsArgumentsAndWithoutAFile)
{
    const ConfFolder folder("<Printer A>\nDevicePath net:1.2.3.4\n");
    const auto path = folder.path();
    char* address = nullptr;
    char* signature = nullptr;
    EXPECT_EQ(GetPrinterAddress(nullptr, "A", &address, &signature), -1);
    EXPECT_EQ(GetPrinterAddress(path.c_str(), nullptr, &address, &signature), -1);
    EXPECT_EQ(GetPrinterAddress(path.c_str(), "A", nullptr, &signature), -1);
    EXPECT_EQ(GetPrinterAddress("/nowhere", "A", &address, &signature), -1);
    EXPECT_EQ(address, nullptr);
    EXPECT_EQ(signature, nullptr);
}

TEST(PrinterAddress, ComesWithoutItsSignatureToACallerThatDoesNotAskForIt)
{
    const ConfFolder folder("<Printer A>\nDevicePath net:1.2.3.4\n");
    char* address = nullptr;
    EXPECT_EQ(GetPrinterAddress(folder.path().c_str(), "A", &address, nullptr), 0);
    EXPECT_EQ(taken(address), "1.2.3.4");
}

TEST(PrinterAddress, OfANullHandleIsUnknown)
{
    char* address = nullptr;
    char* signature = nullptr;
    EXPECT_FALSE(FolderPathForConf_GetAddressAndProtocol(nullptr, "A", &address, &signature));
    FolderPathForConf_Terminate(nullptr);
}

TEST(GiganticFiles, AreWalkedInOnePass)
{
    constexpr int kMany = 100000;
    Conf conf(manyQueues(kMany));
    EXPECT_EQ(conf.count(), static_cast<unsigned>(kMany));
    EXPECT_EQ(conf.addressOf("queue99999"), (Answer{true, "10.0.0.99999", "net:"}));
    EXPECT_EQ(conf.queues().size(), static_cast<std::size_t>(kMany));
}

TEST(GiganticFiles, MayBeOneLine)
{
    const std::string filler(8U << 20, '<');
    EXPECT_EQ(Conf(filler).count(), 0U);
    EXPECT_EQ(Conf(filler + "<Printer A>\nDevicePath net:" + filler + '\n').addressOf("A"),
              (Answer{true, filler, "net:"}));
    std::string marks;
    for (int i = 0; i < 100000; ++i)
        marks += "<Printer ";
    EXPECT_EQ(Conf(marks).count(), 0U);
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
