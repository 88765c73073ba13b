#pragma once

#include "desk/panel_layout.h"
#include "desk/ui/form_parts.h"

#include <vector>

class QCheckBox;
class QGroupBox;

namespace qor {
class Markers;
struct Session;
} // namespace qor

namespace qor::ui {

/// The controls of one marker: its switch, its place and level, and what it stands on.
class MarkerControls {
public:
    /// `n`: 0, 1 or 2.
    MarkerControls(std::size_t n, Markers& markers, QWidget* form, const Press& press);
    MarkerControls(const MarkerControls&) = delete; // its controls know where it stands
    MarkerControls& operator=(const MarkerControls&) = delete;

    void Refresh(const Session& session);
    void Place(const PanelRect& box);
    /// In the order of the tab key.
    [[nodiscard]] std::vector<QWidget*> TabStops() const;

private:
    [[nodiscard]] QCheckBox* AddCheck(std::string_view caption, std::string_view tip);
    void TakeChecks();

    std::size_t m_N;
    Markers& m_Markers;
    QWidget* m_Form;
    QGroupBox* m_Box;
    QPushButton* m_On;
    QLineEdit* m_Position;
    QLabel* m_PositionUnit;
    QLineEdit* m_Level;
    QLabel* m_LevelUnit;
    QCheckBox* m_Max;
    QCheckBox* m_Up;
    QCheckBox* m_Down;
};

} // namespace qor::ui
