#pragma once

#include "results/result_forms.h"

#include <filesystem>
#include <optional>

namespace qor {

struct Platform;
struct Session;
class SetupStore;

/// Saving the curve store to a file and showing a file again.
class ResultFiles {
public:
    ResultFiles(Session& session, const Platform& platform, SetupStore& store);

    /// Writes the measurement in the form of the name's ending. Asks before an existing file is replaced.
    /// False when nothing was written; the operator has been told why.
    bool DataSave(const std::filesystem::path& path);
    /// Reads a result and sets the panel as if that measurement had just run. An empty path does nothing.
    /// False when the file cannot be read as a result: the operator has been told why, and the shown curve,
    /// the stores and the panel are as before.
    bool CurrentShow(const std::filesystem::path& path);

    /// The forms that results are saved in; a program adds those that it alone can write.
    [[nodiscard]] ResultForms& Forms() { return m_Forms; }
    [[nodiscard]] const ResultForms& Forms() const { return m_Forms; }

    /// Why the last DataSave or CurrentShow gave up, with the path; empty after a success.
    [[nodiscard]] const std::string& LastProblem() const { return m_LastProblem; }

    /// What the shown curve is a measurement of; nothing when the band does not have the order.
    [[nodiscard]] std::optional<ResultDocument> Document() const;

private:
    [[nodiscard]] bool DescribeSetup(ResultDocument& document) const;
    void TakeCurve(ResultDocument& document) const;
    void Apply(const ResultDocument& document);
    void TakeVerdict(ResultDocument document);
    void ApplyHead(const ResultDocument& document);
    void ApplyUnit(const ResultDocument& document);
    bool Refuse(std::string text);

    Session& m_Session;
    const Platform& m_Platform;
    SetupStore& m_Store;
    ResultForms m_Forms;
    std::string m_LastProblem;
};

} // namespace qor
