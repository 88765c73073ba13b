#pragma once

#include "desk/panel_layout.h"
#include "service/ui/service_pane.h"

#include <functional>

class QPushButton;

namespace qor::ui {

/// The two buttons of the factory mode and the pages that they open, on the panel.
class ServicePages {
public:
    using Pressed = std::function<void(const std::function<void()>&)>;

    ServicePages(Program& program, Commands& commands, QWidget* panel, const Pressed& pressed);

    /// Shows what has changed; true when a page was opened or left, or its buttons came or went: the panel is
    /// laid out anew then.
    bool Refresh();
    /// What the layout has to know.
    void Ask(LayoutRequest& request) const;
    void Place(const PanelLayout& layout);
    [[nodiscard]] bool IsOpen() const { return m_Open != nullptr; }

private:
    ServicePageView* ViewOf(ServicePage page);

    Program& m_Program;
    Commands& m_Commands;
    QWidget* m_Panel;
    QPushButton* m_Test;
    QPushButton* m_Calibration;
    ServicePageView* m_TestView = nullptr;
    ServicePageView* m_CalibrationView = nullptr;
    ServicePageView* m_Open = nullptr;
    bool m_Shown = false; ///< the buttons
};

} // namespace qor::ui
