// SPDX-License-Identifier: MIT
// Defects of the description's bytes, of its keys, and of the values of all keys but VERSION.
#include "VYM/vymMac.h"
#include "tests/system/defects/Defective.h"

namespace defects {

namespace {

using namespace vympack::defect;

// info shows this value under that key.
template <class T> std::function<void(Defective&)> shows(const char* key, T value)
{
    return [key, value](Defective& package) { EXPECT_EQ(package.package()[key], Json(value)); };
}

// The window's decision, of which the command line only warns.
void isNotForThisSystem(Defective& package)
{
    constexpr unsigned long kLowestCompared = 0x1000; // see UI/Package/SystemCheck.h
    EXPECT_EQ(package.check()["warning"].is_null(), getSystemVersion() < kLowestCompared);
}

void updates(Defective& package)
{
    EXPECT_EQ(package.update()["exit_code"], 0);
}

void showsEscapes(Defective& package)
{
    EXPECT_EQ(package.package()["model_names"][0], "Mo\\x1bdel A");
}

std::vector<Row> byteRows()
{
    return {
        {"AByteOrderMark", kByteOrderMark, changed("TGMNAME", "\xEF\xBB\xBFTGMNAME"), isNotSent},
        {"ANulByteInAText", kNulByte, changed("\"Model A\"", std::string("\"Mo\0del A\"", 10)),
         shows("model_names", std::vector<std::string>{"Mo\\x00del A"})},
        {"ANulByteInAName",
         kNulByte,
         changed("main.img", std::string("main.img\0junk", 13)),
         isSentAll,
         {"image-missing", "image-unused"}},
        {"ABareLineFeed", kBareLineFeed, changed("ENTERTIME 1\r\n", "ENTERTIME 1\n"),
         shows("exit_seconds", 0)},
        {"ABareCarriageReturn", kBareCarriageReturn, changed("ENTERTIME 1\r\n", "ENTERTIME 1\r"),
         shows("exit_seconds", 0)},
    };
}

std::vector<Row> keyRows()
{
    return {
        {"ARowOfNoKey", kUnknownKey, changed("ENTERTIME 1", "ENTRETIME 1"),
         shows("enter_seconds", 0)},
        {"AKeyWithMoreLetters", kUnknownKey, changed("ENTERTIME 1", "ENTERTIMES 7"),
         shows("enter_seconds", 7)},
        {"BlanksBeforeAKey", kLeadingBlank, changed("ENTERTIME", " ENTERTIME"),
         shows("enter_seconds", 0)},
        {"AKeyTwice", kDuplicateKey, changed("ENTERTIME 1", "ENTERTIME 1\r\nENTERTIME 7"),
         shows("enter_seconds", 1)},
        {"ALongerKeyBeforeItsBeginning", kPrefixShadow,
         changed("PORT NET\r\nPORTNO 48350", "PORTNO 48350\r\nPORT NET"),
         shows("ports", std::vector<std::string>{"48350"})},
        {"NoModel", kMissingKey, changed("TGMNAME MODEL-A\r\n", ""), isNotSent},
        {"NoModelNames", kMissingOptionalKey, changed("MODELNAME \"Model A\"\r\n", ""),
         shows("model_names", std::vector<std::string>{})},
        {"NoDriverNames", kMissingOptionalKey, changed("DRIVERNAME A\r\n", ""),
         shows("driver_names", std::vector<std::string>{})},
    };
}

std::vector<Row> textRows()
{
    return {
        {"AModelWithoutAValue", kEmptyValue, changed("TGMNAME MODEL-A", "TGMNAME"), isNotSent},
        {"AListWithoutAValue", kEmptyList, changed("DRIVERNAME A", "DRIVERNAME"),
         shows("driver_names", std::vector<std::string>{})},
        {"TextAfterTheFirstWord", kUnreadText, changed("TGMNAME MODEL-A", "TGMNAME MODEL-A II"),
         shows("model", "MODEL-A")},
        {"AQuoteThatIsNeverClosed", kUnbalancedQuote,
         changed("MODELNAME \"Model A\"", "MODELNAME \"Model A"),
         shows("model_names", std::vector<std::string>{"Model A"})},
        {"AControlCharacter", kUnprintableText,
         changed("\"Model",
                 "\"Mo\x1B"
                 "del"),
         showsEscapes},
        {"AnAnswerThatIsNone", kBadYesNo, changed("ALLOWVERSIONDOWN NO", "ALLOWVERSIONDOWN MAYBE"),
         endsWith(19)},
        {"AnotherAnswerThatIsNone", kBadYesNo,
         changed("PORT NET", "PORT NET\r\nNEEDENTEROPERATION MAYBE"),
         shows("needs_enter_operation", false)},
        {"ADefaultAddressThatIsNone", kBadDefaultAddress,
         changed("PORT NET", "PORT NET\r\nDEFAULTIPADDRESS nowhere"), updates},
    };
}

std::vector<Row> numberRows()
{
    return {
        {"APortOfZero", kBadNumber, changed("PORTNO 48350", "PORTNO 0"), isNoPackage},
        {"ATimeWithoutDigits", kBadNumber, changed("ENTERTIME 1", "ENTERTIME soon"),
         shows("enter_seconds", 0)},
        {"ATimeThatNoClockHolds", kBadNumber, changed("ENTERTIME 1", "ENTERTIME 999999999"),
         updates},
        {"NoTimeForAFirmware", kNoUpdateTime, changed("UPDATETIME 3\r\n", ""), isNotSent},
        {"NoSystem", kNoPlatformVersion, changed("PLATFORMVERSION MACOS=0\r\n", ""),
         isNotForThisSystem},
        {"ASystemBelowItsOwnLowest", kBadPlatformVersion, changed("MACOS=0", "MACOS=1058 1040"),
         isNotForThisSystem},
        {"AModelThatNoUsbPrinterNames", kNoUsbModel,
         changed({{"TGMNAME MODEL-A", "TGMNAME \"MODEL A\""}}), shows("model", "MODEL A")},
    };
}

} // namespace

std::vector<Row> settingRows()
{
    std::vector<Row> all;
    for (const auto& some : {byteRows(), keyRows(), textRows(), numberRows()})
        for (const auto& row : some)
            all.push_back(row);
    return all;
}

} // namespace defects
