#include "bands/catalogue.h"
#include "results/report/report_page.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace qor {
namespace {

ResultDocument SweepResult() {
    ResultDocument document;
    document.band = BandEgsm;
    document.order = 3;
    document.method = ResultMethod::Sweep;
    document.reflection = true;
    document.model = "RT-DB22";
    document.serial = "SIM01";
    document.deviceSerial = "A17";
    document.date = "20260307";
    document.time = "09:05";
    document.plan.f1Start = 925;
    document.plan.f1Stop = 937;
    document.plan.f1Fix = 925;
    document.plan.f2Start = 960;
    document.plan.f2Stop = 946;
    document.plan.f2Fix = 960;
    document.power1 = document.power2 = 43;
    document.carrier = 43;
    document.limit = -97.0f;
    document.runs.push_back({{{890.0, -100.5f}, {891.0, -98.25f}}, {{890.0, -101.0f}}});
    document.verdict = ResultVerdict::Passed;
    document.pointsTaken = document.pointsAsked = 3;
    return document;
}

std::string Row(std::string text) {
    text.resize(38, ' ');
    return text + "\r\n";
}

/// "x,y font colour text" of every text.
std::vector<std::string> Told(const ReportPage& page) {
    std::vector<std::string> told;
    for (const PageText& text : page.texts)
        told.push_back(std::to_string(text.x) + "," + std::to_string(text.y) + " " +
                       std::to_string(text.font.height) + "x" + std::to_string(text.font.width) + " " +
                       (text.colour == 0x050000   ? ""
                        : text.colour == 0xFF0000 ? "red "
                                                  : "? ") +
                       text.text);
    return told;
}

std::string TextAt(const ReportPage& page, int x, int y) {
    for (const PageText& text : page.texts) {
        if (text.x == x && text.y == y)
            return text.text;
    }
    return "nothing";
}

TEST(ReportPage, EveryTextStandsAtItsPlace) {
    ResultDocument document = SweepResult();
    document.comment = std::string(20, '0') + Row("first row") + Row("") + Row("third");
    ReportExtras extras;
    extras.language = ReportLanguage::English;
    extras.keepSerial = true;
    extras.markers = {{{"891.0", "-98.2"}, {}, {"890.0", "-101.0"}}};
    const ReportPage english = LayOutPage(document, extras);
    EXPECT_EQ(Told(english), (std::vector<std::string>{
                                 "200,90 40x16       PIM Test Results",
                                 "15,250 21x8 Band/Model/SN:",
                                 "225,250 21x8 EGSM 900/RT-DB22/SIM01",
                                 "15,275 21x8 IM Order:",
                                 "225,275 21x8 IM3",
                                 "15,300 21x8 Transmission/Reflection:",
                                 "225,300 21x8 Reflection",
                                 "15,325 21x8 Measuring Method:",
                                 "225,325 21x8 Sweep Mode",
                                 "225,350 21x8 Signal Gen 1---Signal Gen 2",
                                 "15,375 21x8 Output Power:",
                                 "225,375 21x8 43.0dBm        43.0dBm",
                                 "15,400 21x8 Fixed Frequency:",
                                 "225,400 21x8 925.0MHz       960.0MHz",
                                 "15,425 21x8 Sweep Start Frequency:",
                                 "225,425 21x8 925.0MHz       960.0MHz",
                                 "15,450 21x8 Sweep End Frequency:",
                                 "225,450 21x8 937.0MHz       946.0MHz",
                                 "15,475 21x8 Worst Point:",
                                 "225,475 21x8 891.0MHz/-98.2dBm",
                                 "15,500 21x8 Test Date:",
                                 "225,500 21x8 2026-03-07 09:05",
                                 "550,250 21x8 first row",
                                 "550,300 21x8 third",
                                 "550,425 21x8 Marker1: 891.0MHz  -98.2dBm",
                                 "550,450 21x8 Marker3: 890.0MHz  -101.0dBm",
                                 "550,475 21x8 Alarm Limit Line: -97.0dBm",
                                 "550,500 21x8 Ser No.     A17",
                             }));
    EXPECT_EQ(english.plot, (PagePlace{0, 606, 956, 606}));
    EXPECT_FALSE(english.logo);

    extras.language = ReportLanguage::German;
    document.inDbc = true;
    document.reflection = false;
    EXPECT_EQ(Told(LayOutPage(document, extras)), (std::vector<std::string>{
                                                      "200,90 40x16     IM Messung Ergebnis Bericht",
                                                      "15,250 21x8 Breite/Model/SN:",
                                                      "225,250 21x8 EGSM 900/RT-DB22/SIM01",
                                                      "15,275 21x8 IM Modell:",
                                                      "225,275 21x8 IM3",
                                                      "15,300 21x8 Uebergeben/Reflex:",
                                                      "225,300 21x8 Uegerbegen Modell",
                                                      "15,325 21x8 Messung Methode:",
                                                      "225,325 21x8 Scannen Modell",
                                                      "225,350 21x8 Signal Gen 1---Signal Gen 2",
                                                      "15,375 21x8 Exportieren Staerke:",
                                                      "225,375 21x8 43.0dBm        43.0dBm",
                                                      "15,400 21x8 Fix Freq:",
                                                      "225,400 21x8 925.0MHz      960.0MHz",
                                                      "15,425 21x8 Scannen Anfang Freq:",
                                                      "225,425 21x8 925.0MHz       960.0MHz",
                                                      "15,450 21x8 Scannen Ende Freq:",
                                                      "225,450 21x8 937.0MHz       946.0MHz",
                                                      "15,475 21x8 Meist Posten:",
                                                      "225,475 21x8 891.0MHz/-141.2dBc",
                                                      "15,500 21x8 Messung Datum:",
                                                      "225,500 21x8 2026-03-07 09:05",
                                                      "550,250 21x8 first row",
                                                      "550,300 21x8 third",
                                                      "550,425 21x8 Marker1: 891.0MHz  -98.2dBc",
                                                      "550,450 21x8 Marker3: 890.0MHz  -101.0dBc",
                                                      "550,475 21x8 Alarm Niveau: -140.0dBc",
                                                      "550,500 21x8 Seriennummer:    A17",
                                                  }));
}

TEST(ReportPage, WhatIsNotKnownLeavesItsPlaceEmpty) {
    ResultDocument document = SweepResult();
    document.method = ResultMethod::TwoTone;
    document.plan.f1 = 1935;
    document.plan.f2 = 1980;
    document.power2 = 5;
    document.reflection.reset();
    document.pointsTaken = 12;
    document.pointsAsked = 51;
    document.verdict = ResultVerdict::None;
    ReportExtras extras;
    ReportPage page = LayOutPage(document, extras);
    EXPECT_EQ(TextAt(page, 15, 300), "Uebergeben/Reflex:");
    EXPECT_EQ(TextAt(page, 225, 300), "nothing") << "files hold no path";
    EXPECT_EQ(TextAt(page, 225, 325), "2 Ton Modell");
    EXPECT_EQ(TextAt(page, 225, 375), "43.0dBm         5.0dBm");
    EXPECT_EQ(TextAt(page, 225, 400), "1935.0MHz    1980.0MHz");
    EXPECT_EQ(TextAt(page, 15, 425), "Scannen Anfang Freq:");
    EXPECT_EQ(TextAt(page, 225, 425), "nothing") << "no sweep";
    EXPECT_EQ(TextAt(page, 225, 450), "nothing");
    EXPECT_EQ(TextAt(page, 200, 140), "12 von 51 Punkten");
    EXPECT_EQ(TextAt(page, 550, 500), "nothing");
    extras.language = ReportLanguage::English;
    page = LayOutPage(document, extras);
    EXPECT_EQ(TextAt(page, 200, 140), "12 of 51 points");
    EXPECT_EQ(TextAt(page, 225, 375), "43.0dBm           5.0dBm");
    EXPECT_TRUE(std::any_of(page.texts.begin(), page.texts.end(),
                            [](const PageText& text) { return text.y == 140 && text.colour == 0xFF0000; }));

    document.hasHead = false;
    document.runs.clear();
    page = LayOutPage(document, extras);
    for (int y = 250; y <= 500; y += 25) {
        if (y != 325 && y != 350) {
            EXPECT_EQ(TextAt(page, 225, y), "nothing") << y;
        }
    }
}

TEST(ReportPage, TheRightColumn) {
    ResultDocument document = SweepResult();
    ReportExtras extras;
    extras.markers = {{{"890.0", "-101.0"}, {"891.0", "-98.2"}, {"892.0", "-99.0"}}};
    for (int row = 1; row <= 8; ++row)
        document.comment += Row("row " + std::to_string(row));
    ReportPage page = LayOutPage(document, extras);
    EXPECT_EQ(TextAt(page, 550, 400), "Marker1: 890.0MHz  -101.0dBm");
    EXPECT_EQ(TextAt(page, 550, 450), "Marker3: 892.0MHz  -99.0dBm");
    EXPECT_EQ(TextAt(page, 550, 250 + 7 * 18), "row 8") << "closer together above the markers";
    extras.markers = {};
    page = LayOutPage(document, extras);
    EXPECT_EQ(TextAt(page, 550, 425), "row 8");
    EXPECT_EQ(TextAt(page, 550, 475), "Alarm Niveau: -97.0dBm") << "with or without a serial number";
    extras.alarmOff = true;
    extras.markers[1] = {"891.0", "-98.2"};
    page = LayOutPage(document, extras);
    EXPECT_EQ(TextAt(page, 550, 475), "Marker2: 891.0MHz  -98.2dBm") << "without a limit a row lower";
    EXPECT_EQ(TextAt(page, 550, 425), "row 8");

    // A row is 40 characters with its line's end; those of several bytes stay whole.
    document.comment = std::string(50, 'a') + "\n" + std::string(39, 'b') + "\xC3\xA4" + "c";
    page = LayOutPage(document, extras);
    EXPECT_EQ(TextAt(page, 550, 250), std::string(40, 'a'));
    EXPECT_EQ(TextAt(page, 550, 275), std::string(10, 'a') + std::string(28, 'b'));
    EXPECT_EQ(TextAt(page, 550, 300), std::string(11, 'b') + "\xC3\xA4"
                                                             "c");
    document.comment.assign(1000, 'x');
    EXPECT_EQ(TextAt(LayOutPage(document, extras), 550, 250 + 9 * 18), std::string(40, 'x'));
    EXPECT_EQ(TextAt(LayOutPage(document, extras), 550, 250 + 10 * 18), "nothing") << "400 characters";
}

TEST(ReportPage, TheCompanysPictureKeepsToItsCorner) {
    EXPECT_EQ(LogoPlace(400, 97), (PagePlace{556, 15, 400, 97}));
    EXPECT_EQ(LogoPlace(10, 20), (PagePlace{946, 15, 10, 20}));
    EXPECT_EQ(LogoPlace(800, 100), (PagePlace{548, 15, 400, 50}));
    EXPECT_EQ(LogoPlace(200, 194), (PagePlace{848, 15, 100, 97}));
    EXPECT_EQ(LogoPlace(8000, 1), (PagePlace{548, 15, 400, 1}));
    ReportExtras extras;
    extras.logo = PagePlace{0, 0, 10, 20};
    EXPECT_EQ(LayOutPage(SweepResult(), extras).logo, (PagePlace{946, 15, 10, 20}));
}

/// Liberation Sans drawn so wide that its characters have the average width asked for.
TEST(ReportPage, Fonts) {
    EXPECT_NEAR(TitleFont.Size(), 35.8, 0.01);
    EXPECT_NEAR(RowFont.Size(), 18.8, 0.01);
    EXPECT_NEAR(TitleFont.Stretch() * TitleFont.Size() * 904 / 2048, 16, 1e-9);
    EXPECT_NEAR(RowFont.Stretch() * RowFont.Size() * 904 / 2048, 8, 1e-9);
}

} // namespace
} // namespace qor
