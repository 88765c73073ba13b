#include "desk/ui/port_controls.h"

#include "desk/ui/text.h"
#include "link/connection.h"

#include <QtWidgets>

namespace qor::ui {

namespace {

void Fill(QComboBox* list, const QStringList& ports) {
    const int chosen = list->currentIndex();
    list->clear();
    list->addItems(ports);
    list->setCurrentIndex(std::clamp(chosen, -1, list->count() - 1));
    // What hangs on a port makes its entry longer than the box; the list shows it whole.
    list->view()->setMinimumWidth(list->view()->sizeHintForColumn(0) + 24);
}

} // namespace

PortControls::PortControls(Connection& connection, ConnectionState& state, QWidget* form, const Press& press,
                           std::function<void()> offer)
    : m_State(state), m_Form(form), m_Press(press), m_OpenOffer(std::move(offer)),
      m_Label(new QLabel(Tr("Auswaehlen COM Port:"), form)), m_List(new QComboBox(form)),
      m_Button(AddButton(form, "Scannen Port", {}, press, [&connection] { connection.OnButton1(); })) {
    m_List->setAccessibleName(Tr("Auswaehlen COM Port:"));
    m_Label->setWordWrap(true);
    m_Label->setBuddy(m_List);
    QObject::connect(m_List, &QComboBox::activated, form,
                     [this] { m_State.Choose(Utf8(m_List->currentText())); });
    Describe(m_List, "Anschluss des Geraets");
    Describe(m_Button, "Anschluss suchen, oeffnen oder schliessen");
}

void PortControls::Refresh(bool running, QWidget* next) {
    // shown to the operator
    static constexpr std::string_view Captions[] = {"Scannen Port", "Oeffnen Port", "Ausschalten Port"};
    const QString caption = Tr(Captions[static_cast<int>(m_State.Button())]);
    if (m_Button->text() != caption) {
        m_Button->setText(caption);
        m_Button->setAccessibleName(caption);
    }
    m_Button->setVisible(m_State.ButtonIsShown());
    const bool enabled = !running && !m_State.IsClosing();
    if (!enabled && m_Button->hasFocus())
        next->setFocus(Qt::OtherFocusReason);
    m_Button->setEnabled(enabled);
    m_List->setVisible(m_State.ListIsShown());
    m_Label->setVisible(m_State.ListIsShown());
    QStringList ports;
    for (const PortEntry& port : m_State.Ports())
        ports << Plain(port.text);
    Offer();
    QStringList shown;
    for (int n = 0; n < m_List->count(); ++n)
        shown << m_List->itemText(n);
    if (ports != shown)
        Fill(m_List, ports);
    if (m_List->currentIndex() < 0) // the one that answered stands there already
        m_List->setCurrentIndex(m_List->findText(Plain(m_State.Chosen())));
}

/// Where the list of ports is out of sight, they are offered in a dialog, once for each choice.
void PortControls::Offer() {
    if (!m_State.AwaitsChoice())
        m_Offered = false;
    else if (!m_Offered && m_Form->isVisible() && !m_Form->rect().intersects(m_List->geometry()) &&
             !QApplication::activeModalWidget()) {
        m_Offered = true;
        QMetaObject::invokeMethod(
            m_Form, [this] { m_Press(m_OpenOffer); }, Qt::QueuedConnection);
    }
}

} // namespace qor::ui
