#include "sim/pim_model.h"

#include <cmath>
#include <numbers>

namespace qor::sim {

namespace {

constexpr double Nothing = -400; // dBm, stands for no signal at all
constexpr double NoiseFloor = -140;
constexpr double ReferencePower = 43;
constexpr double FarSource = 0.4;         // amplitude of the far source against the near one
constexpr double MetresPerMicrosec = 240; // speed of the wave in a cable
constexpr double WarmUpSeconds = 40;
constexpr double WarmUpDb = 1.2;
constexpr double FilterEdge = 2;       // MHz that the carrier filter passes beyond its band
constexpr double FilterRejection = 60; // dB beyond that

struct OrderLaw {
    double levelDbm; // at 2 x 43 dBm
    double slope;    // dB for each dB by which both carriers rise
};

// Ideal devices would give the order itself as slope. Real contacts stay below it.
OrderLaw LawOf(int order) {
    switch (order) {
    case 5:
        return {-116, 3.8};
    case 7:
        return {-125, 4.9};
    case 9:
        return {-132, 5.9};
    case 11:
        return {-137, 6.8};
    default:
        return {-104.8, 2.6};
    }
}

double PowerSum(double a, double b) {
    return 10 * std::log10(std::pow(10, a / 10) + std::pow(10, b / 10));
}

} // namespace

std::uint64_t Noise::Next() {
    m_State += 0x9e3779b97f4a7c15U;
    std::uint64_t z = m_State;
    z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9U;
    z = (z ^ (z >> 27)) * 0x94d049bb133111ebU;
    return z ^ (z >> 31);
}

double Noise::Uniform() {
    return static_cast<double>(Next() >> 11) * 0x1p-53;
}

double Noise::Normal() {
    // Four uniform numbers have the variance 1/3 together.
    const double sum = Uniform() + Uniform() + Uniform() + Uniform() - 2;
    return sum * std::numbers::sqrt3;
}

PimModel::PimModel(std::uint64_t seed)
    : m_Noise(seed), m_BaseOffset(m_Noise.Uniform() - 0.5), m_DistanceMetre(4 + 4 * m_Noise.Uniform()) {}

void PimModel::Advance(double seconds, bool carriersOn) {
    if (!(seconds > 0))
        return;
    const double target = carriersOn ? 1 : 0;
    m_Warmth = target + (m_Warmth - target) * std::exp(-seconds / WarmUpSeconds);
}

double PimModel::CarrierDbm(const Tone& tone, const BandHardware* band) {
    if (!tone.on || !band)
        return Nothing;
    const bool passes = tone.mhz >= band->txLow - FilterEdge && tone.mhz <= band->txHigh + FilterEdge;
    return passes ? tone.dbm : tone.dbm - FilterRejection;
}

double PimModel::ProductMhz(const Excitation& at) {
    const int high = (at.order + 1) / 2;
    const int low = (at.order - 1) / 2;
    const bool upper = at.band && at.band->upper;
    return upper ? high * at.tone2.mhz - low * at.tone1.mhz : high * at.tone1.mhz - low * at.tone2.mhz;
}

double PimModel::ProductDbm(const Excitation& at) const {
    const double power1 = CarrierDbm(at.tone1, at.band);
    const double power2 = CarrierDbm(at.tone2, at.band);
    if (power1 <= Nothing || power2 <= Nothing)
        return Nothing;
    const OrderLaw law = LawOf(at.order);
    // Each tone takes part in the product as often as its coefficient says.
    const double highShare = (at.order + 1) / 2.0 / at.order;
    const double share1 = at.band->upper ? 1 - highShare : highShare;
    const double followed =
        law.slope * (share1 * (power1 - ReferencePower) + (1 - share1) * (power2 - ReferencePower));
    const double turns = at.transmission ? 0 : 2 * m_DistanceMetre * ProductMhz(at) / MetresPerMicrosec;
    const double phase = 2 * std::numbers::pi * turns;
    const double ripple = 10 * std::log10(1 + FarSource * FarSource + 2 * FarSource * std::cos(phase));
    return law.levelDbm + m_BaseOffset + followed + ripple + WarmUpDb * m_Warmth;
}

double PimModel::Read(const Excitation& at) {
    double level = ProductDbm(at);
    if (m_Loose) {
        if (m_BurstLeft > 0) {
            --m_BurstLeft;
        } else if (m_Noise.Uniform() < 0.15) {
            m_BurstLeft = 1 + static_cast<int>(5 * m_Noise.Uniform());
            m_BurstDb = 12 + 18 * m_Noise.Uniform();
        }
        if (m_BurstLeft > 0)
            level += m_BurstDb;
    }
    if (at.generatorDbm)
        level = PowerSum(level, *at.generatorDbm);
    const double floor = NoiseFloor + 0.8 * m_Noise.Normal();
    return PowerSum(level, floor) + 0.05 * m_Noise.Normal();
}

} // namespace qor::sim
