// SPDX-License-Identifier: MIT
// Writes a stand-in for a firmware image: SIZE bytes that look random and are the same everywhere.
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <random>

int main(int argc, char** argv)
{
    if (argc != 4)
        return EXIT_FAILURE; // FILE SIZE SEED
    std::ofstream out(argv[1], std::ios::binary | std::ios::trunc);
    const auto size = std::strtoul(argv[2], nullptr, 10);
    // The standard says what this generator yields, bit by bit.
    std::mt19937 generator(static_cast<std::uint32_t>(std::strtoul(argv[3], nullptr, 10)));
    for (unsigned long i = 0; i < size; ++i)
        out.put(static_cast<char>(generator() & 0xFF));
    return out.flush() ? EXIT_SUCCESS : EXIT_FAILURE;
}
