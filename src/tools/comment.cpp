#include "tools/comment.h"

#include "base/setup_store.h"
#include "results/result_state.h"

#include <algorithm>
#include <vector>

namespace qor {

namespace {

constexpr std::string_view CommentStore = "Add_comments.ccz";
constexpr std::string_view BackupStore = "Add_commentsBackup.ccz";
constexpr std::string_view HardBreak = "\r\n";
constexpr std::string_view SoftBreak = "\r\r\n";
constexpr std::size_t HeadLength = 20;

std::string Head() {
    return std::string(HeadLength, '0');
}

std::string_view WithoutHead(std::string_view stored) {
    // A comment that came with a foreign result file has no head.
    return stored.starts_with(Head()) ? stored.substr(HeadLength) : stored;
}

/// Bytes of a line that make its first row.
std::size_t RowLength(std::string_view line) {
    if (line.size() <= CommentColumns)
        return line.size();
    const auto continues = [line](std::size_t at) {
        return (static_cast<unsigned char>(line[at]) & 0xC0U) == 0x80U;
    };
    std::size_t length = CommentColumns;
    while (length > CommentColumns - 4 && continues(length))
        --length;
    return continues(length) ? CommentColumns : length; // no text at all: cut anywhere
}

std::vector<std::string_view> RowsOf(std::string_view line) {
    std::vector<std::string_view> rows;
    do {
        const std::size_t length = RowLength(line);
        rows.push_back(line.substr(0, length));
        line.remove_prefix(length);
    } while (!line.empty());
    return rows;
}

/// The lines between line feeds, carriage returns taken off; what else is no character becomes a blank.
std::vector<std::string> LinesOf(std::string_view text) {
    std::vector<std::string> lines(1);
    for (const char c : text) {
        if (c == '\n')
            lines.emplace_back();
        else if (c != '\r')
            lines.back() += static_cast<unsigned char>(c) < ' ' || c == '\x7f' ? ' ' : c;
    }
    return lines;
}

std::string_view WithoutEnd(std::string_view text, std::string_view characters) {
    const std::size_t last = text.find_last_not_of(characters);
    return text.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

} // namespace

void WrapComment(std::string& text, std::size_t& caret) {
    caret = std::min(caret, text.size());
    for (std::size_t at = 0; (at = text.find(SoftBreak, at)) != std::string::npos;) {
        text.erase(at, SoftBreak.size());
        if (caret > at)
            caret = std::max(at, caret - std::min(caret, SoftBreak.size()));
    }
    for (std::size_t line = 0; line < text.size();) {
        const std::size_t end = std::min(text.find(HardBreak, line), text.size());
        const std::size_t row = RowLength(std::string_view(text).substr(line, end - line));
        line += row;
        if (line == end) {
            line += HardBreak.size();
            continue;
        }
        text.insert(line, SoftBreak);
        if (caret >= line)
            caret += SoftBreak.size();
        line += SoftBreak.size();
    }
}

std::string StoredComment(std::string_view edited) {
    if (edited.ends_with('\n'))
        edited.remove_suffix(1); // ends the last line, begins none
    std::string stored;
    if (edited.empty())
        return stored;
    for (const std::string& line : LinesOf(edited)) {
        for (const std::string_view row : RowsOf(line)) {
            stored += row;
            stored.append(CommentColumns - row.size(), ' ');
            stored += HardBreak;
        }
    }
    if (stored.size() > LongestComment)
        stored.resize(LongestComment); // whole rows
    return stored;
}

std::string ShownComment(std::string_view stored) {
    stored = WithoutEnd(WithoutHead(stored), "\r\n ");
    std::string shown;
    for (const std::string& line : LinesOf(stored)) {
        for (const std::string_view row : RowsOf(WithoutEnd(line, " "))) {
            shown += WithoutEnd(row, " ");
            shown += HardBreak;
        }
    }
    shown.resize(shown.size() - HardBreak.size());
    return shown;
}

std::string OpenComment(DeviceNotes& device, const SetupStore& store) {
    const std::string stored = store.Read(CommentStore, HeadLength + LongestComment).value_or("");
    device.TakeComment(std::string(WithoutHead(stored)));
    return ShownComment(stored);
}

std::optional<std::string> LastSavedComment(const SetupStore& store) {
    const auto stored = store.Read(BackupStore, HeadLength + LongestComment);
    return stored ? std::optional(ShownComment(*stored)) : std::nullopt;
}

void AddComment(std::string_view edited, DeviceNotes& device, SetupStore& store) {
    device.TakeComment(StoredComment(edited));
    for (const std::string_view name : {CommentStore, BackupStore})
        store.Write(name, Head() + device.Comment());
}

} // namespace qor
