#include "desk/setup/ui/band_dialog.h"

#include "bands/records.h"
#include "base/setup_store.h"
#include "base/text_format.h"
#include "desk/program.h"
#include "desk/setup/ui/plan_page.h"
#include "desk/tell.h"
#include "desk/ui/open_dialog.h"
#include "desk/ui/text.h"

#include <QtWidgets>

namespace qor::ui {

namespace {

QPushButton* AddPlainButton(QBoxLayout* row, std::string_view caption) {
    auto* button = new QPushButton(Tr(caption));
    button->setAutoDefault(false); // Enter in a field saves nothing and closes nothing
    row->addWidget(button);
    return button;
}

} // namespace

BandDialog::BandDialog(Program& program, int band, QWidget* parent)
    : FormDialog(CaptionsOf(band).title, parent), m_Captions(CaptionsOf(band)), m_Program(program),
      m_Power(band, program.State(), program.Stores()) {
    auto* halves = new QHBoxLayout;
    halves->addWidget(HasPlanPages(band) ? MakePages(program, band) : MakeToneGroup(program), 1);
    halves->addWidget(MakePowerGroup());
    Column()->addLayout(halves);
    ShowPower();
}

QWidget* BandDialog::MakePages(Program& program, int band) {
    auto* tabs = new QTabWidget;
    Session& session = program.State();
    for (int imIndex = 1; imIndex <= 5; ++imIndex)
        tabs->addTab(new PlanPage(*this, program.Parts().user,
                                  {band, imIndex, session.working, session.link.queue, program.Stores(),
                                   session.factory.IsOn()}),
                     "IM" + QString::number(OrderOf(imIndex)));
    return tabs;
}

/// In place of the pages: the one tone of TD-SCDMA-A that can be set.
QWidget* BandDialog::MakeToneGroup(Program& program) {
    auto* group = new QGroupBox(Tr("2 Ton Modell"));
    auto* column = new QVBoxLayout(group);
    auto* form = new QFormLayout;
    column->addLayout(form);
    const auto tenth = [](float mhz) { return Plain(Fixed(static_cast<double>(mhz), 1)); };
    auto* f1 = AddField(form, "Fix f1:", tenth(ReadTdScdmaAF1(program.Stores())), "MHz");
    AddField(form, "Fix f2:", tenth(TdScdmaAF2), "MHz")->setReadOnly(true);
    auto* row = new QHBoxLayout;
    column->addLayout(row);
    column->addStretch();
    connect(AddPlainButton(row, m_Captions.save), &QPushButton::clicked, this, [this, f1, &program] {
        bool isNumber = true;
        const double mhz = NumberOf(f1, isNumber, 0.1, 9999.9);
        if (isNumber)
            Tell(SaveTdScdmaAF1(mhz, program.State().working, program.State().link.queue, program.Stores()),
                 program.Parts().user);
    });
    return group;
}

QWidget* BandDialog::MakePowerGroup() {
    auto* group = new QGroupBox(Tr(m_Captions.group));
    auto* column = new QVBoxLayout(group);
    auto* form = new QFormLayout;
    form->setRowWrapPolicy(QFormLayout::WrapAllRows);
    column->addLayout(form);
    m_powF1 = AddPower(form, m_Captions.power1, m_unitF1);
    m_powF2 = AddPower(form, m_Captions.power2, m_unitF2);
    m_synchron = AddCheck(form, m_Captions.synchron, m_Power.Fields().m_synchron);
    AddField(form, "Cable loss for Rx:", Plain(Fixed(static_cast<double>(m_Power.Fields().m_rxLoss), 1)),
             "dB")
        ->setReadOnly(true);
    column->addStretch();
    m_Save = AddPlainButton(column, m_Captions.save);
    auto* standard = AddPlainButton(column, m_Captions.standard);
    auto* close = AddPlainButton(column, m_Captions.close);

    connect(m_powF1, &QLineEdit::textEdited, this, [this](const QString& text) {
        m_Power.EditF1(Utf8(text));
        ShowPower();
    });
    connect(m_powF2, &QLineEdit::textEdited, this, [this](const QString& text) {
        m_Power.EditF2(Utf8(text));
        ShowPower();
    });
    for (QComboBox* unit : {m_unitF1, m_unitF2})
        connect(unit, &QComboBox::activated, this, [this](int index) {
            m_Power.ChooseUnit(static_cast<PowerUnit>(index));
            ShowPower();
        });
    connect(m_synchron, &QCheckBox::toggled, this, [this](bool on) {
        m_Power.Synchronise(on);
        ShowPower();
    });
    connect(m_Save, &QPushButton::clicked, this, [this] { SavePower(); });
    connect(standard, &QPushButton::clicked, this, [this] {
        m_Power.Standard();
        ShowPower();
    });
    connect(close, &QPushButton::clicked, this, [this] { accept(); });
    return group;
}

QLineEdit* BandDialog::AddPower(QFormLayout* form, std::string_view caption, QComboBox*& unit) {
    auto* field = new QLineEdit;
    field->setAccessibleName(Tr(caption).trimmed());
    unit = new QComboBox;
    unit->addItems({"dBm", "W"}); // in the order of PowerUnit
    auto* label = new QLabel(Tr(caption));
    label->setBuddy(field);
    auto* row = new QHBoxLayout;
    row->addWidget(field, 1);
    row->addWidget(unit);
    form->addRow(label, row);
    return field;
}

void BandDialog::ShowPower() {
    const PowerFields& fields = m_Power.Fields();
    const auto show = [](QLineEdit* field, const std::string& text) {
        if (Utf8(field->text()) != text) // the cursor of the field being edited stays where it is
            field->setText(Plain(text));
    };
    show(m_powF1, fields.m_powF1);
    show(m_powF2, fields.m_powF2);
    m_unitF1->setCurrentIndex(static_cast<int>(fields.m_unit));
    m_unitF2->setCurrentIndex(static_cast<int>(fields.m_unit));
    m_Save->setEnabled(fields.canSave);
}

void BandDialog::SavePower() {
    bool areNumbers = true;
    for (QLineEdit* field : {m_powF1, m_powF2})
        if (areNumbers)
            NumberOf(field, areNumbers);
    if (areNumbers)
        Tell(m_Power.Save(), m_Program.Parts().user);
    ShowPower();
}

namespace {

bool OpenBandSetup(Program& program, int band, QWidget* parent) {
    if (!HasSetup(band))
        return false;
    BandDialog(program, band, parent).exec();
    return true;
}

const DialogEntry BandSetupEntry("band_setup", OpenBandSetup);

} // namespace

} // namespace qor::ui
