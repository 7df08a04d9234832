// SPDX-License-Identifier: MIT
#include "DevConn/DevConnMgr.h"
#include "DevConn/DeviceId.h"

#include <gtest/gtest.h>
#include <string>

namespace {

using Search = char* (*)(char*);

// The search's result for this text, or "(none)".
std::string found(Search search, std::string text)
{
    const char* value = search(text.data());
    return value != nullptr ? value : "(none)";
}

} // namespace

TEST(ModelKey, IsFoundAmongTheKeysOfADeviceId)
{
    const struct {
        const char* why;
        const char* text;
        const char* model;
    } rows[] = {
        {"the short key", "MFG:Acme;CMD:X;MDL:P1;", "P1"},
        {"the long key", "MFG:Acme;MODEL:P 1;CLS:PRINTER;", "P 1"},
        {"the first key", "MDL:P1;MFG:Acme;", "P1"},
        {"no semicolon at the end", "MFG:Acme;MDL:P1", "P1"},
        {"the last one wins", "MDL:P1;MODEL:P2;", "P2"},
        {"small letters after the first", "Mdl:P1;", "P1"},
        {"a small first letter", "mdl:P1;", "(none)"},
        {"a blank before the key", "MFG:Acme; MDL:P1;", "(none)"},
        {"a key that only begins so", "MDLX:P1;", "(none)"},
        {"a key that only ends so", "XMDL:P1;", "(none)"},
        {"a blank before the colon", "MDL :P1;", "(none)"},
        {"an empty value", "MDL:;", ""},
        {"an empty value at the end", "MDL:", ""},
        {"a colon in a value", "MDL:P:1;", "P:1"},
        {"a key inside a value", "CMD:MDL:P1;", "(none)"},
        {"no colon", "MDL", "(none)"},
        {"only semicolons", ";;;", "(none)"},
        {"a semicolon is part of the next key", ";MDL:P1;", "(none)"},
        {"only colons", ":::", "(none)"},
        {"nothing", "", "(none)"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(found(deviceId::findModelKey, row.text), row.model) << row.why;
}

TEST(MakerKey, IsFoundAmongTheKeysOfADeviceId)
{
    EXPECT_EQ(found(deviceId::findMfgKey, "MFG:Acme;MDL:P1;"), "Acme");
    EXPECT_EQ(found(deviceId::findMfgKey, "MDL:P1;Mfg:Acme"), "Acme");
    EXPECT_EQ(found(deviceId::findMfgKey, "mfg:Acme;"), "(none)");
    EXPECT_EQ(found(deviceId::findMfgKey, "MANUFACTURER:Acme;"), "(none)");
}

TEST(KeySearch, TurnsTheSemicolonsThatItPassesIntoStringEnds)
{
    std::string text = "MFG:Acme;MDL:P1;X";
    EXPECT_STREQ(deviceId::findModelKey(text.data()), "P1");
    EXPECT_EQ(text, std::string("MFG:Acme\0MDL:P1\0X", 17));
}

TEST(KeySearch, FindsNoKeyInAMissingText)
{
    EXPECT_EQ(deviceId::findModelKey(nullptr), nullptr);
    EXPECT_EQ(deviceId::findMfgKey(nullptr), nullptr);
}

TEST(KeySearch, IsTheSameWhereverItIsOffered)
{
    const std::string text = "MFG:Acme;MDL:P1;";
    EXPECT_EQ(found(&DevConnBase::FindModelKey, text), "P1");
    EXPECT_EQ(found(&DevConnMgr::FindModelKey, text), "P1");
    EXPECT_EQ(found(&DevConnMgr::FindMFGKey, text), "Acme");
}

TEST(KeySearch, StaysInsideATextCutAnywhere)
{
    const std::string whole = "MFG:Acme;CMD:X,Y;MODEL:P1;MDL:P2;";
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const auto model = found(deviceId::findModelKey, whole.substr(0, length));
        EXPECT_TRUE(model == "(none)" || model == "" || model[0] == 'P') << length;
        EXPECT_LE(found(deviceId::findMfgKey, whole.substr(0, length)).size(), 6U) << length;
    }
}
