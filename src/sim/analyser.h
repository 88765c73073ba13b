#pragma once

#include "sim/instrument.h"
#include "sim/scpi_host.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qor::sim {

/// What kind of receiver is simulated; its answer to *IDN? tells.
enum class ReceiverKind {
    Analyser, ///< spectrum analyser with a marker
    Nrv,      ///< level meter, "SENS:DATA:AMPL?"
    Nrp,      ///< power sensor, "MEAS?"
};

/// What goes wrong, after so many messages have been served.
struct ReceiverFault {
    enum class Kind {
        Silence, ///< nothing is answered any more
        Late,    ///< each answer takes `number` ms longer
        Garbage, ///< answers hold no number
        Cut,     ///< the connection is cut, once
    };
    Kind kind;
    int number = 0;
};

/// "silence:40", "late:300", "garbage", "cut:3"; nothing for another text.
[[nodiscard]] std::optional<ReceiverFault> ParseReceiverFault(std::string_view text);

/// An external receiver that listens to the simulated instrument's device under test.
///
/// The analyser hears the products of all orders that fall into its span, through its attenuator,
/// preamplifier and filter. Its noise is that of a matched input, -174 dBm in 1 Hz, plus its own noise figure
/// (24 dB, 9 dB with the preamplifier), the attenuation and the resolution bandwidth; a narrower video
/// bandwidth calms it. A signal more than 5 dB above the reference level overloads it and reads no higher.
/// Level meter and sensor hear everything at once and are broadband: their floor is -80 dBm.
///
/// A receiver listens behind the carrier filter, unless it is put to the port itself, through an attenuator:
/// then it hears the carriers, too.
class Receiver final : public ScpiDevice {
public:
    Receiver(ReceiverKind kind, const Instrument& instrument, std::uint64_t seed);

    void Add(ReceiverFault fault) { m_Faults.push_back(fault); }
    void ClearFaults() {
        m_Faults.clear();
        m_WasCut = false;
    }
    /// At the port, behind so many dB.
    void PutToPort(double attenuationDb) { m_CellDb = attenuationDb; }

    void Write(std::string_view message, std::int64_t nowMs) override;
    [[nodiscard]] std::optional<std::string> Read(std::int64_t nowMs) override;
    void Clear() override { m_Answer.reset(); }
    [[nodiscard]] bool CutsNow() override;

    /// One reading at the present settings, dBm.
    [[nodiscard]] double Level();

private:
    struct Settings {
        double centreHz = 915e6;
        double spanHz = 0;
        double referenceDbm = 0;
        double scaleDb = 100;
        double attenuationDb = 10;
        bool preamplifier = false;
        double resolutionHz = 30e3;
        double videoHz = 30e3;
        bool continuous = true;
    };

    void Execute(std::string_view command);
    bool Set(std::string_view header, std::string_view value);
    [[nodiscard]] std::optional<std::string> Query(std::string_view header);
    [[nodiscard]] double AnalyserLevel();
    [[nodiscard]] double CarriersWithin(double lowMhz, double highMhz) const;
    [[nodiscard]] double SweepMs() const;
    [[nodiscard]] bool Struck(ReceiverFault::Kind kind) const;

    ReceiverKind m_Kind;
    const Instrument& m_Instrument;
    Noise m_Noise;
    Settings m_Settings;
    std::optional<double> m_CellDb; ///< of the attenuator at the port
    std::vector<ReceiverFault> m_Faults;
    int m_Served = 0;
    bool m_WasCut = false;
    std::int64_t m_NowMs = 0;
    std::int64_t m_AskedMs = 0;
    std::int64_t m_BusyUntilMs = 0; ///< a sweep is under way
    std::optional<std::string> m_Answer;
    int m_Errors = 0; ///< commands that were not understood, until they are asked for
};

} // namespace qor::sim
