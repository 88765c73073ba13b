#pragma once

#include <string_view>

namespace qor {

/// The person in front of the program. Nothing else in the program ever asks or tells anybody anything.
class Operator {
public:
    Operator() = default;
    Operator(const Operator&) = delete;
    Operator& operator=(const Operator&) = delete;
    virtual ~Operator() = default;

    /// A message that only has to be seen.
    virtual void Message(std::string_view text, std::string_view title = {}) = 0;
    /// A question with Yes and No; true is Yes.
    [[nodiscard]] virtual bool Ask(std::string_view text, std::string_view title) = 0;
};

} // namespace qor
