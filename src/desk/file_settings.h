#pragma once

#include "base/outcome.h"

#include <map>
#include <optional>
#include <string>

namespace qor {

class InstrumentSelection;
class SetupStore;
struct Platform;
struct ResultDocument;
struct Session;

/// What a file that the operator loads brings into force for the next measurement, and his own settings,
/// which he can have back.
class FileSettings {
public:
    FileSettings(Session& session, const Platform& platform, SetupStore& store,
                 InstrumentSelection& instrument)
        : m_Session(session), m_Platform(platform), m_Store(store), m_Instrument(instrument) {}

    /// Band, order, method, limit and powers of a file come into force; the power store of its band takes
    /// what has to leave the instrument, for the loss of the cable in between. Nothing of it does when one of
    /// them cannot: then the reason is told, else nothing.
    [[nodiscard]] std::string BringIntoForce(const ResultDocument& document);

    /// A file has changed what the operator had in force.
    [[nodiscard]] bool HasOwn() const { return m_Own.has_value(); }
    /// What was in force before the first load is in force again, at the instrument too; the file goes.
    Outcome BringBackOwn();
    /// The next measurements take plan and length of the shown file too, until the program ends. Refused
    /// where the file does not state them, or the band has no room for them.
    Outcome MeasureAsFile();

private:
    struct Own {
        int band;
        int imIndex;
        int method;
        float limit; ///< dBm
        int length;  ///< ms
        std::optional<std::string> limitStore;
        std::map<std::string, std::optional<std::string>> powerStores; ///< those that files have written
    };

    [[nodiscard]] std::string WhyNot(const ResultDocument& document) const;
    void KeepOwn(const std::string& powerStore);
    void PutBack(const std::string& name, const std::optional<std::string>& text);

    Session& m_Session;
    const Platform& m_Platform;
    SetupStore& m_Store;
    InstrumentSelection& m_Instrument;
    std::optional<Own> m_Own;
};

} // namespace qor
