// SPDX-License-Identifier: MIT
// The protocol's result codes: 1 for success, −1 to −12 for failures. The worker publishes them in
// the status record; higher floors choose the message for each.
#pragma once

namespace result {

constexpr int kSuccess = 1;
constexpr int kDeviceError = -1; // no open connection; the printer's status 0x0803
constexpr int kDamaged = -2; // the printer's status 0x0804; a checksum that differs
constexpr int kBusy = -3; // the printer refused download mode with 0x1001
constexpr int kFaxInUse = -4; // the printer refused download mode with 0x1002
constexpr int kBadReply = -5; // bad, unexpected or missing reply; a time-out that cannot be set
constexpr int kConnectionLost = -6;
constexpr int kOtherModel = -7;
constexpr int kFirmwareUnreadable = -8; // the image could not be read from the package
constexpr int kSystem = -9; // no manager, a missing key, out of memory, another transport failure
constexpr int kMissingArgument = -10;
constexpr int kNotApplicable = -11; // not listed by the printer, or not allowed by its version
constexpr int kTooOld = -12; // the printer's version is below the update's compatible version

} // namespace result
