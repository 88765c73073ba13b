#include "results/report/document_page.h"

#include "curve/curve.h"
#include "results/document_curve.h"
#include "results/read_document.h"

namespace qor {

namespace {

ResultDocument Completed(ResultDocument document, const PageView& view) {
    if (document.hasHead && document.interBand.empty()) {
        const auto [f1, f2] = HeldTones(document);
        document.band = BandOfTones(f1, f2, view.band);
    }
    if (!document.statesRemarks) {
        document.comment = view.comment;
        document.deviceSerial = view.deviceSerial;
    }
    if (!document.limit && view.limit) {
        document.limit = view.limit;
        JudgeRows(document);
    }
    return document;
}

void Plot(const ResultDocument& document, const PageView& view, Curve& curve) {
    curve.scale.SetRange(view.top, view.bottom);
    curve.scale.ShowBar(view.bar);
    curve.scale.SetCarrier(document.carrier);
    curve.scale.SetUnit(document.inDbc);
    if (document.limit)
        curve.limit.Take(*document.limit - curve.scale.Reference());
    const bool judged = document.limit.has_value(); // without one there is nothing to stamp
    curve.limit.SetAlarm(!view.alarmOff && judged);
    curve.limit.SetStamp(!view.stampOff && judged);
    curve.Load(CurveOf(document));
    curve.Update(true);
    curve.SearchMaxima();
}

PlotFacts FactsOf(const ResultDocument& document) {
    PlotFacts facts;
    facts.bandSelected = document.hasHead;
    facts.power1 = static_cast<double>(document.power1);
    facts.power2 = static_cast<double>(document.power2);
    return facts;
}

} // namespace

DocumentPage::DocumentPage(ResultDocument document, const PageView& view)
    : m_Curve(std::make_unique<Curve>()), m_Subject{Completed(std::move(document), view),
                                                    {*m_Curve, {}, {}},
                                                    false,
                                                    view.alarmOff,
                                                    {}} {
    m_Subject.keepSerial = !m_Subject.document.deviceSerial.empty();
    m_Subject.plot.facts = FactsOf(m_Subject.document);
    Plot(m_Subject.document, view, *m_Curve);
}

} // namespace qor
