#pragma once

#include "platform/visa/deadline.h"

#include <memory>
#include <string>
#include <string_view>

namespace qor::visa {

/// What became of a call to an instrument.
enum class LinkResult { Done, TimedOut, Gone };

/// A conversation with one instrument in messages, over whatever carries them.
///
/// A reply that comes after its time is never the answer to the next question: a link whose read was given up
/// begins anew, in the way its protocol has, before it writes again.
///
/// To add a way of reaching instruments: a form in address.h, a class of this, a line in `MakeLink`.
class Link {
public:
    Link() = default;
    Link(const Link&) = delete;
    Link& operator=(const Link&) = delete;
    virtual ~Link() = default;

    [[nodiscard]] virtual LinkResult Open(Deadline deadline) = 0;
    [[nodiscard]] virtual LinkResult Write(std::string_view message, Deadline deadline) = 0;
    /// One whole message; what exceeds LongestMessage is read and dropped.
    [[nodiscard]] virtual LinkResult Read(std::string& message, Deadline deadline) = 0;
};

/// No instrument that is asked for a level says more; a peer that never ends must not fill the memory.
inline constexpr std::size_t LongestMessage = 64 * 1024;

struct Address;
/// The link for an address, not open yet; none for a form that only an installed library reaches.
[[nodiscard]] std::unique_ptr<Link> MakeLink(const Address& address);

} // namespace qor::visa
