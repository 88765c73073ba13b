// Commands of the report: its pictures and its PDF, single or for a whole list, paper, logo, language.
#include "desk/command.h"
#include "desk/list_statistics.h"
#include "desk/program.h"
#include "desk/replace.h"
#include "desk/shown_page.h"
#include "platform/operator.h"
#include "results/output_names.h"

#include <algorithm>

namespace qor {

namespace {

constexpr std::size_t LongestPath = 4096;

/// A form of the page, and the store of the path that was chosen last for it.
struct PageForm {
    std::string_view ending;
    std::string_view endings; ///< as a file dialog has them
    std::string_view store;
    bool besideFiles; ///< where a series is proposed; else in the folder of the last one
};
constexpr PageForm Pdf{".pdf", "*.pdf", "LastPdfPath.ccz", true};
constexpr PageForm Jpg{".jpg", "*.jpg", "LastJpgPath.ccz", false};
constexpr PageForm Bmp{".bmp", "*.bmp", "LastBmpPath.ccz", false};

std::filesystem::path WithEnding(std::filesystem::path path, std::string_view ending) {
    std::string text = path.extension().string();
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    if (text != ending)
        path += ending;
    return path;
}

std::filesystem::path LastFolder(const Program& program, const PageForm& form) {
    const std::filesystem::path last = program.Stores().Read(form.store, LongestPath).value_or("");
    return last.empty() ? program.State().results.list.Folder() : last.parent_path();
}

std::filesystem::path ProposedPath(const Desk& desk, const PageForm& form) {
    const Program& program = desk.program;
    const std::filesystem::path folder = LastFolder(program, form);
    const std::string& serial = program.State().results.device.Serial();
    return folder / ((serial.empty() ? "qor" : serial) + std::string(form.ending));
}

/// Where the operator wants a file of that form; empty: nowhere.
std::filesystem::path AskPath(Desk& desk, const PageForm& form, const std::filesystem::path& proposed) {
    std::filesystem::path path =
        desk.program.Parts().user.FileToSave("Speichern DATen File", proposed, form.endings);
    if (path.empty())
        return path;
    path = WithEnding(path, form.ending);
    desk.program.Stores().Write(form.store, path.string());
    return path;
}

/// Drops the pages that are there already unless the operator wants them replaced; false: he wants none.
bool SettleExisting(Operator& user, std::vector<PageSeries::Page>& pages) {
    const auto exists = [](const PageSeries::Page& page) {
        std::error_code ignored;
        return std::filesystem::exists(page.target, ignored);
    };
    const auto there = std::count_if(pages.begin(), pages.end(), exists);
    if (there == 0)
        return true;
    const Answer answer = user.AskOrCancel("Vorhandene Dateien ersetzen? Anzahl: " + std::to_string(there),
                                           "Speichern DATen File");
    if (answer == Answer::No)
        std::erase_if(pages, exists);
    return answer != Answer::Cancel;
}

Outcome SaveSeries(Desk& desk, const PageForm& form) {
    Program& program = desk.program;
    const std::vector<std::filesystem::path> files = FilesOf(program.State().results.list);
    const std::filesystem::path folder =
        form.besideFiles ? files.front().parent_path() : LastFolder(program, form);
    const std::filesystem::path first = OutputNames({files.front()}, folder, form.ending).front();
    const std::filesystem::path chosen = AskPath(desk, form, first);
    if (chosen.empty())
        return Outcome::Done();
    const auto names = OutputNames(files, chosen.parent_path(), form.ending);
    std::vector<PageSeries::Page> pages;
    for (std::size_t i = 0; i < files.size(); ++i)
        pages.push_back({files[i], names[i]});
    if (SettleExisting(program.Parts().user, pages))
        program.Series().Begin(std::move(pages), ViewOf(program));
    return Outcome::Done();
}

Outcome SavePage(Desk& desk, const PageForm& form) {
    Program& program = desk.program;
    Operator& user = program.Parts().user;
    const ResultList& list = program.State().results.list;
    if (list.IsOpen() && !FilesOf(list).empty() && user.Ask("Save all graphs?", "Speichern DATen File"))
        return SaveSeries(desk, form);
    const std::filesystem::path path = AskPath(desk, form, ProposedPath(desk, form));
    if (path.empty() || !MayReplace(user, path))
        return Outcome::Done();
    return SaveShownPage(program, path, WorkingFiles::Kept);
}

Outcome SavePlot(Desk& desk, const PageForm& form) {
    Program& program = desk.program;
    std::filesystem::path proposed = ProposedPath(desk, form);
    proposed.replace_filename("DATEN" + std::string(form.ending));
    const std::filesystem::path path =
        program.Parts().user.FileToSave("Speichern DATen File", proposed, form.endings);
    if (path.empty())
        return Outcome::Done();
    const std::filesystem::path whole = WithEnding(path, form.ending);
    if (!MayReplace(program.Parts().user, whole))
        return Outcome::Done();
    return program.Reports().WritePlot(ShownPlot(program), whole, WorkingFiles::Kept);
}

Outcome TakeLogo(Desk& desk, int) {
    const auto paths = desk.program.Parts().user.FilesToOpen(
        "Einfuehren Firmenlogo", desk.program.State().results.list.Folder(), "*.bmp *.png *.jpg *.jpeg");
    return paths.empty() ? Outcome::Done() : desk.program.Reports().TakeLogo(paths.front());
}

Outcome PrintDirect(Desk& desk, int) {
    return PrintShownPage(desk.program, {});
}

} // namespace

void AddLogoRows(MenuBuilder& menu) {
    menu.Add({.id = "company_logo", .caption = "Einfuehren Firmenlogo(&I)\tCtrl+I", .run = TakeLogo});
}

void AddPictureRows(MenuBuilder& menu) {
    menu.Add({.id = "save_jpg",
              .caption = "Speichern JPG(&J)\tCtrl+J",
              .guards = {.run = true},
              .run = [](Desk& desk, int) { return SavePage(desk, Jpg); }});
    menu.Add({.id = "save_bmp",
              .caption = "Speichern BMP(&B)\tCtrl+B",
              .guards = {.run = true},
              .run = [](Desk& desk, int) { return SavePage(desk, Bmp); }});
    menu.Add({.id = "save_graph",
              .caption = "Speichern Graph(&G)\tCtrl+G",
              .guards = {.run = true},
              .run = [](Desk& desk, int) { return SavePlot(desk, Jpg); }});
    menu.Add({.id = "save_graph_bmp",
              .caption = "Speichern Graph BMP",
              .guards = {.run = true},
              .run = [](Desk& desk, int) { return SavePlot(desk, Bmp); }});
    menu.Add({.id = "save_pdf",
              .caption = "Speichern PDF(&S)\tCtrl+S",
              .guards = {.run = true},
              .run = [](Desk& desk, int) { return SavePage(desk, Pdf); }});
    menu.Add({.id = "statistics",
              .caption = "Statistik(&K)",
              .guards = {.run = true},
              .enabled = [](const Program& program, int) { return program.State().results.list.IsOpen(); },
              .noDialog = "Einbauen misserfolg"});
}

void AddPrintRows(MenuBuilder& menu) {
    menu.Add({.id = "print", .caption = "Drucken(&V)\tCtrl+V", .noDialog = "Oeffnen file Misserfolg"});
    menu.Add({.id = "print_direct", .caption = "Drucken Direkt(&P)\tCtrl+P", .run = PrintDirect});
    menu.Menu("Sprache des Berichts(&R)");
    const auto language = [&menu](std::string_view caption, ReportLanguage number) {
        menu.Add({.id = "report_language",
                  .argument = static_cast<int>(number),
                  .caption = caption,
                  .run =
                      [](Desk& desk, int n) {
                          return desk.program.Reports().ChooseLanguage(static_cast<ReportLanguage>(n));
                      },
                  .checked = [](const Program& program,
                                int n) { return static_cast<int>(program.Reports().Language()) == n; }});
    };
    // shown to the operator
    static constexpr std::string_view Languages[] = {"Deutsch", "English"};
    language(Languages[0], ReportLanguage::German);
    language(Languages[1], ReportLanguage::English);
    menu.End();
}

} // namespace qor
