// SPDX-License-Identifier: MIT
#include "UI/Pages/UnlistedPrinters.h"
#include "tests/UI/Wizard.h"

#include <QClipboard>
#include <QLineEdit>
#include <QScreen>
#include <gtest/gtest.h>

namespace {

PrinterFinding finding(const char* name, PrinterReason reason, const char* uri)
{
    PrinterFinding made;
    made.printer = PrinterInfo::initWithPrinterName(name, "", uri);
    made.reason = reason;
    made.sameAs = "the other";
    made.answeredModel = "Another 7";
    return made;
}

QStringList textsOf(const UnlistedPrinters& shown)
{
    QStringList texts;
    for (const auto* label : shown.findChildren<QLabel*>())
        texts << label->text();
    return texts;
}

QPushButton* button(const UnlistedPrinters& shown, const QString& text)
{
    for (auto* each : shown.findChildren<QPushButton*>()) {
        if (each->text() == text)
            return each;
    }
    return nullptr;
}

} // namespace

TEST(UnlistedPrinters, GiveEveryPrinterThatIsNotInTheListAReason)
{
    const struct {
        PrinterReason reason;
        const char* uri;
        const char* key;
    } rows[] = {
        {PrinterReason::noModel, "", "Device_WhyNoModel"},
        {PrinterReason::otherDriver, "", "Device_WhyOtherDriver"},
        {PrinterReason::noDeviceUri, "", "Device_WhyNoAddress"},
        {PrinterReason::otherConnection, "socket://a", "Device_WhyOtherConnection"},
        {PrinterReason::otherConnection, "tzrq://a", "Device_WhyDriverAddress"},
        {PrinterReason::noSerial, "", "Device_WhyNoSerial"},
        {PrinterReason::duplicate, "", "Device_WhyDuplicate"},
        {PrinterReason::notPermitted, "", "Device_WhyNotPermitted"},
        {PrinterReason::noAnswer, "", "Device_WhyNoAnswer"},
        {PrinterReason::otherModel, "", "Device_WhyOtherModel"},
    };
    TargetPrinters found;
    found.findings = {finding("In the list", PrinterReason::candidate, "net:192.0.2.1")};
    for (const auto& row : rows) {
        found.findings.push_back(finding(row.key, row.reason, row.uri));
        EXPECT_EQ(unlistedReason(found.findings.back()), row.key);
    }
    const UnlistedPrinters shown(found, true, nullptr);
    const auto texts = textsOf(shown);
    EXPECT_FALSE(texts.contains("In the list"));
    EXPECT_FALSE(texts.contains("Device_WhyNothing"));
    for (const auto& row : rows)
        EXPECT_GE(texts.count(QLatin1String(row.key)), 2) << row.key; // name and reason
}

TEST(UnlistedPrinters, SayThatThereAreNoneAndWhyQueuesAreUnknown)
{
    TargetPrinters found;
    found.serverProblem = "no answer\x1b";
    const UnlistedPrinters shown(found, true, nullptr);
    EXPECT_TRUE(textsOf(shown).contains("Device_WhyNothing"));
    EXPECT_TRUE(textsOf(shown).contains("Device_WhyServer"));
    EXPECT_TRUE(textsOf(shown).contains("Device_WhyNetwork"));
    const UnlistedPrinters queuesOnly(found, false, nullptr);
    EXPECT_FALSE(textsOf(queuesOnly).contains("Device_WhyNetwork"));
}

TEST(UnlistedPrinters, OfferTheAddressOfAQueueOfAnotherConnection)
{
    const Language english("en");
    TargetPrinters found;
    found.findings = {finding("Q", PrinterReason::otherConnection, "socket://192.0.2.7:9100")};
    UnlistedPrinters shown(found, true, nullptr);
    shown.show();
    auto* use = button(shown, "Use 192.0.2.7");
    ASSERT_NE(use, nullptr);
    use->click();
    EXPECT_FALSE(shown.isVisible());
    EXPECT_EQ(shown.address(), (std::vector<std::string>{"192", "0", "2", "7"}));
    const UnlistedPrinters queuesOnly(found, false, nullptr);
    EXPECT_EQ(button(queuesOnly, "Use 192.0.2.7"), nullptr);
}

TEST(UnlistedPrinters, HaveTheUdevRuleToCopy)
{
    TargetPrinters found;
    found.findings = {finding("P", PrinterReason::notPermitted, "usb://m/p?serial=1")};
    const UnlistedPrinters shown(found, true, nullptr);
    const auto* line = shown.findChild<QLineEdit*>();
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->text().toStdString(), udevRuleLine());
    EXPECT_NE(line->accessibleName(), "");
    button(shown, "Device_CopyLine")->click();
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), udevRuleLine() + "\n");
}

TEST(UnlistedPrinters, FitOnTheScreenWithManyPrintersAndALargeFontInEveryLanguage)
{
    const auto usual = QApplication::font();
    auto large = usual;
    large.setPointSizeF(26);
    TargetPrinters found;
    for (int i = 0; i < 20; ++i)
        found.findings.push_back(
            finding("A printer", PrinterReason::notPermitted, "usb://m/p?serial=1"));
    for (const auto* language : kLanguages) {
        const Language table(language);
        for (const auto& font : {usual, large}) {
            QApplication::setFont(font);
            UnlistedPrinters shown(found, true, nullptr);
            shown.show();
            settle();
            const auto screen = shown.screen()->availableSize();
            EXPECT_LE(shown.width(), screen.width()) << language;
            EXPECT_LE(shown.height(), screen.height()) << language;
        }
    }
    QApplication::setFont(usual);
}
