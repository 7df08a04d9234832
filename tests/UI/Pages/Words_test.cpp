// SPDX-License-Identifier: MIT
#include "UI/Pages/Words.h"

#include <QCoreApplication>
#include <QTranslator>
#include <gtest/gtest.h>

namespace {

class Formats : public QTranslator {
public:
    [[nodiscard]] QString translate(const char* context, const char* key, const char*,
                                    int) const override
    {
        return QLatin1String(context) + u'/' + QLatin1String(key) + QStringLiteral(" <%u>");
    }
    [[nodiscard]] bool isEmpty() const override { return false; }
};

} // namespace

TEST(Words, AreTheKeyItselfWithoutATable)
{
    EXPECT_EQ(words::plain("Some_Key"), "Some_Key");
    EXPECT_EQ(words::text("Some_Key"), "Some_Key");
}

TEST(Words, AreFormatsOfTheTableThatTakeAnArgument)
{
    Formats formats;
    QCoreApplication::installTranslator(&formats);
    EXPECT_EQ(words::plain("Key"), "Localizable/Key <%u>");
    EXPECT_EQ(words::text("Key"), "Localizable/Key <%u>");
    EXPECT_EQ(words::text("Key", 7), "Localizable/Key <7>");
    EXPECT_EQ(words::text("Key", std::string("\xC3\xA9")), "Localizable/Key <\u00E9>");
    EXPECT_EQ(words::filled("Key", "x"), "Localizable/Key <x>");
}
