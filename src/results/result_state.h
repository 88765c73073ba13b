#pragma once

#include "results/auto_save.h"
#include "results/result_document.h"
#include "results/result_list.h"

#include <optional>
#include <string>

namespace qor {

/// What the operator says of the device under test.
class DeviceNotes {
public:
    [[nodiscard]] const std::string& Serial() const { return m_DutSerial; }
    /// A serial number that was entered, or came with a file, is stated by the next results too.
    [[nodiscard]] bool KeepsSerial() const { return g_bKeepSerial; }
    /// Comment as the comment page holds it, without the head of its store.
    [[nodiscard]] const std::string& Comment() const { return g_comment; }

    void EnterSerial(std::string serial) {
        m_DutSerial = std::move(serial);
        g_bKeepSerial = !m_DutSerial.empty();
    }
    /// A serial number that a run was given: the next one gets its own.
    void Number(std::string serial) { m_DutSerial = std::move(serial); }
    /// The start button was pressed.
    void ForgetSerialUnlessKept() {
        if (!g_bKeepSerial)
            m_DutSerial.clear();
    }
    void TakeComment(std::string comment) { g_comment = std::move(comment); }
    /// A comment that goes before the stored one as long as the program runs.
    [[nodiscard]] const std::optional<std::string>& CommentOfCall() const { return m_CommentOfCall; }
    void CommentOfCall(std::string comment) { m_CommentOfCall = std::move(comment); }

private:
    std::string m_DutSerial;    ///< serial number of the device under test
    bool g_bKeepSerial = false; ///< it stays for the next run
    std::string g_comment;      ///< comment of the next result
    std::optional<std::string> m_CommentOfCall;
};

/// The file whose curve is shown.
class LoadedResult {
public:
    [[nodiscard]] bool IsShown() const { return m_Document.has_value(); }
    /// What the file holds: a further save states it again. Null when no file is shown.
    [[nodiscard]] const ResultDocument* Document() const { return m_Document ? &*m_Document : nullptr; }
    /// Band, order, method, powers and limit of the file are those of the next measurement.
    [[nodiscard]] bool IsInForce() const { return m_InForce; }
    /// What the operator has to know of it: why nothing of it is in force, or what it does not state.
    [[nodiscard]] const std::string& Note() const { return m_Note; }

    void Show(ResultDocument document, bool inForce, std::string note) {
        m_Document = std::move(document);
        m_InForce = inForce;
        m_Note = std::move(note);
    }
    void Clear() { *this = {}; }

private:
    std::optional<ResultDocument> m_Document;
    bool m_InForce = false;
    std::string m_Note;
};

/// What leaves the program, or came back.
struct ResultState {
    ResultList list;
    DeviceNotes device;
    AutoSave autoSave;
    LoadedResult loaded;
    std::filesystem::path saveFolder; ///< where the operator has saved last; empty: nowhere yet
};

} // namespace qor
