#pragma once

#include "platform/visa.h"

#include <memory>
#include <set>
#include <span>
#include <string>

namespace qor::visa {

/// Names under which makers install their VISA libraries, in the order they are tried.
[[nodiscard]] std::span<const char* const> InstalledVisaNames();

/// A VISA library found on this computer, through its published C interface. It blocks as long as it likes:
/// see BoundedVisa.
class LoadedVisa final : public VisaLibrary {
public:
    /// The first of the libraries that loads and has all operations; none when there is none. `why` then
    /// names the operation that one of them lacks.
    [[nodiscard]] static std::unique_ptr<LoadedVisa> Load(std::span<const char* const> names,
                                                          std::string& why);

    [[nodiscard]] bool IsInstalled() override { return true; }
    void LimitOpen(int ms) override { m_OpenMs = static_cast<std::uint32_t>(ms); }
    VisaStatus OpenDefaultRM(VisaSession& manager) override;
    VisaStatus Open(VisaSession manager, std::string_view address, VisaSession& session) override;
    VisaStatus Close(VisaSession session) override;
    VisaStatus SetAttribute(VisaSession session, VisaAttribute attribute, std::uint32_t value) override;
    VisaStatus SetBuf(VisaSession session, std::uint32_t bytes) override;
    VisaStatus Write(VisaSession session, std::string_view text) override;
    /// What exceeds `limit` is read up and dropped.
    VisaStatus Read(VisaSession session, std::size_t limit, std::string& reply) override;

private:
    // The published types: 32-bit sessions, results, counts; an attribute's value has the width of a pointer.
    struct Operations {
        std::int32_t (*viOpenDefaultRM)(std::uint32_t*) = nullptr;
        std::int32_t (*viOpen)(std::uint32_t, const char*, std::uint32_t, std::uint32_t,
                               std::uint32_t*) = nullptr;
        std::int32_t (*viClose)(std::uint32_t) = nullptr;
        std::int32_t (*viSetAttribute)(std::uint32_t, std::uint32_t, std::uintptr_t) = nullptr;
        std::int32_t (*viSetBuf)(std::uint32_t, std::uint16_t, std::uint32_t) = nullptr;
        std::int32_t (*viWrite)(std::uint32_t, const unsigned char*, std::uint32_t, std::uint32_t*) = nullptr;
        std::int32_t (*viRead)(std::uint32_t, unsigned char*, std::uint32_t, std::uint32_t*) = nullptr;
    };
    explicit LoadedVisa(const Operations& operations) : m_Vi(operations) {}

    Operations m_Vi;
    std::uint32_t m_OpenMs = 0;      ///< that a library is told to open within; 0: as it likes
    std::set<VisaSession> m_Streams; ///< sessions on raw sockets: only a line feed parts their messages
};

} // namespace qor::visa
