#include "desk/ui/open_dialog.h"

namespace qor::ui {

namespace {

/// The entries that the dialogs' files have made, complete before the program begins.
const DialogEntry*& First() {
    static const DialogEntry* first = nullptr;
    return first;
}

} // namespace

DialogEntry::DialogEntry(std::string_view command, Open open)
    : m_Command(command), m_Open(open), m_Next(First()) {
    First() = this;
}

DialogEntry::Open DialogEntry::Find(std::string_view command) {
    for (const DialogEntry* entry = First(); entry; entry = entry->m_Next) {
        if (entry->m_Command == command)
            return entry->m_Open;
    }
    return nullptr;
}

bool WindowDialogs::Open(std::string_view command, int argument) {
    const DialogEntry::Open open = m_Program ? DialogEntry::Find(command) : nullptr;
    return open && open(*m_Program, argument, m_Window);
}

} // namespace qor::ui
