// SPDX-License-Identifier: MIT
#include "UI/rlpd_conf_access.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr auto npos = std::string_view::npos;

constexpr std::string_view kQueueMark = "<Printer ";
constexpr std::string_view kPathMark = "DevicePath ";
constexpr std::string_view kPathEnd = "/PDLType";

constexpr std::size_t kPathCapacity = 2048; // of the file's name, its NUL included
constexpr std::uint32_t kFirstCapacity = 64; // most files have a queue or two
// 100,000 queues take a tenth of it.
constexpr std::uint32_t kLargestFile = 64U * 1024 * 1024;

constexpr std::array kSignatures = {"net:", "net6:", "mdns:", "usb://"};

struct ConnectionInfo {
    const char* text;
    int type;
};
constexpr std::array<ConnectionInfo, 5> CONNECTION_INFO = {{
    {"net:", kConnectionNet},
    {"net6:", kConnectionNet6},
    {"usb://", kConnectionUsb},
    {"mdns:", kConnectionBonjour},
    {"lpd://", kConnectionNet},
}};

// Copies all bytes of the text and a NUL; null if out of memory.
HeldText copied(std::string_view text)
{
    HeldText copy(static_cast<char*>(std::calloc(text.size() + 1, 1)));
    if (copy != nullptr)
        text.copy(copy.get(), text.size());
    return copy;
}

bool isText(const char* data, const char* end)
{
    return data != nullptr && end != nullptr && data <= end;
}

std::string_view viewed(const char* data, const char* end)
{
    return {data, static_cast<std::size_t>(end - data)};
}

// A line with its '\n', which the last one may lack.
std::string_view firstLine(std::string_view text)
{
    return text.substr(0, std::min(text.find('\n'), text.size() - 1) + 1);
}

bool isComment(std::string_view line)
{
    return line.starts_with('#');
}

// The text after the mark, up to the line's end.
bool findAfter(std::string_view line, std::string_view mark, std::string_view& rest)
{
    const auto at = isComment(line) ? npos : line.find(mark);
    if (at == npos)
        return false;
    rest = line.substr(at + mark.size());
    return true;
}

struct QueueEntry {
    std::string_view name;
    std::string_view rest; // begins with the line directly after the queue's
};

// Takes the entry of the next queue off the front of text; false if there are no more.
bool nextQueue(std::string_view& text, QueueEntry& entry)
{
    while (!text.empty()) {
        const auto line = firstLine(text);
        text.remove_prefix(line.size());
        std::string_view rest;
        if (!findAfter(line, kQueueMark, rest) || rest.find('>') == npos)
            continue;
        entry = {rest.substr(0, rest.find('>')), text};
        return true;
    }
    return false;
}

bool findQueue(std::string_view text, std::string_view name, QueueEntry& entry)
{
    while (nextQueue(text, entry)) {
        if (entry.name == name)
            return true;
    }
    return false;
}

bool findDevicePath(const QueueEntry& entry, std::string_view& path)
{
    return !entry.rest.empty() && findAfter(firstLine(entry.rest), kPathMark, path);
}

const char* signatureOf(std::string_view path)
{
    for (const char* signature : kSignatures) {
        if (path.starts_with(signature))
            return signature;
    }
    return nullptr;
}

// A path without an end mark has no address.
bool findAddress(std::string_view path, std::string_view signature, std::string_view& address)
{
    path.remove_prefix(signature.size());
    const auto end = std::min(path.find(kPathEnd), path.find('\n'));
    address = path.substr(0, end);
    return end != npos;
}

// Copies the name; the byte after it in the caller's buffer becomes a NUL.
bool cutName(char* data, std::string_view name, char** queue)
{
    *queue = copied(name).release();
    if (*queue == nullptr)
        return false;
    data[name.data() + name.size() - data] = '\0';
    return true;
}

// Doubles the room; false if out of memory or if the file is unreasonably large.
bool enlarge(HeldText& data, std::uint32_t& capacity)
{
    if (capacity >= kLargestFile)
        return false;
    auto* larger = static_cast<char*>(std::realloc(data.get(), capacity * std::size_t{2}));
    if (larger == nullptr)
        return false;
    static_cast<void>(data.release());
    data.reset(larger);
    capacity *= 2;
    return true;
}

// Never waits: even a pipe opens at once, and is then refused because it is no plain file.
std::FILE* openPlainFile(const char* path)
{
    const int descriptor = open(path, O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (descriptor < 0)
        return nullptr;
    struct stat status { };
    std::FILE* file = nullptr;
    if (fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode))
        file = fdopen(descriptor, "r");
    if (file == nullptr)
        close(descriptor);
    return file;
}

std::FILE* openConfiguration(const char* folder)
{
    std::array<char, kPathCapacity> path{};
    const int length =
        std::snprintf(path.data(), path.size(), "%s/%s/%s", folder, "RLPD", "rlpd.conf");
    if (length < 0 || static_cast<std::size_t>(length) >= path.size())
        return nullptr;
    return openPlainFile(path.data());
}

} // namespace

const char* zGetIOSignatureFromRlpdUri(const char* devicePath)
{
    return devicePath == nullptr ? nullptr : signatureOf(devicePath);
}

int zGetAllDataFromStream(std::FILE* file, char** data, std::uint32_t* size)
{
    if (file == nullptr || data == nullptr || size == nullptr)
        return -1;
    *data = nullptr;
    *size = 0;
    std::uint32_t capacity = kFirstCapacity;
    std::uint32_t used = 0;
    HeldText bytes(static_cast<char*>(std::calloc(capacity, 1)));
    if (bytes == nullptr)
        return -1;
    while (std::feof(file) == 0) {
        const auto count = std::fread(bytes.get() + used, 1, capacity - used, file);
        if (const int error = std::ferror(file))
            return error;
        used += static_cast<std::uint32_t>(count);
        if (used == capacity && !enlarge(bytes, capacity))
            return -1;
    }
    *data = bytes.release();
    *size = used;
    return 0;
}

bool zGetPrinterAddressAndIOLibType(const char* data, const char* end, const char* queue,
                                    char** address, char** signature)
{
    if (!isText(data, end) || queue == nullptr || address == nullptr || signature == nullptr)
        return false;
    *address = nullptr;
    *signature = nullptr;
    QueueEntry entry;
    if (!findQueue(viewed(data, end), queue, entry))
        return false;
    std::string_view path;
    if (!findDevicePath(entry, path))
        return true;
    const char* found = signatureOf(path);
    if (found == nullptr)
        return false;
    std::string_view text;
    const bool hasAddress = findAddress(path, found, text);
    HeldText foundAddress = hasAddress ? copied(text) : nullptr;
    HeldText foundSignature = copied(found);
    if (foundSignature == nullptr || (hasAddress && foundAddress == nullptr))
        return false;
    *address = foundAddress.release();
    *signature = foundSignature.release();
    return true;
}

bool zGetQueueNameFromPrinterAddress(char* data, char* end, const char* address, char** queue)
{
    if (!isText(data, end) || address == nullptr || queue == nullptr)
        return false;
    *queue = nullptr;
    const std::string_view wanted(address);
    auto text = viewed(data, end);
    for (QueueEntry entry; nextQueue(text, entry);) {
        std::string_view path;
        if (findDevicePath(entry, path) && path.find(wanted) != npos)
            return cutName(data, entry.name, queue);
    }
    return false;
}

bool zGetFirstQueueName(char* data, char* end, char** next, char** queue)
{
    if (!isText(data, end) || next == nullptr || queue == nullptr)
        return false;
    *queue = nullptr;
    auto text = viewed(data, end);
    QueueEntry entry;
    const bool found = nextQueue(text, entry);
    *next = end - text.size();
    return !found || cutName(data, entry.name, queue);
}

unsigned zGetQueueCount(const char* data, const char* end)
{
    if (!isText(data, end))
        return 0;
    unsigned count = 0;
    auto text = viewed(data, end);
    for (QueueEntry entry; nextQueue(text, entry);)
        ++count;
    return count;
}

TAG_CONFDATA* FolderPathForConf_Initialize(const char* folder)
{
    if (folder == nullptr)
        return nullptr;
    auto* handle = static_cast<TAG_CONFDATA*>(std::calloc(1, sizeof(TAG_CONFDATA)));
    std::FILE* file = handle == nullptr ? nullptr : openConfiguration(folder);
    const bool isRead =
        file != nullptr && zGetAllDataFromStream(file, &handle->data, &handle->size) == 0;
    if (file != nullptr)
        std::fclose(file);
    if (isRead)
        return handle;
    FolderPathForConf_Terminate(handle);
    return nullptr;
}

void FolderPathForConf_Terminate(TAG_CONFDATA* handle)
{
    if (handle == nullptr)
        return;
    std::free(handle->data);
    std::free(handle);
}

bool FolderPathForConf_GetAddressAndProtocol(const TAG_CONFDATA* handle, const char* queue,
                                             char** address, char** signature)
{
    return handle != nullptr
        && zGetPrinterAddressAndIOLibType(handle->data, handle->data + handle->size, queue, address,
                                          signature);
}

int GetPrinterAddress(const char* folder, const char* queue, char** address, char** signature)
{
    if (folder == nullptr || queue == nullptr || address == nullptr)
        return -1;
    auto* handle = FolderPathForConf_Initialize(folder);
    if (handle == nullptr)
        return -1;
    *address = nullptr;
    char* ownSignature = nullptr;
    FolderPathForConf_GetAddressAndProtocol(handle, queue, address, &ownSignature);
    FolderPathForConf_Terminate(handle);
    HeldText kept(ownSignature);
    if (signature != nullptr)
        *signature = kept.release();
    return 0;
}

void getConnectionTypeFromURI(const char* uri, int* type, char** text)
{
    if (type != nullptr)
        *type = kConnectionUnknown;
    if (uri == nullptr || text == nullptr)
        return;
    const std::string_view whole(uri);
    const auto* row =
        std::find_if(CONNECTION_INFO.begin(), CONNECTION_INFO.end(),
                     [&](const ConnectionInfo& info) { return whole.find(info.text) != npos; });
    if (row == CONNECTION_INFO.end())
        return;
    auto copy = copied(row->text);
    if (copy == nullptr)
        return;
    *text = copy.release();
    if (type != nullptr)
        *type = row->type;
}
