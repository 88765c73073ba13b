#include "results/data_file.h"
#include "results/sheet/csv_table.h"
#include "results/sheet/sheet_forms.h"
#include "results/sheet/spread_sheet.h"
#include "support/documents.h"

#include <cmath>
#include <gtest/gtest.h>

namespace qor {
namespace {

constexpr SheetTemplates SweepForm{true, false};
constexpr SheetTemplates DetailForm{false, true};
constexpr SheetTemplates BothForms{true, true};

ResultDocument Measured(ResultMethod method) {
    ResultDocument document;
    document.method = method;
    document.band = BandEgsm;
    document.plan = {935, 960, 925, 937, 960, 960, 946, 925, 2};
    document.power1 = 43;
    document.power2 = 42.5f;
    document.model = "RT-DB22";
    document.serial = "S1";
    document.date = "20260307";
    document.time = "09:05";
    if (method == ResultMethod::TwoTone)
        document.runs = {{{{0, -98.7f}, {0.1, 0}, {0.2, 5}, {0.3, 0}}, {}}};
    else
        document.runs = {{{{890, -60}}, {}},
                         {{{890, -98.7f}, {891, 0}, {892, -0.004f}}, {{890.5, -120.5f}, {891.5, -99.996f}}}};
    return document;
}

SheetRows RowsOf(const std::string& bytes) {
    SheetRows rows;
    const Outcome read = ReadSheetRows(bytes, rows);
    EXPECT_TRUE(read) << read.Text();
    return rows;
}

SheetRows XlsRows(const ResultDocument& document, SheetTemplates templates = SweepForm) {
    std::string bytes;
    const Outcome written = WriteXls(document, templates, bytes);
    EXPECT_TRUE(written) << written.Text();
    return RowsOf(bytes);
}

TEST(SheetForms, EveryCellIsRight) {
    const SheetCells head = {"f1: 935MHz START: 925MHz STOP: 937MHz POWER: +43dBm",
                             "f2: 960MHz START: 960MHz STOP: 946MHz POWER: +42dBm",
                             "MEAS IM3",
                             "UNIT dBm",
                             "2-TON",
                             "Model Nr RT-DB22",
                             "SERIAL: 000S1",
                             "2026-3-7-9-5"};
    ResultDocument document = Measured(ResultMethod::TwoTone);
    EXPECT_EQ(
        XlsRows(document),
        (SheetRows{
            head, {"Time", "Level"}, {"0.000", "-098.70"}, {"0.100", "0000.00"}, {"0.200", "0005.00"}}));

    SheetCells swept = head;
    swept[0].replace(4, 3, "925");
    swept[3] = "UnitsdBm";
    swept[4] = "SWEEP";
    document = Measured(ResultMethod::Sweep);
    EXPECT_EQ(XlsRows(document), (SheetRows{swept,
                                            {"fIM", "Level"},
                                            {"892.0", "0000.01", "890.5", "-120.50"},
                                            {"890.0", "-098.70", "891.5", "-100.00"}}))
        << "of several runs the last one";
    EXPECT_EQ(XlsRows(document, {false, false}), XlsRows(document));

    const SheetCells titles(std::begin(DetailTitles), std::end(DetailTitles));
    const SheetRows details = {{"925.0", "959.0", "43.0", "42.5", "dBm", "IM3", "890.5", "-120.50", "dBm"},
                               {"925.0", "957.0", "43.0", "42.5", "dBm", "IM3", "891.5", "-100.00", "dBm"},
                               {"926.0", "960.0", "43.0", "42.5", "dBm", "IM3", "890.0", "-098.70", "dBm"},
                               {"928.0", "960.0", "43.0", "42.5", "dBm", "IM3", "892.0", "0000.01", "dBm"}};
    SheetRows rows = {titles};
    rows.insert(rows.end(), details.begin(), details.end());
    EXPECT_EQ(XlsRows(document, DetailForm), rows);

    rows = XlsRows(document);
    rows.insert(rows.end(), details.begin(), details.end());
    rows[0].insert(rows[0].end(), titles.begin(), titles.end());
    EXPECT_EQ(XlsRows(document, BothForms), rows) << "one sheet with both";
    std::string bytes;
    ASSERT_TRUE(WriteSheetText(document, BothForms, bytes));
    EXPECT_EQ(RowsOf(bytes), rows);
}

TEST(SheetForms, UnitModelAndDateAreStatedAsTheyShould) {
    ResultDocument document = Measured(ResultMethod::TwoTone);
    document.inDbc = true;
    document.carrier = 43;
    document.model = "AB-1";
    EXPECT_EQ(XlsRows(document)[0][3], "UNIT dBc");
    EXPECT_EQ(XlsRows(document)[0][5], "Model Nr") << "no model of ours";
    EXPECT_EQ(XlsRows(document)[2][1], "-141.70");
    EXPECT_EQ(XlsRows(document)[3][1], "0000.00") << "no level has no unit";
    document.source = "run.dat";
    EXPECT_EQ(XlsRows(document)[0][5], "Model Nr AB-1") << "a file's model is stated as it is";
    EXPECT_EQ(XlsRows(document)[0][7], "2026-03-07-09-05");
    document = Measured(ResultMethod::Sweep);
    document.inDbc = true;
    EXPECT_EQ(XlsRows(document)[0][3], "Units dBc");
    EXPECT_EQ(XlsRows(document, DetailForm)[1][8], "dBc");
    document.runs.back().up.clear();
    EXPECT_EQ(XlsRows(document)[2], (SheetCells{" ", " ", "890.5", "-163.50", " ", " ", " ", " "}))
        << "a down curve alone stands in blank rows";

    document.interBand = "DCS 1800";
    std::string bytes = "as before";
    for (const bool isExcel : {true, false}) {
        const Outcome refused = isExcel ? WriteXls(document, {}, bytes) : WriteSheetText(document, {}, bytes);
        EXPECT_FALSE(refused);
        EXPECT_EQ(refused.Text(), "Does not support the current selection!");
    }
    EXPECT_EQ(bytes, "as before");
}

/// The plan as whole MHz.
FrequencyPlan Whole(FrequencyPlan plan) {
    for (float* f : {&plan.f1, &plan.f2, &plan.f1Start, &plan.f1Stop, &plan.f2Fix, &plan.f2Start,
                     &plan.f2Stop, &plan.f1Fix})
        *f = std::nearbyint(*f);
    return plan;
}

void ExpectSame(const ResultDocument& read, const ResultDocument& written, unsigned seed) {
    SCOPED_TRACE(seed);
    ASSERT_EQ(read.runs.size(), written.runs.size());
    for (std::size_t i = 0; i < read.runs.size(); ++i) {
        for (const auto half : {&ResultRun::up, &ResultRun::down}) {
            const auto& got = read.runs[i].*half;
            const auto& sent = written.runs[i].*half;
            ASSERT_EQ(got.size(), sent.size());
            for (std::size_t k = 0; k < got.size(); ++k) {
                ASSERT_EQ(got[k].x, sent[k].x) << k;
                ASSERT_EQ(got[k].level, sent[k].level) << k;
            }
        }
    }
    EXPECT_EQ(read.method, written.method);
    EXPECT_EQ(read.order, written.order);
    EXPECT_EQ(read.inDbc, written.inDbc);
    EXPECT_EQ(read.carrier, written.carrier);
    EXPECT_EQ(read.power1, written.power1);
    EXPECT_EQ(read.power2, written.power2);
    EXPECT_EQ(read.band, written.band);
    EXPECT_EQ(read.upperProduct, written.upperProduct);
    EXPECT_EQ(read.msPerPoint, written.msPerPoint);
    EXPECT_EQ(read.lengthMs, written.lengthMs);
    EXPECT_FALSE(read.genuine);
}

void ExpectSameHead(const ResultDocument& read, const ResultDocument& written, const FrequencyPlan& plan) {
    EXPECT_EQ(read.plan.f1, plan.f1);
    EXPECT_EQ(read.plan.f1Fix, plan.f1Fix);
    EXPECT_EQ(read.plan.f1Start, plan.f1Start);
    EXPECT_EQ(read.plan.f1Stop, plan.f1Stop);
    EXPECT_EQ(read.plan.f2, plan.f2);
    EXPECT_EQ(read.plan.f2Fix, plan.f2Fix);
    EXPECT_EQ(read.plan.f2Start, plan.f2Start);
    EXPECT_EQ(read.plan.f2Stop, plan.f2Stop);
    EXPECT_EQ(read.model, written.model);
    EXPECT_EQ(read.serial, written.serial);
    EXPECT_EQ(read.receiver, written.receiver);
    EXPECT_EQ(read.floor, written.floor);
    EXPECT_EQ(read.date, written.date);
    EXPECT_EQ(read.time, written.time);
}

TEST(SheetForms, FiveHundredCurvesComeBackFromEveryForm) {
    std::string bytes;
    for (unsigned seed = 0; seed < 500; ++seed) {
        const bool timed = seed % 3 == 0;
        ResultDocument written =
            RandomDocument(seed, timed ? ResultMethod::TwoTone : ResultMethod::Sweep, seed % 61);
        if (!written.receiver.empty())
            written.floor = -73.0f;
        ResultDocument read;
        for (const SheetTemplates& form : {SweepForm, BothForms}) {
            ASSERT_TRUE(WriteXls(written, form, bytes));
            const Outcome outcome = ReadSheet(bytes, read);
            ASSERT_TRUE(outcome) << outcome.Text();
            ExpectSame(read, written, seed);
            ExpectSameHead(read, written, Whole(written.plan));
        }
        ASSERT_TRUE(WriteSheetText(written, SweepForm, bytes));
        ASSERT_TRUE(ReadSheet(bytes, read));
        ExpectSame(read, written, seed);
        if (!timed) {
            ASSERT_TRUE(WriteXls(written, DetailForm, bytes));
            ASSERT_TRUE(ReadSheet(bytes, read));
            ExpectSame(read, written, seed);
            EXPECT_EQ(read.receiver, written.receiver);
        }
        ASSERT_TRUE(WriteCsv(written, bytes));
        const Outcome outcome = ReadCsv(bytes, read);
        ASSERT_TRUE(outcome) << outcome.Text();
        ExpectSame(read, written, seed);
        ExpectSameHead(read, written, written.plan);
    }
}

TEST(SheetForms, AResultThatIsNotWholeSaysSo) {
    for (const ResultMethod method : {ResultMethod::TwoTone, ResultMethod::Sweep}) {
        ResultDocument document = Measured(method);
        document.pointsTaken = 3;
        document.pointsAsked = 28;
        document.verdict = ResultVerdict::Error;
        for (const SheetTemplates& form : {SweepForm, DetailForm, BothForms}) {
            std::string bytes;
            ASSERT_TRUE(WriteXls(document, form, bytes));
            ResultDocument read;
            ASSERT_TRUE(ReadSheet(bytes, read));
            EXPECT_TRUE(IsPartial(read));
            EXPECT_EQ(read.pointsTaken, 3U);
            EXPECT_EQ(read.pointsAsked, 28U);
            EXPECT_EQ(read.verdict, ResultVerdict::Error);
            ASSERT_TRUE(WriteCsv(document, bytes));
            ASSERT_TRUE(ReadCsv(bytes, read));
            EXPECT_EQ(read.verdict, ResultVerdict::Error);
            EXPECT_EQ(read.pointsAsked, 28U);
        }
    }
}

TEST(SheetForms, TheDetailsOfAFileGoOnByTheStepOfItsRun) {
    for (const float step : {0.5f, 1.0f, 2.0f}) {
        ResultDocument measured = Measured(ResultMethod::Sweep);
        measured.plan.step = step;
        measured.runs = {{}};
        for (double moved = 0; moved <= 6; moved += static_cast<double>(step)) {
            measured.runs[0].up.push_back({890 + 2 * moved, -100});
            measured.runs[0].down.push_back({890 + moved, -101});
        }
        std::string bytes;
        ASSERT_TRUE(WriteSheetText(measured, DetailForm, bytes));
        const SheetRows rows = RowsOf(bytes);
        ASSERT_TRUE(WriteSheetText(*ParseResult(FormatResult(measured)).document, DetailForm, bytes));
        for (std::size_t i = 1; i < rows.size(); ++i) {
            EXPECT_EQ(RowsOf(bytes).at(i).at(0), rows[i].at(0)) << step;
            EXPECT_EQ(RowsOf(bytes).at(i).at(1), rows[i].at(1)) << step;
        }
    }
}

TEST(SheetForms, WhatIsNoSheetOfOursIsRefusedWithAReason) {
    const auto refusal = [](const SheetRows& rows) {
        CSpreadSheet sheet(false, SheetNameOfResults);
        sheet.BeginTransaction();
        for (const SheetCells& row : rows)
            EXPECT_TRUE(sheet.AddRow(row));
        EXPECT_TRUE(sheet.Commit());
        ResultDocument document;
        document.serial = "as before";
        const Outcome outcome = ReadSheet(sheet.Bytes(), document);
        EXPECT_EQ(document.serial == "as before", !outcome);
        return outcome.Text();
    };
    const SheetRows sound = XlsRows(Measured(ResultMethod::Sweep));
    EXPECT_EQ(refusal(sound), "");
    SheetRows moved = sound; // a column put in by hand, and cells with blanks round them
    moved[0].insert(moved[0].begin() + 3, "checked by A. B.");
    moved[2][0] = " 892.0 ";
    EXPECT_EQ(refusal(moved), "");
    EXPECT_EQ(refusal({{"Name", "Value"}, {"a", "1"}}), "This is not a result file.");
    EXPECT_EQ(refusal({sound[0], sound[1]}), "The file holds no measured level.");
    for (const std::size_t column : {0U, 1U, 2U, 3U, 4U}) { // what a result cannot do without
        SheetRows rows = sound;
        rows[0][column] = column == 0 ? "f1: x" : "?";
        EXPECT_EQ(refusal(rows), "One of its cells is damaged.") << column;
    }
    for (const char* cell : {"", "x", "1e9", "-98,7", "nan"}) {
        SheetRows rows = sound;
        rows[2][1] = cell;
        EXPECT_EQ(refusal(rows), "One of its cells is damaged.") << cell;
    }
    ResultDocument document;
    for (const char* bytes : {"", "f1 0935.0", "a,b\r\n1,2\r\n"}) {
        EXPECT_EQ(ReadSheet(bytes, document).Text(), "This is not a result file.");
        EXPECT_EQ(ReadCsv(bytes, document).Text(), "This is not a result file.");
    }
}

TEST(CsvTable, ItHoldsAllRunsAndWhatWasSent) {
    ResultDocument document = Measured(ResultMethod::Sweep);
    document.deviceSerial = "A \"17\", left";
    document.limit = -90.0f;
    std::string bytes;
    ASSERT_TRUE(WriteCsv(document, bytes));
    EXPECT_EQ(bytes.substr(0, bytes.find("\r\n")),
              "run,half,time_s,f1_mhz,f2_mhz,im_mhz,level,unit,power1_dbm,power2_dbm,band,receive_band,order,"
              "method,f1_held_mhz,f1_start_mhz,f1_stop_mhz,f2_held_mhz,f2_start_mhz,f2_stop_mhz,model,serial,"
              "device_serial,date,limit,verdict,points_taken,points_asked,receiver,floor_dbm,rows");
    const std::string rest =
        "dBm,43.00,42.50,EGSM 900,,3,sweep,925.000,925.000,937.000,960.000,960.000,946.000,"
        "RT-DB22,S1,\"A \"\"17\"\", left\",2026-03-07 09:05,-90.00,failed,0,0,,,5\r\n";
    std::string rows;
    for (const char* row : {"1,up,,925.000,960.000,890.000,-60.00,", "2,up,,925.000,960.000,890.000,-98.70,",
                            "2,up,,926.000,960.000,892.000,0.01,", "2,down,,925.000,959.500,890.500,-120.50,",
                            "2,down,,925.000,958.500,891.500,-100.00,"})
        rows += row + rest;
    EXPECT_EQ(bytes.substr(bytes.find("\r\n") + 2), rows);

    // Another program puts the columns in another order, ends lines in its own way and marks the encoding.
    ResultDocument read;
    ASSERT_TRUE(ReadCsv("\xEF\xBB\xBFunit,order,level,im_mhz,half\ndBm,5,-98.7,\"890.5\",down\n\n", read));
    EXPECT_EQ(read.runs.at(0).down, (std::vector<ResultPoint>{{890.5, -98.7f}}));
    EXPECT_EQ(read.order, 5);
    for (const auto& [from, to] : {std::pair{"2,up", "7,up"},
                                   {"890.500", "x"},
                                   {"dBm", "dB"},
                                   {",3,sweep", ",4,sweep"},
                                   {",down,", ",left,"},
                                   {"03-07", "03/07"},
                                   {",0,0", ",-1,0"}}) {
        std::string damaged = bytes;
        damaged.replace(damaged.find(from, damaged.find('\n')), std::string_view(from).size(), to);
        EXPECT_EQ(ReadCsv(damaged, read).Text(), "One of its data rows is damaged.") << to;
    }
    // The same table cut anywhere, or with another result below it.
    const std::size_t first = bytes.find("\r\n", bytes.find("\r\n") + 2);
    for (std::size_t length = first; length + 2 < bytes.size(); ++length)
        EXPECT_FALSE(ReadCsv(bytes.substr(0, length), read)) << length;
    EXPECT_EQ(ReadCsv(bytes + rows, read).Text(), "One of its data rows is damaged.");
    document.limit = -120.0f;
    std::string other;
    ASSERT_TRUE(WriteCsv(document, other));
    EXPECT_EQ(ReadCsv(bytes + other.substr(other.find("\r\n") + 2), read).Text(),
              "The table holds several results.");
    EXPECT_TRUE(ReadCsv("half,level,unit,order,im_mhz\n\nup,-98.7,dBc,5,890.5\n", read));
    EXPECT_TRUE(read.inDbc) << "behind an empty line";
}

} // namespace
} // namespace qor
