#include "service/receiver_calibration.h"

#include "bands/catalogue.h"
#include "base/tenths.h"
#include "base/text_format.h"
#include "link/commands.h"
#include "link/link_state.h"
#include "link/working_set.h"
#include "platform/platform.h"
#include "platform/serial_control.h"
#include "service/factory_mode.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace qor {

namespace {

constexpr int DbBetween = 30; // of the two signals
constexpr int StrongSignal = 50;
constexpr int Awaited = -1;
constexpr int MostOffset = 65535;
constexpr std::size_t DetectorDigits = 5;
constexpr std::size_t ShortestPosition = 5; // "#SAB3"
// Addresses of the instrument's own page.
constexpr int SlopeAt = 98;
constexpr int OffsetAt = 96; // on page "d"; on the others one for each position:
constexpr int FirstPositionAt = 154;

std::optional<int> DetectorValue(std::string_view reply) {
    const std::size_t at = reply.find('C');
    if (at == std::string_view::npos)
        return std::nullopt;
    const std::string_view digits = reply.substr(at + 1, DetectorDigits);
    int value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return error == std::errc() && end == digits.data() + digits.size() ? std::optional(value) : std::nullopt;
}

bool IsWithin(double value, int low, int high) {
    return value >= low && value <= high;
}

} // namespace

DetectorLine DetectorFrom(int volt50, int volt80) {
    const int difference = volt50 - volt80;
    const int slope = difference / DbBetween + (difference % DbBetween >= DbBetween / 2 ? 1 : 0);
    return {slope, slope * StrongSignal + volt50};
}

std::optional<int> SignalFrequency(const CalibrationRow& row, int band, int imIndex, double f1, double f2) {
    const ImCoefficients product = CoefficientsOf(imIndex);
    const auto frequency =
        static_cast<double>(ImFrequency(band, product, static_cast<float>(f1), static_cast<float>(f2)));
    const bool fits = IsWithin(f1, row.txLow, row.txHigh) && IsWithin(f2, row.txLow, row.txHigh) &&
                      IsWithin(frequency, row.rxLow, row.rxHigh);
    return fits ? std::optional(static_cast<int>(frequency)) : std::nullopt;
}

ReceiverCalibration::ReceiverCalibration(const Rooms& rooms, const Platform& platform,
                                         std::function<void(const Outcome&)> tell)
    : m_Rooms(rooms), m_Platform(platform), m_Tell(std::move(tell)), m_Talk(rooms.link.queue) {}

std::optional<int> ReceiverCalibration::Reading(Signal signal) const {
    const int volt = signal == Signal::Strong ? g_volt50 : g_volt80;
    return volt > 0 ? std::optional(volt) : std::nullopt;
}

/// Where the line is idle nothing comes any more.
bool ReceiverCalibration::IsReading() const {
    return m_Awaited && !LineIsIdle(m_Rooms.link);
}

void ReceiverCalibration::TakeBand(const CalibrationRow& row) {
    m_rxCalF1 = std::to_string(row.rxF1);
    m_rxCalF2 = std::to_string(row.rxF2);
    m_Signal.reset();
    g_volt50 = g_volt80 = 0;
}

Outcome ReceiverCalibration::SetCarriers(std::string f1, std::string f2) {
    m_rxCalF1 = std::move(f1);
    m_rxCalF2 = std::move(f2);
    return RenewHint();
}

Outcome ReceiverCalibration::RenewHint() {
    const int imIndex = m_Rooms.working.ImIndex();
    if (imIndex < 1 || imIndex > 5)
        return Outcome::Refused("Auswaehlen IM");
    const int band = m_Rooms.working.Band();
    const auto row = CalibrationRowOf(band, m_Rooms.link.identity.Model(), m_Rooms.working.Bridge());
    const auto f1 = EnteredNumber(m_rxCalF1);
    const auto f2 = EnteredNumber(m_rxCalF2);
    if (!row || !f1 || !f2)
        return Outcome::Done();
    if (const auto frequency = SignalFrequency(*row, band, imIndex, *f1, *f2))
        m_Signal = frequency;
    return Outcome::Done();
}

Outcome ReceiverCalibration::Read(Signal signal) {
    if (!m_Platform.comm.GetPortOpen())
        return Outcome::Refused("Oeffnen port erst!");
    if (IsReading() || m_Rooms.factory.IsBusy())
        return Outcome::Refused("\nHalten Messung erst!");
    const auto f1 = EnteredNumber(m_rxCalF1);
    const auto f2 = EnteredNumber(m_rxCalF2);
    if (!f1 || !f2 || !IsWithin(*f1, 1, 9999) || !IsWithin(*f2, 1, 9999))
        return Outcome::Refused("Falsch, dichtesortierung.");
    CommandQueue& queue = m_Rooms.link.queue;
    queue.Append(WithTenths(command::Frequency1, *f1));
    queue.Append(WithTenths(command::Frequency2, *f2));
    (signal == Signal::Strong ? g_volt50 : g_volt80) = Awaited;
    m_Awaited = signal;
    queue.Ask(command::Detector, TagPlain, *this);
    return Outcome::Done();
}

/// Nothing, or nothing to be read: the value stays awaited, and no calibration is made of it.
void ReceiverCalibration::Answered(int /*tag*/, std::string_view reply) {
    const auto signal = std::exchange(m_Awaited, std::nullopt);
    const auto value = DetectorValue(reply);
    if (signal && value)
        (*signal == Signal::Strong ? g_volt50 : g_volt80) = *value;
}

Outcome ReceiverCalibration::Write() {
    if (!m_Platform.comm.GetPortOpen())
        return Outcome::Refused("Oeffnen port erst!");
    if (g_volt50 < 1)
        return Outcome::Refused("Please get volt of -50dBm firstly!");
    if (g_volt80 < 1)
        return Outcome::Refused("Please get volt of -80dBm firstly!");
    const DetectorLine line = DetectorFrom(g_volt50, g_volt80);
    if (line.slope <= 0 || line.offset > MostOffset)
        return Outcome::Refused("Falsch, dichtesortierung.");
    const std::string& position = m_Rooms.link.position.Command();
    if (position.size() < ShortestPosition)
        return Outcome::Refused("Please re-select the band or re-connect the device!");
    if (!m_Rooms.factory.Begin(ServiceWork::ReceiverCalibration))
        return Outcome::Refused("\nHalten Messung erst!");
    const int page = OwnPage(m_Rooms.link.identity.Firmware());
    const int number = WholeNumberIn(std::string_view(position).substr(ShortestPosition - 1));
    const int offsetAt = page == 'd' ? OffsetAt : FirstPositionAt + 2 * number;
    CommandQueue& queue = m_Rooms.link.queue;
    queue.Append(command::InputBinary);
    queue.Append(command::Pause);
    m_Talk.Write({WriteByte({page, SlopeAt, line.slope >> 8}, TagReceiverCalSlope),
                  WriteByte({page, SlopeAt + 1, line.slope & 0xff}, TagReceiverCalLast),
                  WriteByte({page, offsetAt, line.offset >> 8}, TagReceiverCalFirst),
                  WriteByte({page, offsetAt + 1, line.offset & 0xff}, TagReceiverCalDone)},
                 {}, [this](const Outcome& outcome) {
                     m_Rooms.factory.End(ServiceWork::ReceiverCalibration);
                     m_Rooms.link.queue.Append(command::InputText);
                     m_Rooms.link.queue.Append(command::Pause);
                     m_Tell(outcome ? Outcome::DoneWith("Calibration finished. \r\nRe-power your equipment.")
                                    : outcome);
                 });
    return Outcome::Done();
}

/// The page is left, or the line is lost: no answer is taken any more.
void ReceiverCalibration::Stop() {
    m_Awaited.reset();
    if (!m_Talk.IsOn())
        return;
    m_Talk.Drop();
    m_Rooms.factory.End(ServiceWork::ReceiverCalibration);
}

} // namespace qor
