// SPDX-License-Identifier: MIT
#include "Platform/Libcups.h"

#include <dlfcn.h>

// GnuTLS, which libcups brings along, starts itself when it is loaded, and crashes if memory is
// short at that time. It asks the program for this function first: libcups starts it anyway, and
// can take a failure.
extern "C" int _gnutls_global_init_skip();
extern "C" int _gnutls_global_init_skip()
{
    return 1;
}

namespace {

constexpr const char* kLibrary = "libcups.so.2"; // the interface version, unchanged for years

template <typename Function> bool find(void* library, const char* name, Function*& function)
{
    function = reinterpret_cast<Function*>(dlsym(library, name));
    return function != nullptr;
}

bool findHttp(void* library, Libcups& cups)
{
    return find(library, "httpBlocking", cups.httpBlocking)
        && find(library, "httpClearFields", cups.httpClearFields)
        && find(library, "httpClose", cups.httpClose)
        && find(library, "httpConnect2", cups.httpConnect2)
        && find(library, "httpFlush", cups.httpFlush) && find(library, "httpGetFd", cups.httpGetFd)
        && find(library, "httpPost", cups.httpPost) && find(library, "httpRead2", cups.httpRead2)
        && find(library, "httpSetField", cups.httpSetField)
        && find(library, "httpSetLength", cups.httpSetLength)
        && find(library, "httpStatus", cups.httpStatus)
        && find(library, "httpUpdate", cups.httpUpdate)
        && find(library, "httpWrite2", cups.httpWrite2);
}

bool findRest(void* library, Libcups& cups)
{
    return find(library, "cupsEncryption", cups.cupsEncryption)
        && find(library, "cupsLastErrorString", cups.cupsLastErrorString)
        && find(library, "cupsServer", cups.cupsServer) && find(library, "cupsUser", cups.cupsUser)
        && find(library, "ippErrorString", cups.ippErrorString)
        && find(library, "ippPort", cups.ippPort);
}

} // namespace

const Libcups* libcups()
{
    static Libcups cups;
    static const bool isThere = [] {
        void* library = dlopen(kLibrary, RTLD_NOW | RTLD_LOCAL);
        return library != nullptr && findHttp(library, cups) && findRest(library, cups);
    }();
    return isThere ? &cups : nullptr;
}
