#include "Tools/vympack/ContainerWriter.h"

#include "Tools/vympack/ContainerFormat.h"

#include <algorithm>

namespace vympack {

namespace {

std::uint64_t dataSize(const std::vector<Input>& inputs)
{
    std::uint64_t total = 0;
    for (const auto& input : inputs)
        total += input.file.size();
    return total;
}

EntryBytes encodeEntry(const Input& input, std::uint64_t offset)
{
    EntryBytes bytes{};
    std::copy_n(input.name.begin(), std::min(input.name.size(), kNameSize - 1), bytes.begin());
    putLittleEndian(bytes.data() + kOffsetInEntry, static_cast<std::uint32_t>(offset));
    putLittleEndian(bytes.data() + kSizeInEntry, static_cast<std::uint32_t>(input.file.size()));
    return bytes;
}

TrailerBytes encodeTrailer(std::uint64_t tableOffset, std::size_t count)
{
    TrailerBytes bytes{};
    putLittleEndian(bytes.data(), static_cast<std::uint32_t>(tableOffset));
    putLittleEndian(bytes.data() + kCountInTrailer, static_cast<std::uint32_t>(count));
    std::copy(kMagic.begin(), kMagic.end(), bytes.begin() + kMagicInTrailer);
    return bytes;
}

} // namespace

std::uint64_t containerSize(const std::vector<Input>& inputs)
{
    return dataSize(inputs) + inputs.size() * kEntrySize + kTrailerSize;
}

bool writeContainer(const std::vector<Input>& inputs, AtomicFile& out)
{
    for (const auto& input : inputs) {
        if (!out.copy(input.file, 0, input.file.size()))
            return false;
    }
    std::uint64_t offset = 0;
    for (const auto& input : inputs) {
        const auto entry = encodeEntry(input, offset);
        if (!out.write(entry.data(), entry.size()))
            return false;
        offset += input.file.size();
    }
    const auto trailer = encodeTrailer(offset, inputs.size());
    return out.write(trailer.data(), trailer.size());
}

} // namespace vympack
