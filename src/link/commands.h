#pragma once

#include "link/command_queue.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace qor {

/// What is said to the instrument, each word once. Commands with a number are put together by the functions
/// below.
namespace command {

inline constexpr std::string_view Begin =
    "#SR"; ///< opens a conversation, and stands between steps of a start
inline constexpr std::string_view Identity = "#IDN?";
inline constexpr std::string_view Status = "#SST?";
inline constexpr std::string_view WriteStatus = "#SST"; ///< and the status byte
inline constexpr std::string_view Position = "#SAB?";
inline constexpr std::string_view Reflection = "#SMREF";
inline constexpr std::string_view Transmission = "#SMTRA";
inline constexpr std::string_view ExternalReceiver = "#USESA";
inline constexpr std::string_view SettingsLoaded = "#RECUT1"; ///< for firmware that HasRecut

inline constexpr std::string_view Frequency1 = "#SFA"; ///< tenths of MHz, as all frequencies
inline constexpr std::string_view Frequency2 = "#SFB";
inline constexpr std::string_view SweepStart1 = "#SSA";
inline constexpr std::string_view SweepStart2 = "#SSB";
inline constexpr std::string_view SweepStop1 = "#STA";
inline constexpr std::string_view SweepStop2 = "#STB";
inline constexpr std::string_view SweepStep = "#SWA";
inline constexpr std::string_view Power1 = "#SPWA"; ///< tenths of dBm
inline constexpr std::string_view Power2 = "#SPWB";

inline constexpr std::string_view Level = "#IMP?";
inline constexpr std::string_view Tone1On = "#SPA1";
inline constexpr std::string_view Tone1Off = "#SPA0";
inline constexpr std::string_view Tone2On = "#SPB1";
inline constexpr std::string_view Tone2Off = "#SPB0";
inline constexpr std::string_view TwoToneOn = "#M2T1";
inline constexpr std::string_view TwoToneOff = "#M2T0";
inline constexpr std::string_view SweepOn = "#MSWL1";
inline constexpr std::string_view SweepOff = "#MSWL0";
inline constexpr std::string_view UpHalf = "#MDNL0"; ///< tone 1 moves; for firmware that SelectsHalves
inline constexpr std::string_view DownHalf = "#MDNL1";
inline constexpr std::string_view UpHalfOn = "#MUPL1"; ///< beside it, for firmware that SelectsHalvesInPairs
inline constexpr std::string_view UpHalfOff = "#MUPL0";
inline constexpr std::string_view SweepFollows = "#SWEEP"; ///< is not answered

// To the band switch unit, past the queue, with a relay mask.
inline constexpr std::string_view RelaysA = "#RELA";
inline constexpr std::string_view RelaysB = "#RELB";
inline constexpr std::string_view RelaysC = "#RELC";

inline constexpr std::string_view Drive = "#KVTAL";   ///< mV, five digits, of a tone that is being calibrated
inline constexpr std::string_view Detector = "#ADC?"; ///< of the receiver, mV

// These stand in the queue and never go out.
inline constexpr std::string_view Pause = "#WAITE"; ///< lets one send slot pass
inline constexpr std::string_view InputBinary = "#WAITE0";
inline constexpr std::string_view InputText = "#WAITE1";
inline constexpr std::string_view End = "#NULL";
inline constexpr std::string_view SwitchUnit = "#MPX"; ///< lends the line to the unit; its payload is a band

} // namespace command

/// Length of a reply that is told by its line end or by the wait, not by its bytes.
inline constexpr int OpenReply = 1000;

/// Command text and a frequency in MHz or a power in dBm as five digits of tenths: "#SFA" 869 gives
/// "#SFA08690".
[[nodiscard]] std::string WithTenths(std::string_view command, double value);
/// "#SAB" and the band switch position.
[[nodiscard]] std::string SelectPosition(int position);
/// True for what it gives.
[[nodiscard]] bool SelectsPosition(std::string_view command);
/// "#USEID" and the order number of an order index; 3 for an index outside 1 to 5.
[[nodiscard]] std::string UseReceiver(int imIndex);
/// "#SMTRA" for path 2, else "#SMREF".
[[nodiscard]] std::string_view SetPath(int path);
/// Text-form read of one byte of instrument memory on page 125.
[[nodiscard]] std::string ReadMemory(int address);
/// Byte-coded read of the memory address with this letter. Its page follows the firmware when it goes out.
[[nodiscard]] std::string ReadMemoryByte(char address);

/// Puts the memory page of this firmware into a byte-coded read of the initialisation, which is queued with
/// page "d". Every other read has the page that was asked for.
void ApplyMemoryPage(std::string& command, int tag, float firmVersion);
/// The text that a reply to `command` repeats.
void ReplyText(std::string_view command, std::string& text);
/// Byte-coded write of the memory byte at `page` and `address`, without its value: that is the payload.
[[nodiscard]] std::string WriteMemoryByte(int page, int address);
/// Byte-coded read of the same, on whatever page.
[[nodiscard]] std::string ReadMemoryByteOf(int page, int address);
/// Page of the instrument's own memory, by its firmware.
[[nodiscard]] int OwnPage(float firmVersion);
/// The bytes that a reply to `command` and its payload has when it is nothing but their echo.
void EchoOf(std::string_view command, std::string_view payload, std::string& echo);
enum class Echo { Awaited, Whole, Other };
/// How far `bytes` have become `echo`. Other: a line has ended that is not the echo.
[[nodiscard]] Echo EchoIn(std::string_view bytes, std::string_view echo);
/// Bytes of the reply to a command as sent, or OpenReply and up.
[[nodiscard]] int ReplyLength(std::string_view command, int tag);
/// Tag that goes out for a queued tag: readings of sweep steps are queued 20 up.
[[nodiscard]] int TagAsSent(int queued);

/// Number behind the last comma of a text-form memory reply; nothing when it is no whole decimal of 0 to 255.
[[nodiscard]] std::optional<int> MemoryValue(std::string_view reply);
/// Value of the byte-coded memory reply in what has come: five letters, page, address, value. Nothing when it
/// has none to this address, as the words of an error have not.
[[nodiscard]] std::optional<int> MemoryByte(std::string_view bytes, char address);
/// The same by the page, too.
[[nodiscard]] std::optional<int> MemoryByte(std::string_view bytes, int page, int address);
/// True when the reply to a byte-coded read, as it was sent, has come with its line end.
[[nodiscard]] bool HoldsMemoryByte(std::string_view bytes, std::string_view command);
/// Decimal text of the level in a reply that holds "dBm", blanks in front kept; empty when what stands there
/// is no decimal.
[[nodiscard]] std::string_view LevelText(std::string_view reply);

} // namespace qor
