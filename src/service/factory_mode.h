#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace qor {

enum class ServicePage { None, Test, Calibration };

/// What a service page is doing. One thing at a time; while it is on, nothing else starts.
enum class ServiceWork {
    None,
    MemoryAccess, ///< the editor's read or write
    Backup,
    Restore,
    Initialisation,
    PowerCalibration,
    ReceiverCalibration,
    ReadBack,
    Fatigue,
};

/// The maker's service side: reached by a PIN, left by a question, off at every start. The PIN keeps nobody
/// out who wants in.
class FactoryMode {
public:
    static constexpr int MostWrongPins = 3;
    static constexpr int ShutMs = 30000;

    [[nodiscard]] bool IsOn() const { return g_factoryMode; }
    /// Takes a PIN; false for a wrong one, the third of which in a row keeps the dialog shut for a while.
    bool Enter(std::string_view pin, std::int64_t nowMs);
    /// The dialog does not open now.
    [[nodiscard]] bool IsShut(std::int64_t nowMs) const { return nowMs < m_ShutUntilMs; }
    /// Leaves it, and the page that is open.
    void Leave();

    [[nodiscard]] ServicePage Page() const { return m_Page; }
    [[nodiscard]] bool IsOpen(ServicePage page) const { return m_Page == page; }
    void Open(ServicePage page) { m_Page = page; }
    void Close();

    [[nodiscard]] ServiceWork Work() const { return m_Work; }
    [[nodiscard]] bool IsBusy() const { return m_Work != ServiceWork::None; }
    /// False when something is on already.
    bool Begin(ServiceWork work);
    /// Ends `work`, and its claim on the carriers; another that has begun meanwhile goes on.
    void End(ServiceWork work);

    /// What the open page says of what goes on on it.
    [[nodiscard]] const std::string& Status() const { return m_Status; }
    void Say(std::string status) { m_Status = std::move(status); }

    /// The page wants the carriers as they are, without a run; otherwise an idle line switches them off.
    [[nodiscard]] bool KeepsCarriers() const { return m_KeepsCarriers; }
    void KeepCarriers(bool keeps) { m_KeepsCarriers = keeps; }

private:
    bool g_factoryMode = false;
    ServicePage m_Page = ServicePage::None;
    ServiceWork m_Work = ServiceWork::None;
    bool m_KeepsCarriers = false;
    std::string m_Status;
    int m_WrongPins = 0;
    std::int64_t m_ShutUntilMs = 0;
};

} // namespace qor
