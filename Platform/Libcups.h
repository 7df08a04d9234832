// The functions of libcups that the print queues need, found when they are first asked for: a
// program that asks no print server starts without libcups and the twenty libraries that come with
// it, and runs where it is not installed.
//
// Owns:      the library, which stays open until the program ends.
// Threads:   any.
// Invariant: a table that is handed out has every function.
#pragma once
#include <cups/cups.h>

struct Libcups {
    decltype(&::cupsEncryption) cupsEncryption = nullptr;
    decltype(&::cupsLastErrorString) cupsLastErrorString = nullptr;
    decltype(&::cupsServer) cupsServer = nullptr;
    decltype(&::cupsUser) cupsUser = nullptr;
    decltype(&::httpBlocking) httpBlocking = nullptr;
    decltype(&::httpClearFields) httpClearFields = nullptr;
    decltype(&::httpClose) httpClose = nullptr;
    decltype(&::httpConnect2) httpConnect2 = nullptr;
    decltype(&::httpFlush) httpFlush = nullptr;
    decltype(&::httpGetFd) httpGetFd = nullptr;
    decltype(&::httpPost) httpPost = nullptr;
    decltype(&::httpRead2) httpRead2 = nullptr;
    decltype(&::httpSetField) httpSetField = nullptr;
    decltype(&::httpSetLength) httpSetLength = nullptr;
    decltype(&::httpStatus) httpStatus = nullptr;
    decltype(&::httpUpdate) httpUpdate = nullptr;
    decltype(&::ippAddInteger) ippAddInteger = nullptr;
    decltype(&::ippAddString) ippAddString = nullptr;
    decltype(&::ippAddStrings) ippAddStrings = nullptr;
    decltype(&::ippDelete) ippDelete = nullptr;
    decltype(&::ippErrorString) ippErrorString = nullptr;
    decltype(&::ippLength) ippLength = nullptr;
    decltype(&::ippNewRequest) ippNewRequest = nullptr;
    decltype(&::ippPort) ippPort = nullptr;
    decltype(&::ippWrite) ippWrite = nullptr;
};

// Null where the library, or a function of it, is not there.
const Libcups* libcups();
