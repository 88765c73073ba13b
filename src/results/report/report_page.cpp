#include "results/report/report_page.h"

#include "base/text_format.h"
#include "results/report_lines.h"

#include <algorithm>

namespace qor {

namespace {

constexpr int RowStep = 25;
constexpr int NarrowStep = 18; ///< of a comment that would meet the markers
constexpr int RowsTop = 225;   ///< row k stands k steps below
constexpr int HeadingColumn = 15;
constexpr int ValueColumn = 225;
constexpr int RightColumn = 550;
constexpr int CommentTop = 250;
constexpr int LimitRow = 475;
constexpr int SerialRow = 500;
constexpr std::size_t CommentRow = 40; ///< characters, the two of the line's end among them
constexpr std::size_t LongestComment = 400;
constexpr std::string_view CommentHead = "00000000000000000000";

constexpr std::uint32_t TextColour = 0x050000;
constexpr std::uint32_t PartialColour = 0xFF0000;

constexpr int LogoWidth = 400;
constexpr int LogoHeight = 97;
constexpr int LogoTop = 15;
constexpr int LogoRoom = 8; ///< at the right of one that was made smaller
constexpr double WideLogo = 4.123711;

/// A text of the page in both languages.
struct Words {
    std::string_view german;
    std::string_view english;
    [[nodiscard]] std::string_view In(ReportLanguage language) const {
        return language == ReportLanguage::English ? english : german;
    }
};

constexpr Words Headings[] = {
    {"    IM Messung Ergebnis Bericht", "      PIM Test Results"},
    {"Breite/Model/SN:", "Band/Model/SN:"},
    {"IM Modell:", "IM Order:"},
    {"Uebergeben/Reflex:", "Transmission/Reflection:"},
    {"Messung Methode:", "Measuring Method:"},
    {"", ""},
    {"Exportieren Staerke:", "Output Power:"},
    {"Fix Freq:", "Fixed Frequency:"},
    {"Scannen Anfang Freq:", "Sweep Start Frequency:"},
    {"Scannen Ende Freq:", "Sweep End Frequency:"},
    {"Meist Posten:", "Worst Point:"},
    {"Messung Datum:", "Test Date:"},
};
constexpr Words ReceiverWords{"Empfaenger:", "Receiver:"};
constexpr Words Reflection{"Reflex Modell", "Reflection"};
constexpr Words Transmission{"Uegerbegen Modell", "Transmission"};
constexpr Words TwoToneMode{"2 Ton Modell", "2 Tone Mode"};
constexpr Words SweepMode{"Scannen Modell", "Sweep Mode"};
constexpr Words SerialWords{"Seriennummer:", "Ser No. "};
constexpr Words LimitWords{"Alarm Niveau: ", "Alarm Limit Line: "};
constexpr Words Of{" von ", " of "};
constexpr Words Points{" Punkten", " points"};

/// The plot's own texts; what else stands on it reads the same in both.
constexpr Words PlotWords[] = {
    {"Ziet: Sek.", "Time: Sec."},
    {"Durch", "Pass"},
    {"Misserfolg", "Fail"},
    {"Meist Posten:", "Worst:"},
};

std::string Decimal(float value) {
    return Fixed(static_cast<double>(value), 1);
}

/// Two values in a row of about 22 characters. In German the second column moves up to keep to them.
std::string TwoColumns(float first, float second, std::string_view unit, ReportLanguage language) {
    constexpr std::size_t Wanted = 22;
    constexpr std::size_t Column = 13; // the blanks in front of the second value reach to the next
    std::string row = TwoValues(static_cast<double>(first), static_cast<double>(second), unit);
    if (row.size() < Wanted)
        row.insert(Column, 3, ' ');
    if (language == ReportLanguage::German && row.size() > Wanted)
        row.erase(Column, row.size() - Wanted);
    return row;
}

std::string BandRow(const ResultDocument& document) {
    return std::string(BandName(document)) + "/" + document.model + "/" + document.serial;
}

std::string PathRow(const ResultDocument& document, ReportLanguage language) {
    if (!document.reflection)
        return {};
    return std::string((*document.reflection ? Reflection : Transmission).In(language));
}

std::string MethodRow(const ResultDocument& document, ReportLanguage language) {
    return std::string((document.method == ResultMethod::TwoTone ? TwoToneMode : SweepMode).In(language));
}

std::string WorstRow(const ResultDocument& document) {
    const auto worst = WorstOf(document);
    if (!worst)
        return {};
    const std::string frequency = worst->frequency > 0 ? Decimal(worst->frequency) : std::string();
    return frequency + "MHz/" + Decimal(InUnit(document, worst->level)) + std::string(UnitText(document));
}

/// Values of rows 1 to 11. A result without a head knows little of them.
std::array<std::string, 11> Values(const ResultDocument& document, ReportLanguage language) {
    std::array<std::string, 11> values;
    values[3] = MethodRow(document, language);
    values[4] = "Signal Gen 1---Signal Gen 2";
    values[9] = WorstRow(document);
    if (!document.hasHead)
        return values;
    values[0] = BandRow(document);
    values[1] = OrderText(document);
    values[2] = PathRow(document, language);
    values[5] = TwoColumns(document.power1, document.power2, "dBm", language);
    const FrequencyPlan& plan = document.plan;
    const auto sent = [](float first, float second) {
        return TwoValues(static_cast<double>(first), static_cast<double>(second), "MHz");
    };
    if (document.method == ResultMethod::TwoTone) {
        values[6] = TwoColumns(plan.f1, plan.f2, "MHz", language);
    } else {
        values[6] = TwoColumns(plan.f1Fix, plan.f2Fix, "MHz", language);
        values[7] = sent(plan.f1Start, plan.f2Start);
        values[8] = sent(plan.f1Stop, plan.f2Stop);
    }
    values[10] = DateText(document);
    return values;
}

bool ContinuesCharacter(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

/// The stored comment in rows of 40 characters, of which two end a line and are not shown.
std::vector<std::string> CommentRows(std::string_view comment) {
    if (comment.starts_with(CommentHead))
        comment.remove_prefix(CommentHead.size());
    std::string text; // its line feeds with the carriage returns that the rows are counted with
    for (std::size_t i = 0; i < comment.size(); ++i) {
        if (comment[i] == '\n' && (i == 0 || comment[i - 1] != '\r'))
            text += '\r';
        text += comment[i];
    }
    text.resize(std::min(text.size(), LongestComment));
    std::vector<std::string> rows;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t end = std::min(at + CommentRow, text.size());
        while (end < text.size() && end > at + 1 && ContinuesCharacter(text[end]))
            --end;
        std::string row = text.substr(at, end - at);
        std::erase_if(row, [](char c) { return c == '\r' || c == '\n'; });
        row.erase(row.find_last_not_of(' ') + 1);
        rows.push_back(std::move(row));
        at = end;
    }
    while (!rows.empty() && rows.back().empty())
        rows.pop_back();
    return rows;
}

/// The rows that stand upwards from the plot: device, limit, markers.
class ResultRows {
public:
    explicit ResultRows(std::vector<PageText>& texts) : m_Texts(texts) {}

    void Add(int y, std::string text) {
        m_Texts.push_back({RightColumn, y, std::move(text), RowFont, TextColour});
        m_Top = std::min(m_Top, y);
    }
    [[nodiscard]] int Top() const { return m_Top; }

private:
    std::vector<PageText>& m_Texts;
    int m_Top = SerialRow;
};

int AddResultRows(std::vector<PageText>& texts, const ResultDocument& document, const ReportExtras& extras) {
    const ReportLanguage language = extras.language;
    ResultRows rows(texts);
    const bool limit = !extras.alarmOff && document.limit;
    const auto shown = std::count_if(extras.markers.begin(), extras.markers.end(),
                                     [](const ReportMarker& marker) { return !marker.position.empty(); });
    int y = (limit ? LimitRow : SerialRow) - static_cast<int>(shown) * RowStep;
    const std::string unit = document.method == ResultMethod::TwoTone ? "Sec." : "MHz";
    for (std::size_t i = 0; i < extras.markers.size(); ++i) {
        const ReportMarker& marker = extras.markers[i];
        if (marker.position.empty())
            continue;
        rows.Add(y, "Marker" + std::to_string(i + 1) + ": " + marker.position + unit + "  " + marker.level +
                        std::string(UnitText(document)));
        y += RowStep;
    }
    if (limit)
        rows.Add(LimitRow, std::string(LimitWords.In(language)) + Decimal(InUnit(document, *document.limit)) +
                               std::string(UnitText(document)));
    if (extras.keepSerial)
        rows.Add(SerialRow, std::string(SerialWords.In(language)) + "    " + document.deviceSerial);
    return rows.Top();
}

void AddComment(std::vector<PageText>& texts, const std::string& comment, int bottom) {
    const std::vector<std::string> rows = CommentRows(comment);
    const int count = static_cast<int>(rows.size());
    const int step = CommentTop + count * RowStep > bottom ? NarrowStep : RowStep;
    for (int row = 0; row < count; ++row) {
        if (!rows[static_cast<std::size_t>(row)].empty())
            texts.push_back({RightColumn, CommentTop + row * step, rows[static_cast<std::size_t>(row)],
                             RowFont, TextColour});
    }
}

} // namespace

ReportPage LayOutPage(const ResultDocument& document, const ReportExtras& extras) {
    const ReportLanguage language = extras.language;
    ReportPage page;
    page.language = language;
    page.plot = {0, PageHeight - PlotPictureHeight, PlotPictureWidth, PlotPictureHeight};
    page.texts.push_back({200, 90, std::string(Headings[0].In(language)), TitleFont, TextColour});
    if (IsPartial(document))
        page.texts.push_back({200, 140,
                              std::to_string(document.pointsTaken) + std::string(Of.In(language)) +
                                  std::to_string(document.pointsAsked) + std::string(Points.In(language)),
                              RowFont, PartialColour});
    const std::array<std::string, 11> values = Values(document, language);
    for (std::size_t row = 1; row <= values.size(); ++row) {
        const int y = static_cast<int>(row) * RowStep + RowsTop;
        const std::string_view heading = Headings[row].In(language);
        if (!heading.empty())
            page.texts.push_back({HeadingColumn, y, std::string(heading), RowFont, TextColour});
        if (!values[row - 1].empty())
            page.texts.push_back({ValueColumn, y, values[row - 1], RowFont, TextColour});
    }
    if (!document.receiver.empty()) { // below the rows that every page has
        const int y = static_cast<int>(values.size() + 1) * RowStep + RowsTop;
        page.texts.push_back(
            {HeadingColumn, y, std::string(ReceiverWords.In(language)), RowFont, TextColour});
        page.texts.push_back({ValueColumn, y, document.receiver, RowFont, TextColour});
    }
    std::vector<PageText> below;
    const int bottom = AddResultRows(below, document, extras);
    AddComment(page.texts, document.comment, bottom);
    page.texts.insert(page.texts.end(), below.begin(), below.end());
    if (extras.logo)
        page.logo = LogoPlace(extras.logo->width, extras.logo->height);
    return page;
}

PagePlace LogoPlace(int width, int height) {
    if (width <= LogoWidth && height <= LogoHeight)
        return {PageWidth - width, LogoTop, width, height};
    const double ratio = static_cast<double>(width) / height > WideLogo
                             ? static_cast<double>(width) / LogoWidth
                             : static_cast<double>(height) / LogoHeight;
    const int scaledWidth = std::max(static_cast<int>(width / ratio), 1);
    const int scaledHeight = std::max(static_cast<int>(height / ratio), 1);
    return {PageWidth - scaledWidth - LogoRoom, LogoTop, scaledWidth, scaledHeight};
}

std::string InReportLanguage(ReportLanguage language, std::string_view text) {
    for (const Words& words : PlotWords) {
        if (words.german == text)
            return std::string(words.In(language));
    }
    return std::string(text);
}

} // namespace qor
