// What an external receiver answers, and what the store of an analyser's set-up may hold: the bytes up to the
// first zero are the answer to everything, those behind it the store.
#include "base/setup_store.h"
#include "receivers/analyser_setup.h"
#include "receivers/level_source.h"
#include "receivers/receiver_access.h"
#include "receivers/receiver_search.h"
#include "receivers/receiver_state.h"
#include "sim/analyser.h"
#include "support/virtual_time.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string_view>

namespace {

using namespace qor;

/// Answers everything with the same bytes.
class Echoing final : public VisaLibrary {
public:
    std::string_view answer;

    VisaStatus OpenDefaultRM(VisaSession& manager) override { return manager = 1, 0; }
    VisaStatus Open(VisaSession, std::string_view, VisaSession& session) override { return session = 2, 0; }
    VisaStatus Close(VisaSession) override { return 0; }
    VisaStatus SetAttribute(VisaSession, VisaAttribute, std::uint32_t) override { return 0; }
    VisaStatus Write(VisaSession, std::string_view) override { return 0; }
    VisaStatus Read(VisaSession, std::size_t limit, std::string& reply) override {
        reply = answer.substr(0, limit);
        return 0;
    }
};

void Expect(bool holds) {
    if (!holds)
        std::abort();
}

bool IsPrintable(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c <= '~'; });
}

void LookAtAnswer(std::string_view answer) {
    static const std::filesystem::path nowhere = std::filesystem::temp_directory_path() / "qor-fuzz-no-such";
    static SetupStore store(nowhere);
    static test::VirtualTime time;
    Echoing visa;
    visa.answer = answer;
    ReceiverState state;
    ReceiverAccess access(store, time.clock, &visa, nullptr);
    ReceiverSearch search(state, access, store);
    LevelSources sources(state, access, search);
    state.UseExternal();
    if (search.TryAddress())
        Expect(IsPrintable(state.Identity()) && state.Identity().size() <= 100);
    for (const auto& reading : {sources.Current().ReadInTick(), sources.Current().ReadInStep()})
        Expect(reading && (!reading->IsLevel() || (reading->Dbm() >= -250 && reading->Dbm() <= 100)));

    AnalyserSetup setup;
    TakeCentre(setup, answer);
    TakeSpan(setup, answer);
    TakeReference(setup, answer);
    Expect(CheckAnalyserSetup(setup).IsDone()); // what was taken over can be installed
}

void LookAtStore(std::string_view text) {
    const auto setup = ParseAnalyserSetup(text.substr(0, 100));
    for (const std::string& command : SetupCommands(setup)) {
        Expect(IsPrintable(command) && command.size() < 100);
        Expect(command == "INIT;*WAI" || command.find(';') == std::string::npos);
    }
    if (setup)
        Expect(ParseAnalyserSetup(FormatAnalyserSetup(*setup)) == setup);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::size_t zero = std::min(bytes.find('\0'), size);
    LookAtAnswer(bytes.substr(0, zero));
    LookAtStore(bytes.substr(std::min(zero + 1, size)));

    static const sim::Instrument instrument({.position = 3});
    for (const auto kind : {sim::ReceiverKind::Analyser, sim::ReceiverKind::Nrv}) {
        sim::Receiver receiver(kind, instrument, 1);
        receiver.Write(bytes, 0); // and what the simulated ones make of it as a question
        static_cast<void>(receiver.Read(100000));
        Expect(std::isfinite(receiver.Level()));
    }
    return 0;
}
