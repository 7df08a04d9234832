// SPDX-License-Identifier: MIT
#include "UI/Support/Masking.h"

#include <gtest/gtest.h>

namespace {

using Kind = Masking::Kind;

// A user "anna" of "anna-laptop.example", and one printer of each kind.
Masking anna()
{
    Masking masking;
    masking.hide(Kind::home, std::vector<std::string>{"/home/anna", "/home/anna/"});
    masking.hide(Kind::user, "anna");
    masking.hide(Kind::computer, "anna-laptop.example");
    masking.hide(Kind::host, "lab-7.example");
    masking.hide(Kind::address, "192.0.2.7");
    masking.hide(Kind::serial, "VX900177");
    masking.hide(Kind::folder, "/home/anna/Secret Project");
    masking.hide(Kind::package, "plan-b.vymbind");
    return masking;
}

} // namespace

TEST(Masking, GivesEachValueTheSameStandInWhereverItOccurs)
{
    const struct {
        const char* why;
        const char* text;
        const char* masked;
    } rows[] = {
        {"a path", "/home/anna/x", "<home>/x"},
        {"a name", "anna: ok", "<user>: ok"},
        {"any case", "Anna ANNA", "<user> <user>"},
        {"the longest counts", "/home/anna/Secret Project/plan-b.vymbind",
         "<folder-1>/<package-1>"},
        {"the computer before its user", "anna@anna-laptop", "<user>@<this-computer>"},
        {"with its domain", "anna-laptop.example.", "<this-computer>."},
        {"a part of a longer name", "anna-scan", "<user>-scan"},
        {"a port string", "lpd://lab-7/q", "lpd://<host-1>/q"},
        {"an address, not its beginning", "192.0.2.7 192.0.2.70", "<address-1> 192.0.2.70"},
        {"percent-encoded", "usb://A/B?serial=%56X9001%37%37", "usb://A/B?serial=<serial-1>"},
        {"an encoded path", "file%3A%2F%2Fhome%2Fanna%2FSecret%20Project%2Fx",
         "file%3A%2F<folder-1>%2Fx"},
        {"JSON", "{\"path\":\"\\/home\\/anna\\/x\",\"serial\":\"vx900177\"}",
         "{\"path\":\"<home>\\/x\",\"serial\":\"<serial-1>\"}"},
        {"JSON, escaped letters", "\\u0061nna", "<user>"},
        {"a serial number in a word", "VYMVX900177X", "VYM<serial-1>X"},
        {"part of a longer word", "susanna annas /home/annabel", "susanna annas /home/annabel"},
        {"letters beyond ASCII are letters", "anna\xc3\xa4", "anna\xc3\xa4"},
        {"the rest stays as it is, also encoded", "100 %25 \\n \\u00e4", "100 %25 \\n \\u00e4"},
        {"empty", "", ""},
    };
    const auto masking = anna();
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(masking.masked(row.text), row.masked);
    }
}

TEST(Masking, MasksAShortOrOrdinaryNameOnlyWhereItStandsAsAName)
{
    Masking masking;
    masking.hide(Kind::home, "/home/a");
    masking.hide(Kind::user, "a");
    masking.hide(Kind::host, "printer.example");
    EXPECT_EQ(masking.masked("open a printer as a@b, /home/a/x, \"a\", user=a"),
              "open a printer as <user>@b, <home>/x, \"<user>\", user=<user>");
    EXPECT_EQ(masking.masked("The printer at lpd://printer/q and printer.example is a printer."),
              "The printer at lpd://<host-1>/q and <host-1> is a printer.");
}

TEST(Masking, IgnoresWhatIsNoName)
{
    Masking masking;
    for (const auto* nothing : {"", ".", "/", "..", " ", "-"}) {
        masking.hide(Kind::folder, nothing);
        masking.hide(Kind::user, nothing);
    }
    EXPECT_EQ(masking.masked("a/b ./c - . .."), "a/b ./c - . ..");
    masking.hide(Kind::folder, "stick");
    EXPECT_EQ(masking.masked("stick"), "<folder-1>");
}

TEST(Masking, NumbersTheValuesOfAKindAndKeepsTheNumbers)
{
    Masking masking;
    masking.hide(Kind::host, "first");
    masking.hide(Kind::host, "second");
    masking.hide(Kind::host, "FIRST");
    masking.hide(Kind::user, "anna");
    masking.hide(Kind::user, "Anna Vogel");
    masking.hide(Kind::folder, std::vector<std::string>{"stick", "/media/stick"});
    EXPECT_EQ(masking.masked("second first /media/stick stick"),
              "<host-2> <host-1> <folder-1> <folder-1>");
    EXPECT_EQ(masking.masked("anna, Anna Vogel"), "<user>, <user-2>");
}

TEST(Masking, HidesWhatATextMarks)
{
    const std::string text = "address: usb://Acme/M%201?serial=AB%2F12\n"
                             "then lpd://lab-9.example/q at 192.0.2.9 (fe80::1), AB/12 and lab-9";
    Masking masking;
    masking.hideMarked(text);
    EXPECT_EQ(masking.masked(text),
              "address: usb://Acme/M%201?serial=<serial-1>\n"
              "then lpd://<host-1>/q at <address-1> (<address-2>), <serial-1> and <host-1>");
}

TEST(Masking, HidesAValueThatWasTooLongForItsLine)
{
    const std::string host(250, 'h');
    Masking masking;
    masking.hide(Kind::host, host);
    EXPECT_EQ(masking.masked(host.substr(0, 197) + "..."), "<host-1>...");
}

TEST(Masking, TakesLittleTimeForManyValues)
{
    std::string text;
    for (int i = 0; text.size() < 200000; ++i)
        text += "10." + std::to_string(i / 62500) + "." + std::to_string(i / 250 % 250) + "."
            + std::to_string(i % 250) + " ";
    Masking masking;
    masking.hideMarked(text);
    EXPECT_EQ(masking.masked(text).find("10."), std::string::npos); // and ends
}

TEST(Masking, LeavesNothingPersonalBehind)
{
    const auto masking = anna();
    for (const std::string secret : {"/home/anna", "anna", "anna-laptop", "lab-7.example", "lab-7",
                                     "192.0.2.7", "VX900177", "Secret Project", "plan-b.vymbind"}) {
        std::string encoded;
        std::string escaped;
        for (const char c : secret) {
            constexpr auto kDigits = "0123456789ABCDEF";
            const auto byte = static_cast<unsigned char>(c);
            const std::string digits = {kDigits[byte >> 4], kDigits[byte & 15]};
            encoded += "%" + digits;
            escaped += "\\u00" + digits;
        }
        const std::string place = secret == "Secret Project" ? "/home/anna/" : "";
        for (const auto& form : {secret, encoded, escaped}) {
            for (const auto* around :
                 {" | ", "/|/", "\"|\"", "(|)", "=|&", ": |\n", ".|.", ",|,"}) {
                const std::string frame(around);
                const auto bar = frame.find('|');
                const auto text = frame.substr(0, bar) + place + form + frame.substr(bar + 1);
                SCOPED_TRACE(text);
                const auto shown = masking.masked(text);
                EXPECT_EQ(shown.find(form), std::string::npos) << shown;
                EXPECT_NE(shown.find('<'), std::string::npos) << shown;
            }
        }
    }
}
