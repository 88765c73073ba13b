// The receive cable losses, written as a file that the command "Load Rx Loss" takes.
#include "bands/rx_loss.h"
#include "base/text_format.h"
#include "desk/program.h"
#include "desk/setup/path_loss.h"
#include "desk/tell.h"
#include "desk/ui/text.h"
#include "platform/platform.h"
#include "service/ui/group_pane.h"

#include <QtWidgets>

#include <array>

namespace qor::ui {

namespace {

class CableLossPane final : public GroupPane {
public:
    CableLossPane(Program& program, QWidget* parent)
        : GroupPane("Cable Loss For Rx", parent), m_Program(program) {
        const auto& losses = program.State().working.RxLosses();
        auto* columns = new QHBoxLayout;
        QFormLayout* form = nullptr;
        for (std::size_t n = 0; n < m_Fields.size(); ++n) {
            if (n % 7 == 0) {
                form = new QFormLayout;
                form->setVerticalSpacing(3);
                columns->addLayout(form);
            }
            const std::string caption = std::string(RxLossNames[n]) + ':';
            m_Fields[n] = AddField(form, caption, Plain(Fixed(static_cast<double>(losses[n]), 1)),
                                   "Verlust in dB, -99.9 bis 9.9");
        }
        Column()->addLayout(columns);
        auto* row = new QHBoxLayout;
        row->addStretch();
        AddButton(
            row, "Create Config File", [this] { Create(); }, "Schreibt die Verluste in eine Datei .conf");
        Column()->addLayout(row);
    }

    void Refresh() override {}

private:
    void Create() {
        std::array<std::string, RxLossNames.size()> texts;
        for (std::size_t n = 0; n < m_Fields.size(); ++n)
            texts[n] = Utf8(m_Fields[n]->text());
        std::vector<std::size_t> wrong;
        Tell(CreateRxLossFile(texts, wrong, m_Program.Parts(), m_Program.Stores()), m_Program.Parts().user);
        for (std::size_t n = 0; n < m_Fields.size(); ++n)
            Mark(m_Fields[n], std::find(wrong.begin(), wrong.end(), n) != wrong.end());
    }

    Program& m_Program;
    std::array<QLineEdit*, RxLossNames.size()> m_Fields{};
};

const PaneEntry CableLossPaneEntry(ServicePage::Test, 30, [](Program& program, Commands&, QWidget* parent) {
    return static_cast<ServicePane*>(new CableLossPane(program, parent));
});

} // namespace

} // namespace qor::ui
