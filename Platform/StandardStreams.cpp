// SPDX-License-Identifier: MIT
#include "Platform/StandardStreams.h"

#include <fcntl.h>
#include <unistd.h>

void occupyStandardStreams()
{
    int opened = 0;
    do { // the system gives the lowest free number
        opened = open("/dev/null", O_RDWR);
    } while (opened >= 0 && opened <= STDERR_FILENO);
    if (opened >= 0)
        close(opened);
}
