#include "results/series_forms.h"

#include "bands/catalogue.h"
#include "base/text_format.h"

namespace qor {

namespace {

std::string_view BandOf(const SeriesKind& kind) {
    const BandInfo* band = FindBand(kind.band);
    return band ? band->reportText : std::string_view();
}

std::string OrderOf(const SeriesKind& kind) {
    if (kind.order == 0)
        return {};
    return (kind.interBand.empty() ? "IM" : "Inter-band IM") + std::to_string(kind.order);
}

/// A cell by RFC 4180.
std::string Cell(std::string_view text) {
    if (text.find_first_of(",\"\r\n") == std::string_view::npos)
        return std::string(text);
    std::string cell = "\"";
    for (const char c : text) {
        if (c == '"')
            cell += '"';
        cell += c;
    }
    return cell + '"';
}

std::string Number(std::optional<double> value, int decimals) {
    return value ? Fixed(*value, decimals) : std::string();
}

std::optional<double> Wide(std::optional<float> value) {
    return value ? std::optional<double>(*value) : std::nullopt;
}

class CsvRow {
public:
    explicit CsvRow(std::string& out) : m_Out(out) {}
    CsvRow(const CsvRow&) = delete;
    CsvRow& operator=(const CsvRow&) = delete;
    ~CsvRow() { m_Out += "\r\n"; }

    CsvRow& operator<<(std::string_view text) {
        m_Out += m_Begun ? "," : "";
        m_Out += Cell(text);
        m_Begun = true;
        return *this;
    }

private:
    std::string& m_Out;
    bool m_Begun = false;
};

constexpr std::string_view NoCell{};

void AddRun(std::string& out, const SeriesRun& run) {
    const auto worst = run.worst ? std::optional<double>(run.worst->level) : std::nullopt;
    const auto frequency = run.worst ? std::optional<double>(run.worst->frequency) : std::nullopt;
    CsvRow row(out);
    row << "run" << BandOf(run.kind) << OrderOf(run.kind) << MethodWord(run.kind.method) << run.device
        << run.file << run.date << Number(worst, 2) << Number(frequency, 1) << Number(Wide(run.limit), 2)
        << Number(run.Margin(), 2) << VerdictWord(run.verdict);
    for (int empty = 0; empty < 6; ++empty)
        row << NoCell;
}

void AddKind(std::string& out, const SeriesStatistics& kind) {
    CsvRow row(out);
    row << "series" << BandOf(kind.kind) << OrderOf(kind.kind) << MethodWord(kind.kind.method) << NoCell
        << NoCell << NoCell << Number(kind.worst, 2) << NoCell << NoCell << Number(kind.meanMargin, 2)
        << NoCell << std::to_string(kind.runs.size()) << Number(kind.yield, 4) << Number(kind.mean, 3)
        << Number(kind.deviation, 3) << Number(kind.cpk, 3)
        << Number(kind.trend.line ? std::optional(kind.trend.line->slope) : std::nullopt, 4);
}

/// Writes one JSON value behind another, with the commas between them.
class Json {
public:
    void Open(char bracket) {
        Comma();
        m_Text += bracket;
        m_First = true;
    }
    void Close(char bracket) {
        m_Text += bracket;
        m_First = false;
    }
    Json& Key(std::string_view name) {
        Text(name);
        m_Text += ':';
        m_First = true; // no comma in front of its value
        return *this;
    }
    void Text(std::string_view text) {
        Comma();
        m_Text += '"';
        for (const char c : text) {
            if (c == '"' || c == '\\')
                m_Text += '\\';
            if (static_cast<unsigned char>(c) < ' ')
                AddEscaped(c);
            else
                m_Text += c;
        }
        m_Text += '"';
    }
    void Value(std::optional<double> value, int decimals) {
        Comma();
        m_Text += value ? Fixed(*value, decimals) : "null";
    }
    void Count(std::size_t value) {
        Comma();
        m_Text += std::to_string(value);
    }
    [[nodiscard]] std::string Take() { return std::move(m_Text); }

private:
    void Comma() {
        if (!m_First)
            m_Text += ',';
        m_First = false;
    }
    void AddEscaped(char c) {
        static constexpr char Digits[] = "0123456789abcdef";
        m_Text += "\\u00";
        m_Text += Digits[c >> 4];
        m_Text += Digits[c & 15];
    }

    std::string m_Text;
    bool m_First = true;
};

void AddRun(Json& json, const SeriesRun& run) {
    json.Open('{');
    json.Key("device").Text(run.device);
    json.Key("file").Text(run.file);
    json.Key("date").Text(run.date);
    json.Key("worst_dbm").Value(run.worst ? std::optional<double>(run.worst->level) : std::nullopt, 2);
    json.Key("worst_mhz").Value(run.worst ? std::optional<double>(run.worst->frequency) : std::nullopt, 1);
    json.Key("limit_dbm").Value(Wide(run.limit), 2);
    json.Key("margin_db").Value(run.Margin(), 2);
    json.Key("verdict").Text(VerdictWord(run.verdict));
    json.Close('}');
}

void AddCurves(Json& json, const SeriesStatistics& kind) {
    json.Key("curves").Open('[');
    for (const Spread& spread : kind.spread) {
        json.Open('{');
        json.Key(kind.kind.OverTime() ? "s" : "mhz")
            .Value(kind.kind.OverTime() ? spread.place : spread.place / 10.0, 1);
        json.Key("low").Value(static_cast<double>(spread.low), 2);
        json.Key("median").Value(static_cast<double>(spread.median), 2);
        json.Key("high").Value(static_cast<double>(spread.high), 2);
        json.Close('}');
    }
    json.Close(']');
}

void AddTrend(Json& json, const Trend& trend) {
    json.Key("trend").Open('{');
    json.Key("level_dbm").Value(trend.line ? std::optional(trend.line->level) : std::nullopt, 3);
    json.Key("slope_db_per_hour").Value(trend.line ? std::optional(trend.line->slope) : std::nullopt, 4);
    json.Key("points").Open('[');
    for (const Trend::Point& point : trend.points) {
        json.Open('[');
        json.Value(point.hours, 4);
        json.Value(point.level, 2);
        json.Close(']');
    }
    json.Close(']');
    json.Close('}');
}

void AddHistogram(Json& json, const Histogram& histogram) {
    json.Key("histogram").Open('{');
    json.Key("from_dbm").Value(histogram.from, 1);
    json.Key("step_db").Value(histogram.step, 1);
    json.Key("counts").Open('[');
    for (const int count : histogram.counts)
        json.Count(static_cast<std::size_t>(count));
    json.Close(']');
    json.Close('}');
}

void AddKind(Json& json, const SeriesSummary& summary, const SeriesStatistics& kind) {
    json.Open('{');
    json.Key("band").Text(BandOf(kind.kind));
    json.Key("order").Text(OrderOf(kind.kind));
    json.Key("method").Text(MethodWord(kind.kind.method));
    json.Key("count").Count(kind.runs.size());
    json.Key("passed").Count(kind.passed);
    json.Key("failed").Count(kind.failed);
    json.Key("without_verdict").Count(kind.withoutVerdict);
    json.Key("yield").Value(kind.yield, 4);
    json.Key("mean_dbm").Value(kind.mean, 3);
    json.Key("deviation_db").Value(kind.deviation, 3);
    json.Key("worst_dbm").Value(kind.worst, 2);
    json.Key("mean_margin_db").Value(kind.meanMargin, 3);
    json.Key("cpk").Value(kind.cpk, 3);
    AddHistogram(json, kind.histogram);
    AddTrend(json, kind.trend);
    AddCurves(json, kind);
    json.Key("devices").Open('[');
    for (const std::size_t index : kind.runs)
        AddRun(json, summary.runs[index]);
    json.Close(']');
    json.Close('}');
}

} // namespace

std::string_view MethodWord(ResultMethod method) {
    static constexpr std::string_view Words[] = {"2tone", "sweep", "spectrum"};
    return Words[static_cast<std::size_t>(method)];
}

std::string TitleOf(const SeriesKind& kind, ReportLanguage language) {
    static constexpr std::string_view German[] = {"2 Ton Modell", "Scannen Modell", "Spektrum"};
    static constexpr std::string_view English[] = {"2 Tone Mode", "Sweep Mode", "Spectrum"};
    std::string title;
    const auto method = static_cast<std::size_t>(kind.method);
    for (const std::string& part :
         {std::string(BandOf(kind)), OrderOf(kind),
          std::string(language == ReportLanguage::English ? English[method] : German[method])}) {
        if (!part.empty())
            title += (title.empty() ? "" : ", ") + part;
    }
    return title;
}

std::string FormatSeriesCsv(const SeriesSummary& summary) {
    std::string out =
        "row,band,order,method,device,file,date,worst_dbm,worst_mhz,limit_dbm,margin_db,verdict,"
        "count,yield,mean_dbm,deviation_db,cpk,slope_db_per_hour\r\n";
    for (const SeriesStatistics& kind : summary.kinds) {
        for (const std::size_t index : kind.runs)
            AddRun(out, summary.runs[index]);
        AddKind(out, kind);
    }
    return out;
}

std::string FormatSeriesJson(const SeriesSummary& summary) {
    Json json;
    json.Open('{');
    json.Key("count").Count(summary.runs.size());
    json.Key("series").Open('[');
    for (const SeriesStatistics& kind : summary.kinds)
        AddKind(json, summary, kind);
    json.Close(']');
    json.Close('}');
    return json.Take() + "\n";
}

} // namespace qor
