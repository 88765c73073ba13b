#include "results/paint/series_report.h"

#include "base/text_format.h"
#include "results/series_forms.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>

#include <algorithm>
#include <cmath>

namespace qor {

namespace {

constexpr double Left = 40;
constexpr double Right = 555;
constexpr double RowHeight = 15;
constexpr int RunsPerSheet = 46;
/// Curves in excess of this are painted as one picture: a line each would make the file large.
constexpr std::size_t MostLines = 60;
constexpr double PictureScale = 3; ///< pixels a point, of that picture

const QColor Ink(0x20, 0x20, 0x20);
const QColor Grid(0xD8, 0xD8, 0xD8);
const QColor Bars(0x4A, 0x7F, 0xB5);
const QColor Good(0x1B, 0x7F, 0x3A);
const QColor Bad(0xC0, 0x28, 0x1C);
const QColor Grey(0x77, 0x77, 0x77);

struct Words {
    std::string_view german;
    std::string_view english;
};
constexpr Words Dictionary[] = {
    {"Statistik der Serie", "Statistics of the series"},
    {"Messungen", "Runs"},
    {"Durch", "Passed"},
    {"Misserfolg", "Failed"},
    {"Ohne Urteil", "Without verdict"},
    {"Fehler", "Error"},
    {"Ausbeute", "Yield"},
    {"Mittelwert", "Mean"},
    {"Standardabweichung", "Standard deviation"},
    {"Schlechtester Wert", "Worst"},
    {"Mittlerer Abstand", "Mean margin"},
    {"Cpk", "Cpk"},
    {"Trend", "Trend"},
    {"dB je Stunde", "dB an hour"},
    {"Verteilung der schlechtesten Werte", "Distribution of the worst levels"},
    {"Schlechtester Wert ueber der Zeit", "Worst level over time"},
    {"Alle Kurven, Huellkurve und Median", "All curves, envelope and median"},
    {"Stunden seit der ersten Messung", "Hours since the first run"},
    {"Freq: MHz", "Freq: MHz"},
    {"Ziet: Sek.", "Time: Sec."},
    {"Prueflinge", "Devices"},
    {"Pruefling", "Device"},
    {"Datum", "Date"},
    {"Grenze dBm", "Limit dBm"},
    {"Abstand dB", "Margin dB"},
    {"Urteil", "Verdict"},
    {"Blatt", "Sheet"},
};

QString AsText(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QFont FontOf(int size, bool bold = false) {
    QFont font(QStringLiteral("Liberation Sans"));
    font.setStyleHint(QFont::SansSerif);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setPixelSize(size);
    font.setBold(bold);
    return font;
}

QString NotKnown() {
    return QStringLiteral("-");
}

QString Number(double value, int decimals, const char* unit) {
    return AsText(Fixed(value, decimals)) + QLatin1String(unit);
}

QString Number(std::optional<double> value, int decimals, const char* unit) {
    return value ? Number(*value, decimals, unit) : NotKnown();
}

/// Steps of 1, 2 or 5 that divide a range into about `count`.
double StepOf(double range, int count) {
    const double rough = std::max(range / count, 1e-6);
    const double decade = std::pow(10.0, std::floor(std::log10(rough)));
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (factor * decade >= rough)
            return factor * decade;
    }
    return 10 * decade;
}

int DecimalsOf(double step) {
    return step >= 1 ? 0 : step >= 0.1 ? 1 : 2;
}

/// A field with two axes, and the way from values to its places.
class Field {
public:
    Field(QPainter& painter, const QRectF& area) : m_Painter(painter), m_Area(area) {}

    void SetX(double from, double to) { SetRange(from, to, m_X0, m_X1); }
    void SetY(double from, double to) { SetRange(from, to, m_Y0, m_Y1); }
    [[nodiscard]] QPointF At(double x, double y) const {
        return {m_Area.left() + (x - m_X0) / (m_X1 - m_X0) * m_Area.width(),
                m_Area.bottom() - (y - m_Y0) / (m_Y1 - m_Y0) * m_Area.height()};
    }
    [[nodiscard]] const QRectF& Area() const { return m_Area; }

    void DrawAxes(const QString& title, const QString& xTitle, int decimalsX = -1) {
        m_Painter.setFont(FontOf(10, true));
        m_Painter.setPen(Ink);
        m_Painter.drawText(QPointF(m_Area.left() - 28, m_Area.top() - 8), title);
        m_Painter.setFont(FontOf(8));
        const double stepX = StepOf(m_X1 - m_X0, static_cast<int>(m_Area.width() / 40));
        for (double x = std::ceil(m_X0 / stepX - 1e-9) * stepX; x <= m_X1 + stepX * 1e-6; x += stepX) {
            const double at = At(x, m_Y0).x();
            Line({at, m_Area.top()}, {at, m_Area.bottom()});
            const QString text = AsText(Fixed(x + 0.0, decimalsX >= 0 ? decimalsX : DecimalsOf(stepX)));
            m_Painter.drawText(QRectF(at - 30, m_Area.bottom() + 2, 60, 10), Qt::AlignCenter, text);
        }
        const double stepY = StepOf(m_Y1 - m_Y0, static_cast<int>(m_Area.height() / 22));
        for (double y = std::ceil(m_Y0 / stepY - 1e-9) * stepY; y <= m_Y1 + stepY * 1e-6; y += stepY) {
            const double at = At(m_X0, y).y();
            Line({m_Area.left(), at}, {m_Area.right(), at});
            m_Painter.drawText(QRectF(m_Area.left() - 43, at - 5, 40, 10), Qt::AlignRight | Qt::AlignVCenter,
                               AsText(Fixed(y + 0.0, DecimalsOf(stepY))));
        }
        m_Painter.setPen(QPen(Ink, 0.6));
        m_Painter.setBrush(Qt::NoBrush);
        m_Painter.drawRect(m_Area);
        m_Painter.drawText(QRectF(m_Area.left(), m_Area.bottom() + 13, m_Area.width(), 11), Qt::AlignCenter,
                           xTitle);
    }

private:
    static void SetRange(double from, double to, double& low, double& high) {
        low = from;
        high = to > from ? to : from + 1;
    }
    void Line(const QPointF& a, const QPointF& b) {
        m_Painter.setPen(QPen(Grid, 0.5));
        m_Painter.drawLine(a, b);
        m_Painter.setPen(Ink);
    }

    QPainter& m_Painter;
    QRectF m_Area;
    double m_X0 = 0;
    double m_X1 = 1;
    double m_Y0 = 0;
    double m_Y1 = 1;
};

/// One sheet in the making.
class Sheet {
public:
    Sheet(QPainter& painter, const SeriesSummary& summary, const SeriesStatistics& kind,
          ReportLanguage language)
        : m_Painter(painter), m_Summary(summary), m_Kind(kind), m_Language(language) {
        painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    }

    void DrawHead(std::string_view title) {
        m_Painter.setPen(Ink);
        m_Painter.setFont(FontOf(20, true));
        m_Painter.drawText(QPointF(Left, 52), Word(title));
        m_Painter.setFont(FontOf(12));
        m_Painter.drawText(QPointF(Left, 72), AsText(TitleOf(m_Kind.kind, m_Language)));
        m_Painter.setPen(QPen(Ink, 0.8));
        m_Painter.drawLine(QPointF(Left, 80), QPointF(Right, 80));
    }

    void DrawFigures() {
        DrawFigure(0, 0, "Messungen", QString::number(m_Kind.runs.size()));
        DrawFigure(0, 1, "Durch", QString::number(m_Kind.passed), Good);
        DrawFigure(0, 2, "Misserfolg", QString::number(m_Kind.failed), m_Kind.failed > 0 ? Bad : Ink);
        DrawFigure(0, 3, "Ohne Urteil", QString::number(m_Kind.withoutVerdict));
        DrawFigure(0, 4, "Ausbeute", m_Kind.yield ? Number(*m_Kind.yield * 100, 1, " %") : NotKnown());
        DrawFigure(1, 0, "Schlechtester Wert", Number(m_Kind.worst, 1, " dBm"));
        DrawFigure(1, 1, "Mittelwert", Number(m_Kind.mean, 2, " dBm"));
        DrawFigure(1, 2, "Standardabweichung", Number(m_Kind.deviation, 2, " dB"));
        DrawFigure(1, 3, "Mittlerer Abstand", Number(m_Kind.meanMargin, 2, " dB"));
        DrawFigure(1, 4, "Cpk", Number(m_Kind.cpk, 2, ""));
    }

    void DrawHistogram() {
        const Histogram& histogram = m_Kind.histogram;
        Field field(m_Painter, QRectF(Left + 28, 215, 210, 150));
        const int most = histogram.counts.empty()
                             ? 1
                             : *std::max_element(histogram.counts.begin(), histogram.counts.end());
        field.SetX(histogram.from,
                   histogram.from + histogram.step * static_cast<double>(histogram.counts.size()));
        field.SetY(0, most * 1.1);
        field.DrawAxes(Word("Verteilung der schlechtesten Werte"), QStringLiteral("dBm"));
        m_Painter.setPen(Qt::NoPen);
        m_Painter.setBrush(Bars);
        for (std::size_t i = 0; i < histogram.counts.size(); ++i) {
            const double from = histogram.from + histogram.step * static_cast<double>(i);
            m_Painter.drawRect(QRectF(field.At(from, histogram.counts[i]), field.At(from + histogram.step, 0))
                                   .adjusted(0.5, 0, -0.5, 0));
        }
        if (const auto limit = CommonLimit())
            DrawUpright(field, *limit);
    }

    void DrawTrend() {
        const Trend& trend = m_Kind.trend;
        Field field(m_Painter, QRectF(Left + 290, 215, 225, 150));
        double low = 0;
        double high = 1;
        if (!trend.points.empty()) {
            const auto [least, most] = std::minmax_element(
                trend.points.begin(), trend.points.end(),
                [](const Trend::Point& a, const Trend::Point& b) { return a.level < b.level; });
            low = least->level;
            high = most->level;
        }
        const double room = std::max((high - low) * 0.08, 0.5);
        const double hours = trend.points.empty() ? 1 : trend.points.back().hours;
        field.SetX(0, hours);
        field.SetY(low - room, high + room);
        field.DrawAxes(Word("Schlechtester Wert ueber der Zeit"), Word("Stunden seit der ersten Messung"));
        m_Painter.setPen(Qt::NoPen);
        m_Painter.setBrush(Bars);
        for (const Trend::Point& point : trend.points)
            m_Painter.drawRect(
                QRectF(field.At(point.hours, point.level) - QPointF(0.8, 0.8), QSizeF(1.6, 1.6)));
        if (!trend.line)
            return;
        m_Painter.save();
        m_Painter.setClipRect(field.Area());
        m_Painter.setPen(QPen(Bad, 1.2));
        m_Painter.drawLine(field.At(0, trend.line->level),
                           field.At(hours, trend.line->level + trend.line->slope * hours));
        m_Painter.restore();
        m_Painter.setFont(FontOf(8));
        m_Painter.setPen(Bad);
        m_Painter.drawText(QRectF(field.Area().left() + 3, field.Area().top() + 2, 200, 11), Qt::AlignLeft,
                           AsText(Fixed(trend.line->slope, 3)) + ' ' + Word("dB je Stunde"));
    }

    void DrawCurves() {
        Field field(m_Painter, QRectF(Left + 28, 425, Right - Left - 28, 350));
        const bool time = m_Kind.kind.OverTime();
        double low = 1e9;
        double high = -1e9;
        for (const Spread& spread : m_Kind.spread) {
            low = std::min(low, static_cast<double>(spread.low));
            high = std::max(high, static_cast<double>(spread.high));
        }
        const auto limit = CommonLimit();
        if (m_Kind.spread.empty()) {
            low = -150;
            high = -60;
        } else {
            field.SetX(XOf(m_Kind.spread.front().place), XOf(m_Kind.spread.back().place));
        }
        if (limit)
            high = std::max(high, *limit);
        const double room = std::max((high - low) * 0.05, 1.0);
        field.SetY(low - room, high + room);
        field.DrawAxes(Word("Alle Kurven, Huellkurve und Median"), Word(time ? "Ziet: Sek." : "Freq: MHz"));
        m_Painter.save();
        m_Painter.setClipRect(field.Area());
        if (m_Kind.runs.size() > MostLines)
            DrawRunsAsPicture(field);
        else
            DrawRuns(m_Painter, field, 0.6);
        DrawSpread(field);
        if (limit) {
            m_Painter.setPen(QPen(Bad, 1));
            m_Painter.drawLine(QPointF(field.Area().left(), field.At(0, *limit).y()),
                               QPointF(field.Area().right(), field.At(0, *limit).y()));
        }
        m_Painter.restore();
    }

    void DrawRunList(std::size_t first) {
        static constexpr double Columns[] = {Left, 215, 300, 350, 400, 455, 505};
        const QString heads[] = {Word("Pruefling"),     Word("Datum"),      QStringLiteral("dBm"),
                                 QStringLiteral("MHz"), Word("Grenze dBm"), Word("Abstand dB"),
                                 Word("Urteil")};
        m_Painter.setFont(FontOf(9, true));
        for (std::size_t i = 0; i < std::size(heads); ++i)
            m_Painter.drawText(QPointF(Columns[i], 100), heads[i]);
        m_Painter.setFont(FontOf(9));
        const QFontMetricsF metrics(m_Painter.font());
        const std::size_t end = std::min(first + RunsPerSheet, m_Kind.runs.size());
        double y = 100;
        for (std::size_t i = first; i < end; ++i) {
            y += RowHeight;
            const SeriesRun& run = m_Summary.runs[m_Kind.runs[i]];
            const QString cells[] = {
                metrics.elidedText(AsText(run.device).simplified(), Qt::ElideMiddle, 170),
                AsText(run.date),
                run.worst ? Number(run.worst->level, 1, "") : NotKnown(),
                run.worst ? Number(run.worst->frequency, 1, "") : NotKnown(),
                run.limit ? Number(*run.limit, 1, "") : NotKnown(),
                Number(run.Margin(), 1, "")};
            for (std::size_t column = 0; column < std::size(cells); ++column)
                m_Painter.drawText(QPointF(Columns[column], y), cells[column]);
            DrawVerdict({Columns[6], y}, run.verdict);
        }
    }

    void DrawFoot(int sheet, int sheets) {
        m_Painter.setPen(Grey);
        m_Painter.setFont(FontOf(8));
        m_Painter.drawText(QRectF(Left, 812, Right - Left, 11), Qt::AlignCenter,
                           Word("Blatt") + QStringLiteral(" %1 / %2").arg(sheet).arg(sheets));
    }

private:
    [[nodiscard]] QString Word(std::string_view german) const {
        return AsText(SeriesWord(m_Language, german));
    }
    [[nodiscard]] double XOf(int place) const { return m_Kind.kind.OverTime() ? place : place / 10.0; }

    /// The limit of all runs that have one; nothing when they differ.
    [[nodiscard]] std::optional<double> CommonLimit() const {
        std::optional<double> common;
        for (const std::size_t index : m_Kind.runs) {
            const auto& limit = m_Summary.runs[index].limit;
            if (limit && common && *common != static_cast<double>(*limit))
                return std::nullopt;
            if (limit)
                common = static_cast<double>(*limit);
        }
        return common;
    }

    void DrawFigure(int column, int row, std::string_view name, const QString& value,
                    const QColor& colour = Ink) {
        const double x = Left + column * 265;
        const double y = 102 + row * 18;
        m_Painter.setPen(Ink);
        m_Painter.setFont(FontOf(11));
        m_Painter.drawText(QPointF(x, y), Word(name));
        m_Painter.setPen(colour);
        m_Painter.setFont(FontOf(11, true));
        m_Painter.drawText(QPointF(x + 135, y), value);
        m_Painter.setPen(Ink);
    }

    void DrawUpright(const Field& field, double limit) {
        const double x = field.At(limit, 0).x();
        if (x < field.Area().left() || x > field.Area().right())
            return;
        m_Painter.setPen(QPen(Bad, 1));
        m_Painter.drawLine(QPointF(x, field.Area().top()), QPointF(x, field.Area().bottom()));
    }

    void DrawRuns(QPainter& painter, const Field& field, double width) {
        painter.setPen(QPen(QColor(0x4A, 0x7F, 0xB5, m_Kind.runs.size() > MostLines ? 70 : 110), width));
        QPolygonF line;
        for (const std::size_t index : m_Kind.runs) {
            line.clear();
            for (const CurvePlace& point : m_Summary.runs[index].curve)
                line << field.At(XOf(point.place), static_cast<double>(point.level));
            painter.drawPolyline(line);
        }
    }

    void DrawRunsAsPicture(const Field& field) {
        const QRectF area = field.Area();
        QImage image((area.size() * PictureScale).toSize(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        {
            QPainter painter(&image);
            painter.scale(PictureScale, PictureScale);
            painter.translate(-area.topLeft());
            DrawRuns(painter, field, 0);
        }
        m_Painter.drawImage(area, image);
    }

    void DrawSpread(const Field& field) {
        QPolygonF low;
        QPolygonF median;
        QPolygonF high;
        for (const Spread& spread : m_Kind.spread) {
            const double x = XOf(spread.place);
            low << field.At(x, static_cast<double>(spread.low));
            median << field.At(x, static_cast<double>(spread.median));
            high << field.At(x, static_cast<double>(spread.high));
        }
        m_Painter.setPen(QPen(Ink, 0.8, Qt::DashLine));
        m_Painter.drawPolyline(low);
        m_Painter.drawPolyline(high);
        m_Painter.setPen(QPen(Ink, 1.4));
        m_Painter.drawPolyline(median);
    }

    void DrawVerdict(const QPointF& at, ResultVerdict verdict) {
        const QColor colour = verdict == ResultVerdict::Passed   ? Good
                              : verdict == ResultVerdict::Failed ? Bad
                                                                 : Grey;
        m_Painter.setPen(colour);
        m_Painter.drawText(at, verdict == ResultVerdict::Passed   ? Word("Durch")
                               : verdict == ResultVerdict::Failed ? Word("Misserfolg")
                               : verdict == ResultVerdict::Error  ? Word("Fehler")
                                                                  : QStringLiteral("-"));
        m_Painter.setPen(Ink);
    }

    QPainter& m_Painter;
    const SeriesSummary& m_Summary;
    const SeriesStatistics& m_Kind;
    ReportLanguage m_Language;
};

int ListSheets(const SeriesStatistics& kind) {
    return (static_cast<int>(kind.runs.size()) + RunsPerSheet - 1) / RunsPerSheet;
}

} // namespace

std::string_view SeriesWord(ReportLanguage language, std::string_view german) {
    for (const Words& words : Dictionary) {
        if (words.german == german && language == ReportLanguage::English)
            return words.english;
    }
    return german;
}

void PaintSeries(QPainter& painter, const SeriesSummary& summary, const SeriesStatistics& kind,
                 ReportLanguage language) {
    Sheet sheet(painter, summary, kind, language);
    sheet.DrawHead("Statistik der Serie");
    sheet.DrawFigures();
    sheet.DrawHistogram();
    sheet.DrawTrend();
    sheet.DrawCurves();
}

std::string FormatSeriesPdf(const SeriesSummary& summary, ReportLanguage language) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (summary.kinds.empty() || !buffer.open(QIODevice::WriteOnly))
        return {};
    QPdfWriter pdf(&buffer);
    pdf.setPageSize(QPageSize(QPageSize::A4));
    pdf.setPageMargins({});
    pdf.setResolution(720);
    pdf.setTitle(AsText(SeriesWord(language, "Statistik der Serie")));
    pdf.setCreator(QStringLiteral("QOR"));
    int sheets = 0;
    for (const SeriesStatistics& kind : summary.kinds)
        sheets += 1 + ListSheets(kind);
    QPainter painter;
    if (!painter.begin(&pdf))
        return {};
    painter.scale(pdf.resolution() / 72.0, pdf.resolution() / 72.0);
    int number = 0;
    const auto next = [&] {
        if (++number > 1)
            pdf.newPage();
    };
    for (const SeriesStatistics& kind : summary.kinds) {
        next();
        PaintSeries(painter, summary, kind, language);
        Sheet sheet(painter, summary, kind, language);
        sheet.DrawFoot(number, sheets);
        for (int list = 0; list < ListSheets(kind); ++list) {
            next();
            sheet.DrawHead("Prueflinge");
            sheet.DrawRunList(static_cast<std::size_t>(list) * RunsPerSheet);
            sheet.DrawFoot(number, sheets);
        }
    }
    painter.end();
    return bytes.toStdString();
}

} // namespace qor
