// SPDX-License-Identifier: MIT
#include "tests/UI/RlpdFixture.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace conf;

TEST(ReadingTheFile, GivesEveryByteWhateverTheSize)
{
    for (const auto size : {0UL, 1UL, 63UL, 64UL, 65UL, 127UL, 128UL, 129UL, 100000UL}) {
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
    ASSERT_EQ(truncate(folder.file().c_str(), 65L * 1024 * 1024), 0); // a hole: needs no disk space
    EXPECT_EQ(FolderPathForConf_Initialize(folder.path().c_str()), nullptr);
}

TEST(ReadingTheFile, ReturnsNullForAFileThatIsNotPlain)
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

TEST(PrinterAddress, ComesWithoutItsSignatureIfTheCallerDoesNotWantIt)
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
