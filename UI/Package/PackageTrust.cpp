// SPDX-License-Identifier: MIT
#include "UI/Package/PackageTrust.h"

#include "Platform/SignatureCheck.h"
#include "UI/Package/Minisign.h"
#include "UI/Text/PlainText.h"
#include "VYM/vymUtil.h"

#include <algorithm>
#include <filesystem>
#include <vector>

namespace fs = std::filesystem;

namespace {

// Far larger than a key or a signature with minisign's longest comment (8 KiB).
constexpr std::size_t kLargestTextFile = 65536;
constexpr std::size_t kShownPath = 4096; // a truncated path is useless

struct TrustedKey {
    std::string name; // as shown
    std::optional<minisign::PublicKey> key; // empty: its file cannot be read
};

// The content of a small file; no value if it cannot be read or is larger than such files are.
std::optional<std::string> smallFile(const std::string& path)
{
    std::FILE* file = nullptr;
    if (!isPlainFile(path.c_str()) || fopen_s(&file, path.c_str(), "rb") != 0)
        return std::nullopt;
    std::string text(kLargestTextFile + 1, '\0');
    text.resize(std::fread(text.data(), 1, text.size(), file));
    const bool isRead = std::ferror(file) == 0;
    std::fclose(file);
    if (!isRead || text.size() > kLargestTextFile)
        return std::nullopt;
    return text;
}

TrustedKey keyInFile(const std::string& path)
{
    const auto text = smallFile(path);
    return {plainText(fs::path(path).filename().string()),
            text ? minisign::parsePublicKey(*text) : std::nullopt};
}

TrustedKey givenKey(const std::string& given)
{
    std::error_code error;
    if (fs::exists(given, error))
        return keyInFile(given);
    return {"the given key", minisign::parsePublicKey(given)};
}

// The keys that decide. Includes unreadable ones: if there is any key, an unsigned package is
// refused. No value if the folder exists but cannot be read.
std::optional<std::vector<TrustedKey>> keysOf(const TrustRequest& request)
{
    if (!request.key.empty())
        return std::vector{givenKey(request.key)};
    std::error_code error;
    const auto status = fs::symlink_status(request.keyFolder, error);
    if (status.type() == fs::file_type::not_found)
        return std::vector<TrustedKey>();
    std::vector<std::string> paths;
    fs::directory_iterator each(request.keyFolder, error);
    for (; !error && each != fs::directory_iterator(); each.increment(error)) {
        if (each->path().extension() == ".pub")
            paths.push_back(each->path().string());
    }
    if (error)
        return std::nullopt;
    std::sort(paths.begin(), paths.end());
    std::vector<TrustedKey> keys;
    keys.reserve(paths.size());
    for (const auto& path : paths)
        keys.push_back(keyInFile(path));
    return keys;
}

std::vector<KeyName> namesOf(const std::vector<TrustedKey>& keys)
{
    std::vector<KeyName> names;
    names.reserve(keys.size());
    for (const auto& key : keys)
        names.push_back({plainText(key.name, kShownPath), key.key.has_value()});
    return names;
}

// Both proofs: of the file's sum, and of the comment together with the first signature.
bool isSignedBy(const minisign::PublicKey& key, const minisign::DetachedSignature& found,
                const signature::Sum& sum)
{
    if (key.id != found.id || !signature::isValid(found.bytes, sum, key.bytes))
        return false;
    std::vector<unsigned char> commented(found.bytes.begin(), found.bytes.end());
    commented.insert(commented.end(), found.trustedComment.begin(), found.trustedComment.end());
    return signature::isValid(found.commentBytes, commented, key.bytes);
}

// The sums of the container, computed by the reading that seals it.
struct Sums {
    Sha256 sha256;
    signature::RunningSum blake2b;
};

TrustResult refused(PackageReason reason)
{
    TrustResult result;
    result.reason = std::move(reason);
    return result;
}

TrustResult checkSignature(const std::string& signatureFile, const std::vector<TrustedKey>& keys,
                           const std::optional<std::string>& text, Sums& sums)
{
    const auto refuse = [&](PackageFault fault) {
        return refused({fault, plainText(signatureFile, kShownPath), 0, {}, namesOf(keys)});
    };
    if (!signature::isAvailable())
        return refused({PackageFault::noSignatureCheck});
    std::error_code error;
    if (!text && fs::symlink_status(signatureFile, error).type() == fs::file_type::not_found)
        return refuse(PackageFault::notSigned);
    const auto found = text ? minisign::parseSignature(*text) : std::nullopt;
    if (!found)
        return refuse(PackageFault::signatureUnreadable);
    if (!found->isPrehashed)
        return refuse(PackageFault::signatureOld);
    signature::Sum sum{};
    const bool isSummed = sums.blake2b.finish(sum);
    for (const auto& key : keys) {
        if (!isSummed || !key.key || !isSignedBy(*key.key, *found, sum))
            continue;
        TrustResult result;
        result.isTrusted = true;
        result.signature = PackageSignature{key.name, plainText(found->trustedComment)};
        return result;
    }
    return refuse(PackageFault::signatureForeign);
}

} // namespace

TrustResult checkTrust(vymBindInfo& container, const std::string& containerFile,
                       const TrustRequest& request, const std::function<bool()>& shouldStop)
{
    const auto keys = keysOf(request);
    if (!keys)
        return refused({PackageFault::keysUnreadable, plainText(request.keyFolder, kShownPath)});
    TrustResult result;
    const bool isRequired = !request.sha256.empty() || !keys->empty();
    result.isTrusted = !isRequired;
    if (!isRequired && !request.wantsSum)
        return result;
    const auto signatureFile = containerFile + kSignatureSuffix;
    const auto signatureText = keys->empty() ? std::nullopt : smallFile(signatureFile);
    Sums sums;
    const bool isRead = container.seal([&](std::span<const unsigned char> part) {
        sums.sha256.add(part);
        if (!keys->empty())
            sums.blake2b.add(part);
        result.wasStopped = shouldStop && shouldStop();
        return !result.wasStopped;
    });
    if (!isRead) {
        if (isRequired && !result.wasStopped)
            result.reason = {PackageFault::readError};
        return result;
    }
    const auto digest = sums.sha256.finish();
    if (!request.sha256.empty() && Sha256::fromHex(request.sha256) != digest)
        return refused({PackageFault::otherSum, {}, 0, Sha256::toHex(digest)});
    if (keys->empty())
        result.isTrusted = true;
    else
        result = checkSignature(signatureFile, *keys, signatureText, sums);
    result.sha256 = result.isTrusted ? Sha256::toHex(digest) : "";
    return result;
}
