// SPDX-License-Identifier: MIT
// The results that the connection manager and its transports share; negative is failure.
#pragma once

namespace conn {

constexpr long kSuccess = 0;
constexpr long kNetworkClosed = -1; // the network transport's Disconnect returns this on success
constexpr long kInvalidArgument = -2;
constexpr long kNoTransport = -3;
constexpr long kUnknownHandle = -4;
constexpr long kOutOfMemory = -5;
constexpr long kForeignBlock = -6;
constexpr long kNotSupported = -7;
constexpr long kCannotOpen = -8;
constexpr long kNotConnected = -9;
constexpr long kAlreadyConnected = -10;
constexpr long kSendFailed = -12; // an error, a time-out or a short write
constexpr long kReceiveFailed = -13; // an error, or a reply header of fewer than 8 bytes
constexpr long kDeviceIdFailed = -14;

} // namespace conn
