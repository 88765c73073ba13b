#include "base/text_format.h"
#include "desk/list_statistics.h"
#include "desk/program.h"
#include "desk/tell.h"
#include "desk/ui/form_dialog.h"
#include "desk/ui/open_dialog.h"
#include "desk/ui/text.h"
#include "results/paint/series_report.h"
#include "results/series_forms.h"

#include <QtWidgets>

namespace qor::ui {

namespace {

constexpr double SheetScale = 1.3; ///< pixels a point

/// One kind of results of the series on its sheet, as the report has it.
class SheetWidget final : public QWidget {
public:
    SheetWidget(const SeriesSummary& summary, ReportLanguage language)
        : m_Summary(summary), m_Language(language) {
        setFixedSize((SeriesSheet * SheetScale).toSize());
        setAccessibleName(Tr("Seite"));
    }
    void ShowKind(std::size_t kind) {
        m_Kind = kind;
        m_Sheet = {};
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        if (m_Sheet.isNull()) {
            m_Sheet = QImage(size() * devicePixelRatioF(), QImage::Format_RGB32);
            m_Sheet.setDevicePixelRatio(devicePixelRatioF());
            m_Sheet.fill(Qt::white);
            QPainter painter(&m_Sheet);
            painter.scale(SheetScale, SheetScale);
            PaintSeries(painter, m_Summary, m_Summary.kinds[m_Kind], m_Language);
        }
        QPainter(this).drawImage(0, 0, m_Sheet);
    }

private:
    const SeriesSummary& m_Summary;
    ReportLanguage m_Language;
    std::size_t m_Kind = 0;
    QImage m_Sheet; ///< painted once
};

QString Number(std::optional<double> value) {
    return value ? Plain(Fixed(*value, 1)) : QString();
}

class StatisticsDialog final : public FormDialog {
public:
    StatisticsDialog(Program& program, const SeriesSummary& summary, QWidget* parent)
        : FormDialog("Statistik", parent), m_Summary(summary), m_Kinds(new QComboBox),
          m_Sheet(new SheetWidget(summary, program.Reports().Language())), m_Runs(new QTableWidget) {
        for (const SeriesStatistics& kind : summary.kinds)
            m_Kinds->addItem(Plain(TitleOf(kind.kind, program.Reports().Language())));
        m_Kinds->setAccessibleName(Tr("Messungen:"));
        m_Kinds->setVisible(summary.kinds.size() > 1);
        Column()->addWidget(m_Kinds);
        auto* scroll = new QScrollArea;
        scroll->setWidget(m_Sheet);
        const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent) + 2 * scroll->frameWidth();
        scroll->setMinimumSize(m_Sheet->width() + bar,
                               std::min(m_Sheet->height(), screen()->availableGeometry().height() - 220));
        auto* tabs = new QTabWidget;
        tabs->addTab(scroll, Tr("Statistik"));
        tabs->addTab(m_Runs, Tr("Prueflinge"));
        Column()->addWidget(tabs);
        AddButtons("OK", {});
        AddButton("Speichern...", [&program, &summary] {
            static_cast<void>(Tell(SaveStatistics(program, summary), program.Parts().user));
        });
        QObject::connect(m_Kinds, &QComboBox::currentIndexChanged, this,
                         [this](int kind) { ShowKind(kind); });
        ShowKind(0);
    }

private:
    void ShowKind(int index) {
        m_Sheet->ShowKind(static_cast<std::size_t>(index));
        const SeriesStatistics& kind = m_Summary.kinds[static_cast<std::size_t>(index)];
        m_Runs->clear();
        m_Runs->setEditTriggers(QAbstractItemView::NoEditTriggers);
        m_Runs->setColumnCount(7);
        m_Runs->setHorizontalHeaderLabels({Tr("Pruefling"), Tr("Datum"), QStringLiteral("dBm"),
                                           QStringLiteral("MHz"), Tr("Grenze dBm"), Tr("Abstand dB"),
                                           Tr("Urteil")});
        m_Runs->setRowCount(static_cast<int>(kind.runs.size()));
        for (std::size_t i = 0; i < kind.runs.size(); ++i)
            ShowRun(static_cast<int>(i), m_Summary.runs[kind.runs[i]]);
        m_Runs->resizeColumnsToContents();
    }

    void ShowRun(int row, const SeriesRun& run) {
        const auto wide = [](std::optional<float> value) {
            return value ? std::optional<double>(*value) : std::nullopt;
        };
        const auto worst = run.worst ? std::optional(run.worst->level) : std::nullopt;
        const auto where = run.worst ? std::optional(run.worst->frequency) : std::nullopt;
        // shown to the operator
        static constexpr std::string_view Verdicts[] = {"-", "Durch", "Misserfolg", "Fehler"};
        const QString cells[] = {Plain(run.device),
                                 Plain(run.date),
                                 Number(wide(worst)),
                                 Number(wide(where)),
                                 Number(wide(run.limit)),
                                 Number(run.Margin()),
                                 Tr(Verdicts[static_cast<std::size_t>(run.verdict)])};
        int column = 0;
        for (const QString& cell : cells)
            m_Runs->setItem(row, column++, new QTableWidgetItem(cell));
    }

    const SeriesSummary& m_Summary;
    QComboBox* m_Kinds;
    SheetWidget* m_Sheet;
    QTableWidget* m_Runs;
};

bool OpenStatistics(Program& program, int /*argument*/, QWidget* parent) {
    const ListStatistics statistics = StatisticsOfList(program);
    if (!statistics.problems.empty()) {
        std::string text = "Nicht gelesene Dateien: " + std::to_string(statistics.problems.size());
        for (std::size_t i = 0; i < std::min<std::size_t>(statistics.problems.size(), 10); ++i)
            text += "\n" + statistics.problems[i];
        program.Parts().user.Message(text);
    }
    if (!statistics.summary.kinds.empty())
        StatisticsDialog(program, statistics.summary, parent).exec();
    return true;
}

const DialogEntry StatisticsEntry("statistics", OpenStatistics);

} // namespace

} // namespace qor::ui
