#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace qor::visa {

// The external data representation of RFC 4506, as far as VXI-11 needs it: big-endian words of four bytes,
// and byte strings with their length in front, filled up to four.

class XdrWriter {
public:
    XdrWriter& Word(std::uint32_t value) {
        for (int shift = 24; shift >= 0; shift -= 8)
            m_Bytes.push_back(static_cast<char>(value >> shift & 0xff));
        return *this;
    }
    XdrWriter& Bytes(std::string_view bytes) {
        Word(static_cast<std::uint32_t>(bytes.size()));
        m_Bytes += bytes;
        m_Bytes.append((4 - bytes.size() % 4) % 4, '\0');
        return *this;
    }
    [[nodiscard]] const std::string& Text() const { return m_Bytes; }

private:
    std::string m_Bytes;
};

/// Reads what may be cut short or made up: a word that is not there reads as nothing, and so does all behind
/// it.
class XdrReader {
public:
    explicit XdrReader(std::string_view bytes) : m_Rest(bytes) {}

    [[nodiscard]] std::optional<std::uint32_t> Word() {
        if (m_Rest.size() < 4)
            return Fail();
        std::uint32_t value = 0;
        for (int n = 0; n < 4; ++n)
            value = value << 8 | static_cast<unsigned char>(m_Rest[static_cast<std::size_t>(n)]);
        m_Rest.remove_prefix(4);
        return value;
    }
    [[nodiscard]] std::optional<std::string_view> Bytes() {
        const auto size = Word();
        if (!size || *size > m_Rest.size()) {
            static_cast<void>(Fail());
            return std::nullopt;
        }
        const std::string_view bytes = m_Rest.substr(0, *size);
        const std::size_t filled = (std::size_t{*size} + 3) / 4 * 4;
        m_Rest.remove_prefix(filled < m_Rest.size() ? filled : m_Rest.size());
        return bytes;
    }

private:
    std::optional<std::uint32_t> Fail() {
        m_Rest = {};
        return std::nullopt;
    }

    std::string_view m_Rest;
};

} // namespace qor::visa
