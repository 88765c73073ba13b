// Identity and limits of an instrument.
#include "desk/program.h"
#include "desk/tell.h"
#include "desk/ui/text.h"
#include "platform/platform.h"
#include "service/ui/group_pane.h"

#include <QtWidgets>

#include <array>

namespace qor::ui {

namespace {

constexpr int BoxesInRow = 4;

class HardInitPane final : public GroupPane {
public:
    HardInitPane(Program& program, QWidget* parent)
        : GroupPane("Hardware Initialization", parent), m_Program(program), m_Type(new QComboBox) {
        AddType();
        AddBands();
        auto* options = new QVBoxLayout;
        options->setSpacing(2);
        m_Detector = AddCheck(options, "Level detector inserted");
        m_Matrix = AddCheck(options, "Switch matrix attached");
        m_ErrorCheck = AddCheck(options, "PA-Error-Check on");
        Column()->addLayout(options);
        QFormLayout* form = AddForm();
        m_Lower = AddField(form, "Lower power limit (dBm):", "20", "20 bis 47 dBm");
        m_Upper = AddField(form, "Upper power limit (dBm):", "46", "20 bis 47 dBm");
        m_TwoTone = AddField(form, "2 Tone time (Sec.):", "5", "1 bis 30 s");
        m_Sweep = AddField(form, "Sweep delay:", "0", "0 bis 127");
        m_Gauge = AddField(form, "Level gauge mess-delay:", "0", "0 bis 1270");
        m_Serial = AddField(form, "SN:", "0", "Seriennummer, 0 bis 65535");
        auto* row = new QHBoxLayout;
        row->addStretch();
        AddButton(
            row, "Initialize", [this] { Initialise(); },
            "Schreibt die Kennung und die Grenzen des Geraets, nach Vorschau und Frage");
        Column()->addLayout(row);
    }

    void Refresh() override {}

private:
    void AddType() {
        m_Type->setAccessibleName(Tr("Equipment Type:"));
        m_Type->setPlaceholderText(QStringLiteral("-"));
        for (const std::string_view type : EquipmentTypes)
            m_Type->addItem(Plain(type));
        m_Type->setCurrentIndex(-1);
        m_Type->setMinimumContentsLength(12);
        m_Type->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        QObject::connect(m_Type, &QComboBox::currentIndexChanged, this, [this](int type) { TakeType(type); });
        auto* form = AddForm();
        auto* label = new QLabel(Tr("Equipment Type:"));
        label->setBuddy(m_Type);
        form->addRow(label, m_Type);
    }

    void AddBands() {
        auto* grid = new QGridLayout;
        grid->setHorizontalSpacing(4);
        grid->setVerticalSpacing(2);
        for (std::size_t n = 0; n < m_Bands.size(); ++n) {
            auto* cell = new QHBoxLayout;
            m_Bands[n] = AddCheck(cell, BandBoxNames[n]);
            grid->addLayout(cell, static_cast<int>(n) / BoxesInRow, static_cast<int>(n) % BoxesInRow);
        }
        Column()->addLayout(grid);
    }

    /// Only the bands that the type carries can be ticked.
    void TakeType(int type) {
        for (std::size_t n = 0; n < m_Bands.size(); ++n) {
            const bool carried = TypeCarries(type, static_cast<BandBox>(n));
            m_Bands[n]->setEnabled(carried || type < 0);
            if (!carried)
                m_Bands[n]->setChecked(false);
        }
        if (TypeCarries(type, BandBox::WiMax))
            m_Bands[static_cast<std::size_t>(BandBox::WiMax)]->setChecked(true);
    }

    [[nodiscard]] std::optional<HardInitFields> Fields() const {
        HardInitFields fields;
        fields.type = m_Type->currentIndex();
        for (std::size_t n = 0; n < m_Bands.size(); ++n)
            if (m_Bands[n]->isChecked())
                fields.bands.insert(static_cast<BandBox>(n));
        fields.levelDetector = m_Detector->isChecked();
        fields.switchMatrix = m_Matrix->isChecked();
        fields.paErrorCheck = m_ErrorCheck->isChecked();
        constexpr int Any =
            1'000'000'000; // what is no number is marked here, what is out of range by the check
        bool right = true;
        const auto take = [&](QLineEdit* field, int& value) {
            const auto number = WholeNumber(field, -Any, Any);
            right = right && number.has_value();
            value = number.value_or(0);
        };
        take(m_Lower, fields.lowerDbm);
        take(m_Upper, fields.upperDbm);
        take(m_TwoTone, fields.twoToneSeconds);
        take(m_Sweep, fields.sweepDelay);
        take(m_Gauge, fields.gaugeDelay);
        take(m_Serial, fields.serial);
        return right ? std::optional(fields) : std::nullopt;
    }

    void Initialise() {
        auto fields = Fields();
        if (!fields)
            return;
        const HardInitCheck check = m_Program.Service().Hardware().Initialise(*fields);
        m_Serial->setText(QString::number(fields->serial));
        if (check.wrong) {
            QLineEdit* const inOrder[] = {m_Lower, m_Upper, m_TwoTone, m_Sweep, m_Gauge, m_Serial};
            QLineEdit* const wrong = inOrder[static_cast<int>(*check.wrong)];
            Mark(wrong, true);
            wrong->setFocus(Qt::OtherFocusReason);
        }
        Tell(check.outcome, m_Program.Parts().user);
    }

    Program& m_Program;
    QComboBox* m_Type;
    std::array<QCheckBox*, BandBoxNames.size()> m_Bands{};
    QCheckBox* m_Detector;
    QCheckBox* m_Matrix;
    QCheckBox* m_ErrorCheck;
    QLineEdit* m_Lower;
    QLineEdit* m_Upper;
    QLineEdit* m_TwoTone;
    QLineEdit* m_Sweep;
    QLineEdit* m_Gauge;
    QLineEdit* m_Serial;
};

const PaneEntry HardInitPaneEntry(ServicePage::Test, 21, [](Program& program, Commands&, QWidget* parent) {
    return static_cast<ServicePane*>(new HardInitPane(program, parent));
});

} // namespace

} // namespace qor::ui
