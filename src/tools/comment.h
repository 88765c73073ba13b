#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace qor {

class SetupStore;
class DeviceNotes;

// The comment travels with result files and stands in the right column of the report: eight rows. Its stores,
// `Add_comments.ccz` and its last saved copy `Add_commentsBackup.ccz`, hold a head of twenty zeros and then
// rows of exactly 38 columns, filled with blanks, each ended by CR LF. A column is a byte, so that the rows
// stand at fixed places; a row never ends within a character of several bytes.
//
// While it is edited, CR LF is a break that the operator made and CR CR LF one that the width made.

inline constexpr std::size_t CommentColumns = 38;
inline constexpr std::size_t LongestComment = 320;

/// Renews the soft breaks of an edited text: one behind every 38 columns of a line that goes on. `caret` is a
/// byte offset into the text and stays at its character.
void WrapComment(std::string& text, std::size_t& caret);

/// An edited text as the stores hold it behind their head: full rows, at most 320 bytes, what is longer lost.
[[nodiscard]] std::string StoredComment(std::string_view edited);
/// A store's text, with or without a head, as the dialog shows it: lines of at most 38 columns without blanks
/// at their ends, CR LF between them.
[[nodiscard]] std::string ShownComment(std::string_view stored);

/// The dialog opens: the device takes the stored comment; returned as it is shown.
std::string OpenComment(DeviceNotes& device, const SetupStore& store);
/// "Last Saved": the copy as shown, nothing when there is none.
[[nodiscard]] std::optional<std::string> LastSavedComment(const SetupStore& store);
/// "Addieren": the edited text becomes the device's and goes to both stores. One that cannot be written stays
/// as it is.
void AddComment(std::string_view edited, DeviceNotes& device, SetupStore& store);

} // namespace qor
