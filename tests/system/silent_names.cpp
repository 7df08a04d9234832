// SPDX-License-Identifier: MIT
// Loaded into a program before the C library: the look-up of a host's name never ends, as with a
// name server that is silent.
#include <netdb.h>
#include <unistd.h>

extern "C" int getaddrinfo(const char*, const char*, const addrinfo*, addrinfo**)
{
    for (;;)
        pause();
}
