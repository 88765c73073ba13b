#include "desk/ui/form_view.h"

#include "curve/alarm.h"
#include "curve/ui/curve_wnd.h"
#include "desk/commands.h"
#include "desk/notices.h"
#include "desk/program.h"
#include "desk/tell.h"
#include "desk/ui/fit_font.h"
#include "desk/ui/pictures.h"
#include "desk/ui/reading_field.h"
#include "desk/ui/text.h"
#include "platform/serial_control.h"

#include <QtWidgets>

namespace qor::ui {

namespace {

// shown to the operator
constexpr std::string_view MarkerTitles[] = {"----- Marker 1 ------", "----- Marker 2 ------",
                                             "----- Marker 3 ------"};

constexpr int CellFont = 12; ///< pixels, where a text has room

/// Text into a field unless it stands there; a field that is being typed in is left alone.
void Show(QLineEdit* field, const QString& text) {
    if (field->text() == text || (field->hasFocus() && field->isModified()))
        return;
    field->setText(text);
    if (field->isReadOnly())
        field->setCursorPosition(0); // what has no room shows its beginning
}

void Show(QLabel* label, const QString& text) {
    if (label->text() != text)
        label->setText(text);
}

/// A property that the style sheet looks at. A fitted font outlives the new look.
void SetFlag(QWidget* widget, const char* name, bool on) {
    if (widget->property(name).toBool() == on)
        return;
    const QFont font = widget->font();
    widget->setProperty(name, on);
    widget->style()->unpolish(widget);
    widget->style()->polish(widget);
    widget->setFont(font);
}

/// A text of a cell, whole: in a smaller font where the cell is narrow.
void ShowInCell(QLineEdit* cell, const QString& text) {
    Show(cell, text);
    FitFont(cell, text, CellFont, false);
}

void FillPorts(QComboBox* list, const QStringList& ports) {
    const int chosen = list->currentIndex();
    list->clear();
    list->addItems(ports);
    list->setCurrentIndex(std::clamp(chosen, -1, list->count() - 1));
    // What hangs on a port makes its entry longer than the box; the list shows it whole.
    list->view()->setMinimumWidth(list->view()->sizeHintForColumn(0) + 24);
}

/// What a control is, in the chosen language: its name is the field's.
void Describe(QWidget* widget, std::string_view what) {
    widget->setAccessibleDescription(Tr(what));
}

// shown to the operator
constexpr std::string_view VerdictWords[] = {"kein Urteil", "bestanden", "nicht bestanden", "Geraetefehler"};

QString VerdictText(const RunFacts& facts) {
    return Tr(VerdictWords[static_cast<int>(Judge(facts))]);
}

/// The curve in a sentence, for those who cannot see it.
QString CurveSentence(const Session& session, const Panel& panel) {
    const Curve& curve = session.curve;
    const RunFacts facts = curve.Facts();
    const QString points = Tr(PointsPattern).arg(facts.taken).arg(facts.asked);
    const QString unit = ' ' + Plain(panel.unit);
    QStringList parts{Tr(panel.m_Mode_sel), points};
    if (!panel.m_WorstLevelText.empty())
        parts << Tr("schlechtester Punkt:") + ' ' + Plain(panel.m_WorstLevelText) + unit + ' ' +
                     Plain(panel.m_WorstFreqText) + QStringLiteral(" MHz");
    parts << Tr("Grenzwert:") + ' ' + Plain(panel.m_AlarmText) + unit << VerdictText(facts);
    return parts.join(QStringLiteral(", ")) + '.';
}

/// How much of the measurement in view is there, where it is not all.
QString PartText(const RunFacts& facts) {
    return facts.IsPartial() ? Tr(PointsPattern).arg(facts.taken).arg(facts.asked) : QString();
}

} // namespace

CTestSDIFormView::CTestSDIFormView(Program& program, Commands& commands, QWidget* parent)
    : QWidget(parent), m_Program(program), m_Commands(commands), m_Curve(new CCurveWnd(program, this)),
      m_Stamp(new QWidget(m_Curve)), m_Notices(new QLabel(this)) {
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
    BuildMarkers();
    BuildButtons();
    SetTabOrder();
    m_Settled.setSingleShot(true);
    QObject::connect(&m_Settled, &QTimer::timeout, this, [this] { m_LayoutDone = true; });
}

/// A text of the panel that is only read; its name is that of its field.
QLineEdit* CTestSDIFormView::AddText(std::string_view name, QLineEdit* text) {
    if (!text)
        text = new QLineEdit(this);
    text->setAccessibleName(Plain(name));
    text->setReadOnly(true);
    text->setFrame(false);
    text->setFocusPolicy(Qt::NoFocus);
    text->setAlignment(Qt::AlignCenter);
    text->setContextMenuPolicy(Qt::NoContextMenu);
    return text;
}

QPushButton* CTestSDIFormView::AddButton(std::string_view caption, std::string_view tip,
                                         std::function<void()> pressed) {
    auto* button = new QPushButton(Tr(caption), this);
    button->setAccessibleName(Tr(caption));
    if (!tip.empty())
        button->setToolTip(Tr(tip));
    QObject::connect(button, &QPushButton::clicked, this,
                     [this, what = std::move(pressed)] { Pressed(what); });
    return button;
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
    m_ScaleUp = AddButton("+", "Pegelachse vergroessern", [this] { m_Commands.Run("scale_step", 1); });
    m_ScaleDown = AddButton("-", "Pegelachse verkleinern", [this] { m_Commands.Run("scale_step", 0); });
    for (QPushButton* button : {m_ScaleUp, m_ScaleDown}) {
        button->setObjectName(QStringLiteral("small"));
        button->setAutoRepeat(true);
    }
    for (std::size_t row = 0; row < m_ListRow.size(); ++row) {
        m_ListRow[row] = AddText("m_FileRow" + std::to_string(row + 1));
        m_ListRow[row]->setObjectName(QStringLiteral("listRow"));
        m_ListRow[row]->setFocusPolicy(Qt::StrongFocus);
        Describe(m_ListRow[row], "Eintrag der Ergebnisliste");
        m_ListRow[row]->installEventFilter(this);
    }
    // shown to the operator
    static constexpr std::pair<std::string_view, std::string_view> Buttons[] = {
        {"|<", "Zum Anfang der Liste"},
        {"<<", "Einen Eintrag zurueck"},
        {">>", "Einen Eintrag weiter"},
        {">|", "Zum Ende der Liste"},
        {"X", "Eintrag aus der Liste nehmen"}};
    for (std::size_t n = 0; n < m_ListButton.size(); ++n) {
        m_ListButton[n] = AddButton(Buttons[n].first, Buttons[n].second, [this, n] { PressListButton(n); });
        m_ListButton[n]->setObjectName(QStringLiteral("small"));
    }
    static constexpr std::string_view Cells[] = {"m_Band_sel", "m_Mode_sel",       "m_IM_sel",
                                                 "m_Path_sel", "m_SweepKind_text", "Zustand"};
    // shown to the operator
    static constexpr std::string_view Words[] = {"Gewaehlte Breite", "Messverfahren", "Ordnung des Produkts",
                                                 "Messweg",          "Wiederholung",  "Zustand"};
    for (std::size_t n = 0; n < m_Cell.size(); ++n) {
        m_Cell[n] = AddText(Cells[n]);
        Describe(m_Cell[n], Words[n]);
        m_Cell[n]->setObjectName(QStringLiteral("cell"));
    }
}

void CTestSDIFormView::BuildBoxes() {
    m_FrequencyBox = new QGroupBox(Tr("--- Frequenz ---"), this);
    m_F1 = AddText("m_f1_text");
    m_F2 = AddText("m_f2_text");
    m_F1Label = new QLabel(QStringLiteral("f1:"), this);
    m_F2Label = new QLabel(QStringLiteral("f2:"), this);
    Describe(m_F1, "Frequenz von Ton 1 in MHz");
    Describe(m_F2, "Frequenz von Ton 2 in MHz");
    m_Path = new PathPicture(this);
    m_Lamp = new LampPicture(this);
    m_ReadingBox = new QGroupBox(Tr("--- fIM/dBm ---"), this);
    m_FimLabel = new QLabel(QStringLiteral("fIM:"), this);
    m_Fim = AddText("m_fIM_text");
    m_Reading = AddText("m_ReadingText", new ReadingField(this));
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

void CTestSDIFormView::BuildMarkers() {
    for (std::size_t n = 0; n < m_Marker.size(); ++n) {
        MarkerRow& row = m_Marker[n];
        const std::string number = std::to_string(n + 1);
        row.box = new QGroupBox(Tr(MarkerTitles[n]), this);
        row.on = AddButton({}, "Marker ein- und ausschalten", [this, n] { ToggleMarker(n); });
        row.on->setAccessibleName("Marker " + QString::number(n + 1));
        row.on->setObjectName(QStringLiteral("small"));
        row.on->setCheckable(true);
        row.position = new QLineEdit(this);
        row.position->setAccessibleName(Plain("m_MarkerPosText" + number));
        row.position->setToolTip(Tr("Stelle des Markers: Zeit oder Frequenz"));
        row.level = AddText("m_MarkerLevelText" + number);
        Describe(row.level, "Pegel am Marker");
        row.positionUnit = new QLabel(this);
        row.levelUnit = new QLabel(this);
        const auto check = [this, n, &number](std::string_view caption, std::string_view tip) {
            auto* box = new QCheckBox(Tr(caption), this);
            box->setAccessibleName(Tr(caption) + ' ' + Plain(number));
            box->setToolTip(Tr(tip));
            QObject::connect(box, &QCheckBox::clicked, this, [this, n] { TakeMarkerChecks(n); });
            return box;
        };
        row.max = check("Max", "Auf den hoechsten Punkt");
        row.up = check("Oben", "Auf der steigenden Kurve");
        row.down = check("Unter", "Auf der fallenden Kurve");
        QObject::connect(row.position, &QLineEdit::textEdited, this, [this, n] { TakeMarkerPosition(n); });
    }
}

void CTestSDIFormView::BuildButtons() {
    m_PortList = new QComboBox(this);
    m_PortList->setAccessibleName(Tr("Auswaehlen COM Port:"));
    m_PortLabel = new QLabel(Tr("Auswaehlen COM Port:"), this);
    m_PortLabel->setWordWrap(true);
    m_PortLabel->setBuddy(m_PortList);
    QObject::connect(m_PortList, &QComboBox::activated, this,
                     [this] { m_Program.State().link.connection.Choose(Utf8(m_PortList->currentText())); });
    Describe(m_PortList, "Anschluss des Geraets");
    m_PortButton = AddButton("Scannen Port", {}, [this] { m_Program.Link().OnButton1(); });
    Describe(m_PortButton, "Anschluss suchen, oeffnen oder schliessen");
    m_Start = new StartButton(this);
    m_Start->setObjectName(QStringLiteral("start"));
    Describe(m_Start, "Messung beginnen oder anhalten");
    QObject::connect(m_Start, &QPushButton::clicked, this, [this] {
        Pressed([this] {
            OfferPortsAgain();
            m_Commands.Run("start_stop");
        });
    });
    m_Clear = AddButton("R", "Anzeige loeschen", [this] { m_Commands.Run("clear_display"); });
    m_Clear->setObjectName(QStringLiteral("small"));
    m_Exit = AddButton("Exit", "Programm beenden", [this] { m_Commands.Run("exit"); });
    // Service pages of the factory; shown when they are opened.
    m_Calibration = AddButton("Calibration", {}, [] {});
    m_Test = AddButton("Test", {}, [] {});
    m_Calibration->hide();
    m_Test->hide();
}

void CTestSDIFormView::SetTabOrder() {
    std::vector<QWidget*> order{m_Start, m_Clear, m_Alarm, m_Serial};
    for (const MarkerRow& row : m_Marker)
        order.insert(order.end(), {row.on, row.position, row.max, row.up, row.down});
    order.insert(order.end(), {m_PortList, m_PortButton, m_Exit, m_ScaleUp, m_ScaleDown});
    order.insert(order.end(), m_ListRow.begin(), m_ListRow.end());
    order.insert(order.end(), m_ListButton.begin(), m_ListButton.end());
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

/// A control that is switched off under the focus hands it to the start button, not to what comes next: that
/// may be the exit.
void CTestSDIFormView::Enable(QWidget* widget, bool enabled) {
    if (!enabled && widget->hasFocus())
        FocusStart();
    widget->setEnabled(enabled);
}

void CTestSDIFormView::RefreshPort() {
    const Session& session = m_Program.State();
    const LinkState& link = session.link;
    // shown to the operator
    static constexpr std::string_view Captions[] = {"Scannen Port", "Oeffnen Port", "Ausschalten Port"};
    const QString caption = Tr(Captions[static_cast<int>(link.connection.Button())]);
    if (m_PortButton->text() != caption) {
        m_PortButton->setText(caption);
        m_PortButton->setAccessibleName(caption);
    }
    m_PortButton->setVisible(link.connection.ButtonIsShown());
    Enable(m_PortButton, !session.run.IsOn() && !link.connection.IsClosing());
    m_PortList->setVisible(link.connection.ListIsShown());
    m_PortLabel->setVisible(link.connection.ListIsShown());
    QStringList ports;
    for (const PortEntry& port : link.connection.Ports())
        ports << Plain(port.text);
    OfferPorts();
    QStringList shown;
    for (int n = 0; n < m_PortList->count(); ++n)
        shown << m_PortList->itemText(n);
    if (ports != shown)
        FillPorts(m_PortList, ports);
    if (m_PortList->currentIndex() < 0) // the one that answered stands there already
        m_PortList->setCurrentIndex(m_PortList->findText(Plain(link.connection.Chosen())));
}

/// Where the list of ports is out of sight, they are offered in a dialog, once for each choice.
void CTestSDIFormView::OfferPorts() {
    const ConnectionState& connection = m_Program.State().link.connection;
    if (!connection.AwaitsChoice())
        m_PortsOffered = false;
    else if (!m_PortsOffered && isVisible() && !rect().intersects(m_PortList->geometry()) &&
             !QApplication::activeModalWidget()) {
        m_PortsOffered = true;
        QMetaObject::invokeMethod(
            this, [this] { Pressed([this] { m_Commands.Run("choose_port"); }); }, Qt::QueuedConnection);
    }
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
    RefreshNotices();
    RefreshCells();
    RefreshMarkers();
    RefreshPort();
    RefreshList();
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

void CTestSDIFormView::RefreshMarkers() {
    const Session& session = m_Program.State();
    const bool curves = MarkersHaveCurves(session.curve);
    for (std::size_t n = 0; n < m_Marker.size(); ++n) {
        const Marker& marker = session.markers.At(n);
        const MarkerRow& row = m_Marker[n];
        row.on->setChecked(marker.m_MarkerOn);
        Show(row.position, Plain(marker.m_MarkerPosText));
        Show(row.level, Plain(marker.m_MarkerLevelText));
        Show(row.positionUnit, Tr(MarkerUnit(session.curve)));
        Show(row.levelUnit, session.curve.scale.InDbc() ? QStringLiteral("dBc") : QStringLiteral("dBm"));
        row.max->setChecked(marker.m_MarkerMax);
        row.up->setChecked(marker.m_MarkerUp);
        row.down->setChecked(marker.m_MarkerDown);
        row.up->setEnabled(curves);
        row.down->setEnabled(curves);
    }
}

void CTestSDIFormView::RefreshList() {
    const ResultList& list = m_Program.State().results.list;
    for (std::size_t row = 0; row < m_ListRow.size(); ++row) {
        QLineEdit* field = m_ListRow[row];
        const int number = static_cast<int>(row);
        QString text = Plain(list.Row(number));
        const QString path = text.isEmpty() ? text : Plain((list.Folder() / list.Row(number)).string());
        if (const auto partial = list.RowNote(number))
            text += QStringLiteral(" (") + Tr("%1 von %2").arg(partial->taken).arg(partial->asked) + ')';
        Show(field, text);
        field->setToolTip(path);
        SetFlag(field, "shown", list.MarkedRow() == static_cast<int>(row));
    }
}

void CTestSDIFormView::PressListButton(std::size_t n) {
    ListPanel& list = m_Program.List();
    switch (n) {
    case 0:
        return list.First();
    case 1:
        return list.Back();
    case 2:
        return list.Forward();
    case 3:
        return list.Last();
    default:
        return list.Remove();
    }
}

/// A row of the list is chosen by a click, or by the space or return key on it.
bool CTestSDIFormView::eventFilter(QObject* watched, QEvent* event) {
    const auto row = std::find(m_ListRow.begin(), m_ListRow.end(), watched);
    bool chosen = event->type() == QEvent::MouseButtonPress;
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        chosen = key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space;
    }
    if (row == m_ListRow.end() || !chosen)
        return QWidget::eventFilter(watched, event);
    Pressed([this, n = static_cast<int>(row - m_ListRow.begin())] { m_Program.List().ClickRow(n); });
    return true;
}

void CTestSDIFormView::ToggleMarker(std::size_t n) {
    m_Program.Marks().Toggle(n);
}

void CTestSDIFormView::TakeMarkerChecks(std::size_t n) {
    const MarkerRow& row = m_Marker[n];
    m_Program.Marks().SetChecks(n, row.max->isChecked(), row.up->isChecked(), row.down->isChecked());
}

void CTestSDIFormView::TakeMarkerPosition(std::size_t n) {
    m_Program.Marks().SetPosition(n, Utf8(m_Marker[n].position->text()));
}

} // namespace qor::ui
