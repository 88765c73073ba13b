#include "desk/panel.h"

#include "bands/catalogue.h"
#include "base/tenths.h"
#include "base/text_format.h"
#include "curve/curve.h"
#include "desk/session.h"
#include "measure/run_texts.h"

#include <optional>

namespace qor {

namespace {

template <typename Number> std::string Shown(const std::optional<Number>& value) {
    return value ? Fixed(static_cast<double>(*value), 1) : std::string();
}

std::string OrderText(const Session& session) {
    if (session.working.Method() == ModeSpectrum)
        return "IM3"; // the operator's order waits for the other methods
    const int imIndex = session.working.ImIndex();
    if (imIndex == InterBandIndex)
        return InterBandText(session.interBand.Order());
    // A file may name an order that is none of the program's.
    return imIndex == 0 ? std::string() : "IM" + std::to_string(OrderOf(imIndex));
}

std::string_view MethodText(int mode) {
    switch (mode) {
    case ModeSweep:
        return SweepText;
    case ModeSpectrum:
        return SpectrumText;
    default:
        return TwoToneText;
    }
}

std::string_view RepetitionText(const Session& session) {
    // shown to the operator
    static constexpr std::string_view Kinds[] = {"Endless", "SA Enclosed", "Multi-times", "Single"};
    const RunSettings& runs = session.runs;
    const int method = session.working.Method();
    if (runs.IsContinuous() || method == ModeSpectrum)
        return Kinds[0];
    if (method == ModeSweep && runs.IsSaEnclosed())
        return Kinds[1];
    if (method == ModeSweep && session.curve.Runs() > 1)
        return Kinds[2];
    return Kinds[3];
}

/// The line about what lies between the instrument and the device.
std::string LossText(const WorkingSet& working) {
    return "F1 Compensation " + Fixed(NumberIn(working.Compensation1()), 1) + " dB  F2 Compensation " +
           Fixed(NumberIn(working.Compensation2()), 1) + " dB  Path Cable Loss " +
           Fixed(static_cast<double>(working.Port2Loss()), 1) + " dB";
}

/// In the words of the files, which are of no language.
std::string NextText(const Session& session) {
    const WorkingSet& working = session.working;
    const auto dBm = [](const std::string& tenths) { return Fixed(NumberIn(tenths) / 10.0, 1); };
    std::string text = std::string(BandText(working.Band())) + " " + OrderText(session);
    text += working.Method() == ModeTwoTone ? " 2-TON "
            : working.Method() == ModeSweep ? " SWEEP "
                                            : " SPECTRUM ";
    text += dBm(working.Power1()) + " / " + dBm(working.Power2()) + " dBm";
    if (working.Method() == ModeTwoTone)
        text += " " + std::to_string(session.curve.OwnLength() / 1000) + " s";
    return text;
}

/// The external receiver: also while it is looked for behind the start of the program.
std::string ReceiverText(const ReceiverState& receiver) {
    // shown to the operator
    static constexpr std::string_view Words[] = {"Suche Empfaenger", "Empfaenger", "Kein Empfaenger"};
    if (receiver.IsSearched())
        return std::string(Words[0]) + ": " + receiver.Address();
    if (receiver.InstrumentListens())
        return {};
    if (!receiver.IsThere())
        return std::string(Words[2]) + ": " + receiver.Address() + ": " + receiver.Trouble();
    const std::string fault = receiver.Trouble().empty() ? std::string() : ": " + receiver.Trouble();
    return std::string(Words[1]) + ": " + receiver.Identity() + fault;
}

Lamp LampOf(const Session& session) {
    if (session.run.IsOn())
        return Lamp::Running;
    return session.link.chain.HasAnswered() && IsInitialised(session) ? Lamp::Ready : Lamp::NotReady;
}

} // namespace

Panel PanelOf(const Session& session) {
    const Curve& curve = session.curve;
    Panel panel;
    panel.m_Band_sel = BandText(session.working.BandIsSet() ? session.working.Band() : int{BandNone});
    panel.m_IM_sel = OrderText(session);
    panel.m_Mode_sel = MethodText(session.working.Method());
    panel.m_Path_sel = session.working.Path() == 2 ? TransmissionText : ReflectionText;
    panel.m_SweepKind_text = RepetitionText(session);
    panel.m_f1_text = Shown(session.readout.F1());
    panel.m_f2_text = Shown(session.readout.F2());
    panel.m_fIM_text = Shown(session.readout.Im());
    if (const auto level = session.readout.Level())
        panel.m_ReadingText =
            Fixed(static_cast<double>(InShownUnit(curve, *level)), curve.powers.IsOn() ? 2 : 1);
    panel.m_WorstFreqText = Shown(WorstFrequency(curve));
    panel.m_WorstLevelText = Shown(ShownWorstLevel(curve));
    panel.m_AlarmText = Fixed(static_cast<double>(curve.limit.Level()), 1);
    if (session.lossInfoShown)
        panel.m_lossInfo = LossText(session.working);
    panel.receiver = ReceiverText(session.receiver);
    panel.receiverMissing = !session.receiver.InstrumentListens() && !session.receiver.IsThere();
    panel.overLimit = IsOverLimit(curve, session.readout);
    panel.unit = curve.scale.InDbc() ? "dBc" : "dBm";
    if (const ResultDocument* const file = ShownFile(session)) {
        panel.m_FileText = file->source;
        panel.m_NextText = NextText(session);
        panel.m_FileNote = session.results.loaded.Note();
    }
    panel.lamp = LampOf(session);
    panel.portButtonShown = session.link.connection.ButtonIsShown();
    panel.portListShown = session.link.connection.ListIsShown();
    panel.menuShown = !session.user.IsOperator();
    return panel;
}

} // namespace qor
