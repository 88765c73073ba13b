#include "desk/plot_facts.h"

#include "bands/catalogue.h"
#include "base/tenths.h"
#include "desk/panel.h"
#include "desk/session.h"

namespace qor {

namespace {

// shown to the operator
constexpr std::string_view FileLabel = "Datei:";
// shown to the operator
constexpr std::string_view NextLabel = "Naechste Messung:";

} // namespace

PlotFacts FactsOf(const Session& session) {
    PlotFacts facts;
    facts.runOn = session.run.IsOn();
    facts.g_calDisplay = session.curve.powers.IsOn();
    facts.tagEndless = session.runs.IsContinuous();
    facts.bandSelected = session.working.Band() != BandNone;
    facts.power1 = NumberIn(session.working.Power1()) / 10.0;
    facts.power2 = NumberIn(session.working.Power2()) / 10.0;
    Panel panel = PanelOf(session);
    if (panel.m_FileText.empty())
        return facts;
    facts.banner.push_back({std::string(FileLabel), std::move(panel.m_FileText)});
    if (!panel.m_NextText.empty())
        facts.banner.push_back({std::string(NextLabel), std::move(panel.m_NextText)});
    if (!panel.m_FileNote.empty())
        facts.banner.push_back({std::move(panel.m_FileNote), {}});
    return facts;
}

} // namespace qor
