// The printer driver's configuration file, FOLDER/RLPD/rlpd.conf: which address stands behind a
// print queue of the driver, and which kind of connection a port string means. Lines end in '\n';
// one that begins with '#' is a comment and carries nothing. A line with "<Printer NAME>" opens a
// queue's entry, and the line right behind it holds "DevicePath ", an IO signature ("net:",
// "net6:", "mdns:" or "usb://") and the address, up to "/PDLType" or to the end of the line.
//
// Owns:    nothing; every text and block handed out is its caller's, freed with free() (a handle
//          with FolderPathForConf_Terminate). Signature texts of zGetIOSignatureFromRlpdUri are
//          constants.
// Threads: any; one at a time per buffer for the functions that write into it.
// Errors:  results, nothing else. Data may hold any bytes: it needs no NUL and no '\n' at its end,
//          a NUL in it is a byte like others, and no walk is longer than the data.
#pragma once
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>

// What a port string means to the list of printers.
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

// Holds a text that was handed out, for callers that keep it no longer than their scope.
struct FreeText {
    void operator()(char* text) const { std::free(text); }
};
using HeldText = std::unique_ptr<char, FreeText>;

// The signature that the path begins with, or null.
const char* zGetIOSignatureFromRlpdUri(const char* devicePath);
// Reads to the end of the file. 0; -1 for a null argument, where memory ends and for more than any
// such file holds (64 MiB); what ferror said where reading failed. On failure there is no data.
int zGetAllDataFromStream(std::FILE* file, char** data, std::uint32_t* size);

// False: no such queue, or a path without a signature. True without an address, and without a
// signature too where the line behind the queue's has no "DevicePath ": the queue is known, its
// address is not. Only the queue's first entry counts.
bool zGetPrinterAddressAndIOLibType(const char* data, const char* end, const char* queue,
                                    char** address, char** signature);
// The first queue whose device path has the address anywhere in it, so that one address stands for
// every longer one that begins with it. False where there is none. Destructive: the '>' behind the
// name becomes a NUL.
bool zGetQueueNameFromPrinterAddress(char* data, char* end, const char* address, char** queue);
// The first queue; next is where the search for the one after it goes on. True with a null name:
// there is none left. Destructive in the same way.
bool zGetFirstQueueName(char* data, char* end, char** next, char** queue);
unsigned zGetQueueCount(const char* data, const char* end);

// Null where there is no such file, where it is no plain file, or where it cannot be read whole.
[[nodiscard]] TAG_CONFDATA* FolderPathForConf_Initialize(const char* folder);
void FolderPathForConf_Terminate(TAG_CONFDATA* handle);
bool FolderPathForConf_GetAddressAndProtocol(const TAG_CONFDATA* handle, const char* queue,
                                             char** address, char** signature);

// 0 where the file was read, whether or not it has the queue; -1 otherwise. The signature is only
// handed out to a caller that asks for it.
int GetPrinterAddress(const char* folder, const char* queue, char** address, char** signature);

// The first of "net:", "net6:", "usb://", "mdns:" and "lpd://" that occurs anywhere in the URI, as
// a kConnection number and as a text. Without one the text is left as it was.
void getConnectionTypeFromURI(const char* uri, int* type, char** text);
