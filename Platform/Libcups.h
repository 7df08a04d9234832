// SPDX-License-Identifier: MIT
// The functions of libcups that the print queues need, loaded at their first use. A program that
// queries no print server starts without libcups and its twenty dependencies, and runs where
// libcups is not installed.
//
// Owns:      the library, which stays open until the program ends.
// Threads:   any.
// Invariant: a returned table has every function.
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

// Null if the library or one of the functions is missing.
const Libcups* libcups();
