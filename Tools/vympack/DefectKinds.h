// Every kind of defect that a package can have. An error is what makes an update fail, end early
// or pass a firmware over; a warning is what most likely was meant otherwise.
//
// Threads: any; constants.
#pragma once
#include "Tools/vympack/Defect.h"

namespace vympack::defect {

// The container.
inline constexpr DefectKind kBadTrailer{"bad-trailer", Severity::error};
inline constexpr DefectKind kBadCount{"bad-count", Severity::error};
inline constexpr DefectKind kTableOutOfBounds{"table-out-of-bounds", Severity::error};
inline constexpr DefectKind kEntryOutOfBounds{"entry-out-of-bounds", Severity::error};
inline constexpr DefectKind kEntryOverlap{"entry-overlap", Severity::warning};
inline constexpr DefectKind kPackageTooLarge{"package-too-large", Severity::error};

// Its entries.
inline constexpr DefectKind kNameTooLong{"name-too-long", Severity::error};
inline constexpr DefectKind kNameNotTerminated{"name-not-terminated", Severity::error};
inline constexpr DefectKind kNamePadding{"name-padding", Severity::warning};
inline constexpr DefectKind kNameEmpty{"name-empty", Severity::error};
inline constexpr DefectKind kNameUnsafe{"name-unsafe", Severity::error};
inline constexpr DefectKind kDuplicateName{"duplicate-name", Severity::error};
inline constexpr DefectKind kSingleEntry{"single-entry", Severity::error};
inline constexpr DefectKind kNoDescription{"no-description", Severity::error};
inline constexpr DefectKind kDescriptionTooLarge{"description-too-large", Severity::error};
inline constexpr DefectKind kEmptyImage{"empty-image", Severity::warning};

// The bytes of the description.
inline constexpr DefectKind kByteOrderMark{"byte-order-mark", Severity::error};
inline constexpr DefectKind kNulByte{"nul-byte", Severity::error};
inline constexpr DefectKind kBareLineFeed{"bare-line-feed", Severity::error};
inline constexpr DefectKind kBareCarriageReturn{"bare-carriage-return", Severity::error};

// Its rows and their keys.
inline constexpr DefectKind kUnknownKey{"unknown-key", Severity::warning};
inline constexpr DefectKind kLeadingBlank{"leading-blank", Severity::error};
inline constexpr DefectKind kDuplicateKey{"duplicate-key", Severity::warning};
inline constexpr DefectKind kPrefixShadow{"prefix-shadow", Severity::warning};
inline constexpr DefectKind kMissingKey{"missing-key", Severity::error};
inline constexpr DefectKind kMissingOptionalKey{"missing-key", Severity::warning};

// Its values.
inline constexpr DefectKind kEmptyValue{"empty-value", Severity::error};
inline constexpr DefectKind kEmptyList{"empty-value", Severity::warning};
inline constexpr DefectKind kUnreadText{"unread-text", Severity::warning};
inline constexpr DefectKind kUnbalancedQuote{"unbalanced-quote", Severity::warning};
inline constexpr DefectKind kBadYesNo{"bad-yes-no", Severity::error};
inline constexpr DefectKind kBadNumber{"bad-number", Severity::error};
inline constexpr DefectKind kNoUpdateTime{"no-update-time", Severity::error};
inline constexpr DefectKind kNoPlatformVersion{"no-platform-version", Severity::error};
inline constexpr DefectKind kBadPlatformVersion{"bad-platform-version", Severity::error};
inline constexpr DefectKind kBadDefaultAddress{"bad-default-address", Severity::warning};

// Its VERSION rows.
inline constexpr DefectKind kNoVersionRow{"no-version-row", Severity::error};
inline constexpr DefectKind kNoFirmwareName{"no-firmware-name", Severity::error};
inline constexpr DefectKind kVersionNameNotFirst{"version-name-not-first", Severity::error};
inline constexpr DefectKind kFirmwareNameDigit{"firmware-name-digit", Severity::warning};
inline constexpr DefectKind kUnknownVersionForm{"unknown-version-form", Severity::error};
inline constexpr DefectKind kVersionWithoutNumber{"version-without-number", Severity::warning};
inline constexpr DefectKind kVersionTail{"version-tail", Severity::warning};
inline constexpr DefectKind kCompatibleIgnored{"compatible-ignored", Severity::warning};
inline constexpr DefectKind kNoImageName{"no-image-name", Severity::error};
inline constexpr DefectKind kImageMissing{"image-missing", Severity::error};
inline constexpr DefectKind kImageUnused{"image-unused", Severity::warning};
inline constexpr DefectKind kNoSubFileName{"no-sub-file-name", Severity::warning};
inline constexpr DefectKind kSubFileNameTooLong{"sub-file-name-too-long", Severity::error};
inline constexpr DefectKind kQuotedToken{"quoted-token", Severity::warning};
inline constexpr DefectKind kUnknownToken{"unknown-token", Severity::warning};

} // namespace vympack::defect
