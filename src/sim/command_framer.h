#pragma once

#include <optional>
#include <string>

namespace qor::sim {

/// Cuts the bytes that come down the line into commands.
///
/// A command ends with a carriage return, but the byte-coded ones may hold that byte as page, address or
/// value: their fixed part is taken by length, and only then an end is looked for. Line feeds and carriage
/// returns between commands are skipped, so that the line can be tried from a terminal.
class CommandFramer {
public:
    /// The command without its carriage return, when this byte ends one.
    [[nodiscard]] std::optional<std::string> Feed(char byte);
    void Reset() { m_Text.clear(); }

private:
    std::string m_Text;
};

} // namespace qor::sim
