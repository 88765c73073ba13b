#pragma once

#include "sim/models.h"

#include <cstdint>
#include <optional>

namespace qor::sim {

/// Repeatable random numbers, the same on every machine.
class Noise {
public:
    explicit Noise(std::uint64_t seed) : m_State(seed) {}
    std::uint64_t Next();
    /// 0 up to but not 1.
    double Uniform();
    /// Mean 0, deviation 1, never beyond 3.5.
    double Normal();

private:
    std::uint64_t m_State;
};

struct Tone {
    double mhz = 0;
    double dbm = 0;
    bool on = false;
};

/// What stands at the instrument's port while a level is read.
struct Excitation {
    Tone tone1;
    Tone tone2;
    int order = 3;                      ///< order that the receiver is tuned to: 3, 5, 7, 9, 11
    const BandHardware* band = nullptr; ///< none: no carrier gets through the band switch
    bool transmission = false;
    std::optional<double> generatorDbm; ///< a signal generator at the receiver's frequency
};

/// The device under test and the instrument's receiver.
///
/// The device has two passive sources, one at the connector and a weaker one some metres down the line.
/// In reflection their products come back with a phase difference that turns with frequency, so the level
/// ripples over the receive band; in transmission all ways are equally long and they simply add. The order
/// decides the level at 2 x 43 dBm and how steeply it follows the carriers.
class PimModel {
public:
    explicit PimModel(std::uint64_t seed);

    /// Lets time pass. The sources warm up while both carriers are on and cool down otherwise.
    void Advance(double seconds, bool carriersOn);
    void SetLooseContact(bool loose) { m_Loose = loose; }

    /// Level of a carrier behind the filter of its band, dBm; far below the noise when there is none.
    [[nodiscard]] static double CarrierDbm(const Tone& tone, const BandHardware* band);
    /// Frequency of the product of the tuned order, MHz.
    [[nodiscard]] static double ProductMhz(const Excitation& at);
    /// Level of that product without noise, dBm; far below the noise when there is none.
    [[nodiscard]] double ProductDbm(const Excitation& at) const;
    /// One reading of the receiver, dBm.
    [[nodiscard]] double Read(const Excitation& at);

private:
    Noise m_Noise;
    double m_BaseOffset;    ///< dB, spread from one device to the next
    double m_DistanceMetre; ///< between the two sources
    double m_Warmth = 0;    ///< 0 cold to 1 warmed through
    bool m_Loose = false;
    int m_BurstLeft = 0; ///< readings until the loose contact rests again
    double m_BurstDb = 0;
};

} // namespace qor::sim
