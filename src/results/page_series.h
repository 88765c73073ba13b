#pragma once

#include "base/outcome.h"
#include "platform/timers.h"
#include "results/report/document_page.h"

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace qor {

class Operator;

inline constexpr int SeriesTimer = 26;
inline constexpr int SeriesPeriod = 1; ///< ms

/// The pages of many result files, one file a tick, so that the window lives between them. What is shown
/// stays as it is. The operator sees which file it is at and can end it before each; what went wrong is told
/// once, at the end.
class PageSeries {
public:
    /// One file and where its page goes; the form is told by the ending.
    struct Page {
        std::filesystem::path source;
        std::filesystem::path target;
    };

    PageSeries(WindowTimers& timers, Operator& user, ReportMaker& maker);

    [[nodiscard]] bool IsOn() const { return !m_Pages.empty(); }
    void Begin(std::vector<Page> pages, PageView view);
    /// What is written stays.
    void End();

private:
    void OnTick();
    void MakePage(const Page& page);
    void Tell();

    Operator& m_User;
    ReportMaker& m_Maker;
    Timer m_Timer;
    std::vector<Page> m_Pages;
    PageView m_View;
    std::size_t m_Next = 0;
    std::vector<std::string> m_Problems;
};

} // namespace qor
