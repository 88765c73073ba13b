#pragma once

#include "results/data_file.h"

#include <filesystem>

namespace qor {

struct Platform;
struct Session;
class SetupStore;

/// Saving the curve store to a file and showing a file again.
class ResultFiles {
public:
    ResultFiles(Session& session, const Platform& platform, SetupStore& store);

    /// Writes the measurement; .dat and .txt by the ending. Asks before an existing file is replaced.
    /// False when nothing was written; the operator has been told why.
    bool DataSave(const std::filesystem::path& path);
    /// Reads a result and sets the panel as if that measurement had just run. An empty path does nothing.
    /// False when the file cannot be read as a result: the operator has been told why, and the shown curve,
    /// the stores and the panel are as before.
    bool CurrentShow(const std::filesystem::path& path);

    /// Why the last DataSave or CurrentShow gave up, with the path; empty after a success.
    [[nodiscard]] const std::string& LastProblem() const { return m_LastProblem; }

private:
    [[nodiscard]] std::optional<ResultFile> Collect();
    [[nodiscard]] bool DescribeSetup(ResultFile& file);
    void Apply(const ResultFile& file, const std::filesystem::path& path);
    void ApplyHeader(const ResultFile& file);
    void ApplyUnit(const ResultFile& file);
    void ApplyTwoTone(const ResultFile& file);
    void ApplySweep(const ResultFile& file);
    bool Refuse(std::string text);

    Session& m_Session;
    const Platform& m_Platform;
    SetupStore& m_Store;
    std::string m_LastProblem;
};

} // namespace qor
