#include "platform/visa/loaded_visa.h"

#include "platform/visa/address.h"
#include "platform/visa/resolve.h"

#include <algorithm>
#include <array>

namespace qor::visa {

namespace {

constexpr const char* Names[] = {"libvisa.so", "libvisa.so.0", "librsvisa.so", "libktvisa32.so",
                                 "libiovisa.so"};

// Published numbers of attributes and results.
constexpr std::uint32_t TimeoutValue = 0x3FFF001A;
constexpr std::uint32_t ReadBufferMode = 0x3FFF002A;
constexpr std::uint32_t WriteBufferMode = 0x3FFF002D;
constexpr std::uint16_t BothBuffers = 1 | 2;
constexpr std::int32_t SuccessMaxCount = 0x3FFF0006;    ///< the reply goes on
constexpr std::uint32_t TerminatorEnabled = 0x3FFF0038; ///< a read ends at the terminator, a line feed

std::uint32_t NumberOf(VisaAttribute attribute) {
    switch (attribute) {
    case VisaAttribute::ReadBufferMode:
        return ReadBufferMode;
    case VisaAttribute::WriteBufferMode:
        return WriteBufferMode;
    case VisaAttribute::TimeoutMs:
        break;
    }
    return TimeoutValue;
}

} // namespace

std::span<const char* const> InstalledVisaNames() {
    return Names;
}

std::unique_ptr<LoadedVisa> LoadedVisa::Load(std::span<const char* const> names, std::string& why) {
    for (const char* name : names) {
        // Never unloaded: a call that was given up may still be inside.
        void* library = dlopen(name, RTLD_NOW | RTLD_LOCAL);
        if (!library)
            continue;
        Operations vi;
        std::string missing;
        if (Resolve(library, "viOpenDefaultRM", vi.viOpenDefaultRM, missing) &&
            Resolve(library, "viOpen", vi.viOpen, missing) &&
            Resolve(library, "viClose", vi.viClose, missing) &&
            Resolve(library, "viSetAttribute", vi.viSetAttribute, missing) &&
            Resolve(library, "viSetBuf", vi.viSetBuf, missing) &&
            Resolve(library, "viWrite", vi.viWrite, missing) &&
            Resolve(library, "viRead", vi.viRead, missing))
            return std::unique_ptr<LoadedVisa>(new LoadedVisa(vi));
        why = std::string(name) + ": " + missing;
    }
    return nullptr;
}

VisaStatus LoadedVisa::OpenDefaultRM(VisaSession& manager) {
    return m_Vi.viOpenDefaultRM(&manager);
}

VisaStatus LoadedVisa::Open(VisaSession manager, std::string_view address, VisaSession& session) {
    const VisaStatus opened = m_Vi.viOpen(manager, std::string(address).c_str(), 0, m_OpenMs, &session);
    const auto form = ParseAddress(address);
    if (opened >= 0 && form && form->kind == Address::Kind::Socket) {
        m_Vi.viSetAttribute(session, TerminatorEnabled, 1);
        m_Streams.insert(session);
    }
    return opened;
}

VisaStatus LoadedVisa::Close(VisaSession session) {
    m_Streams.erase(session);
    return m_Vi.viClose(session);
}

VisaStatus LoadedVisa::SetAttribute(VisaSession session, VisaAttribute attribute, std::uint32_t value) {
    return m_Vi.viSetAttribute(session, NumberOf(attribute), value);
}

VisaStatus LoadedVisa::SetBuf(VisaSession session, std::uint32_t bytes) {
    return m_Vi.viSetBuf(session, BothBuffers, bytes);
}

VisaStatus LoadedVisa::Write(VisaSession session, std::string_view text) {
    std::string message(text);
    if (m_Streams.contains(session))
        message += '\n';
    std::uint32_t written = 0;
    return m_Vi.viWrite(session, reinterpret_cast<const unsigned char*>(message.data()),
                        static_cast<std::uint32_t>(message.size()), &written);
}

VisaStatus LoadedVisa::Read(VisaSession session, std::size_t limit, std::string& reply) {
    constexpr int MostPieces = 1000; // a peer that never ends
    reply.clear();
    std::array<unsigned char, 1024> piece;
    for (int n = 0; n < MostPieces; ++n) {
        std::uint32_t got = 0;
        const VisaStatus status =
            m_Vi.viRead(session, piece.data(), static_cast<std::uint32_t>(piece.size()), &got);
        if (status < 0)
            return status;
        got = std::min(got, static_cast<std::uint32_t>(piece.size()));
        if (reply.size() < limit)
            reply.append(reinterpret_cast<const char*>(piece.data()),
                         std::min<std::size_t>(got, limit - reply.size()));
        if (status != SuccessMaxCount)
            return status;
    }
    return -1;
}

} // namespace qor::visa
