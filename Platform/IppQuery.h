// SPDX-License-Identifier: MIT
// The query for a print server's queues, an IPP message (RFC 8010): CUPS-Get-Printers for five
// texts of each queue, without classes. Made here, because libcups crashes if memory is short while
// it makes one.
//
// Owns:      nothing.
// Threads:   any. A pure function of the name; may throw std::bad_alloc.
#pragma once
#include <string>
#include <string_view>

// user: the name of the user who asks, in UTF-8; at most 255 bytes of it are sent.
std::string ippQuery(std::string_view user);
