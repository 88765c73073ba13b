#pragma once

#include "base/outcome.h"

#include <filesystem>

namespace qor {

class FileSettings;
class SetupStore;
struct ResultDocument;
struct Session;

/// A result file in the plot and on the panel, as if it had just been measured.
class FileShow {
public:
    FileShow(Session& session, SetupStore& store, FileSettings& settings)
        : m_Session(session), m_Store(store), m_Settings(settings) {}

    /// Shows the file the operator has chosen, and brings its settings into force. An empty path does
    /// nothing. Refused, with all as before, when it cannot be read as a result.
    Outcome CurrentShow(const std::filesystem::path& path);

private:
    void TakeUnit(const ResultDocument& document);
    void TakeRemarks(const ResultDocument& document);

    Session& m_Session;
    SetupStore& m_Store;
    FileSettings& m_Settings;
};

} // namespace qor
