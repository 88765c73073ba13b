// Any bytes as one of the stores that are read at the start, and the first picture that is made of them.

#include "bands/setup_store.h"
#include "core/session.h"
#include "core/settings_file.h"
#include "core/startup.h"
#include "display/curve_store.h"
#include "display/plot_scene.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <memory>

namespace {

constexpr const char* Stores[] = {
    "testmode.ccz",     "reftrans.ccz",     "unit.ccz",       "histogram.ccz",        "dbmset.ccz",
    "2tone_time.ccz",   "Sweeptime.ccz",    "SweepInter.ccz", "pathloss.ccz",         "pathloss2.ccz",
    "Install_info.ccz", "LastLoadPath.ccz", "loss.conf",      "AlarmUp.ccz",          "tagWarningOn.ccz",
    "BeepVolume.ccz",   "skin.ccz",         "Resolution.ccz", "ResolutionCustom.ccz", "qor.ini"};

void Require(bool condition) {
    if (!condition)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::filesystem::path folder = [] {
        std::string name = (std::filesystem::temp_directory_path() / "qor-startup-XXXXXX").string();
        Require(mkdtemp(name.data()) != nullptr);
        return std::filesystem::path(name);
    }();
    static qor::SetupStore store(folder);
    static const auto session = std::make_unique<qor::Session>();
    if (size == 0)
        return 0;
    const std::string name = Stores[data[0] % std::size(Stores)];
    store.Write(name, std::string_view(reinterpret_cast<const char*>(data) + 1, size - 1));

    qor::LoadStores(*session, store);
    static_cast<void>(qor::SettingOf(store, "handbook"));
    qor::CurveState& curve = session->curve;
    Require(curve.g_testTimeMs >= 1000 && curve.g_runCount >= 1);
    Require(curve.g_plotTop > curve.g_plotBottom && std::isfinite(curve.g_alarmLevel));
    const qor::WindowSize window =
        qor::SizeOf(session->appearance, session->appearance.g_layout, {1280, 1024});
    Require(window.width >= 0 && window.width <= 5000 && window.height >= 0 && window.height <= 5000);
    const qor::PlotGeometry plot = qor::ComputeLayout(curve, window.width, window.height);
    qor::SearchMaxima(curve);
    static_cast<void>(qor::BuildScene(curve, plot, qor::FactsOf(*session)));
    store.Remove(name);
    return 0;
}
