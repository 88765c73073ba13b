// One byte of the instrument's memory, and all of it brought back.
#include "desk/commands.h"
#include "desk/program.h"
#include "desk/tell.h"
#include "desk/ui/text.h"
#include "platform/platform.h"
#include "service/ui/group_pane.h"

#include <QtWidgets>

namespace qor::ui {

namespace {

constexpr int LastPage = 127;

class EepromPane final : public GroupPane {
public:
    EepromPane(Program& program, Commands& commands, QWidget* parent)
        : GroupPane("EEPROM Write", parent), m_Program(program) {
        QFormLayout* form = AddForm();
        m_Page = AddField(form, "Page:", {}, "Seite des Speichers, 0 bis 127");
        m_Address = AddField(form, "Address:", {}, "Adresse, 0 bis 255");
        m_Value = AddField(form, "Value:", {}, "Wert, 0 bis 255");
        auto* row = new QHBoxLayout;
        AddButton(
            row, "Write", [this] { Write(); }, "Diesen Wert ins Geraet schreiben");
        AddButton(
            row, "Read", [this] { Read(); }, "Den Wert aus dem Geraet lesen");
        AddButton(
            row, "Restore memory", [&commands] { commands.Run("restore_memory"); },
            "Eine Sicherung des Speichers mit dem Geraet vergleichen und zurueckschreiben");
        Column()->addLayout(row);
    }

    void Refresh() override {
        const MemoryDesk& memory = m_Program.Service().Memory();
        if (memory.ValuesRead() == m_Seen)
            return;
        m_Seen = memory.ValuesRead();
        const auto value = memory.EditorValue();
        m_Value->setText(value ? QString::number(*value) : QString());
        Mark(m_Value, false);
    }

private:
    void Write() {
        const auto page = WholeNumber(m_Page, 0, LastPage);
        const auto address = WholeNumber(m_Address, 0, 255);
        const auto value = WholeNumber(m_Value, 0, 255);
        if (page && address && value)
            Tell(m_Program.Service().Memory().Write({*page, *address, *value}), m_Program.Parts().user);
    }

    void Read() {
        const auto page = WholeNumber(m_Page, 0, LastPage);
        const auto address = WholeNumber(m_Address, 0, 255);
        if (page && address)
            Tell(m_Program.Service().Memory().Read(*page, *address), m_Program.Parts().user);
        Refresh();
    }

    Program& m_Program;
    QLineEdit* m_Page;
    QLineEdit* m_Address;
    QLineEdit* m_Value;
    unsigned m_Seen = 0;
};

const PaneEntry
    EepromPaneEntry(ServicePage::Test, 20, [](Program& program, Commands& commands, QWidget* parent) {
        return static_cast<ServicePane*>(new EepromPane(program, commands, parent));
    });

} // namespace

} // namespace qor::ui
