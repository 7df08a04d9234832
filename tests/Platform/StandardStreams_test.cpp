// SPDX-License-Identifier: MIT
#include "Platform/StandardStreams.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

// In a process of its own: closes some of the streams, occupies them, and returns the number that
// the next file gets; or -1 if a stream cannot be used.
int nextFileWithout(std::initializer_list<int> closed)
{
    const auto child = fork();
    if (child == 0) {
        for (const int stream : closed)
            close(stream);
        occupyStandardStreams();
        const bool isWritable =
            write(STDOUT_FILENO, "", 0) == 0 && write(STDERR_FILENO, "", 0) == 0;
        char byte = 0;
        const bool isEmpty = closed.size() != 3 || read(STDIN_FILENO, &byte, 1) == 0;
        const int next = open("/dev/null", O_RDONLY);
        _exit(isWritable && isEmpty ? next : 99);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WEXITSTATUS(status) != 99 ? WEXITSTATUS(status) : -1;
}

} // namespace

TEST(StandardStreams, AreNeverTheNumbersOfOtherFiles)
{
    EXPECT_GE(nextFileWithout({0, 1, 2}), 3);
    EXPECT_GE(nextFileWithout({0}), 3);
    EXPECT_GE(nextFileWithout({1}), 3);
    EXPECT_GE(nextFileWithout({1, 2}), 3);
}

TEST(StandardStreams, StayAsTheyAreWhereTheyAreOpen)
{
    const int before = open("/dev/null", O_RDONLY);
    close(before);
    occupyStandardStreams();
    const int after = open("/dev/null", O_RDONLY);
    close(after);
    EXPECT_EQ(before, after);
}
