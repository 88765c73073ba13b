#include "desk/ui/list_controls.h"

#include "desk/list_panel.h"
#include "desk/ui/text.h"
#include "results/result_list.h"

#include <QtWidgets>

namespace qor::ui {

ListControls::ListControls(ListPanel& list, QWidget* form, const Press& press)
    : QObject(form), m_List(list), m_Press(press) {
    for (std::size_t row = 0; row < m_Row.size(); ++row) {
        m_Row[row] = AddText(form, "m_FileRow" + std::to_string(row + 1));
        m_Row[row]->setObjectName(QStringLiteral("listRow"));
        m_Row[row]->setFocusPolicy(Qt::StrongFocus);
        Describe(m_Row[row], "Eintrag der Ergebnisliste");
        m_Row[row]->installEventFilter(this);
    }
    // shown to the operator
    static constexpr std::pair<std::string_view, std::string_view> Buttons[] = {
        {"|<", "Zum Anfang der Liste"},
        {"<<", "Einen Eintrag zurueck"},
        {">>", "Einen Eintrag weiter"},
        {">|", "Zum Ende der Liste"},
        {"X", "Eintrag aus der Liste nehmen"}};
    for (std::size_t n = 0; n < m_Button.size(); ++n) {
        m_Button[n] =
            AddButton(form, Buttons[n].first, Buttons[n].second, press, [this, n] { PressButton(n); });
        m_Button[n]->setObjectName(QStringLiteral("small"));
    }
}

void ListControls::PressButton(std::size_t n) {
    switch (n) {
    case 0:
        return m_List.First();
    case 1:
        return m_List.Back();
    case 2:
        return m_List.Forward();
    case 3:
        return m_List.Last();
    default:
        return m_List.Remove();
    }
}

void ListControls::Refresh(const ResultList& list) {
    for (std::size_t row = 0; row < m_Row.size(); ++row) {
        QLineEdit* field = m_Row[row];
        const int number = static_cast<int>(row);
        QString text = Plain(list.Row(number));
        const QString path = text.isEmpty() ? text : Plain((list.Folder() / list.Row(number)).string());
        if (const auto partial = list.RowNote(number))
            text += QStringLiteral(" (") + Tr("%1 von %2").arg(partial->taken).arg(partial->asked) + ')';
        Show(field, text);
        field->setToolTip(path);
        SetFlag(field, "shown", list.MarkedRow() == number);
    }
}

void ListControls::Place(const PanelLayout& layout) {
    const auto place = [&layout](QWidget* widget, Control first, std::size_t n) {
        const PanelRect& r = layout[Nth(first, static_cast<int>(n))];
        PlaceAt(widget, {r.left, r.top, r.right - r.left, r.bottom - r.top});
    };
    for (std::size_t n = 0; n < m_Row.size(); ++n)
        place(m_Row[n], Control::ListCell, n);
    for (std::size_t n = 0; n < m_Button.size(); ++n)
        place(m_Button[n], Control::ListButton, n);
}

std::vector<QWidget*> ListControls::TabStops() const {
    std::vector<QWidget*> stops(m_Row.begin(), m_Row.end());
    stops.insert(stops.end(), m_Button.begin(), m_Button.end());
    return stops;
}

/// A row of the list is chosen by a click, or by the space or return key on it.
bool ListControls::eventFilter(QObject* watched, QEvent* event) {
    const auto row = std::find(m_Row.begin(), m_Row.end(), watched);
    bool chosen = event->type() == QEvent::MouseButtonPress;
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        chosen = key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space;
    }
    if (row == m_Row.end() || !chosen)
        return QObject::eventFilter(watched, event);
    m_Press([this, n = static_cast<int>(row - m_Row.begin())] { m_List.ClickRow(n); });
    return true;
}

} // namespace qor::ui
