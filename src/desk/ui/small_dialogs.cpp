#include "desk/program.h"
#include "desk/ui/form_dialog.h"
#include "desk/ui/open_dialog.h"
#include "desk/ui/text.h"

#include <QtWidgets>

namespace qor::ui {

namespace {

bool OpenCustomLayout(Program& program, int /*argument*/, QWidget* parent) {
    Appearance& appearance = program.State().appearance;
    FormDialog dialog("Auf Bestellung Anfertigen", parent);
    QFormLayout* form = dialog.AddGroup({});
    QLineEdit* width = dialog.AddField(form, "Breite:", QString::number(appearance.Custom().width), "Pixel");
    QLineEdit* height = dialog.AddField(form, "Hoehe:", QString::number(appearance.Custom().height), "Pixel");
    dialog.AddButtons("OK");
    dialog.SetAccept([&] {
        bool ok = true;
        WindowSize size;
        size.width = dialog.WholeNumberOf(width, 0, LargestSide, ok);
        if (ok)
            size.height = dialog.WholeNumberOf(height, 0, LargestSide, ok);
        return ok && appearance.ChooseCustomLayout(size, program.Stores());
    });
    dialog.exec();
    return true;
}

const DialogEntry CustomLayoutEntry("custom_layout", OpenCustomLayout);

bool OpenAbout(Program& program, int /*argument*/, QWidget* parent) {
    const LinkState& link = program.State().link;
    FormDialog dialog("Ansehend QOR", parent);
    auto* name = new QLabel(QStringLiteral("<h2>QOR %1</h2>").arg(QCoreApplication::applicationVersion()));
    dialog.Column()->addWidget(name);
    auto* what = new QLabel(Tr("Steuerprogramm fuer einen Zweiton-Analysator der passiven Intermodulation"));
    what->setWordWrap(true);
    dialog.Column()->addWidget(what);
    QFormLayout* form = dialog.AddGroup({});
    const auto row = [form](std::string_view caption, const QString& text) {
        form->addRow(Tr(caption), new QLabel(text.isEmpty() ? QStringLiteral("-") : text));
    };
    const bool known = !link.identity.Model().empty();
    row("Geraet:", Plain(link.identity.Model()));
    row("Firmware:",
        known ? QString::number(static_cast<double>(link.identity.Firmware()), 'f', 1) : QString());
    row("Seriennummer:", known ? Plain(link.identity.Serial()) : QString());
    row("Datenordner:", Plain(program.Stores().Directory().string()));
    dialog.AddButtons("OK", {});
    dialog.exec();
    return true;
}

const DialogEntry AboutEntry("about", OpenAbout);

} // namespace

} // namespace qor::ui
