// A result file back into the curve store and onto the panel, as if it had just been measured.
#include "bands/catalogue.h"
#include "bands/records.h"
#include "base/setup_store.h"
#include "base/tenths.h"
#include "base/text_format.h"
#include "curve/curve.h"
#include "curve/markers.h"
#include "desk/level_unit.h"
#include "desk/session.h"
#include "measure/run_texts.h"
#include "platform/operator.h"
#include "platform/platform.h"
#include "results/document_curve.h"
#include "results/read_document.h"
#include "results/result_files.h"

#include <algorithm>
#include <cmath>

namespace qor {

namespace {

/// Power as one group of a store: five characters, the sign among them.
std::string StoredPower(float power) {
    std::string text = TenthsText(static_cast<double>(power));
    if (text.size() > 5)
        text.erase(1, text.size() - 5); // zeros behind a minus
    return text;
}

std::string WithCarriageReturns(const std::string& text) {
    std::string out;
    for (const char c : text) {
        if (c == '\n')
            out += '\r';
        out += c;
    }
    return out;
}

} // namespace

bool ResultFiles::CurrentShow(const std::filesystem::path& path) {
    m_LastProblem.clear();
    if (path.empty())
        return true;
    ResultDocument document;
    if (const Outcome read = LoadResult(path, document); !read)
        return Refuse(read.Text() + " Please choose another file.");
    const auto [f1, f2] = HeldTones(document);
    document.band = BandOfTones(f1, f2, m_Session.working.Band());
    Apply(document);
    m_Session.results.loaded.Show(std::move(document));
    return true;
}

void ResultFiles::Apply(const ResultDocument& document) {
    Curve& curve = m_Session.curve;
    const bool twoTone = document.method == ResultMethod::TwoTone;
    ClearPlot(m_Session);
    m_Session.working.SelectMethod(twoTone ? ModeTwoTone : ModeSweep);

    if (document.hasHead)
        ApplyHead(document);
    ApplyUnit(document);
    curve.Load(CurveOf(document));

    const bool internal = m_Session.receiver.InstrumentListens();
    curve.Update(internal);
    curve.SearchMaxima();
    TakeVerdict(document);
    RefreshMarkers(m_Session.markers);
}

/// The file is judged over all its rows, whatever of them the curve has room for. One without a limit is held
/// against the one in force.
void ResultFiles::TakeVerdict(ResultDocument document) {
    Curve& curve = m_Session.curve;
    if (!document.limit) {
        document.limit = curve.limit.Level() + (curve.scale.InDbc() ? curve.scale.Carrier() : 0.0f);
        JudgeRows(document);
    }
    switch (document.verdict) {
    case ResultVerdict::Passed:
        curve.verdict.Take(VerdictPassed);
        return;
    case ResultVerdict::Failed:
        curve.verdict.Take(VerdictOverLimit);
        return;
    case ResultVerdict::Error:
        curve.verdict.Take(static_cast<Verdict>(document.error));
        return;
    case ResultVerdict::None:
        curve.verdict.Take(VerdictNone);
    }
}

/// Texts, selection and stores by the head.
void ResultFiles::ApplyHead(const ResultDocument& document) {
    ResultState& results = m_Session.results;
    WorkingSet& working = m_Session.working;
    if (document.statesRemarks) {
        results.device.EnterSerial(document.deviceSerial);
        m_Store.Write("Add_comments.ccz", WithCarriageReturns(document.comment));
    }

    const auto [f1, f2] = HeldTones(document);
    working.SetPower(StoredPower(document.power1), StoredPower(document.power2));
    m_Session.readout.ShowTones(f1, f2);
    working.SelectBand(document.band);
    working.SetBandOfRun(document.band);
    const BandInfo* band = FindBand(document.band);
    m_Store.Write(PowerStoreName(band->prefix), working.Power1() + working.Power2());
    working.SelectOrder(document.order / 2);
}

/// The panel takes the unit and the limit of the file.
void ResultFiles::ApplyUnit(const ResultDocument& document) {
    Curve& curve = m_Session.curve;
    if (document.inDbc)
        curve.scale.SetCarrier(document.carrier);
    ConvertLevelUnit(document.inDbc, m_Session);
    if (document.limit) {
        curve.limit.Take(*document.limit - (document.inDbc ? document.carrier : 0.0f));
        m_Store.Write("AlarmUp.ccz", Fixed(static_cast<double>(*document.limit), 1));
    }
}

} // namespace qor
