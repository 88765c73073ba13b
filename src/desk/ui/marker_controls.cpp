#include "desk/ui/marker_controls.h"

#include "curve/markers.h"
#include "desk/session.h"
#include "desk/ui/text.h"

#include <QtWidgets>

namespace qor::ui {

namespace {

// shown to the operator
constexpr std::string_view Titles[] = {"----- Marker 1 ------", "----- Marker 2 ------",
                                       "----- Marker 3 ------"};

} // namespace

MarkerControls::MarkerControls(std::size_t n, Markers& markers, QWidget* form, const Press& press)
    : m_N(n), m_Markers(markers), m_Form(form), m_Box(new QGroupBox(Tr(Titles[n]), form)),
      m_On(AddButton(form, {}, "Marker ein- und ausschalten", press, [&markers, n] { markers.Toggle(n); })),
      m_Position(new QLineEdit(form)), m_PositionUnit(new QLabel(form)),
      m_Level(AddText(form, "m_MarkerLevelText" + std::to_string(n + 1))), m_LevelUnit(new QLabel(form)),
      m_Max(AddCheck("Max", "Auf den hoechsten Punkt")), m_Up(AddCheck("Oben", "Auf der steigenden Kurve")),
      m_Down(AddCheck("Unter", "Auf der fallenden Kurve")) {
    const QString number = QString::number(n + 1);
    m_On->setAccessibleName("Marker " + number);
    m_On->setObjectName(QStringLiteral("small"));
    m_On->setCheckable(true);
    m_Position->setAccessibleName("m_MarkerPosText" + number);
    m_Position->setToolTip(Tr("Stelle des Markers: Zeit oder Frequenz"));
    Describe(m_Level, "Pegel am Marker");
    QObject::connect(m_Position, &QLineEdit::textEdited, form,
                     [this](const QString& text) { m_Markers.SetPosition(m_N, Utf8(text)); });
}

QCheckBox* MarkerControls::AddCheck(std::string_view caption, std::string_view tip) {
    auto* box = new QCheckBox(Tr(caption), m_Form);
    box->setAccessibleName(Tr(caption) + ' ' + QString::number(m_N + 1));
    box->setToolTip(Tr(tip));
    QObject::connect(box, &QCheckBox::clicked, m_Form, [this] { TakeChecks(); });
    return box;
}

void MarkerControls::TakeChecks() {
    m_Markers.SetChecks(m_N, m_Max->isChecked(), m_Up->isChecked(), m_Down->isChecked());
}

void MarkerControls::Refresh(const Session& session) {
    const Marker& marker = session.markers.At(m_N);
    const bool curves = MarkersHaveCurves(session.curve);
    m_On->setChecked(marker.m_MarkerOn);
    Show(m_Position, Plain(marker.m_MarkerPosText));
    Show(m_Level, Plain(marker.m_MarkerLevelText));
    Show(m_PositionUnit, Tr(MarkerUnit(session.curve)));
    Show(m_LevelUnit, session.curve.scale.InDbc() ? QStringLiteral("dBc") : QStringLiteral("dBm"));
    m_Max->setChecked(marker.m_MarkerMax);
    m_Up->setChecked(marker.m_MarkerUp);
    m_Down->setChecked(marker.m_MarkerDown);
    m_Up->setEnabled(curves);
    m_Down->setEnabled(curves);
}

void MarkerControls::Place(const PanelRect& box) {
    PlaceAt(m_Box, {box.left, box.top, box.right - box.left, box.bottom - box.top});
    const int x = box.left;
    const int y = box.top + 16;
    PlaceAt(m_On, {x + 5, y, 12, 62});
    PlaceAt(m_Position, {x + 21, y + 4, 79, 26});
    PlaceAt(m_PositionUnit, {x + 104, y + 4, 46, 26});
    PlaceAt(m_Level, {x + 21, y + 34, 79, 26});
    PlaceAt(m_LevelUnit, {x + 104, y + 34, 46, 26});
    PlaceAt(m_Max, {x + 152, y, 92, 22});
    PlaceAt(m_Up, {x + 152, y + 22, 92, 22});
    PlaceAt(m_Down, {x + 152, y + 44, 92, 22});
}

std::vector<QWidget*> MarkerControls::TabStops() const {
    return {m_On, m_Position, m_Max, m_Up, m_Down};
}

} // namespace qor::ui
