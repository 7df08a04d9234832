// SPDX-License-Identifier: MIT
#include "Tools/vympack/ContainerWriter.h"

#include "Tools/vympack/ContainerFormat.h"

#include <algorithm>
#include <cassert>

namespace vympack {

namespace {

std::uint64_t dataSize(const std::vector<Input>& inputs)
{
    std::uint64_t total = 0;
    for (const auto& input : inputs)
        total += input.size();
    return total;
}

EntryBytes encodeEntry(const PackedFile& file)
{
    assert(file.name.size() < kNameSize && file.offset <= UINT32_MAX && file.size <= UINT32_MAX);
    EntryBytes bytes{};
    std::copy_n(file.name.begin(), std::min(file.name.size(), kNameSize - 1), bytes.begin());
    putLittleEndian(bytes.data() + kOffsetInEntry, static_cast<std::uint32_t>(file.offset));
    putLittleEndian(bytes.data() + kSizeInEntry, static_cast<std::uint32_t>(file.size));
    return bytes;
}

bool writeData(const Input& input, ByteSink& out, Sha256& digest)
{
    if (!input.text)
        return out.copy(input.file, 0, input.file.size(), &digest);
    addTo(digest, input.text->data(), input.text->size());
    return out.write(input.text->data(), input.text->size());
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

bool writeContainer(const std::vector<Input>& inputs, ByteSink& out,
                    std::vector<PackedFile>& packed)
{
    assert(packed.empty());
    for (const auto& input : inputs) {
        const auto offset = out.written();
        Sha256 digest;
        if (!writeData(input, out, digest))
            return false;
        packed.push_back({input.name, offset, input.size(), hexOf(digest)});
    }
    const auto tableOffset = out.written();
    for (const auto& file : packed) {
        const auto entry = encodeEntry(file);
        if (!out.write(entry.data(), entry.size()))
            return false;
    }
    const auto trailer = encodeTrailer(tableOffset, packed.size());
    return out.write(trailer.data(), trailer.size());
}

} // namespace vympack
