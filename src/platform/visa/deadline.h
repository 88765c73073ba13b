#pragma once

#include <algorithm>
#include <chrono>
#include <functional>

namespace qor::visa {

/// What becomes of the program while a call waits: `whileWaiting` runs every 50 ms, and may give the call up.
struct Patience {
    static constexpr int LookMs = 50;

    std::function<void()> whileWaiting;
    bool givenUp = false;
};

/// The moment by which a call has to come back.
class Deadline {
public:
    static Deadline In(int ms, Patience* patience = nullptr) {
        return {std::chrono::steady_clock::now() + std::chrono::milliseconds(ms), patience};
    }

    /// ms that are left, 0 when it is over.
    [[nodiscard]] int LeftMs() const {
        if (m_Patience && m_Patience->givenUp)
            return 0;
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(m_At - std::chrono::steady_clock::now()).count();
        return static_cast<int>(std::clamp<long long>(left, 0, 1 << 30));
    }
    /// Waits with `wait`, which takes so many ms at most and says whether what it waits for has come. The
    /// program lives meanwhile. False when the time is up first.
    template <typename Wait> [[nodiscard]] bool Until(const Wait& wait) const {
        for (;;) {
            const int left = LeftMs();
            if (wait(m_Patience ? std::min(left, Patience::LookMs) : left))
                return true;
            if (left == 0)
                return false;
            Live();
        }
    }
    void Live() const {
        if (m_Patience && m_Patience->whileWaiting)
            m_Patience->whileWaiting();
    }
    [[nodiscard]] bool IsGivenUp() const { return m_Patience && m_Patience->givenUp; }

private:
    Deadline(std::chrono::steady_clock::time_point at, Patience* patience) : m_At(at), m_Patience(patience) {}

    std::chrono::steady_clock::time_point m_At;
    Patience* m_Patience;
};

} // namespace qor::visa
