#pragma once

#include "service/factory_mode.h"

#include <QWidget>

#include <vector>

class QLabel;

namespace qor {
class Commands;
class Program;
} // namespace qor

namespace qor::ui {

/// A part of a service page: it shows what the engine says, and hands every press and entry to it.
class ServicePane : public QWidget {
public:
    using QWidget::QWidget;
    /// Shows what has changed; called at each refresh of the panel while its page is open.
    virtual void Refresh() = 0;
};

/// A pane and the page that it belongs to. Each pane's file makes one, and that is all it takes:
/// `const PaneEntry entry(ServicePage::Test, 2, MakeFatigueGroup);`
///
/// The panes of a page stand in columns, left to right, each column from top to bottom by the entries'
/// places: 10, 11 in the first column, 20 in the second.
class PaneEntry {
public:
    using Make = ServicePane* (*)(Program& program, Commands& commands, QWidget* parent);

    PaneEntry(ServicePage page, int place, Make make);

    /// All entries of a page, by their places.
    [[nodiscard]] static std::vector<const PaneEntry*> Of(ServicePage page);
    [[nodiscard]] int Column() const { return m_Place / 10; }
    [[nodiscard]] ServicePane* MakePane(Program& program, Commands& commands, QWidget* parent) const {
        return m_Make(program, commands, parent);
    }

private:
    ServicePage m_Page;
    int m_Place;
    Make m_Make;
    const PaneEntry* m_Next;
};

/// A service page: its panes, put together when it is opened first.
class ServicePageView final : public ServicePane {
public:
    ServicePageView(ServicePage page, Program& program, Commands& commands, QWidget* parent);
    void Refresh() override;
    /// It is opened: the keyboard goes to its first field.
    void Begin();
    [[nodiscard]] QSize sizeHint() const override;

private:
    Program& m_Program;
    QLabel* m_Status;
    QWidget* m_Inside;
    std::vector<ServicePane*> m_Panes;
};

} // namespace qor::ui
