#pragma once

#include "link/command_queue.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace qor {

/// Length of a reply that is told by its line end or by the wait, not by its bytes.
inline constexpr int OpenReply = 1000;

/// Command text and a frequency in MHz or a power in dBm as five digits of tenths: "#SFA" 869 gives
/// "#SFA08690".
[[nodiscard]] std::string WithTenths(std::string_view command, double value);
/// "#SAB" and the band switch position.
[[nodiscard]] std::string SelectPosition(int position);
/// "#USEID" and the order number of an order index; 3 for an index outside 1 to 5.
[[nodiscard]] std::string UseReceiver(int imIndex);
/// Text-form read of one byte of instrument memory on page 125.
[[nodiscard]] std::string ReadMemory(int address);

/// Puts the memory page of this firmware into a byte-coded read that was queued with page "d".
void ApplyMemoryPage(std::string& command, float firmVersion);
/// The text that a reply to `command` repeats.
void ReplyText(std::string_view command, std::string& text);
/// Bytes of the reply to a command as sent, or OpenReply and up.
[[nodiscard]] int ReplyLength(std::string_view command, int tag);
/// Bytes by which the payload of a $KVTWE lengthens its reply.
[[nodiscard]] int PayloadReplyLength(std::string_view command, int tag);
/// Tag that goes out for a queued tag: readings of sweep steps are queued 20 up.
[[nodiscard]] int TagAsSent(int queued);

/// Number behind the last comma of a text-form memory reply.
[[nodiscard]] int MemoryValue(std::string_view reply);
/// Decimal text of the level in a reply that holds "dBm", blanks in front kept; empty when what stands there
/// is no decimal.
[[nodiscard]] std::string_view LevelText(std::string_view reply);

} // namespace qor
