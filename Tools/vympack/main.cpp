// SPDX-License-Identifier: MIT
// vympack: makes, checks, tries and unpacks package containers.
#include "Platform/StandardStreams.h"
#include "Tools/vympack/CommandLine.h"

#include <cstdio>
#include <exception>
#include <iostream>

int main(int argc, char** argv)
{
    occupyStandardStreams();
    try {
        return vympack::runProgram(argc, argv, {std::cout, std::cerr});
    } catch (const std::exception& error) {
        std::fprintf(stderr, "vympack: %s\n", error.what());
        return vympack::kExitBroken;
    }
}
