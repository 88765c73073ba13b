#pragma once

#include <cstddef>

namespace qor {

/// Record numbers of BIFF8 that are written or read here. A record is its number, the length of its body,
/// both of 16 bits, and the body.
enum Biff8Record : unsigned {
    BiffFormula = 0x06,
    BiffEof = 0x0A,
    BiffFilePass = 0x2F, ///< the rest is encrypted
    BiffFont = 0x31,
    BiffContinue = 0x3C,
    BiffWindow1 = 0x3D,
    BiffCodePage = 0x42,
    BiffBoundSheet = 0x85,
    BiffMulRk = 0xBD,
    BiffRString = 0xD6,
    BiffXf = 0xE0,
    BiffSst = 0xFC,
    BiffLabelSst = 0xFD,
    BiffDimensions = 0x200,
    BiffNumber = 0x203,
    BiffLabel = 0x204,
    BiffBoolErr = 0x205,
    BiffString = 0x207,
    BiffWindow2 = 0x23E,
    BiffRk = 0x27E,
    BiffStyle = 0x293,
    BiffBof = 0x809,
};

inline constexpr std::size_t LongestBiffBody = 8224;

} // namespace qor
