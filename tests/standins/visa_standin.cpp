// A VISA library as a maker installs it, with one instrument at QOR_STANDIN_ADDRESS that is
// QOR_STANDIN_IDENTITY.
#include "standins/standin.h"

#include <algorithm>
#include <cstdint>

namespace {

constexpr std::int32_t NotFound = static_cast<std::int32_t>(0xBFFF0011);
constexpr std::int32_t NotAnObject = static_cast<std::int32_t>(0xBFFF000E);
constexpr std::int32_t NothingToRead = static_cast<std::int32_t>(0xBFFF0015);
constexpr std::int32_t MoreToRead = 0x3FFF0006;
constexpr std::uint32_t Manager = 70;
constexpr std::uint32_t Session = 71;

std::string g_Reply;

} // namespace

extern "C" {

std::int32_t viOpenDefaultRM(std::uint32_t* manager) {
    Note("viOpenDefaultRM", "");
    *manager = Manager;
    return 0;
}

std::int32_t viOpen(std::uint32_t manager, const char* address, std::uint32_t mode, std::uint32_t timeout,
                    std::uint32_t* session) {
    Note("viOpen", " %u %s %u %u", manager, address, mode, timeout);
    if (std::strcmp(address, Told("QOR_STANDIN_ADDRESS", "GPIB0::20::INSTR")) != 0)
        return NotFound;
    *session = Session;
    return 0;
}

std::int32_t viClose(std::uint32_t object) {
    Note("viClose", " %u", object);
    return 0;
}

std::int32_t viSetAttribute(std::uint32_t session, std::uint32_t attribute, std::uintptr_t value) {
    Note("viSetAttribute", " %u %X %lu", session, attribute, static_cast<unsigned long>(value));
    return session == Session ? 0 : NotAnObject;
}

#ifndef QOR_STANDIN_OLD // one that lacks an operation
std::int32_t viSetBuf(std::uint32_t session, std::uint16_t which, std::uint32_t bytes) {
    Note("viSetBuf", " %u %u %u", session, static_cast<unsigned>(which), bytes);
    return 0;
}
#endif

std::int32_t viWrite(std::uint32_t session, const unsigned char* bytes, std::uint32_t count,
                     std::uint32_t* written) {
    std::string text(reinterpret_cast<const char*>(bytes), count);
    const bool ends = text.ends_with('\n');
    Note("viWrite", " %u %s", session, (ends ? text.substr(0, text.size() - 1) + "\\n" : text).c_str());
    if (session != Session)
        return NotAnObject;
    *written = count;
    text.resize(ends ? text.size() - 1 : text.size());
    g_Reply = text == "*IDN?"       ? Told("QOR_STANDIN_IDENTITY", "LAB,FSP-3,1,1.0\n")
              : text.ends_with('?') ? "-97.30\n"
                                    : "";
    return 0;
}

std::int32_t viRead(std::uint32_t session, unsigned char* into, std::uint32_t count, std::uint32_t* got) {
    Note("viRead", " %u", session);
    if (session != Session)
        return NotAnObject;
    *got = std::min(count, static_cast<std::uint32_t>(g_Reply.size()));
    std::memcpy(into, g_Reply.data(), *got);
    g_Reply.erase(0, *got);
    return *got == 0 ? NothingToRead : g_Reply.empty() ? 0 : MoreToRead;
}
}
