#include "desk/auto_saver.h"

#include "base/atomic_write.h"
#include "desk/program.h"
#include "desk/shown_page.h"
#include "platform/operator.h"
#include "platform/serial_control.h"

namespace qor {

namespace {

constexpr int LookPeriod = 20;     ///< ms
constexpr int LongestWait = 2000;  ///< ms
constexpr int MostNumbers = 99999; ///< the running number has five places

bool Exists(const std::filesystem::path& path) {
    std::error_code ignored;
    return std::filesystem::exists(path, ignored);
}

} // namespace

AutoSaver::AutoSaver(Program& program, Channel& channel, std::function<void()> onSaved)
    : m_Program(program), m_Channel(channel), m_OnSaved(std::move(onSaved)),
      m_Timer(program.Parts().timers, AutoSaveTimer, [this] { OnTimer(); }) {}

void AutoSaver::RunHasEnded() {
    if (!m_Program.State().results.autoSave.IsOn())
        return;
    m_Document = m_Program.Files().Document();
    m_Busy = true;
    m_StartAsked = false;
    m_Waited = 0;
    m_Timer.Start(LookPeriod);
}

void AutoSaver::OnTimer() {
    m_Waited += LookPeriod;
    if (!m_Program.LineIsIdle() && m_Waited < LongestWait)
        return;
    m_Timer.Stop();
    TagAutoSaveReport(true);
    Finish();
}

void AutoSaver::SaveAtEnd() {
    // A run that is asked about goes on by itself: its question ends with the program.
    if (std::exchange(m_Busy, false) && m_Document)
        TagAutoSaveReport(false);
}

void AutoSaver::Finish() {
    m_Busy = false;
    if (m_Program.Parts().comm.GetPortOpen())
        m_Channel.Start();
    if (std::exchange(m_StartAsked, false) && !m_Program.IsLeaving())
        m_OnSaved();
}

void AutoSaver::TagAutoSaveReport(bool mayAsk) {
    Session& session = m_Program.State();
    AutoSave& settings = session.results.autoSave;
    Operator& user = m_Program.Parts().user;
    if (!m_Document || PointsOf(*m_Document) == 0) {
        user.Message("Keine Messpunkte zum Speichern!");
        return;
    }
    m_Channel.Stop();
    Filed filed{std::move(*m_Document), {}, settings.NextNumber()};
    m_Document.reset();
    settings.CountOn(filed.number);
    session.results.device.Number(settings.SerialOf(filed.number));
    const ResultVerdict verdict = filed.document.verdict;
    if (verdict == ResultVerdict::Error)
        filed.mark = "_error";
    else if (!session.curve.tally.OfAll().IsComplete())
        filed.mark = "_incomplete";
    const bool asks = verdict == ResultVerdict::Failed && filed.mark.empty() && mayAsk;
    if (asks && !user.Ask("Save FAIL  file?", "Speichern DATen File") && !m_Program.IsLeaving()) {
        session.results.device.Number(LoweredSerial(session.results.device.Serial()));
        return;
    }
    if (!SettleNames(filed, mayAsk && !m_Program.IsLeaving()))
        return;
    session.results.device.Number(settings.SerialOf(filed.number));
    filed.document.deviceSerial = settings.SerialOf(filed.number);
    WriteFiles(filed);
    settings.CountSaved();
}

std::filesystem::path AutoSaver::PathOf(const Filed& filed, int number, std::string_view ending) const {
    const AutoSave& settings = m_Program.State().results.autoSave;
    return settings.FileOf(settings.SerialOf(number), filed.mark + std::string(ending));
}

std::filesystem::path AutoSaver::FirstExisting(const Filed& filed, int number) const {
    for (const std::string_view ending : m_Program.State().results.autoSave.Forms().Endings()) {
        if (const auto path = PathOf(filed, number, ending); Exists(path))
            return path;
    }
    return {};
}

/// What becomes of names that are taken: they are replaced, left as they are, or the first number is taken
/// whose names are all free. False when there is none.
bool AutoSaver::SettleNames(Filed& filed, bool mayAsk) const {
    const std::filesystem::path taken = FirstExisting(filed, filed.number);
    if (taken.empty())
        return true;
    Operator& user = m_Program.Parts().user;
    Answer answer =
        mayAsk
            ? user.AskOrElse("The file has already existed. Do you want to replace it?\n\n" + taken.string(),
                             "Speichern DATen File", "Naechste freie Nummer")
            : Answer::Other;
    if (m_Program.IsLeaving()) // the question has gone with the window
        answer = Answer::Other;
    if (answer != Answer::Other) {
        filed.replaces = answer == Answer::Yes;
        return true;
    }
    for (int number = filed.number + 1; number <= MostNumbers; ++number) {
        if (FirstExisting(filed, number).empty()) {
            filed.number = number;
            m_Program.State().results.autoSave.CountOn(number);
            return true;
        }
    }
    user.Message("Keine Nummer ist mehr frei.");
    return false;
}

void AutoSaver::WriteFiles(const Filed& filed) {
    std::string problems;
    for (const std::string_view ending : m_Program.State().results.autoSave.Forms().Endings()) {
        const std::string problem = Write(filed, ending);
        if (!problem.empty())
            problems += (problems.empty() ? "" : "\n") + problem;
    }
    if (!problems.empty())
        m_Program.Parts().user.Message(problems);
}

/// Empty on success, else what the operator is told.
std::string AutoSaver::Write(const Filed& filed, std::string_view ending) {
    const std::filesystem::path path = PathOf(filed, filed.number, ending);
    if (!filed.replaces && Exists(path))
        return {};
    std::error_code ignored; // the write tells what is wrong with the folder
    std::filesystem::create_directories(path.parent_path(), ignored);
    if (ending == ".pdf") {
        m_Program.Stores().Write("LastPdfPath.ccz", path.string());
        auto subject = ShownSubject(m_Program);
        if (m_Program.State().curve.IsFromFile() || !subject) // something else is shown by now
            return m_Program.Reports()
                .WritePage(DocumentPage(filed.document, ViewOf(m_Program)).Subject(), path)
                .Text();
        subject->document = filed.document;
        return m_Program.Reports().WritePage(*subject, path).Text();
    }
    std::string bytes;
    ResultFiles& files = m_Program.Files();
    if (const Outcome formed =
            files.Forms().Write(filed.document, path, m_Program.State().results.autoSave.Templates(), bytes);
        !formed)
        return path.string() + ": " + formed.Text();
    const std::string problem = WriteAtomically(path, bytes);
    if (problem.empty())
        files.NoteSaved(filed.document);
    return problem.empty() ? problem : "Speichern file misserfolg\n" + problem;
}

} // namespace qor
