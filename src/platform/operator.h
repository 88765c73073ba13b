#pragma once

#include <filesystem>
#include <string_view>
#include <vector>

namespace qor {

enum class Answer { Yes, No, Cancel, Other };

/// The person in front of the program. Nothing else in the program ever asks or tells anybody anything.
/// Where nobody sits, as in a script, choices that need a window come back empty.
///
/// Timers and port events go on while a question is open: a handler that asks looks again at what it relies
/// on.
class Operator {
public:
    Operator() = default;
    Operator(const Operator&) = delete;
    Operator& operator=(const Operator&) = delete;
    virtual ~Operator() = default;

    /// A message that only has to be seen. Does not wait for that.
    virtual void Message(std::string_view text, std::string_view title = {}) = 0;
    /// The same, of something that has failed or was refused.
    virtual void Failure(std::string_view text, std::string_view title = {}) { Message(text, title); }
    /// A message that the program's end must not take away: waits until it was seen.
    virtual void Acknowledge(std::string_view text, std::string_view title = {}) { Message(text, title); }
    /// A question with Yes and No; true is Yes.
    [[nodiscard]] virtual bool Ask(std::string_view text, std::string_view title) = 0;
    /// The same where No is the answer unless the operator chooses otherwise.
    [[nodiscard]] virtual bool AskWithCare(std::string_view text, std::string_view title) {
        return Ask(text, title);
    }
    /// A question that can also be left open.
    [[nodiscard]] virtual Answer AskOrCancel(std::string_view /*text*/, std::string_view /*title*/) {
        return Answer::Cancel;
    }
    /// A question with a third way besides Yes and No, `other`; never Cancel.
    [[nodiscard]] virtual Answer AskOrElse(std::string_view text, std::string_view title,
                                           std::string_view /*other*/) {
        return Ask(text, title) ? Answer::Yes : Answer::No;
    }
    /// Files to open, beginning in `folder`; `endings` as "*.dat *.txt". None: the operator has thought
    /// better of it.
    [[nodiscard]] virtual std::vector<std::filesystem::path>
    FilesToOpen(std::string_view /*title*/, const std::filesystem::path& /*folder*/,
                std::string_view /*endings*/) {
        return {};
    }
    /// Where to save; empty: nowhere. The first ending is added to a name that has none. A file that exists
    /// is not asked about here.
    [[nodiscard]] virtual std::filesystem::path FileToSave(std::string_view /*title*/,
                                                           const std::filesystem::path& /*suggestion*/,
                                                           std::string_view /*endings*/) {
        return {};
    }
    /// A folder; empty: none.
    [[nodiscard]] virtual std::filesystem::path Folder(std::string_view /*title*/,
                                                       const std::filesystem::path& /*start*/) {
        return {};
    }
    /// Long work goes on: `done` of `total` steps, the last call with done equal to total. False once the
    /// operator wants it to end.
    virtual bool Progress(std::string_view /*what*/, int /*done*/, int /*total*/) { return true; }
    /// A call to the outside takes its time: what is shown is brought up to date, and of all that the
    /// operator may press only the stop button and the way out are heard.
    virtual void LetLive() {}
};

} // namespace qor
