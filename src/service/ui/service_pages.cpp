#include "service/ui/service_pages.h"

#include "desk/commands.h"
#include "desk/program.h"
#include "desk/ui/text.h"

#include <QtWidgets>

namespace qor::ui {

namespace {

void SetCaption(QPushButton* button, std::string_view caption) {
    const QString text = Tr(caption);
    if (button->text() == text)
        return;
    button->setText(text);
    button->setAccessibleName(text);
}

void PlaceAt(QWidget* widget, const PanelRect& r) {
    widget->setGeometry(r.left, r.top, r.right - r.left, r.bottom - r.top);
}

} // namespace

ServicePages::ServicePages(Program& program, Commands& commands, QWidget* panel, const Pressed& pressed)
    : m_Program(program), m_Commands(commands), m_Panel(panel), m_Test(new QPushButton(panel)),
      m_Calibration(new QPushButton(panel)) {
    const auto connect = [&](QPushButton* button, std::string_view command) {
        button->hide();
        QObject::connect(button, &QPushButton::clicked, panel,
                         [&commands, pressed, command] { pressed([&] { commands.Run(command); }); });
    };
    connect(m_Test, "test_page");
    connect(m_Calibration, "calibration_page");
}

ServicePageView* ServicePages::ViewOf(ServicePage page) {
    if (page == ServicePage::None)
        return nullptr;
    ServicePageView*& view = page == ServicePage::Test ? m_TestView : m_CalibrationView;
    if (!view)
        view = new ServicePageView(page, m_Program, m_Commands, m_Panel);
    return view;
}

bool ServicePages::Refresh() {
    const FactoryMode& factory = m_Program.State().factory;
    SetCaption(m_Test, factory.IsOpen(ServicePage::Test) ? "Exit Test" : "Test");
    SetCaption(m_Calibration, factory.IsOpen(ServicePage::Calibration) ? "Exit Cal" : "Calibration");
    ServicePageView* const open = ViewOf(factory.Page());
    const bool changed = open != m_Open || factory.IsOn() != m_Shown;
    m_Shown = factory.IsOn();
    if (open != m_Open) {
        if (m_Open)
            m_Open->hide();
        m_Open = open;
        if (open) {
            open->show();
            open->raise();
            open->Begin();
        }
    }
    if (changed)
        for (QPushButton* const button : {m_Test, m_Calibration}) {
            button->setVisible(m_Shown);
            button->raise(); // over the group that they stand in
        }
    if (open)
        open->Refresh();
    return changed;
}

void ServicePages::Ask(LayoutRequest& request) const {
    request.factoryMode = m_Shown;
    request.pageHeight = m_Open ? m_Open->sizeHint().height() : 0;
}

void ServicePages::Place(const PanelLayout& layout) {
    PlaceAt(m_Test, layout[Control::TestButton]);
    PlaceAt(m_Calibration, layout[Control::CalibrationButton]);
    if (m_Open)
        PlaceAt(m_Open, layout[Control::ServicePage]);
}

} // namespace qor::ui
