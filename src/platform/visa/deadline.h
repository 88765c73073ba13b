#pragma once

#include <algorithm>
#include <chrono>

namespace qor::visa {

/// The moment by which a call has to come back.
class Deadline {
public:
    static Deadline In(int ms) {
        return Deadline(std::chrono::steady_clock::now() + std::chrono::milliseconds(ms));
    }

    /// ms that are left, 0 when it is over.
    [[nodiscard]] int LeftMs() const {
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(m_At - std::chrono::steady_clock::now()).count();
        return static_cast<int>(std::clamp<long long>(left, 0, 1 << 30));
    }
    [[nodiscard]] std::chrono::steady_clock::time_point At() const { return m_At; }

private:
    explicit Deadline(std::chrono::steady_clock::time_point at) : m_At(at) {}

    std::chrono::steady_clock::time_point m_At;
};

} // namespace qor::visa
