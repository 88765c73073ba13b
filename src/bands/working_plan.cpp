#include "bands/working_plan.h"

#include "core/session.h"

namespace qor {

void SetWorkingPlan(Session& session, const FrequencyPlan& from) {
    PlanState& plan = session.plan;
    plan.g_f1 = from.f1;
    plan.g_f2 = from.f2;
    plan.g_f1Start = from.f1Start;
    plan.g_f1Stop = from.f1Stop;
    plan.g_f2Fix = from.f2Fix;
    plan.g_f2Start = from.f2Start;
    plan.g_f2Stop = from.f2Stop;
    plan.g_f1Fix = from.f1Fix;
    session.curve.g_SweepStep = from.step;
}

FrequencyPlan WorkingPlan(const Session& session) {
    const PlanState& plan = session.plan;
    FrequencyPlan working;
    working.f1 = plan.g_f1;
    working.f2 = plan.g_f2;
    working.f1Start = plan.g_f1Start;
    working.f1Stop = plan.g_f1Stop;
    working.f2Fix = plan.g_f2Fix;
    working.f2Start = plan.g_f2Start;
    working.f2Stop = plan.g_f2Stop;
    working.f1Fix = plan.g_f1Fix;
    working.step = session.curve.g_SweepStep;
    return working;
}

} // namespace qor
