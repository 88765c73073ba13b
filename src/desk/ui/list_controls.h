#pragma once

#include "desk/panel_layout.h"
#include "desk/ui/form_parts.h"

#include <array>
#include <vector>

namespace qor {
class ListPanel;
class ResultList;
} // namespace qor

namespace qor::ui {

/// The list of results: seven rows and the buttons that page through them.
class ListControls : public QObject {
public:
    ListControls(ListPanel& list, QWidget* form, const Press& press);

    void Refresh(const ResultList& list);
    void Place(const PanelLayout& layout);
    /// In the order of the tab key.
    [[nodiscard]] std::vector<QWidget*> TabStops() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void PressButton(std::size_t n);

    ListPanel& m_List;
    Press m_Press;
    std::array<QLineEdit*, 7> m_Row{};
    std::array<QPushButton*, 5> m_Button{};
};

} // namespace qor::ui
