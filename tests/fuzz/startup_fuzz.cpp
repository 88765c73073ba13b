// Any bytes as one of the stores that are read at the start, and the first picture that is made of them.

#include "base/settings_file.h"
#include "base/setup_store.h"
#include "curve/curve.h"
#include "desk/plot_facts.h"
#include "desk/session.h"
#include "desk/startup.h"
#include "fuzz/fuzz.h"

#include <cmath>
#include <memory>

namespace {

constexpr const char* Stores[] = {
    "testmode.ccz",     "reftrans.ccz",     "unit.ccz",       "histogram.ccz",        "dbmset.ccz",
    "2tone_time.ccz",   "Sweeptime.ccz",    "SweepInter.ccz", "pathloss.ccz",         "pathloss2.ccz",
    "Install_info.ccz", "LastLoadPath.ccz", "loss.conf",      "AlarmUp.ccz",          "tagWarningOn.ccz",
    "BeepVolume.ccz",   "skin.ccz",         "Resolution.ccz", "ResolutionCustom.ccz", "qor.ini"};
using qor::test::Require;

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const qor::test::TempDir folder;
    static qor::SetupStore store(folder.Path());
    static const auto session = std::make_unique<qor::Session>();
    if (size == 0)
        return 0;
    const std::string name = Stores[data[0] % std::size(Stores)];
    store.Write(name, std::string_view(reinterpret_cast<const char*>(data) + 1, size - 1));

    qor::LoadStores(*session, store);
    static_cast<void>(qor::SettingOf(store, "handbook"));
    qor::Curve& curve = session->curve;
    Require(curve.Length() >= 1000 && curve.Runs() >= 1);
    Require(curve.scale.Top() > curve.scale.Bottom() && std::isfinite(curve.limit.Level()));
    const qor::WindowSize window = session->appearance.Size();
    Require(window.width >= 0 && window.width <= 5000 && window.height >= 0 && window.height <= 5000);
    const qor::PlotGeometry plot = qor::ComputeLayout(curve, window.width, window.height);
    curve.SearchMaxima();
    static_cast<void>(qor::BuildScene(curve, plot, qor::FactsOf(*session)));
    store.Remove(name);
    return 0;
}
