// Seeded schedules of an operator's actions and of faults of the line, watched by somebody who knows only
// wire and panel.
//   qor_soak [--schedules N] [--seed S] [--trace]
// A schedule that breaks a promise is named with its seed: --seed S --schedules 1 --trace shows it.
#include "soak/world.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>

namespace qor::test {
namespace {

class Schedule {
public:
    Schedule(unsigned seed, bool trace)
        : m_Random(seed),
          m_World(Bench(), Stores(), seed, trace ? World::Purpose::Trace : World::Purpose::Schedule) {}

    const std::vector<std::string>& Play();

private:
    int Any(int low, int high) { return std::uniform_int_distribution<int>(low, high)(m_Random); }
    bool Chance(int percent) { return Any(1, 100) <= percent; }
    template <class List> const auto& OneOf(const List& list) {
        return list[static_cast<std::size_t>(Any(0, static_cast<int>(std::size(list)) - 1))];
    }
    static std::string Digits(int count, int value) {
        std::string text = std::to_string(value);
        return std::string(static_cast<std::size_t>(count) - text.size(), '0') + text;
    }

    sim::InstrumentConfig Config();
    sim::InstrumentConfig Another();
    BenchSetUp Bench();
    StoreTexts Stores();
    void Act();
    void SetUpRuns();
    void SpoilTheChain();
    void BreakReceiver();
    void WhileReceiverIsWaitedFor();
    void ChooseBand();
    void AnyCommand();
    void BreakLine();
    void RunOut();
    void Recover();
    void LeaveInTheMiddle();

    std::mt19937 m_Random;
    World m_World;
    std::vector<std::filesystem::path> m_Saved;
};

sim::InstrumentConfig Schedule::Config() {
    static constexpr const char* Firmwares[] = {"1.8", "3.4", "3.6", "4.2", "4.9", "5.2", "5.3",
                                                "5.7", "6.0", "6.1", "6.2", "6.2", "6.2", "ev2.0"};
    sim::InstrumentConfig config;
    config.model = Chance(60) ? "RT-DB22" : std::string(OneOf(sim::Models).name);
    config.firmware = OneOf(Firmwares);
    config.serial = "S" + std::to_string(Any(1, 9999));
    config.seed = static_cast<std::uint64_t>(Any(1, 1000));
    config.bridge3dB = Chance(20);
    return config;
}

BenchSetUp Schedule::Bench() {
    static constexpr Beside Kinds[] = {Beside::Analyser, Beside::Analyser, Beside::Nrv, Beside::Nrp,
                                       Beside::Sensor};
    return {Config(), Chance(25) ? OneOf(Kinds) : Beside::Nothing, Chance(15)};
}

StoreTexts Schedule::Stores() {
    StoreTexts stores{{"2tone_time.ccz", Digits(7, Any(1, 4))}};
    if (Chance(40))
        stores.emplace_back("Sweeptime.ccz", Digits(7, Any(1, 3)));
    if (Chance(30))
        stores.emplace_back("SweepInter.ccz", Digits(7, Any(0, 3)));
    if (Chance(60)) // where levels are
        stores.emplace_back("AlarmUp.ccz", "-" + std::to_string(Chance(10) ? Any(60, 72) : Any(98, 112)) +
                                               "." + std::to_string(Any(0, 9)));
    if (Chance(15))
        stores.emplace_back("unit.ccz", "1");
    if (Chance(15))
        stores.emplace_back("Install_info.ccz", "0100");
    return stores;
}

void Schedule::ChooseBand() {
    static constexpr int Bands[] = {1, 2, 2, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 15, 16, 20, 21};
    m_World.user.answer = Chance(50);
    m_World.Run("band", OneOf(Bands));
}

/// A command of the menu, whichever, but those that end or restart the program.
void Schedule::AnyCommand() {
    const MenuLine& line = OneOf(MenuLines());
    const bool ends = line.row.id == "exit" || line.row.id == "language" || line.row.id == "skin" ||
                      line.row.id == "layout" || line.row.id == "custom_layout" ||
                      line.row.id == "load_configuration";
    if (line.kind == MenuLine::Kind::Item && !ends && m_World.commands->IsEnabled(line.row))
        m_World.Run(line.row.id, line.row.argument);
}

void Schedule::BreakLine() {
    const sim::FaultInfo& fault = OneOf(sim::Faults);
    const int at = m_World.lines[0].CommandCount() + Any(0, 40);
    m_World.AddFault(fault.kind, fault.kind == sim::FaultKind::Replug ? Any(1, 5)
                                 : fault.kind == sim::FaultKind::Slow ? Any(10, 200)
                                                                      : at);
}

/// As in the dialog, whichever way the runs of a press are to go.
void Schedule::SetUpRuns() {
    m_World.SetUpRuns({.seconds = Any(1, 4),
                       .runs = Any(1, 3),
                       .interval = Any(0, 2),
                       .saEnclosed = Chance(15),
                       .continuous = Chance(60),
                       .times = Any(0, 3),
                       .replaces = Chance(60)});
}

/// The line fails for a moment while the instrument is looked for, and is well again.
void Schedule::SpoilTheChain() {
    World& w = m_World;
    w.Unplug(0);
    w.RunFor(Any(100, 4000));
    w.Replug(0);
    static constexpr sim::FaultKind Spoilers[] = {sim::FaultKind::Garble, sim::FaultKind::EarlyEnd,
                                                  sim::FaultKind::SyntaxError, sim::FaultKind::OutOfRange};
    const int first = w.lines[0].CommandCount() + Any(1, 7);
    w.AddFault(Chance(75) ? OneOf(Spoilers) : OneOf(sim::Faults).kind, first);
    w.RunUntil([&] { return w.lines[0].CommandCount() > first; }, 8000);
    w.RunFor(Any(0, 400));
    w.ClearFaults();
    w.Replug(0);
    w.RunUntilReady(Chance(80) ? 40000 : Any(0, 20000));
}

void Schedule::BreakReceiver() {
    World& w = m_World;
    using Kind = sim::ReceiverFault::Kind;
    static constexpr Kind Kinds[] = {Kind::Silence, Kind::Late, Kind::Garbage, Kind::Cut};
    const Kind kind = OneOf(Kinds);
    w.BreakReceiver(
        Chance(60) ? std::optional(sim::ReceiverFault{kind, kind == Kind::Late ? Any(10, 3000) : Any(0, 60)})
                   : std::nullopt);
}

/// A call to the receiver takes its time: now and then the operator has enough of it.
void Schedule::WhileReceiverIsWaitedFor() {
    if (Chance(2) && m_World.SeenFace().light == Face::Light::Running)
        m_World.Press();
}

/// One that can be told from the first: of two of a kind the old ones have no number to tell them by.
sim::InstrumentConfig Schedule::Another() {
    const sim::InstrumentConfig& first = m_World.instruments[0].Config();
    sim::InstrumentConfig config = Config();
    while (config.model == first.model && config.firmware == first.firmware)
        config = Config();
    return config;
}

void Schedule::Act() {
    World& w = m_World;
    w.user.answer = Chance(80);
    switch (Any(0, 32)) {
    case 0:
    case 1:
    case 2:
    case 3:
    case 4:
    case 5:
        w.Press();
        if (Chance(60))
            RunOut();
        break;
    case 6:
        ChooseBand();
        break;
    case 7:
        w.Run("order", Any(1, 4));
        break;
    case 8:
    case 9:
        w.Run("method", Chance(90) ? Any(1, 2) : 3);
        break;
    case 10:
        w.Run("path", Any(1, 2));
        break;
    case 11:
        w.user.toSave = w.dir / ("saved" + std::to_string(m_Saved.size()) + (Chance(50) ? ".dat" : ".txt"));
        w.Run("save");
        if (std::filesystem::exists(w.user.toSave))
            m_Saved.push_back(w.user.toSave);
        break;
    case 12:
        if (m_Saved.empty())
            break;
        w.user.toOpen = {OneOf(m_Saved)};
        if (Chance(30))
            w.user.toOpen.push_back(OneOf(m_Saved));
        w.Run("load");
        break;
    case 13:
        w.program->List().ClickRow(Any(0, 2));
        w.Look();
        break;
    case 14:
        w.PressPortButton();
        break;
    case 15:
    case 16:
        BreakLine();
        break;
    case 17:
        w.ClearFaults();
        break;
    case 18:
        w.Unplug(0);
        break;
    case 19:
        w.Replug(0);
        break;
    case 20:
        if (w.lines.size() < 2 && Chance(30)) {
            w.PlugInAnother(Another());
            w.Unplug(0);
        }
        break;
    case 21:
        w.commands->Run("clear_display");
        w.Look();
        break;
    case 22: // a signal at the receiver
        w.instruments[0].FeedSignal(Chance(50) ? std::optional<double>(-Any(40, 130)) : std::nullopt);
        break;
    case 23:
    case 24:
        AnyCommand();
        break;
    case 25:
        SetUpRuns();
        break;
    case 26:
        SpoilTheChain();
        break;
    case 27:
        if (w.HasReceiver())
            BreakReceiver();
        break;
    case 28:
        if (w.HasReceiver())
            w.Run("receiver", Chance(75) ? 0 : 1);
        else
            w.PlugUnit(Chance(60));
        break;
    case 29: // a moment's signal in a run
        w.Press();
        w.RunFor(Any(0, 3000));
        w.instruments[0].FeedSignal(-Any(40, 110));
        w.RunFor(Any(50, 1500));
        w.instruments[0].FeedSignal({});
        RunOut();
        break;
    default:
        break;
    }
    if (Chance(70))
        w.RunFor(Chance(50) ? Any(1, 300) : Any(300, 6000));
}

/// To the end of the run under way, if it has one.
void Schedule::RunOut() {
    World& w = m_World;
    const auto over = [&] { return w.SeenFace().light != Face::Light::Running; };
    const Face face = w.SeenFace();
    const bool endless = face.spectrum || (face.repeats && face.passes == 0);
    if (!w.RunUntil(over, endless ? Any(500, 20000) : 60000) && (endless || face.repeats))
        w.Press();
}

/// The line is whole again: whatever has been, the program is ready, measures and ends.
void Schedule::Recover() {
    World& w = m_World;
    w.ClearFaults();
    w.BreakReceiver({});
    w.instruments[0].FeedSignal({});
    for (std::size_t i = 1; i < w.lines.size(); ++i)
        w.Unplug(i);
    w.Replug(0);
    w.user.whileAsked = [] {};
    w.RunFor(5000);
    if (w.SeenFace().light == Face::Light::Running)
        w.Press();
    const auto ready = [&] { return w.program->IsReady() && w.SeenFace().light == Face::Light::Green; };
    for (int tries = 0; tries < 4 && !w.RunUntil(ready, 20000); ++tries) {
        const bool hasPort = w.SeenFace().portOffersClosing;
        if (!hasPort)
            w.PressPortButton();
        else if (w.SeenFace().waitsForOperator)
            ChooseBand();
    }
    if (!w.RunUntil(ready, 120000))
        w.observer.Break(w.time.NowMs(), "never ready again");
    w.RunFor(3000);
}

/// A signal, in the middle of whatever is on, on a line that may have died just now.
void Schedule::LeaveInTheMiddle() {
    World& w = m_World;
    w.user.whileAsked = [] {};
    if (Chance(60) && w.RunUntilReady(20000)) {
        w.Press();
        w.RunFor(Any(200, 4000));
    }
    if (Chance(60)) {
        const auto kind = Chance(60) ? sim::FaultKind::Silence : OneOf(sim::Faults).kind;
        w.AddFault(kind, w.lines[0].CommandCount());
        w.RunFor(Any(0, 2500));
    }
    w.Leave(true);
}

const std::vector<std::string>& Schedule::Play() {
    World& w = m_World;
    const auto aWhile = [this] { m_World.Question([this] { m_World.RunFor(Any(0, 3000)); }); };
    w.user.whileAsked = w.dialogs.whileOpen = aWhile;
    w.user.whileLiving = [this] { m_World.Question([this] { WhileReceiverIsWaitedFor(); }); };
    if (w.HasReceiver() && Chance(70))
        w.Run("receiver", 0);
    if (Chance(80) && !w.RunUntilReady(15000) &&
        !w.SeenFace().portOffersClosing) { // several ports: one is chosen
        w.PressPortButton();
        w.RunUntilReady();
    }
    for (int acts = Any(5, 40); acts > 0; --acts)
        Act();
    if (Chance(35)) {
        LeaveInTheMiddle();
    } else {
        Recover();
        w.Leave(Chance(20));
    }
    return w.observer.Broken();
}

} // namespace
} // namespace qor::test

int main(int argc, char** argv) {
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    unsigned seed = 1;
    int schedules = 300;
    bool trace = false;
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--seed") == 0 && i + 1 < argc)
            seed = static_cast<unsigned>(std::atoi(argv[++i]));
        else if (std::strcmp(argv[i], "--schedules") == 0 && i + 1 < argc)
            schedules = std::atoi(argv[++i]);
        else if (std::strcmp(argv[i], "--trace") == 0)
            trace = true;
        else
            return std::fprintf(stderr, "qor_soak [--schedules N] [--seed S] [--trace]\n"), 4;
    }
    int broken = 0;
    for (int n = 0; n < schedules; ++n, ++seed) {
        if (trace)
            std::printf("seed %u\n", seed);
        qor::test::Schedule schedule(seed, trace);
        const auto& promises = schedule.Play();
        broken += promises.empty() ? 0 : 1;
        for (const std::string& promise : promises)
            std::printf("seed %u: %s\n", seed, promise.c_str());
    }
    std::printf("%d of %d schedules broke a promise\n", broken, schedules);
    return broken == 0 ? 0 : 1;
}
