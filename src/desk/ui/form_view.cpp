#include "desk/ui/form_view.h"

#include "curve/alarm.h"
#include "curve/ui/curve_wnd.h"
#include "desk/commands.h"
#include "desk/notices.h"
#include "desk/program.h"
#include "desk/tell.h"
#include "desk/ui/fit_font.h"
#include "desk/ui/pictures.h"
#include "desk/ui/plot_words.h"
#include "desk/ui/reading_field.h"
#include "desk/ui/text.h"
#include "platform/serial_control.h"

#include <QtWidgets>

namespace qor::ui {

CTestSDIFormView::CTestSDIFormView(Program& program, Commands& commands, QWidget* parent)
    : QWidget(parent), m_Program(program), m_Commands(commands),
      m_Press([this](const std::function<void()>& what) { Pressed(what); }),
      m_Curve(new CCurveWnd(program, this)), m_Stamp(new QWidget(m_Curve)), m_Notices(new QLabel(this)),
      m_List(program.List(), this, m_Press), m_Markers{{{0, program.Marks(), this, m_Press},
                                                        {1, program.Marks(), this, m_Press},
                                                        {2, program.Marks(), this, m_Press}}},
      m_Port(program.Link(), program.State().link.connection, this, m_Press,
             [this] { m_Commands.Run("choose_port"); }),
      m_Service(program, commands, this, m_Press) {
    setObjectName(QStringLiteral("panel"));
    setAttribute(Qt::WA_StyledBackground);
    setMinimumSize(100, 40);
    m_Curve->setAccessibleName(Tr("Kurve"));
    m_Stamp->setAccessibleName(Tr("Stempel"));
    m_Stamp->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_Notices->setObjectName(QStringLiteral("notices"));
    BuildCells();
    BuildBoxes();
    BuildColumn();
    BuildButtons();
    SetTabOrder();
    m_Settled.setSingleShot(true);
    QObject::connect(&m_Settled, &QTimer::timeout, this, [this] { m_LayoutDone = true; });
}

void CTestSDIFormView::Pressed(const std::function<void()>& what) {
    if (m_Program.IsLeaving())
        return;
    LeaveFields();
    what();
    if (m_AfterCommand)
        m_AfterCommand();
}

void CTestSDIFormView::BuildCells() {
    m_ScaleUp =
        AddButton(this, "+", "Pegelachse vergroessern", m_Press, [this] { m_Commands.Run("scale_step", 1); });
    m_ScaleDown =
        AddButton(this, "-", "Pegelachse verkleinern", m_Press, [this] { m_Commands.Run("scale_step", 0); });
    for (QPushButton* button : {m_ScaleUp, m_ScaleDown}) {
        button->setObjectName(QStringLiteral("small"));
        button->setAutoRepeat(true);
    }
    static constexpr std::string_view Cells[] = {"m_Band_sel", "m_Mode_sel",       "m_IM_sel",
                                                 "m_Path_sel", "m_SweepKind_text", "Zustand"};
    // shown to the operator
    static constexpr std::string_view Words[] = {"Gewaehlte Breite", "Messverfahren", "Ordnung des Produkts",
                                                 "Messweg",          "Wiederholung",  "Zustand des Geraets"};
    for (std::size_t n = 0; n < m_Cell.size(); ++n) {
        m_Cell[n] = AddText(this, Cells[n]);
        Describe(m_Cell[n], Words[n]);
        m_Cell[n]->setObjectName(QStringLiteral("cell"));
    }
}

void CTestSDIFormView::BuildBoxes() {
    m_FrequencyBox = new QGroupBox(Tr("--- Frequenz ---"), this);
    m_F1 = AddText(this, "m_f1_text");
    m_F2 = AddText(this, "m_f2_text");
    m_F1Label = new QLabel(QStringLiteral("f1:"), this);
    m_F2Label = new QLabel(QStringLiteral("f2:"), this);
    Describe(m_F1, "Frequenz von Ton 1 in MHz");
    Describe(m_F2, "Frequenz von Ton 2 in MHz");
    m_Path = new PathPicture(this);
    m_Lamp = new LampPicture(this);
    m_ReadingBox = new QGroupBox(Tr("--- fIM/dBm ---"), this);
    m_FimLabel = new QLabel(QStringLiteral("fIM:"), this);
    m_Fim = AddText(this, "m_fIM_text");
    m_Reading = AddText(this, "m_ReadingText", new ReadingField(this));
    m_Reading->setObjectName(QStringLiteral("reading"));
    Describe(m_Fim, "Frequenz des Produkts in MHz");
    Describe(m_Reading, "Zuletzt gelesener Pegel");
    m_ReadingUnit = new QLabel(this);
}

void CTestSDIFormView::BuildColumn() {
    m_Head = new HeadPicture(this);
    m_Head->setAccessibleName(QStringLiteral("QOR PIM Analyzer"));
    m_AlarmBox = new QGroupBox(Tr("----- Alarm Niveau------"), this);
    m_Alarm = new QLineEdit(this);
    m_Alarm->setAccessibleName(QStringLiteral("m_AlarmText"));
    m_Alarm->setToolTip(Tr("Grenzwert, 0 bis -200"));
    m_Alarm->setAlignment(Qt::AlignCenter);
    QObject::connect(m_Alarm, &QLineEdit::editingFinished, this, [this] {
        if (!QApplication::activePopupWidget()) // a menu that opens; its command takes the field first
            TakeLimit();
    });
    m_AlarmUnit = new QLabel(this);
    m_Serial = new QLineEdit(this);
    m_Serial->setAccessibleName(QStringLiteral("m_DutSerial"));
    m_Serial->setToolTip(Tr("Seriennummer des Prueflings"));
    m_SerialLabel = new QLabel(Tr("Serien:"), this);
    m_SerialLabel->setBuddy(m_Serial);
    QObject::connect(m_Serial, &QLineEdit::textEdited, this, [this](const QString& text) {
        m_Program.State().results.device.EnterSerial(Utf8(text));
    });
}

void CTestSDIFormView::BuildButtons() {
    m_Start = new StartButton(this);
    m_Start->setObjectName(QStringLiteral("start"));
    Describe(m_Start, "Messung beginnen oder anhalten");
    QObject::connect(m_Start, &QPushButton::clicked, this, [this] {
        Pressed([this] {
            m_Port.OfferAgain();
            m_Commands.Run("start_stop");
        });
    });
    m_Clear = AddButton(this, "R", "Anzeige loeschen", m_Press, [this] { m_Commands.Run("clear_display"); });
    m_Clear->setObjectName(QStringLiteral("small"));
    m_Exit = AddButton(this, "Exit", "Programm beenden", m_Press, [this] { m_Commands.Run("exit"); });
}

void CTestSDIFormView::SetTabOrder() {
    std::vector<QWidget*> order{m_Start, m_Clear, m_Alarm, m_Serial};
    const auto append = [&order](const std::vector<QWidget*>& stops) {
        order.insert(order.end(), stops.begin(), stops.end());
    };
    for (const MarkerControls& marker : m_Markers)
        append(marker.TabStops());
    append({m_Port.List(), m_Port.Button(), m_Exit, m_ScaleUp, m_ScaleDown});
    append(m_List.TabStops());
    for (std::size_t n = 1; n < order.size(); ++n)
        QWidget::setTabOrder(order[n - 1], order[n]);
}

void CTestSDIFormView::FocusStart() {
    m_Start->setFocus(Qt::OtherFocusReason);
}

void CTestSDIFormView::LeaveFields() {
    if (m_Alarm->isModified())
        TakeLimit();
}

Lamp CTestSDIFormView::ShownLamp() const {
    return PanelOf(m_Program.State()).lamp;
}

QString CTestSDIFormView::StateText() const {
    if (m_Program.IsLeaving())
        return Tr("Programm wird beendet");
    switch (ShownLamp()) {
    case Lamp::Ready:
        return PanelOf(m_Program.State()).receiverMissing ? Tr("Kein Empfaenger") : Tr("Bereit");
    case Lamp::Running:
        return Tr("Messung laeuft");
    case Lamp::NotReady:
        break;
    }
    return m_Program.Parts().comm.GetPortOpen() ? Tr("Initialisieren") : Tr("Nicht verbunden");
}

void CTestSDIFormView::RefreshCells() {
    const Session& session = m_Program.State();
    const Panel panel = PanelOf(session);
    const QString state = StateText();
    const QString cells[] = {TrText(panel.m_Band_sel), Tr(panel.m_Mode_sel),       TrText(panel.m_IM_sel),
                             Tr(panel.m_Path_sel),     Tr(panel.m_SweepKind_text), state};
    for (std::size_t n = 0; n < m_Cell.size(); ++n)
        ShowInCell(m_Cell[n], cells[n]);
    Show(m_F1, Plain(panel.m_f1_text));
    Show(m_F2, Plain(panel.m_f2_text));
    Show(m_Fim, Plain(panel.m_fIM_text));
    Show(m_Reading, Plain(panel.m_ReadingText));
    SetFlag(m_Reading, "over", panel.overLimit);
    Show(m_ReadingUnit, Plain(panel.unit));
    if (!m_Alarm->isModified()) // typed and not yet taken, also while a menu has the keyboard
        Show(m_Alarm, Plain(panel.m_AlarmText));
    Show(m_AlarmUnit, Plain(panel.unit));
    Show(m_Serial, Plain(session.results.device.Serial()));
    m_Serial->setVisible(session.appearance.ShowsSerial());
    m_SerialLabel->setVisible(session.appearance.ShowsSerial());
    if (const unsigned saved = session.results.autoSave.Saved(); saved != m_SavedRuns) {
        m_SavedRuns = saved; // the next device's number can be scanned in
        m_Serial->setFocus(Qt::OtherFocusReason);
        m_Serial->selectAll();
    }
    m_Path->Show(session.working.Path() == 1);
    m_Path->setAccessibleName(Tr(panel.m_Path_sel));
    Describe(m_Path, session.working.Path() == 1
                         ? "Der Pegel kommt an dem Port an, von dem die Traeger ausgehen."
                         : "Der Pegel kommt durch den Pruefling am anderen Port an.");
    m_Lamp->Show(ShownLamp(), state,
                 ShownLamp() == Lamp::Ready ? PartText(session.curve.Facts()) : QString());
    m_Start->Show(session.run.IsOn(), m_Layout.picture == StartPicture::Small,
                  session.run.IsOn() ? Tr("Halten Messung") : Tr("Beginnen Messung"));
    m_Start->setAccessibleName(m_Start->text());
}

/// The lines above the plot.
void CTestSDIFormView::RefreshNotices() {
    QStringList lines;
    for (const std::string& line : NoticesOf(m_Program.State(), m_Program.Stores()))
        lines << TrText(line);
    if (lines == m_NoticeLines)
        return;
    m_NoticeLines = lines;
    Relayout();
    m_Notices->setToolTip(lines.join('\n'));
    m_Notices->setAccessibleName(lines.join(' '));
}

void CTestSDIFormView::RefreshPlotWords() {
    const Session& session = m_Program.State();
    const QString sentence = CurveSentence(session, PanelOf(session));
    if (m_Curve->accessibleDescription() == sentence)
        return;
    m_Curve->setAccessibleDescription(sentence);
    m_Stamp->setGeometry(m_Curve->width() / 3, m_Curve->height() / 4, m_Curve->width() / 3, 40);
    const RunFacts facts = session.curve.Facts();
    m_Stamp->setAccessibleDescription(VerdictText(facts));
    m_Stamp->setVisible(session.curve.limit.StampOn() && Judge(facts) != Verdict::None);
}

void CTestSDIFormView::Refresh() {
    const Session& session = m_Program.State();
    if (session.results.list.IsOpen() != m_ListShown)
        Relayout();
    if (m_Service.Refresh()) {
        Relayout();
        if (!m_Service.IsOpen())
            FocusStart();
    }
    RefreshNotices();
    RefreshCells();
    for (MarkerControls& marker : m_Markers)
        marker.Refresh(session);
    m_Port.Refresh(session.run.IsOn(), m_Start);
    m_List.Refresh(session.results.list);
    m_Curve->Refresh();
    RefreshPlotWords();
}

void CTestSDIFormView::TakeLimit() {
    if (!m_Alarm->isModified())
        return;
    m_Alarm->setModified(false); // a refusal's message takes the focus away and must not ask again
    if (!Tell(EnterLimit(Utf8(m_Alarm->text()), m_Program.State().curve, m_Program.Stores()),
              m_Program.Parts().user)) {
        m_Alarm->setFocus(Qt::OtherFocusReason);
        m_Alarm->selectAll();
    }
    if (m_AfterCommand)
        m_AfterCommand();
}

} // namespace qor::ui
