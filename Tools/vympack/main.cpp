// SPDX-License-Identifier: MIT
// vympack: makes, checks, tries and unpacks package containers.
#include "Platform/StandardStreams.h"
#include "Tools/vympack/CommandLine.h"

#include <cstdio>
#include <exception>
#include <iostream>
#include <new>

int main(int argc, char** argv)
{
    occupyStandardStreams();
    try {
        return vympack::runProgram(argc, argv, {std::cout, std::cerr});
    } catch (const std::bad_alloc&) {
        std::fputs(
            "vympack: this computer ran out of memory: close other programs, and try again\n",
            stderr);
        return vympack::kExitBroken;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "vympack: %s\n", error.what());
        return vympack::kExitBroken;
    }
}
