// SPDX-License-Identifier: MIT
// The printer driver's configuration file, FOLDER/RLPD/rlpd.conf: the address of a print queue of
// the driver, and the kind of connection that a port string means. Lines end in '\n'; a line that
// begins with '#' is a comment. A line with "<Printer NAME>" starts a queue's entry; the line
// directly after it has "DevicePath ", an IO signature ("net:", "net6:", "mdns:" or "usb://") and
// the address, up to "/PDLType" or the end of the line.
//
// Owns:    nothing; the caller owns every returned text and block and frees it with free() (a
//          handle with FolderPathForConf_Terminate). Signature texts of zGetIOSignatureFromRlpdUri
//          are constants.
// Threads: any; one at a time per buffer for the functions that write to it.
// Errors:  only results. Data may hold any bytes: it needs no NUL and no '\n' at its end, a NUL in
//          it is an ordinary byte, and no search leaves the data.
#pragma once
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>

// The kinds of connection, for the list of printers.
constexpr int kConnectionUnknown = 0;
constexpr int kConnectionNet = 1; // IPv4: "net:" and "lpd://"
constexpr int kConnectionNet6 = 2;
constexpr int kConnectionUsb = 3;
constexpr int kConnectionBonjour = 4;

// The whole file; the bytes come from calloc.
struct TAG_CONFDATA {
    char* data;
    std::uint32_t size;
};

// Holds a returned text until the end of a scope.
struct FreeText {
    void operator()(char* text) const { std::free(text); }
};
using HeldText = std::unique_ptr<char, FreeText>;

// The signature at the beginning of the path, or null.
const char* zGetIOSignatureFromRlpdUri(const char* devicePath);
// Reads to the end of the file. Returns 0; -1 for a null argument, out of memory or more than 64
// MiB, which no such file has; the result of ferror if reading failed. On failure there is no data.
int zGetAllDataFromStream(std::FILE* file, char** data, std::uint32_t* size);

// False: no such queue, or a path without a signature. True without address and signature if the
// line after the queue's has no "DevicePath ", and true without address if that has no end mark:
// the queue is known, its address is not. Only the queue's first entry counts.
bool zGetPrinterAddressAndIOLibType(const char* data, const char* end, const char* queue,
                                    char** address, char** signature);
// The first queue whose device path contains the address anywhere, so an address also matches every
// longer one that begins with it. False if there is none. Destructive: the '>' after the name
// becomes a NUL.
bool zGetQueueNameFromPrinterAddress(char* data, char* end, const char* address, char** queue);
// The first queue; next is where the search for the following one continues. True with a null name:
// there are no more. Destructive in the same way.
bool zGetFirstQueueName(char* data, char* end, char** next, char** queue);
unsigned zGetQueueCount(const char* data, const char* end);

// Null if there is no such file, it is not a plain file, or it cannot be read completely.
[[nodiscard]] TAG_CONFDATA* FolderPathForConf_Initialize(const char* folder);
void FolderPathForConf_Terminate(TAG_CONFDATA* handle);
bool FolderPathForConf_GetAddressAndProtocol(const TAG_CONFDATA* handle, const char* queue,
                                             char** address, char** signature);

// 0 if the file was read, whether or not it has the queue; otherwise -1. signature may be null.
int GetPrinterAddress(const char* folder, const char* queue, char** address, char** signature);

// The first of "net:", "net6:", "usb://", "mdns:" and "lpd://" that occurs anywhere in the URI, as
// a kConnection number and as a text. If none occurs, the text is left unchanged.
void getConnectionTypeFromURI(const char* uri, int* type, char** text);
