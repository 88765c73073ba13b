#include "soak/world.h"

#include "desk/panel.h"
#include "desk/plot_facts.h"

#include <cstdio>
#include <fstream>

namespace qor::test {

namespace {

/// What a clean run needs: band, order, method, and the instrument, by its port and its bridge.
std::string ChoiceText(const WorkingSet& working, int port) {
    std::string text;
    for (const int number : {working.Band(), working.ImIndex(), working.Method(), port, working.Bridge()})
        text += (text.empty() ? "" : " ") + std::to_string(number);
    return text;
}

} // namespace

World::World(const sim::InstrumentConfig& config, StoreTexts stores, unsigned seed, Purpose purpose)
    : time(seed), observer([this](const std::string& choice) { return CleanRun(choice); }),
      comm(port,
           [this](bool sent, std::string_view bytes) {
               if (m_Purpose == Purpose::Trace && bytes != "\r")
                   std::printf("%9lld %c %.*s\n", static_cast<long long>(time.NowMs()), sent ? '>' : '<',
                               static_cast<int>(bytes.size()), bytes.data());
               sent ? observer.Sent(time.NowMs(), bytes) : observer.Came(time.NowMs(), bytes);
               m_NextLookMs = 0;
           }),
      m_Configs{config}, m_Stores(std::move(stores)), m_Seed(seed), m_Purpose(purpose) {
    user.told = [this](const std::string& text) {
        Note("told: " + text);
        observer.Told(time.NowMs(), text);
    };
    user.whileAsked = [] {};
    for (const auto& [name, text] : m_Stores)
        std::ofstream(dir / name, std::ios::binary) << text;
    lines.emplace_back(instruments.emplace_back(config));
    ports.Add(lines.back(), "/dev/ttySIM0");
    program = std::make_unique<Program>(Platform{.comm = comm,
                                                 .ports = ports,
                                                 .timers = time.timers,
                                                 .clock = time.clock,
                                                 .user = user,
                                                 .dialogs = &dialogs},
                                        dir.Path());
    commands = std::make_unique<Commands>(*program, dialogs);
    program->Start(true);
}

World::~World() {
    port.SetPortOpen(false); // the lines go before the port does
}

void World::Note(const std::string& what) {
    if (m_Purpose == Purpose::Trace)
        std::printf("%9lld   %s\n", static_cast<long long>(time.NowMs()), what.c_str());
}

/// The instrument that the program spoke to last.
Observer::FarEnd World::Far() const {
    const auto at = static_cast<std::size_t>(comm.Opened()) - 1;
    const sim::InstrumentSettings& now = instruments[at].Settings();
    const bool deaf = at == 0 && m_Deaf;
    return {now.carrier1 != 0 || now.carrier2 != 0, !deaf && lines[at].Plugged(time.later.NowMicroseconds())};
}

Face World::SeenFace() const {
    const Session& s = program->State();
    const Curve& curve = s.curve;
    const Lamp lamp = PanelOf(s).lamp;
    Face face;
    face.light = lamp == Lamp::Ready     ? Face::Light::Green
                 : lamp == Lamp::Running ? Face::Light::Running
                                         : Face::Light::Red;
    face.portOffersClosing = s.link.connection.Button() == PortButton::Close;
    face.isFile = curve.IsFromFile();
    face.isOneRun = curve.ShownRun() != 0;
    face.repeats = s.runs.IsContinuous();
    face.limitDbm = static_cast<double>(curve.limit.Level() + curve.scale.Reference());
    face.lengthMs = curve.Length();
    face.twoTone = s.working.Method() == ModeTwoTone;
    face.spectrum = s.working.Method() == ModeSpectrum;
    face.choice = ChoiceText(s.working, comm.Opened());
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
    observer.Acts(time.NowMs(), true);
    Look();
    program->OnMeasButton();
    Look();
}

void World::PressPortButton() {
    Note("port button");
    observer.Acts(time.NowMs(), false);
    ConnectionState& connection = program->State().link.connection;
    if (connection.Button() == PortButton::Open && !connection.Ports().empty())
        connection.Choose(connection.Ports().front().text);
    program->Link().OnButton1();
    Look();
}

void World::Run(std::string_view command, int argument) {
    Note("command " + std::string(command) + " " + std::to_string(argument));
    observer.Acts(time.NowMs(), command == "start_stop");
    Look();
    commands->Run(command, argument);
    Look();
}

void World::PlugInAnother(const sim::InstrumentConfig& config) {
    Note("plugged in: " + config.model + " " + config.firmware);
    m_Configs.push_back(config);
    lines.emplace_back(instruments.emplace_back(config));
    ports.Add(lines.back(), "/dev/ttySIM" + std::to_string(lines.size() - 1));
}

void World::Unplug(std::size_t instrument) {
    Note("unplugged");
    Look();
    ports.Unplug(static_cast<int>(instrument) + 1);
    Look();
}

void World::Replug(std::size_t instrument) {
    Note("plugged in again");
    ports.Replug(static_cast<int>(instrument) + 1);
    Look();
}

void World::AddFault(sim::FaultKind kind, int number) {
    Note("fault " + std::string(sim::Faults[static_cast<std::size_t>(kind)].name) + " " +
         std::to_string(number));
    m_Deaf = m_Deaf || kind == sim::FaultKind::Silence || kind == sim::FaultKind::Endless;
    lines[0].Add({kind, number});
    Look();
}

void World::ClearFaults() {
    Note("faults gone");
    Look();
    lines[0].ClearFaults();
    m_Deaf = false;
}

std::int64_t World::Leave() {
    Note("exit button");
    std::optional<std::int64_t> end;
    const std::int64_t begin = time.NowMs();
    program->SetQuit([&](int) { end = time.NowMs(); });
    user.answer = true;
    observer.Acts(begin, false);
    if (!program->OnExitButton())
        return 0; // refused
    time.RunUntil([&] { return end.has_value(); }, 30000);
    const std::int64_t took = end ? *end - begin : -1;
    time.RunFor(50); // the last echo
    observer.Ended(took, Far());
    return took;
}

/// The same choice on an instrument and a line without any fault.
Places World::CleanRun(const std::string& choice) {
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
    std::sscanf(choice.c_str(), "%d %d %d %d %d", &band, &order, &method, &at, &bridge);
    sim::InstrumentConfig config = m_Configs[static_cast<std::size_t>(at) - 1];
    config.bridge3dB = bridge != 0; // a bridge that could not be read is none
    World clean(config, m_Stores, m_Seed, Purpose::Yardstick);
    Places places;
    if (clean.RunUntilReady()) {
        const auto choose = [&](std::string_view command, int argument) {
            clean.commands->Run(command, argument);
            clean.RunUntil([&] { return clean.program->LineIsIdle(); }, 10000);
        };
        if (clean.SeenFace().choice.substr(0, choice.find(' ')) != choice.substr(0, choice.find(' ')))
            choose("band", band);
        choose("order", order);
        choose("method", method);
        clean.Press();
        if (clean.RunUntil([&] { return clean.SeenFace().light != Face::Light::Running; }, 300000))
            places = clean.observer.Read();
    }
    return m_Clean[choice] = places;
}

} // namespace qor::test
