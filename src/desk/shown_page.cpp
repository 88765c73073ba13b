#include "desk/shown_page.h"

#include "desk/plot_facts.h"
#include "desk/program.h"
#include "desk/replace.h"
#include "platform/operator.h"

namespace qor {

namespace {

// shown to the operator
constexpr std::string_view NotSupported = "Does not support the current selection!";
constexpr std::size_t LongestStoredComment = 340;

std::array<ReportMarker, 3> MarkersOf(const Markers& from) {
    std::array<ReportMarker, 3> markers;
    for (std::size_t i = 0; i < markers.size(); ++i) {
        const Marker& marker = from.At(i);
        if (marker.m_MarkerOn)
            markers[i] = {marker.m_MarkerPosText, marker.m_MarkerLevelText};
    }
    return markers;
}

} // namespace

std::optional<ReportSubject> ShownSubject(Program& program) {
    auto document = program.Files().Document();
    if (!document)
        return std::nullopt;
    const Session& session = program.State();
    return ReportSubject{std::move(*document), ShownPlot(program), session.results.device.KeepsSerial(),
                         !session.curve.limit.AlarmOn(), MarkersOf(session.markers)};
}

PlotSubject ShownPlot(Program& program) {
    Session& session = program.State();
    Curve& curve = session.curve;
    static_cast<void>(curve.Follow(session.receiver.InstrumentListens()));
    curve.SearchMaxima();
    return {curve, FactsOf(session),
            [&program](const PlotGeometry& plot) { return program.Marks().Place(plot); }};
}

PageView ViewOf(const Program& program) {
    const Session& session = program.State();
    const Curve& curve = session.curve;
    PageView view;
    view.top = curve.scale.Top();
    view.bottom = curve.scale.Bottom();
    view.bar = curve.scale.ShowsBar();
    view.alarmOff = !curve.limit.AlarmOn();
    view.stampOff = !curve.limit.StampOn();
    view.band = session.working.Band();
    view.limit = curve.limit.Level() + curve.scale.Reference();
    view.comment = program.Stores().Read("Add_comments.ccz", LongestStoredComment).value_or("");
    view.deviceSerial = session.results.device.Serial();
    return view;
}

Outcome SaveShownPage(Program& program, const std::filesystem::path& path, WorkingFiles working) {
    const auto subject = ShownSubject(program);
    return subject ? program.Reports().WritePage(*subject, path, working)
                   : Outcome::Refused(std::string(NotSupported));
}

Outcome PaintShownPage(Program& program, PaintedPage& page) {
    const auto subject = ShownSubject(program);
    if (!subject)
        return Outcome::Refused(std::string(NotSupported));
    Outcome painted = program.Reports().PaintPage(*subject, page);
    if (painted)
        program.Reports().KeepPrinted(page);
    return painted;
}

Outcome PrintShownPage(Program& program, const std::string& printer) {
    PaintedPage page;
    if (Outcome painted = PaintShownPage(program, page); !painted)
        return painted;
    return ReportMaker::Print(page.picture, program.Parts().printers, printer);
}

Outcome PrintShownPageToFile(Program& program) {
    PaintedPage page;
    if (Outcome painted = PaintShownPage(program, page); !painted)
        return painted;
    std::filesystem::path path = program.Parts().user.FileToSave(
        "Drucken", program.State().results.list.Folder() / "qor.pdf", "*.pdf");
    if (path.empty() || !MayReplace(program.Parts().user, path))
        return Outcome::Refused({});
    return ReportMaker::PrintToFile(page.picture, program.Parts().printers, path);
}

} // namespace qor
