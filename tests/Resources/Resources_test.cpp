// SPDX-License-Identifier: MIT
#include "UI/Text/TextFormat.h"
#include "UI/Text/TextKeys.h"
#include "tests/support/TempFolder.h"

#include <QByteArray>
#include <QFile>
#include <QLocale>
#include <QString>
#include <QTranslator>
#include <gtest/gtest.h>
#include <regex>
#include <vector>

namespace {

std::vector<std::string> allKeys()
{
    const auto text = readFile(VYMKIT_TEXT_KEYS);
    const std::regex key(R"re(constexpr const char\* k\w+ = "([^"]+)";)re");
    std::vector<std::string> keys;
    for (std::sregex_iterator found(text.begin(), text.end(), key), end; found != end; ++found)
        if ((*found)[1] != kTextContext)
            keys.push_back((*found)[1]);
    return keys;
}

bool load(QTranslator& table, const char* locale)
{
    return table.load(QLocale(QString::fromUtf8(locale)), QStringLiteral("vymkit"),
                      QStringLiteral("_"), QStringLiteral(":/translations"));
}

std::string textOf(const QTranslator& table, const char* key)
{
    return table.translate(kTextContext, key).toStdString();
}

} // namespace

TEST(Texts, EveryKeyHasATextInEveryEmbeddedTable)
{
    const auto keys = allKeys();
    ASSERT_GT(keys.size(), 90U);
    for (const char* locale : {"en", "ja", "de", "fr", "es", "zh_CN"}) {
        SCOPED_TRACE(locale);
        QTranslator table;
        ASSERT_TRUE(load(table, locale));
        for (const auto& key : keys)
            EXPECT_NE(textOf(table, key.c_str()), "") << key;
    }
}

TEST(Texts, AreFoundByTheUsersCountryAndScript)
{
    const struct {
        const char* locale;
        const char* next;
    } rows[] = {
        {"en_US", "&Next"},      {"en_GB", "&Next"},           {"ja_JP", "次へ(&N)"},
        {"de_AT", "&Weiter"},    {"fr_CA", "&Suivant"},        {"es_MX", "&Siguiente"},
        {"zh_CN", "下一步(&N)"}, {"zh_Hans_CN", "下一步(&N)"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.locale);
        QTranslator table;
        EXPECT_TRUE(load(table, row.locale));
        EXPECT_EQ(textOf(table, textkey::kNext), row.next);
    }
}

TEST(Texts, OfALanguageWithoutATableAreLeftToTheEnglishOnes)
{
    for (const char* locale : {"pt_BR", "zh_TW", "C"}) {
        SCOPED_TRACE(locale);
        QTranslator table;
        load(table, locale);
        const auto text = textOf(table, textkey::kNext);
        EXPECT_TRUE(text.empty() || text == "&Next") << text;
    }
}

TEST(Texts, OfStagesTakeTheFirmwaresNumber)
{
    QTranslator table;
    ASSERT_TRUE(load(table, "ja"));
    EXPECT_EQ(formatText(textOf(table, textkey::kStateWriteUpdatePlural), 2U),
              "2 番目のファームウェアを書き込んでいます…");
}

TEST(Icons, AreEmbedded)
{
    for (const char* name : {"vymkit", "note", "caut", "error", "printer", "usb", "network"}) {
        QFile file(QStringLiteral(":/icons/%1.svg").arg(QString::fromUtf8(name)));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
        EXPECT_TRUE(file.readAll().startsWith("<svg ")) << name;
    }
}
