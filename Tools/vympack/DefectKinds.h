// SPDX-License-Identifier: MIT
// Every kind of defect of a package. An error makes an update fail, end early or skip a firmware; a
// warning is probably a mistake. Each kind says why it matters: the effect on a program.
//
// Threads: any; constants.
#pragma once
#include "Tools/vympack/Defect.h"

namespace vympack::defect {

// The container.
inline constexpr DefectKind kBadTrailer{
    "bad-trailer", Severity::error,
    "vymkit and vymkit-cli take the file for no package and end (66)"};
inline constexpr DefectKind kBadCount{
    "bad-count", Severity::error,
    "vymkit and vymkit-cli take a count below 1 for no package (66), and search beyond the table"
    " where it is too high"};
inline constexpr DefectKind kTableOutOfBounds{
    "table-out-of-bounds", Severity::error,
    "vymkit and vymkit-cli find only the files whose entries are there; without a description they"
    " end (66)"};
inline constexpr DefectKind kEntryOutOfBounds{
    "entry-out-of-bounds", Severity::error,
    "vymkit-cli refuses a file that is not wholly there: update sends nothing (66)"};
inline constexpr DefectKind kEntryOverlap{
    "entry-overlap", Severity::error,
    "vymkit-cli update sends the bytes of another file, or of the table, as firmware"};
inline constexpr DefectKind kPackageTooLarge{
    "package-too-large", Severity::error,
    "positions have 32 bits: vympack make refuses it, for no program could reach what lies beyond"
    " 4 GiB"};

// Its entries.
inline constexpr DefectKind kNameTooLong{"name-too-long", Severity::error,
                                         "a package has room for 31 bytes of a file's name:"
                                         " vympack make refuses it"};
inline constexpr DefectKind kNameNotTerminated{
    "name-not-terminated", Severity::error,
    "vymkit-cli takes all 32 bytes for the name; another reader may read on beyond them"};
inline constexpr DefectKind kNamePadding{
    "name-padding", Severity::warning,
    "vymkit-cli reads the name up to its NUL; another reader may compare all 32 bytes"};
inline constexpr DefectKind kNameEmpty{"name-empty", Severity::error,
                                       "no VERSION row can name the file"};
inline constexpr DefectKind kNameUnsafe{
    "name-unsafe", Severity::error,
    "vympack extract does not unpack the file, and a terminal may act on its name"};
inline constexpr DefectKind kDuplicateName{"duplicate-name", Severity::error,
                                           "vymkit-cli reads the first file of that name only"};
inline constexpr DefectKind kSingleEntry{
    "single-entry", Severity::error,
    "vymkit and vymkit-cli take a container with one file for no package (66)"};
inline constexpr DefectKind kNoDescription{
    "no-description", Severity::error,
    "vymkit and vymkit-cli find no description in the package and end (66)"};
inline constexpr DefectKind kDescriptionTooLarge{
    "description-too-large", Severity::error,
    "vymkit and vymkit-cli load no description above 16 MiB and end (66)"};
inline constexpr DefectKind kEmptyImage{
    "empty-image", Severity::warning, "vymkit-cli update sends the printer a firmware of 0 bytes"};

// The bytes of the description.
inline constexpr DefectKind kByteOrderMark{
    "byte-order-mark", Severity::error,
    "vymkit and vymkit-cli pass the first row over, because it no longer begins with its key"};
inline constexpr DefectKind kNulByte{
    "nul-byte", Severity::error,
    "for vymkit and vymkit-cli a file's name ends at that byte; other texts show \\x00 there"};
inline constexpr DefectKind kBareLineFeed{
    "bare-line-feed", Severity::error,
    "for vymkit and vymkit-cli rows end in CR LF only: the next row becomes a part of this one"};
inline constexpr DefectKind kBareCarriageReturn{
    "bare-carriage-return", Severity::error,
    "for vymkit and vymkit-cli rows end in CR LF only: the next row becomes a part of this one"};

// Its rows and their keys.
inline constexpr DefectKind kUnknownKey{
    "unknown-key", Severity::warning,
    "every program ignores a row of no key; a key takes every row that begins with it"};
inline constexpr DefectKind kLeadingBlank{
    "leading-blank", Severity::error,
    "vymkit and vymkit-cli pass the row over, because it does not begin with its key"};
inline constexpr DefectKind kDuplicateKey{"duplicate-key", Severity::warning,
                                          "every program reads the first row of a key only"};
inline constexpr DefectKind kPrefixShadow{
    "prefix-shadow", Severity::warning,
    "every program reads the first row that begins with the key"};
inline constexpr DefectKind kMissingKey{
    "missing-key", Severity::error,
    "vymkit-cli does not know for which model the package is: update and check refuse it (66)"};
inline constexpr DefectKind kMissingOptionalKey{
    "missing-key", Severity::warning,
    "the window names no model, or vymkit-cli printers recognises no print queue"};

// Its values.
inline constexpr DefectKind kEmptyValue{
    "empty-value", Severity::error, "vymkit and vymkit-cli read a row without a value as missing"};
inline constexpr DefectKind kEmptyList{
    "empty-value", Severity::warning, "vymkit and vymkit-cli read a list without a value as empty"};
inline constexpr DefectKind kUnreadText{"unread-text", Severity::warning,
                                        "no program reads what follows the first word here"};
inline constexpr DefectKind kUnbalancedQuote{
    "unbalanced-quote", Severity::warning,
    "every program takes the rest of the row as one word, blanks included"};
inline constexpr DefectKind kUnprintableText{
    "unprintable-text", Severity::warning,
    "vymkit, vymkit-cli and a printer's display show escapes or other signs in its place"};
inline constexpr DefectKind kBadYesNo{
    "bad-yes-no", Severity::error,
    "an update ends with an error (19) where it needs the answer; other answers count as no"};
inline constexpr DefectKind kBadNumber{"bad-number", Severity::error,
                                       "vymkit-cli refuses a package with another port (66), and "
                                       "reads a time as far as it is a number"};
inline constexpr DefectKind kNoUpdateTime{
    "no-update-time", Severity::error,
    "vymkit-cli update and check end before any firmware is sent"};
inline constexpr DefectKind kNoPlatformVersion{
    "no-platform-version", Severity::error,
    "the window says that the package is not for this system, and ends"};
inline constexpr DefectKind kBadPlatformVersion{
    "bad-platform-version", Severity::error,
    "the window may say that the package is not for this system, and end"};
inline constexpr DefectKind kBadDefaultAddress{
    "bad-default-address", Severity::warning,
    "no program uses the address today; one that does could not"};
inline constexpr DefectKind kNoUsbModel{
    "no-usb-model", Severity::warning,
    "the window and vymkit-cli printers compare a USB printer's model up to its first blank or"
    " \"(\" with TGMNAME: no USB printer without a queue can be found"};

// Its VERSION rows.
inline constexpr DefectKind kNoVersionRow{
    "no-version-row", Severity::error, "vymkit-cli refuses a package that lists no firmware (66)"};
inline constexpr DefectKind kTooManyVersions{
    "too-many-versions", Severity::error,
    "vymkit-cli refuses a package of more than 1000 firmware (66)"};
inline constexpr DefectKind kNoFirmwareName{
    "no-firmware-name", Severity::error,
    "no printer lists a firmware without a name: an update passes the row over"};
inline constexpr DefectKind kVersionNameNotFirst{
    "version-name-not-first", Severity::error,
    "no printer lists a firmware without a name: an update passes the row over"};
inline constexpr DefectKind kFirmwareNameDigit{
    "firmware-name-digit", Severity::warning,
    "an update cuts the printer's firmware names before their first digit, and passes the row"
    " over"};
inline constexpr DefectKind kDuplicateFirmware{
    "duplicate-firmware", Severity::warning,
    "an update sends the printer one image after the other for the same firmware"};
inline constexpr DefectKind kUnknownVersionForm{
    "unknown-version-form", Severity::error,
    "an update ends here with an error (15) unless it sends the row without comparing"};
inline constexpr DefectKind kVersionWithoutNumber{
    "version-without-number", Severity::warning,
    "an update takes the version for the number 0, which is newer than no other"};
inline constexpr DefectKind kVersionTail{"version-tail", Severity::warning,
                                         "an update does not compare what follows"};
inline constexpr DefectKind kCompatibleIgnored{
    "compatible-ignored", Severity::warning,
    "an update sends the firmware to printers of any older version"};
inline constexpr DefectKind kNeverSent{
    "never-sent", Severity::warning,
    "under the package's ALLOWVERSIONDOWN an update sends this firmware to no printer"};
inline constexpr DefectKind kNoImageName{"no-image-name", Severity::error,
                                         "vymkit-cli finds no image: update refuses to begin (66)"};
inline constexpr DefectKind kImageMissing{
    "image-missing", Severity::error, "vymkit-cli finds no image: update refuses to begin (66)"};
inline constexpr DefectKind kImageUnused{"image-unused", Severity::warning,
                                         "no update sends the file"};
inline constexpr DefectKind kNoSubFileName{
    "no-sub-file-name", Severity::warning,
    "an update sends the firmware under an empty name, which a printer may refuse"};
inline constexpr DefectKind kSubFileNameTooLong{
    "sub-file-name-too-long", Severity::error,
    "an update sends the firmware under an empty name, which a printer may refuse"};
inline constexpr DefectKind kQuotedToken{"quoted-token", Severity::warning,
                                         "an update compares and sends the text with its quotes"};
inline constexpr DefectKind kUnknownToken{"unknown-token", Severity::warning,
                                          "no program reads the token"};

} // namespace vympack::defect
