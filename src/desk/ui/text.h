#pragma once

#include <QCoreApplication>
#include <QString>

#include <string>
#include <string_view>

namespace qor::ui {

/// Text of the engine as Qt has it; nothing is translated.
[[nodiscard]] inline QString Plain(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

[[nodiscard]] inline std::string Utf8(const QString& text) {
    return text.toStdString();
}

/// A text of the program in the language in force. The German text in the source is its key, without blanks
/// at its ends and without the key behind a menu item's tab; both stay as they are.
[[nodiscard]] QString Tr(std::string_view text);

/// A text the engine has put together: the whole when the catalogue has it, else each of its lines, else each
/// of the line's sentences or parts between ": ", else its words without the number at the end. What no
/// catalogue has, such as the name of a file, stays.
[[nodiscard]] QString TrText(std::string_view text);

} // namespace qor::ui
