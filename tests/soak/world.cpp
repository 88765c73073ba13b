#include "soak/world.h"

#include "desk/panel.h"
#include "desk/plot_facts.h"
#include "desk/setup/run_setup.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>

namespace qor::test {

namespace {

/// A level in the answer of a receiver: a number and nothing else.
std::optional<double> NumberOf(const std::string& text) {
    char* end = nullptr;
    const double value = std::strtod(text.c_str(), &end);
    return end != text.c_str() &&
                   std::string_view(end).find_first_not_of("\r\n ") == std::string_view::npos &&
                   std::isfinite(value) && std::abs(value) < 1000
               ? std::optional(value)
               : std::nullopt;
}

sim::ReceiverKind KindOf(Beside beside) {
    return beside == Beside::Analyser ? sim::ReceiverKind::Analyser
           : beside == Beside::Nrv    ? sim::ReceiverKind::Nrv
                                      : sim::ReceiverKind::Nrp;
}

} // namespace

VisaStatus TappedVisa::Read(VisaSession session, std::size_t limit, std::string& reply) {
    const std::int64_t begin = m_Clock.TickMs();
    const std::string asked = m_Asked; // somebody may ask meanwhile
    const VisaStatus status = m_Visa.Read(session, limit, reply);
    if (asked == "CALC:MARK1:Y?" || asked == "SENS:DATA:AMPL?" || asked == "MEAS?")
        m_Tap(m_Clock.TickMs() - begin, status == visa::Success ? NumberOf(reply) : std::nullopt);
    return status;
}

void TappedSensor::ReadMeasurement(std::uint32_t session, int channel, int timeoutMs, double& watts) {
    if (dead)
        return;
    m_Sensor.ReadMeasurement(session, channel, timeoutMs, watts);
    m_Tap(0, std::max(10 * std::log10(watts * 1000), -80.0));
}

World::World(const BenchSetUp& bench, StoreTexts stores, unsigned seed, Purpose purpose)
    : time(seed), observer([this](const std::string& choice) { return Clean(choice); }),
      comm(
          port, [this](int number) { return number != m_UnitPort; },
          [this](bool sent, std::string_view bytes) {
              if (m_Purpose == Purpose::Trace && bytes != "\r")
                  std::printf("%9lld %c %.*s\n", static_cast<long long>(time.NowMs()), sent ? '>' : '<',
                              static_cast<int>(std::min(bytes.size(), bytes.find_first_of("\r\n"))),
                              bytes.data());
              sent ? observer.Sent(time.NowMs(), bytes) : observer.Came(time.NowMs(), bytes);
              m_NextLookMs = 0;
          }),
      m_Stores(std::move(stores)), m_Seed(seed), m_Purpose(purpose), m_Beside(bench.beside) {
    user.told = [this](const std::string& text) {
        Note("told: " + text);
        observer.Told(time.NowMs(), text);
    };
    user.whileAsked = user.whileLiving = [] {};
    for (const auto& [name, text] : m_Stores)
        std::ofstream(dir / name, std::ios::binary) << text;
    Add(bench.instrument);
    if (bench.switchUnit)
        m_UnitPort = ports.Add(unitLine, "/dev/ttyUNIT");
    const auto tap = [this](std::int64_t tookMs, std::optional<double> dBm) {
        Note("receiver: " + (dBm ? std::to_string(*dBm) : "nothing"));
        observer.External(time.NowMs(), tookMs, dBm);
        m_NextLookMs = 0;
    };
    if (HasReceiver())
        receiver = std::make_unique<sim::Receiver>(KindOf(bench.beside), instruments.front(), seed);
    if (bench.beside == Beside::Sensor) {
        sensor = std::make_unique<sim::SimulatedSensor>(*receiver);
        tappedSensor = std::make_unique<TappedSensor>(*sensor, tap);
    } else if (HasReceiver()) {
        visa = std::make_unique<sim::SimulatedVisa>(*receiver, time.clock);
        tappedVisa = std::make_unique<TappedVisa>(*visa, time.clock, tap);
    }
    program = std::make_unique<Program>(Platform{.comm = comm,
                                                 .ports = ports,
                                                 .timers = time.timers,
                                                 .clock = time.clock,
                                                 .user = user,
                                                 .visa = tappedVisa.get(),
                                                 .sensor = tappedSensor.get(),
                                                 .dialogs = &dialogs},
                                        dir.Path());
    commands = std::make_unique<Commands>(*program, dialogs);
    program->SetQuit([this](int) { m_Left = true; });
    program->Start(true);
}

World::~World() {
    port.SetPortOpen(false); // the lines go before the port does
}

void World::Note(const std::string& what) {
    if (m_Purpose == Purpose::Trace)
        std::printf("%9lld   %s\n", static_cast<long long>(time.NowMs()), what.c_str());
}

std::size_t World::Current() const {
    const auto found = std::find(m_Ports.begin(), m_Ports.end(), comm.Opened());
    return found == m_Ports.end() ? 0 : static_cast<std::size_t>(found - m_Ports.begin());
}

Observer::FarEnd World::Far() const {
    const std::size_t at = Current();
    const sim::InstrumentSettings& now = instruments[at].Settings();
    const bool deaf = at == 0 && m_Deaf;
    const bool plugged = lines[at].Plugged(time.later.NowMicroseconds());
    return {.carrier = now.carrier1 != 0 || now.carrier2 != 0,
            .hears = !deaf && plugged,
            .isWell = plugged && !m_Faulty[at],
            .isPlugged = plugged};
}

/// What a clean run needs: band, order, method, and the instrument, by its port and its bridge, the runs of a
/// series, and the receiver.
std::string World::ChoiceText() const {
    const Session& s = program->State();
    const WorkingSet& working = s.working;
    std::string text;
    for (const int number : {working.Band(), working.ImIndex(), working.Method(), static_cast<int>(Current()),
                             working.Bridge(), s.curve.Runs(), s.runs.IsSaEnclosed() ? 1 : 0,
                             s.runs.Interval(), s.receiver.InstrumentListens() ? 0 : 1})
        text += (text.empty() ? "" : " ") + std::to_string(number);
    return text;
}

Face World::SeenFace() const {
    const Session& s = program->State();
    const Curve& curve = s.curve;
    const Panel panel = PanelOf(s);
    Face face;
    face.light = panel.lamp == Lamp::Ready     ? Face::Light::Green
                 : panel.lamp == Lamp::Running ? Face::Light::Running
                                               : Face::Light::Red;
    face.portOffersClosing = s.link.connection.Button() == PortButton::Close;
    face.waitsForOperator = panel.portListShown || (panel.portButtonShown && !face.portOffersClosing) ||
                            s.link.chain.WaitsForChoice();
    face.isFile = curve.IsFromFile();
    face.isOneRun = curve.ShownRun() != 0;
    face.repeats = s.runs.IsContinuous();
    // What is saved is counted by its files, what is replaced by the further passes.
    face.passes = s.runs.ContinuousTimes() + (s.runs.ContinuousTimes() > 0 && s.runs.ReplacesData() ? 1 : 0);
    face.limitDbm = static_cast<double>(curve.limit.Level() + curve.scale.Reference());
    face.lengthMs = curve.OwnLength();
    face.pauseMs = s.runs.Interval() * 1000;
    face.twoTone = s.working.Method() == ModeTwoTone;
    face.spectrum = s.working.Method() == ModeSpectrum;
    if (panel.receiver.find("SENSOR") != std::string::npos)
        face.floorDbm = -73;
    face.choice = ChoiceText();
    // The stamp as it is painted.
    const PlotScene scene = BuildScene(curve, ComputeLayout(curve, 800, 500), FactsOf(s));
    for (const PlotItem& item : scene.front) {
        const auto* text = std::get_if<PlotText>(&item);
        if (!text)
            continue;
        if (text->font == PlotFont::Stamp)
            face.stamp = text->text.find("Durch") != std::string::npos        ? Face::Stamp::Passed
                         : text->text.find("Misserfolg") != std::string::npos ? Face::Stamp::Failed
                                                                              : Face::Stamp::Error;
        face.saysHowMany = face.saysHowMany || text->text.find(" von ") != std::string::npos;
    }
    return face;
}

void World::Look() {
    WatchRelays();
    observer.Looks(time.NowMs(), SeenFace(), comm.GetPortOpen(), Far());
    m_NextLookMs = time.NowMs() + 25;
}

bool World::RunUntil(const std::function<bool()>& done, std::int64_t limitMs) {
    Look();
    const bool came = time.RunUntil(
        [&] {
            if (time.NowMs() >= m_NextLookMs)
                Look();
            return done();
        },
        limitMs);
    Look();
    return came;
}

void World::RunFor(std::int64_t ms) {
    const std::int64_t end = time.NowMs() + ms;
    RunUntil([] { return false; }, ms);
    time.RunFor(end - time.NowMs());
    Look();
}

bool World::RunUntilReady(std::int64_t limitMs) {
    return RunUntil([this] { return program->IsReady() && SeenFace().light == Face::Light::Green; }, limitMs);
}

void World::Press() {
    Note("start button");
    observer.Acts(time.NowMs(), Observer::Hand::Start);
    Look();
    program->OnMeasButton();
    Look();
}

void World::PressPortButton() {
    Note("port button");
    ConnectionState& connection = program->State().link.connection;
    const bool closes = connection.Button() == PortButton::Close && comm.GetPortOpen();
    observer.Acts(time.NowMs(), closes ? Observer::Hand::ClosePort : Observer::Hand::Other);
    const auto& entries = connection.Ports();
    const auto isNoUnit = [](const PortEntry& entry) { return entry.text.find("MPX") == std::string::npos; };
    const auto found = std::find_if(entries.begin(), entries.end(), isNoUnit);
    if (connection.Button() == PortButton::Open && !entries.empty())
        connection.Choose((found != entries.end() ? *found : entries.front()).text);
    program->Link().OnButton1();
    Look();
}

void World::Run(std::string_view command, int argument) {
    Note("command " + std::string(command) + " " + std::to_string(argument));
    observer.Acts(time.NowMs(), command == "start_stop" ? Observer::Hand::Start : Observer::Hand::Other);
    Look();
    commands->Run(command, argument);
    Look();
}

void World::SetUpRuns(const RunsSetUp& setUp) {
    Session& s = program->State();
    if (s.run.IsOn() || s.run.IsWaiting())
        return; // not to be had from the menu then
    Note("runs: " + std::to_string(setUp.runs) + (setUp.continuous ? ", continuous" : ""));
    static_cast<void>(ApplyRunSetup({.seconds = setUp.seconds,
                                     .runs = setUp.runs,
                                     .interval = setUp.interval,
                                     .saEnclosed = setUp.saEnclosed,
                                     .continuous = setUp.continuous},
                                    false, s.curve, s.runs, program->Stores()));
    s.runs.SetContinuousTimes(setUp.times);
    s.runs.SetReplacesData(setUp.replaces);
    Look();
}

void World::BreakReceiver(std::optional<sim::ReceiverFault> fault) {
    Note(fault ? "receiver fault" : "receiver well");
    if (tappedSensor)
        tappedSensor->dead = fault.has_value();
    else if (receiver && fault)
        receiver->Add(*fault);
    else if (receiver)
        receiver->ClearFaults();
}

void World::Question(const std::function<void()>& whileOpen) {
    observer.Asks(time.NowMs(), true);
    whileOpen();
    observer.Asks(time.NowMs(), false);
}

void World::Add(const sim::InstrumentConfig& config) {
    m_Configs.push_back(config);
    m_Faulty.push_back(false);
    lines.emplace_back(instruments.emplace_back(config));
    m_Ports.push_back(ports.Add(lines.back(), "/dev/ttySIM" + std::to_string(lines.size() - 1)));
}

void World::PlugInAnother(const sim::InstrumentConfig& config) {
    Note("plugged in: " + config.model + " " + config.firmware);
    Add(config);
}

void World::PlugUnit(bool in) {
    if (m_UnitPort == 0)
        return;
    Note(in ? "unit plugged in" : "unit unplugged");
    in ? ports.Replug(m_UnitPort) : ports.Unplug(m_UnitPort);
    Look();
}

/// No relay moves under carriers.
void World::WatchRelays() {
    std::string relays;
    for (std::size_t bank = 0; bank < 3; ++bank)
        relays += unit.Relays(bank);
    if (relays != m_Relays && !m_Relays.empty() && Far().carrier)
        observer.Break(time.NowMs(), "relays move under carriers");
    m_Relays = std::move(relays);
}

void World::Unplug(std::size_t instrument) {
    Note("unplugged");
    Look();
    ports.Unplug(m_Ports[instrument]);
    Look();
}

void World::Replug(std::size_t instrument) {
    Note("plugged in again");
    ports.Replug(m_Ports[instrument]);
    Look();
}

void World::AddFault(sim::FaultKind kind, int number) {
    Note("fault " + std::string(sim::Faults[static_cast<std::size_t>(kind)].name) + " " +
         std::to_string(number));
    m_Deaf = m_Deaf || kind == sim::FaultKind::Silence || kind == sim::FaultKind::Endless;
    m_Faulty[0] = true;
    lines[0].Add({kind, number});
    Look();
}

void World::ClearFaults() {
    Note("faults gone");
    Look();
    lines[0].ClearFaults();
    m_Deaf = m_Faulty[0] = false;
}

void World::Leave(bool bySignal) {
    Note(bySignal ? "signal" : "exit button");
    const std::int64_t begin = time.NowMs();
    user.answer = true;
    user.whileAsked = [] {};
    observer.Acts(begin, Observer::Hand::Other);
    Look();
    observer.Leaves(SeenFace(), comm.GetPortOpen(), Far());
    if (bySignal)
        program->Leave();
    else if (!program->OnExitButton())
        return; // refused
    time.RunUntil([&] { return m_Left; }, 30000);
    const std::int64_t took = m_Left ? time.NowMs() - begin : -1;
    m_Left = true;
    time.RunFor(50); // the last echo
    observer.Ended(took, Far());
}

/// The same choice on an instrument and a line without any fault.
CleanRun World::Clean(const std::string& choice) {
    const auto known = m_Clean.find(choice);
    if (m_Purpose == Purpose::Yardstick)
        return {};
    if (known != m_Clean.end())
        return known->second;
    int band = 0;
    int order = 0;
    int method = 0;
    int at = 0;
    int bridge = 0;
    int runs = 0;
    int saEnclosed = 0;
    int interval = 0;
    int external = 0;
    std::sscanf(choice.c_str(), "%d %d %d %d %d %d %d %d %d", &band, &order, &method, &at, &bridge, &runs,
                &saEnclosed, &interval, &external);
    sim::InstrumentConfig config = m_Configs[static_cast<std::size_t>(at)];
    config.bridge3dB = bridge != 0; // a bridge that could not be read is none
    World clean({.instrument = config, .beside = m_Beside}, m_Stores, m_Seed, Purpose::Yardstick);
    CleanRun found;
    if (clean.RunUntilReady()) {
        const auto choose = [&](std::string_view command, int argument) {
            clean.commands->Run(command, argument);
            clean.RunUntil([&] { return clean.program->LineIsIdle(); }, 10000);
        };
        clean.SetUpRuns({.runs = runs, .interval = interval, .saEnclosed = saEnclosed != 0});
        choose("receiver", external != 0 ? 0 : 1);
        if (clean.program->State().working.Band() != band)
            choose("band", band);
        choose("order", order);
        const auto runsNow = [&] { return clean.SeenFace().light == Face::Light::Running; };
        choose("method", method);
        if (!runsNow()) // the spectrum begins by itself
            clean.Press();
        clean.RunUntil(runsNow, 30000);
        const std::int64_t begin = clean.time.NowMs();
        const auto over = [&] { return !runsNow() || clean.program->State().run.Passes() > 0; };
        if (clean.RunUntil(
                method == ModeSpectrum ? std::function<bool()>(over) : [&] { return !runsNow(); }, 300000)) {
            found = {clean.observer.Read(), clean.time.NowMs() - begin};
            for (auto& [place, count] : found.places)
                count = method == ModeSpectrum ? 1 : count;
        }
    }
    return m_Clean[choice] = found;
}

} // namespace qor::test
