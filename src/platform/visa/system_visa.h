#pragma once

#include "platform/visa/bounded_visa.h"
#include "platform/visa/own_visa.h"

namespace qor::visa {

/// The VISA of this computer: the library that is installed, for every address; without one our own.
class SystemVisa final : public VisaLibrary {
public:
    SystemVisa();

    void SetWhileWaiting(std::function<void()> whileWaiting) override {
        m_Installed.SetWhileWaiting(whileWaiting);
        m_Own.SetWhileWaiting(std::move(whileWaiting));
    }
    void Abandon() override {
        m_Installed.Abandon();
        m_Own.Abandon();
    }
    [[nodiscard]] bool IsInstalled() override { return &Used() == &m_Installed; }
    void LimitOpen(int ms) override {
        m_Installed.LimitOpen(ms);
        m_Own.LimitOpen(ms);
    }

    VisaStatus OpenDefaultRM(VisaSession& manager) override { return Used().OpenDefaultRM(manager); }
    VisaStatus Open(VisaSession manager, std::string_view address, VisaSession& session) override {
        return Used().Open(manager, address, session);
    }
    VisaStatus Close(VisaSession session) override { return Used().Close(session); }
    VisaStatus SetAttribute(VisaSession session, VisaAttribute attribute, std::uint32_t value) override {
        return Used().SetAttribute(session, attribute, value);
    }
    VisaStatus SetBuf(VisaSession session, std::uint32_t bytes) override {
        return Used().SetBuf(session, bytes);
    }
    VisaStatus Write(VisaSession session, std::string_view text) override {
        return Used().Write(session, text);
    }
    VisaStatus Read(VisaSession session, std::size_t limit, std::string& reply) override {
        return Used().Read(session, limit, reply);
    }

private:
    [[nodiscard]] VisaLibrary& Used();

    BoundedVisa m_Installed;
    OwnVisa m_Own;
    std::optional<bool> m_HasInstalled; ///< once it is known
};

} // namespace qor::visa
