#include "results/xlsx/xlsx_writer.h"

#include "results/read_document.h"
#include "results/sheet/stated_values.h"
#include "results/sheet/utf.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <sys/mman.h>
#include <unistd.h>
#include <xlsxwriter.h>

namespace qor {

namespace {

constexpr const char* CurveSheet = "QOR_Test";
constexpr const char* HeadSheet = "Measurement";
constexpr std::size_t MostSeries = 60; ///< of the chart: the last runs
constexpr lxw_col_t IM = 5;
constexpr lxw_col_t Level = 6;

/// A text as a document may hold it: no broken characters and no control characters but line feeds.
std::string Clean(std::string_view text) {
    std::string out;
    for (const char32_t c : ToUtf32(text)) {
        if (c >= 0x20 || c == '\n')
            AppendUtf8(out, c);
    }
    return out;
}

/// A file in memory that the library can open by its name.
class MemoryFile {
public:
    MemoryFile() : m_File(::memfd_create("xlsx", MFD_CLOEXEC)) {}
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;
    ~MemoryFile() {
        if (m_File >= 0)
            ::close(m_File);
    }

    [[nodiscard]] std::string Name() const { return "/proc/self/fd/" + std::to_string(m_File); }
    bool Read(std::string& bytes) const {
        const off_t size = ::lseek(m_File, 0, SEEK_END);
        if (size <= 0)
            return false;
        bytes.resize(static_cast<std::size_t>(size));
        return ::pread(m_File, bytes.data(), bytes.size(), 0) == size;
    }

private:
    int m_File;
};

/// Rows of one half of one run.
struct Block {
    std::string name;
    lxw_row_t first = 0;
    lxw_row_t last = 0;
};

/// One workbook while it is being written.
class Book {
public:
    Book(const ResultDocument& document, const std::string& file)
        : m_Document(document), m_Timed(document.method == ResultMethod::TwoTone),
          m_Book(workbook_new(file.c_str())) {
        const auto format = [this](const char* digits) {
            lxw_format* made = workbook_add_format(m_Book);
            format_set_num_format(made, digits);
            return made;
        };
        m_Bold = workbook_add_format(m_Book);
        format_set_bold(m_Bold);
        m_Mhz = format("0.0##");
        m_Seconds = format("0.000");
        m_Levels = format("0.00");
    }

    /// The library's answer; 0 is success.
    int Write() {
        SetDate();
        AddCurve();
        AddHead();
        AddChart();
        return workbook_close(m_Book);
    }

private:
    /// The file's own date is that of the measurement, so that the same result gives the same bytes.
    void SetDate() {
        std::tm when{};
        lxw_doc_properties properties{};
        const std::string text = m_Document.date + " " + m_Document.time;
        when.tm_mday = 1;
        when.tm_year = 100;
        ::strptime(text.c_str(), "%Y%m%d %H:%M", &when);
        properties.created = ::timegm(&when);
        workbook_set_properties(m_Book, &properties);
    }

    void AddCurve() {
        m_Curve = workbook_add_worksheet(m_Book, CurveSheet);
        const std::string level = "IM Power, " + std::string(UnitText(m_Document));
        const char* titles[] = {"Run",
                                m_Timed ? "Point" : "Half",
                                m_Timed ? "Time, s" : "Point",
                                "Carrier 1 Freq, MHz",
                                "Carrier 2 Freq, MHz",
                                "IM Freq, MHz",
                                level.c_str()};
        lxw_col_t column = 0;
        for (const char* title : titles)
            worksheet_write_string(m_Curve, 0, column++, title, m_Bold);
        worksheet_set_column(m_Curve, 0, 2, 9, nullptr);
        worksheet_set_column(m_Curve, 3, Level, 20, nullptr);
        worksheet_freeze_panes(m_Curve, 1, 0);
        worksheet_set_landscape(m_Curve);
        worksheet_fit_to_pages(m_Curve, 1, 0);
        worksheet_repeat_rows(m_Curve, 0, 0);
        worksheet_autofilter(m_Curve, 0, 0, static_cast<lxw_row_t>(CountRows()), Level);
        for (std::size_t i = 0; i < m_Document.runs.size(); ++i) {
            const ResultRun& run = m_Document.runs[i];
            AddHalf(run.up, i + 1, m_Timed ? "" : "up");
            AddHalf(run.down, i + 1, "down");
        }
    }

    [[nodiscard]] std::size_t CountRows() const {
        std::size_t count = 0;
        for (const ResultRun& run : m_Document.runs)
            count += run.up.size() + run.down.size();
        return count;
    }

    void AddHalf(const std::vector<ResultPoint>& points, std::size_t run, const char* half) {
        Block block{"Run " + std::to_string(run) + (m_Timed ? "" : std::string(" ") + half), m_Row, m_Row};
        std::size_t number = 0;
        for (const ResultPoint& point : points) {
            ++number;
            if (!m_Timed && !point.HasLevel())
                continue;
            block.last = m_Row;
            const ResultTones tones = TonesAt(m_Document, point, half[0] == 'd');
            const auto cell = [this](lxw_col_t column, double value, lxw_format* format) {
                worksheet_write_number(m_Curve, m_Row, column, value, format);
            };
            cell(0, static_cast<double>(run), nullptr);
            if (m_Timed) {
                cell(1, static_cast<double>(number), nullptr);
                cell(2, point.x, m_Seconds);
            } else {
                worksheet_write_string(m_Curve, m_Row, 1, half, nullptr);
                cell(2, static_cast<double>(number), nullptr);
            }
            cell(3, Rounded(static_cast<double>(tones.f1)), m_Mhz);
            cell(4, Rounded(static_cast<double>(tones.f2)), m_Mhz);
            cell(IM, Rounded(m_Timed ? static_cast<double>(TwoToneProduct(m_Document)) : point.x), m_Mhz);
            if (point.HasLevel())
                cell(Level, Rounded(static_cast<double>(StatedLevel(m_Document, point.level))), m_Levels);
            ++m_Row;
        }
        if (m_Row > block.first)
            m_Blocks.push_back(std::move(block));
    }

    /// A float's decimal, without the digits that only the float has.
    static double Rounded(double value) { return std::round(value * 1000) / 1000; }

    void AddHead() {
        m_Head = workbook_add_worksheet(m_Book, HeadSheet);
        worksheet_set_column(m_Head, 0, 0, 26, m_Bold);
        worksheet_set_column(m_Head, 1, 1, 30, nullptr);
        lxw_row_t row = 0;
        const auto text = [&](const char* name, std::string_view value) {
            worksheet_write_string(m_Head, row, 0, name, nullptr);
            worksheet_write_string(m_Head, row++, 1, Clean(value).c_str(), nullptr);
        };
        const auto number = [&](const char* name, float value, lxw_format* format) {
            worksheet_write_string(m_Head, row, 0, name, nullptr);
            worksheet_write_number(m_Head, row++, 1, Rounded(static_cast<double>(value)), format);
        };
        const FrequencyPlan& plan = m_Document.plan;
        constexpr const char* Methods[] = {"2-TON", "SWEEP", "SPECTRUM"};
        text("Band", BandName(m_Document));
        if (!m_Document.interBand.empty())
            text("Receive band", m_Document.interBand);
        text("IM Order", OrderText(m_Document));
        text("Method", Methods[static_cast<int>(m_Document.method)]);
        text("Model", m_Document.model);
        text("Serial", m_Document.serial);
        if (!m_Document.receiver.empty())
            text("Receiver", m_Document.receiver);
        text("Device serial", m_Document.deviceSerial);
        text("Date", DateText(m_Document));
        number("Carrier 1 Power, dBm", m_Document.power1, m_Levels);
        number("Carrier 2 Power, dBm", m_Document.power2, m_Levels);
        number("f1, MHz", m_Timed ? plan.f1 : plan.f1Fix, m_Mhz);
        number("f1 from, MHz", plan.f1Start, m_Mhz);
        number("f1 to, MHz", plan.f1Stop, m_Mhz);
        number("f2, MHz", m_Timed ? plan.f2 : plan.f2Fix, m_Mhz);
        number("f2 from, MHz", plan.f2Start, m_Mhz);
        number("f2 to, MHz", plan.f2Stop, m_Mhz);
        text("Unit", UnitText(m_Document));
        text("Verdict", VerdictWord(VerdictOfAllRuns(m_Document)));
        if (IsPartial(m_Document))
            text("Points",
                 std::to_string(m_Document.pointsTaken) + " of " + std::to_string(m_Document.pointsAsked));
        if (m_Document.limit) {
            number("Limit", InUnit(m_Document, *m_Document.limit), m_Levels);
            AddLimitLine(row);
        }
        text("Comment", m_Document.comment.substr(0, 8000));
    }

    /// Two points for the chart, beside the head.
    void AddLimitLine(lxw_row_t row) {
        double low = 0;
        double high = 0;
        bool any = false;
        for (const ResultRun& run : m_Document.runs) {
            for (const auto* points : {&run.up, &run.down}) {
                for (const ResultPoint& point : *points) {
                    low = any ? std::min(low, point.x) : point.x;
                    high = any ? std::max(high, point.x) : point.x;
                    any = true;
                }
            }
        }
        const double limit = Rounded(static_cast<double>(InUnit(m_Document, *m_Document.limit)));
        m_LimitRow = row;
        for (const double x : {low, high}) {
            worksheet_write_number(m_Head, row, 3, Rounded(x), m_Mhz);
            worksheet_write_number(m_Head, row++, 4, limit, m_Levels);
        }
    }

    void AddChart() {
        if (m_Blocks.empty())
            return;
        lxw_chart* chart = workbook_add_chart(m_Book, LXW_CHART_SCATTER_STRAIGHT);
        const lxw_col_t x = m_Timed ? 2 : IM;
        const std::size_t first = m_Blocks.size() - std::min(m_Blocks.size(), MostSeries);
        for (std::size_t i = first; i < m_Blocks.size(); ++i) {
            const Block& block = m_Blocks[i];
            lxw_chart_series* series = chart_add_series(chart, nullptr, nullptr);
            chart_series_set_categories(series, CurveSheet, block.first, x, block.last, x);
            chart_series_set_values(series, CurveSheet, block.first, Level, block.last, Level);
            chart_series_set_name(series, block.name.c_str());
        }
        if (m_Document.limit) {
            lxw_chart_series* limit = chart_add_series(chart, nullptr, nullptr);
            chart_series_set_categories(limit, HeadSheet, m_LimitRow, 3, m_LimitRow + 1, 3);
            chart_series_set_values(limit, HeadSheet, m_LimitRow, 4, m_LimitRow + 1, 4);
            chart_series_set_name(limit, "Limit");
            lxw_chart_line red{};
            red.color = 0xFF0000;
            red.width = 1.5f;
            red.dash_type = LXW_CHART_LINE_DASH_DASH;
            chart_series_set_line(limit, &red);
        }
        const std::string title = std::string(BandName(m_Document)) + " " + OrderText(m_Document);
        chart_title_set_name(chart, title.c_str());
        chart_axis_set_name(chart->x_axis, m_Timed ? "Time, s" : "IM Freq, MHz");
        chart_axis_set_name(chart->y_axis, std::string(UnitText(m_Document)).c_str());
        // Levels are negative: the axis of frequencies stands below them.
        chart_axis_set_label_position(chart->x_axis, LXW_CHART_AXIS_LABEL_POSITION_LOW);
        lxw_chart_options size{};
        size.x_scale = 1.8;
        size.y_scale = 1.6;
        worksheet_insert_chart_opt(m_Curve, 1, Level + 2, chart, &size);
    }

    const ResultDocument& m_Document;
    bool m_Timed;
    lxw_workbook* m_Book;
    lxw_worksheet* m_Curve = nullptr;
    lxw_worksheet* m_Head = nullptr;
    lxw_format* m_Bold = nullptr;
    lxw_format* m_Mhz = nullptr;
    lxw_format* m_Seconds = nullptr;
    lxw_format* m_Levels = nullptr;
    lxw_row_t m_Row = 1;
    lxw_row_t m_LimitRow = 0;
    std::vector<Block> m_Blocks;
};

} // namespace

Outcome WriteXlsx(const ResultDocument& document, std::string& bytes) {
    std::size_t rows = 0;
    for (const ResultRun& run : document.runs)
        rows += run.up.size() + run.down.size();
    if (rows >= LXW_ROW_MAX)
        return Outcome::Refused("The result is too long for this form.");
    MemoryFile file;
    const int problem = Book(document, file.Name()).Write();
    if (problem != 0)
        return Outcome::Refused(std::string("Speichern file misserfolg\n") +
                                lxw_strerror(static_cast<lxw_error>(problem)));
    if (!file.Read(bytes))
        return Outcome::Refused("Speichern file misserfolg\n" + std::string(std::strerror(errno)));
    return Outcome::Done();
}

void AddXlsx(ResultForms& forms) {
    forms.Register(".xlsx", [](const ResultDocument& document, SheetTemplates, std::string& bytes) {
        return WriteXlsx(document, bytes);
    });
}

} // namespace qor
