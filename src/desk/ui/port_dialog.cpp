// The choice of a port where the panel has no room for its list.
#include "desk/program.h"
#include "desk/ui/form_dialog.h"
#include "desk/ui/open_dialog.h"
#include "desk/ui/text.h"

#include <QtWidgets>

namespace qor::ui {

namespace {

bool OpenPortChoice(Program& program, int /*argument*/, QWidget* parent) {
    ConnectionState& connection = program.State().link.connection;
    if (!connection.AwaitsChoice()) // it was made meanwhile
        return true;
    FormDialog dialog("Auswaehlen COM Port:", parent);
    auto* ports = new QListWidget;
    ports->setAccessibleName(Tr("Auswaehlen COM Port:"));
    for (const PortEntry& port : connection.Ports()) {
        ports->addItem(Plain(port.text));
        if (port.text == connection.Chosen())
            ports->setCurrentRow(ports->count() - 1);
    }
    ports->setMinimumWidth(ports->sizeHintForColumn(0) + 40);
    dialog.Column()->addWidget(ports);
    dialog.AddButtons("Oeffnen Port");
    dialog.SetAccept([&] {
        const QList<QListWidgetItem*> chosen = ports->selectedItems(); // the keyboard stands at one unasked
        if (!chosen.isEmpty())
            connection.Choose(Utf8(chosen.first()->text()));
        program.Link().OnButton1();
        return !chosen.isEmpty();
    });
    dialog.exec();
    return true;
}

const DialogEntry PortChoiceEntry("choose_port", OpenPortChoice);

} // namespace

} // namespace qor::ui
