#pragma once

#include <string_view>

namespace qor {

/// Opens the dialogs. A program without a window has none.
class Dialogs {
public:
    Dialogs() = default;
    Dialogs(const Dialogs&) = delete;
    Dialogs& operator=(const Dialogs&) = delete;
    virtual ~Dialogs() = default;

    /// Shows the dialog of a command and comes back when it is closed; false when it could not be opened.
    virtual bool Open(std::string_view command, int argument = 0) = 0;
};

} // namespace qor
