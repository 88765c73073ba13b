#include "results/page_series.h"

#include "platform/operator.h"
#include "results/result_forms.h"

#include <algorithm>

namespace qor {

namespace {
constexpr std::size_t MostTold = 10; ///< files named in the message at the end
}

PageSeries::PageSeries(WindowTimers& timers, Operator& user, ReportMaker& maker)
    : m_User(user), m_Maker(maker), m_Timer(timers, SeriesTimer, [this] { OnTick(); }) {}

void PageSeries::Begin(std::vector<Page> pages, PageView view) {
    m_Pages = std::move(pages);
    m_View = std::move(view);
    m_Next = 0;
    m_Problems.clear();
    if (IsOn())
        m_Timer.Start(SeriesPeriod);
}

void PageSeries::OnTick() {
    m_Timer.Stop(); // the window is served while progress is shown, and would tick again
    const auto total = static_cast<int>(m_Pages.size());
    const Page page = m_Pages[m_Next];
    if (!m_User.Progress(page.target.filename().string(), static_cast<int>(m_Next), total))
        return End();
    if (!IsOn())
        return; // ended while the window was served
    MakePage(page);
    if (++m_Next == m_Pages.size())
        End();
    else
        m_Timer.Start(SeriesPeriod);
}

void PageSeries::MakePage(const Page& page) {
    ResultDocument document;
    if (const Outcome read = LoadResult(page.source, document); !read) {
        m_Problems.push_back(read.Text());
        return;
    }
    const DocumentPage subject(std::move(document), m_View);
    if (const Outcome written = m_Maker.WritePage(subject.Subject(), page.target); !written)
        m_Problems.push_back(page.source.filename().string() + ": " + written.Text());
}

void PageSeries::End() {
    m_Timer.Stop();
    if (!IsOn())
        return;
    const auto total = static_cast<int>(m_Pages.size());
    m_Pages.clear();
    static_cast<void>(m_User.Progress({}, total, total));
    Tell();
}

void PageSeries::Tell() {
    if (m_Problems.empty())
        return;
    std::string text = "Dateien ohne Bericht: " + std::to_string(m_Problems.size());
    for (std::size_t i = 0; i < std::min(m_Problems.size(), MostTold); ++i)
        text += "\n" + m_Problems[i];
    if (m_Problems.size() > MostTold)
        text += "\n...";
    m_User.Message(text);
}

} // namespace qor
