// SPDX-License-Identifier: MIT
#include "CLI/Output.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <thread>
#include <unistd.h>

namespace {

class Pipe {
public:
    Pipe() { EXPECT_EQ(pipe2(m_ends.data(), O_CLOEXEC), 0); }
    ~Pipe()
    {
        closeReader();
        closeWriter();
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    [[nodiscard]] int writer() const { return m_ends[1]; }
    void closeReader() { closeEnd(0); }
    void closeWriter() { closeEnd(1); }
    // Reads everything until the writer is closed.
    [[nodiscard]] std::string readAll() const
    {
        std::string all;
        std::array<char, 65536> piece{};
        ssize_t length = 0;
        while ((length = read(m_ends[0], piece.data(), piece.size())) > 0)
            all.append(piece.data(), static_cast<std::size_t>(length));
        return all;
    }

private:
    void closeEnd(std::size_t end)
    {
        if (m_ends.at(end) >= 0)
            close(m_ends.at(end));
        m_ends.at(end) = -1;
    }
    std::array<int, 2> m_ends{};
};

} // namespace

TEST(Output, WritesAtOnceWhatTheReaderTakes)
{
    Pipe pipe;
    Output output(pipe.writer());
    output.write("one\n");
    output.writeProgress("two\n");
    pipe.closeWriter();
    EXPECT_EQ(pipe.readAll(), "one\ntwo\n");
}

TEST(Output, DoesNotWaitForAReaderThatTakesNothing)
{
    Pipe pipe;
    Output output(pipe.writer());
    const std::string line(1000, 'x');
    for (int i = 0; i < 5000; ++i)
        output.writeProgress(line); // five times the backlog, without a hang
    output.write("the end\n");
    std::string all;
    std::thread reader([&] { all = pipe.readAll(); });
    output.drain();
    pipe.closeWriter();
    reader.join();
    EXPECT_GE(all.size(), Output::kBacklogLimit);
    EXPECT_LT(all.size(), 2 * Output::kBacklogLimit);
    EXPECT_EQ(all.substr(all.size() - 9), "xthe end\n"); // the end is never dropped
}

TEST(Output, SurvivesAReaderThatIsGone)
{
    std::signal(SIGPIPE, SIG_IGN);
    Pipe pipe;
    Output output(pipe.writer());
    pipe.closeReader();
    output.write("nobody reads this\n");
    output.write("nor this\n");
    output.drain();
}

TEST(Output, SurvivesAFullDiskAndAClosedDescriptor)
{
    const int full = open("/dev/full", O_WRONLY | O_CLOEXEC);
    for (const int descriptor : {full, -1}) {
        Output output(descriptor);
        output.write("text\n");
        output.drain();
    }
    close(full);
}
