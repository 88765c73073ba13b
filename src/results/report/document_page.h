#pragma once

#include "bands/band.h"
#include "results/report/report_maker.h"

#include <memory>
#include <optional>
#include <string>

namespace qor {

/// How results of files are shown on their pages, and what stands in where a file does not say.
struct PageView {
    float top = -60;       ///< of the level axis, dBm
    float bottom = -150;   ///< dBm
    bool bar = false;      ///< the level bar stands at the left of the plot
    bool alarmOff = false; ///< no limit is in force
    bool stampOff = false;
    int band = BandNone;        ///< selected: some bands share their tones
    std::optional<float> limit; ///< dBm, for a file without one
    std::string comment;        ///< for a form that has none
    std::string deviceSerial;   ///< the same
};

/// A result from a file as the subject of its page, with a plot of its own: nothing that is shown changes.
class DocumentPage {
public:
    DocumentPage(ResultDocument document, const PageView& view);

    [[nodiscard]] const ReportSubject& Subject() const { return m_Subject; }

private:
    std::unique_ptr<Curve> m_Curve;
    ReportSubject m_Subject;
};

} // namespace qor
