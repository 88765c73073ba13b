#pragma once

#include <string_view>

namespace qor {

/// A level that was asked for, parsed once from what came: a level in dBm, nothing at all, or something that
/// the line or the receiver has spoilt.
class Reading {
public:
    [[nodiscard]] static Reading Missing() { return {Kind::Missing, 0}; }
    [[nodiscard]] static Reading Spoilt() { return {Kind::Spoilt, 0}; }
    /// Spoilt beyond -250 and 100 dBm: no receiver reads there, the sign or the point was lost on the line.
    [[nodiscard]] static Reading Of(double dBm);
    /// A receiver's answer: a decimal with blanks around it and, if it likes, its unit. Missing when it is
    /// empty, spoilt when it is anything else.
    [[nodiscard]] static Reading In(std::string_view answer);

    [[nodiscard]] bool IsLevel() const { return m_Kind == Kind::Level; }
    [[nodiscard]] bool IsMissing() const { return m_Kind == Kind::Missing; }
    [[nodiscard]] bool IsSpoilt() const { return m_Kind == Kind::Spoilt; }
    /// dBm as read, without any correction; 0 for what is no level.
    [[nodiscard]] float Dbm() const { return m_Dbm; }

private:
    enum class Kind { Level, Missing, Spoilt };
    Reading(Kind kind, float dBm) : m_Kind(kind), m_Dbm(dBm) {}

    Kind m_Kind;
    float m_Dbm;
};

} // namespace qor
