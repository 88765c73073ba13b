#include "desk/program.h"
#include "desk/tell.h"
#include "desk/ui/form_dialog.h"
#include "desk/ui/open_dialog.h"
#include "desk/ui/text.h"
#include "receivers/analyser_setup.h"
#include "receivers/receiver_search.h"

#include <QtWidgets>

#include <span>

namespace qor::ui {

namespace {

constexpr int LongestAddress = 200;

bool OpenReceiverAddress(Program& program, int /*argument*/, QWidget* parent) {
    FormDialog dialog("Empfaenger Adresse", parent);
    QFormLayout* const form = dialog.AddGroup({});
    const std::string stored = program.Stores().Read("gpib_addr.ccz", LongestAddress).value_or("");
    QLineEdit* const address = dialog.AddField(
        form,
        "VISA Adresse:", Plain(stored.empty() ? UsualReceiverAddress : std::string_view(stored)).trimmed());
    address->setMaxLength(LongestAddress);
    address->setMinimumWidth(address->fontMetrics().averageCharWidth() * 48);
    auto* const answer = new QLabel;
    answer->setTextFormat(Qt::PlainText);
    answer->setWordWrap(true);
    answer->setObjectName(QStringLiteral("answer"));
    form->addRow(Tr("Antwort:"), answer);
    const auto tryIt = [&] {
        const QString text = address->text().trimmed();
        dialog.MarkField(address, text.isEmpty(), Tr("Bitte eine Adresse eingeben."), text.isEmpty());
        if (text.isEmpty())
            return false;
        answer->setText(Tr("Suche Empfaenger"));
        answer->repaint();
        dialog.setEnabled(false); // one call at a time
        const Outcome tried = program.Receiver().TryAddress(Utf8(text));
        dialog.setEnabled(true);
        answer->setText(TrText(tried.Text()));
        return true;
    };
    dialog.AddButtons("Okey", "Abbestellen");
    dialog.AddButton("Test", [&] { tryIt(); });
    dialog.SetAccept([&] { return tryIt(); });
    dialog.exec();
    return true;
}

const DialogEntry ReceiverAddressEntry("receiver_address", OpenReceiverAddress);

QComboBox* AddChoice(QFormLayout* form, std::string_view caption, std::span<const std::string_view> entries,
                     std::string_view unit = {}) {
    auto* const box = new QComboBox;
    for (const std::string_view entry : entries)
        box->addItem(Plain(entry) + Plain(unit));
    box->setAccessibleName(Tr(caption));
    auto* const label = new QLabel(Tr(caption));
    label->setBuddy(box);
    form->addRow(label, box);
    return box;
}

/// "RS Spektrum Analysator": how the analyser is set up before it measures.
class AnalyserDialog final : public FormDialog {
public:
    AnalyserDialog(Program& program, const AnalyserSetup& setup, QWidget* parent)
        : FormDialog("RS Spektrum Analysator", parent), m_Program(program) {
        QFormLayout* const form = AddGroup({});
        m_Reference = AddField(form, "Ref_Lev (dBm):", {});
        m_Scale = AddField(form, "y_Scale (dB):", {});
        m_Centre = AddField(form, "Center_Freq (MHz):", {});
        m_Centre->setEnabled(false);
        m_Span = AddField(form, "Freq_span (Ref: 0) (kHz):", {});
        m_Preamplifier = AddChoice(form, "Preamplify On/Off:", PreamplifierTexts());
        m_Attenuation = AddChoice(form, "Input_Attenuation:", AttenuationTexts(), " dB");
        m_Resolution = AddChoice(form, "Resolution_Bandwidth:", BandwidthTexts());
        m_Video = AddChoice(form, "Video_Bandwidth:", BandwidthTexts());
        AddButtons("Sich", {});
        m_Install = AddButton("Einbauen", [this] { Install(); });
        AddButton("Standard", [this] {
            Show(StandardAnalyserSetup(m_Program.State().working.Band()));
            m_Install->setEnabled(true);
        });
        Show(setup);
    }

private:
    void Show(const AnalyserSetup& setup) {
        m_Reference->setText(Plain(setup.reference));
        m_Scale->setText(Plain(setup.scale));
        m_Centre->setText(Plain(setup.centre));
        m_Span->setText(Plain(setup.span));
        m_Preamplifier->setCurrentIndex(setup.preamplifier);
        m_Attenuation->setCurrentIndex(setup.attenuation);
        m_Resolution->setCurrentIndex(setup.resolution);
        m_Video->setCurrentIndex(setup.video);
    }

    void Install() {
        const AnalyserSetup setup{.centre = Utf8(m_Centre->text().trimmed()),
                                  .span = Utf8(m_Span->text().trimmed()),
                                  .reference = Utf8(m_Reference->text().trimmed()),
                                  .scale = Utf8(m_Scale->text().trimmed()),
                                  .attenuation = m_Attenuation->currentIndex(),
                                  .preamplifier = m_Preamplifier->currentIndex(),
                                  .resolution = m_Resolution->currentIndex(),
                                  .video = m_Video->currentIndex()};
        setEnabled(false); // one call at a time
        const bool done = Tell(m_Program.Receiver().Install(setup), m_Program.Parts().user);
        setEnabled(true);
        if (done)
            m_Install->setEnabled(false);
    }

    Program& m_Program;
    QLineEdit* m_Reference;
    QLineEdit* m_Scale;
    QLineEdit* m_Centre;
    QLineEdit* m_Span;
    QComboBox* m_Preamplifier;
    QComboBox* m_Attenuation;
    QComboBox* m_Resolution;
    QComboBox* m_Video;
    QPushButton* m_Install;
};

bool OpenAnalyserSetup(Program& program, int /*argument*/, QWidget* parent) {
    AnalyserSetup setup;
    if (!program.Receiver().OpenSetup(setup))
        return true; // the operator has been asked
    AnalyserDialog(program, setup, parent).exec();
    return true;
}

const DialogEntry AnalyserSetupEntry("analyser_setup", OpenAnalyserSetup);

} // namespace

} // namespace qor::ui
