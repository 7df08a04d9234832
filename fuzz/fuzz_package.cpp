// SPDX-License-Identifier: MIT
// Any package, opened in the same way as by the programs, within a time limit. An input is either
// the container itself, or a description with ranges repeated up to 1 MiB: code whose time grows
// with the square of the size then takes minutes longer than code with linear time.
#include "UI/Package/PackageFacts.h"
#include "fuzz/Fuzz.h"
#include "fuzz/MemoryContainer.h"
#include "tests/support/Package.h"

#include <ctime>

namespace {

constexpr std::size_t kLargest = 1024UL * 1024;
// Of this thread's processor time, with sanitizers; a tenth of it is enough.
constexpr double kMostSeconds = 5;

double processorSeconds()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}

std::string repeatedStretches(Input& input)
{
    std::string text;
    while (!input.empty() && text.size() < kLargest) {
        const auto times = std::size_t{1} << input.byte() % 20;
        const auto stretch = input.text(input.byte());
        for (std::size_t i = 0; i < times && text.size() + stretch.size() <= kLargest; ++i)
            text += stretch;
    }
    return text;
}

bool isClean(const std::string& text)
{
    return std::none_of(text.begin(), text.end(),
                        [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7f'; });
}

void check(const OpenedPackage& opened)
{
    require(opened.package.has_value() == opened.problem.empty(), "a package, or a problem");
    require(isClean(opened.problem), "a problem is fit to be shown");
    if (!opened.package)
        return;
    require(opened.package->firmware.size() <= 1000, "no more firmware than is documented");
    require(!opened.package->signature, "nothing is signed");
    for (const auto& firmware : opened.package->firmware)
        require(isClean(firmware.displayName) && isClean(firmware.file), "fit to be shown");
    require(isClean(unfitForUpdate(*opened.package)), "fit to be shown");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const MemoryContainer container;
    Input input(data, size);
    std::string bytes;
    if (input.byte() % 2 == 0) {
        bytes = input.text(size);
    } else {
        Package package;
        package.file("VYMINFO.txt", repeatedStretches(input)).file("main.bin", "image");
        bytes = package.bytes();
    }
    container.open(bytes);
    PackageRequest request;
    request.path = container.folder();
    request.trust.keyFolder = container.folder() + "/no-keys";
    const auto start = processorSeconds();
    check(openPackage(request));
    require(processorSeconds() - start < kMostSeconds, "a time in proportion to the size");
    return 0;
}
