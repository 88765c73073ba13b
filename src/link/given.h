#pragma once

#include <string>
#include <string_view>

namespace qor {

/// What the instrument was last given of the selection beside its position: the commands that it has echoed,
/// so that a start can tell whether it measures what is in force. Empty where nothing was given.
class GivenToInstrument {
public:
    /// "#USEIDn", or "#USESA" for an external receiver.
    [[nodiscard]] const std::string& Receiver() const { return m_Receiver; }
    [[nodiscard]] const std::string& Path() const { return m_Path; } ///< "#SMREF" or "#SMTRA"
    [[nodiscard]] const std::string& Power1() const { return m_Power1; }
    [[nodiscard]] const std::string& Power2() const { return m_Power2; }

    /// The instrument has echoed `command`.
    void Echoed(std::string_view command);
    /// `command` has gone out and its echo is awaited: what was given before may not hold any more.
    void Sent(std::string_view command);
    /// It was not echoed, or refused: whatever is wanted, it has to be given again.
    void NotEchoed(std::string_view command);
    void Forget() { *this = {}; }

private:
    [[nodiscard]] std::string* PlaceOf(std::string_view command);

    std::string m_Receiver;
    std::string m_Path;
    std::string m_Power1;
    std::string m_Power2;
};

} // namespace qor
