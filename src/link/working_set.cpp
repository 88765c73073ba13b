#include "link/working_set.h"

#include "bands/catalogue.h"

namespace qor {

void WorkingSet::SetPathLosses(float port1, float port2) {
    g_powerOffset = port1;
    g_port2Loss = port2;
    m_Aside.reset();
}

void WorkingSet::SetPort2Loss(float port2) {
    g_port2Loss = port2;
    if (m_Aside)
        m_Aside->port2 = port2;
}

void WorkingSet::PutLossesAside() {
    m_Aside = OperatorsLosses();
    g_powerOffset = g_port2Loss = 0;
    g_RxLoss = g_BandRxLoss = 0;
}

bool WorkingSet::TakeLossesBack() {
    if (!m_Aside)
        return false;
    g_powerOffset = m_Aside->powerOffset;
    g_port2Loss = m_Aside->port2;
    m_Aside.reset();
    return true;
}

std::optional<FrequencyPlan> OperatorsPlan(const WorkingSet& working, SetupStore& store, int band,
                                           int imIndex) {
    if (const auto plan = working.SessionPlan(band, imIndex))
        return plan;
    if (band == BandTdScdmaA)
        return FrequencyPlan{.f1 = ReadTdScdmaAF1(store), .f2 = 2025.0f};
    const BandInfo* const info = FindBand(band);
    return info ? ReadPlanStore(store, info->prefix, imIndex) : std::nullopt;
}

} // namespace qor
