// SPDX-License-Identifier: MIT
#include "Platform/Libcups.h"

#include <dlfcn.h>

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
        && find(library, "httpUpdate", cups.httpUpdate);
}

bool findRest(void* library, Libcups& cups)
{
    return find(library, "cupsEncryption", cups.cupsEncryption)
        && find(library, "cupsLastErrorString", cups.cupsLastErrorString)
        && find(library, "cupsServer", cups.cupsServer) && find(library, "cupsUser", cups.cupsUser)
        && find(library, "ippAddInteger", cups.ippAddInteger)
        && find(library, "ippAddString", cups.ippAddString)
        && find(library, "ippAddStrings", cups.ippAddStrings)
        && find(library, "ippDelete", cups.ippDelete)
        && find(library, "ippErrorString", cups.ippErrorString)
        && find(library, "ippLength", cups.ippLength)
        && find(library, "ippNewRequest", cups.ippNewRequest)
        && find(library, "ippPort", cups.ippPort) && find(library, "ippWrite", cups.ippWrite);
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
