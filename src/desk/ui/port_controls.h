#pragma once

#include "desk/ui/form_parts.h"

#include <functional>

class QComboBox;

namespace qor {
class Connection;
class ConnectionState;
} // namespace qor

namespace qor::ui {

/// The port of the instrument: the list of those that answered and the button that opens and closes.
class PortControls {
public:
    /// `offer` opens the choice of ports as a dialog.
    PortControls(Connection& connection, ConnectionState& state, QWidget* form, const Press& press,
                 std::function<void()> offer);
    PortControls(const PortControls&) = delete; // its controls know where it stands
    PortControls& operator=(const PortControls&) = delete;

    /// `next` gets the keyboard when the button is switched off under it: not the exit, which comes next.
    void Refresh(bool running, QWidget* next);
    /// A choice of ports that was passed over is offered once more.
    void OfferAgain() { m_Offered = false; }

    [[nodiscard]] QLabel* Label() const { return m_Label; }
    [[nodiscard]] QComboBox* List() const { return m_List; }
    [[nodiscard]] QPushButton* Button() const { return m_Button; }

private:
    void Offer();

    ConnectionState& m_State;
    QWidget* m_Form;
    Press m_Press;
    std::function<void()> m_OpenOffer;
    QLabel* m_Label;
    QComboBox* m_List;
    QPushButton* m_Button;
    bool m_Offered = false; ///< in a dialog, where the list is out of sight
};

} // namespace qor::ui
