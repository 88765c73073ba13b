#include "desk/band_plot.h"

#include "bands/catalogue.h"
#include "curve/curve.h"
#include "desk/session.h"

namespace qor {

void ShowWorkingSet(Session& session) {
    Curve& curve = session.curve;
    const WorkingSet& working = session.working;
    Readout& readout = session.readout;
    const int band = working.Band();
    const FrequencyPlan& plan = working.Plan();
    const ImCoefficients c = working.Coefficients();
    float imFrequency = 0;

    curve.Clear();
    curve.ShowRun(0);
    readout.ClearLevel();
    switch (working.Method()) {
    case ModeTwoTone:
        readout.ShowTones(plan.f1, plan.f2);
        curve.SetTimeAxis();
        imFrequency = ImFrequency(band, c, plan.f1, plan.f2);
        curve.UpdateTimePerPoint(session.receiver.InstrumentListens());
        break;
    case ModeSweep:
        readout.ShowTones(plan.f1Start, plan.f2Fix);
        BuildGridInForce(curve, band, working, session.interBand);
        imFrequency = ImFrequency(band, c, plan.f1Start, plan.f2Fix);
        break;
    default:
        readout.ShowTones(plan.f1Start, plan.f2Fix);
        BuildSpectrumGrid(curve, band, plan);
        imFrequency = ImFrequency(band, {2, 1}, plan.f1Start, plan.f2Fix);
        break;
    }
    readout.ShowIm(imFrequency);
}

} // namespace qor
