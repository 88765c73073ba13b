#include "desk/file_show.h"

#include "base/setup_store.h"
#include "curve/curve.h"
#include "curve/markers.h"
#include "desk/file_settings.h"
#include "desk/level_unit.h"
#include "desk/session.h"
#include "desk/setup/path_loss.h"
#include "results/document_curve.h"
#include "results/read_document.h"
#include "results/result_forms.h"

namespace qor {

namespace {

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

Outcome FileShow::CurrentShow(const std::filesystem::path& path) {
    if (path.empty())
        return Outcome::Done();
    ResultDocument document;
    if (const Outcome read = LoadResult(path, document); !read)
        return Outcome::Refused(read.Text() + " Please choose another file.");
    if (document.hasHead)
        TakeBand(document, m_Session.working.Band());
    const auto [f1, f2] = HeldTones(document);

    DropPathLoss(m_Session);
    ClearPlot(m_Session.curve, m_Session.markers);
    TakeUnit(document);
    TakeRemarks(document);
    std::string note = m_Settings.BringIntoForce(document);
    const bool inForce = note.empty();
    if (inForce && !document.limit)
        note = "Die Datei nennt keine Grenze, es gilt die eingestellte.";
    Curve& curve = m_Session.curve;
    LoadedCurve loaded = CurveOf(document);
    if (!inForce && document.verdict == ResultVerdict::Failed)
        loaded.facts.hasFailed = true; // by its own limit, which is not in force
    curve.Load(loaded);
    curve.Update(m_Session.receiver.InstrumentListens());
    curve.SearchMaxima();
    m_Session.markers.Refresh();
    if (document.hasHead)
        m_Session.readout.ShowTones(f1, f2);
    if (const auto worst = WorstFrequency(curve))
        m_Session.readout.ShowIm(*worst);
    m_Session.readout.EndWith(curve.WorstLevel());
    m_Session.results.loaded.Show(std::move(document), inForce, std::move(note));
    return Outcome::Done();
}

/// The panel takes the unit of the file, and in dBc its reference.
void FileShow::TakeUnit(const ResultDocument& document) {
    if (document.inDbc)
        SetCarrier(document.carrier, m_Session);
    ConvertLevelUnit(document.inDbc, m_Session);
}

void FileShow::TakeRemarks(const ResultDocument& document) {
    if (!document.hasHead || !document.statesRemarks)
        return;
    m_Session.results.device.EnterSerial(document.deviceSerial);
    m_Store.Write("Add_comments.ccz", WithCarriageReturns(document.comment));
}

} // namespace qor
