// Any bytes as a result file: refused with a reason, or read as something that can be shown and written
// again.
#include "curve/curve.h"
#include "curve/plot_geometry.h"
#include "desk/program.h"
#include "fuzz/fuzz.h"
#include "results/data_file.h"
#include "support/doubles.h"
#include "support/virtual_time.h"

#include <algorithm>
#include <cmath>

namespace {

using namespace qor;
using namespace qor::test;

std::string Sound(bool twoTone, bool wide) {
    ResultDocument document;
    document.plan = {935, 960, 925, 937, 960, 960, 946, 935};
    document.method = twoTone ? ResultMethod::TwoTone : ResultMethod::Sweep;
    document.inDbc = wide;
    document.order = wide ? 11 : 3;
    document.model = "RT-DB22";
    document.serial = wide ? "12345678901" : "SIM01";
    document.date = "20260307";
    document.time = "09:05";
    ResultRun& run = document.runs.emplace_back();
    for (int i = 0; i < 8; ++i)
        (i < 5 || twoTone ? run.up : run.down).push_back({twoTone ? i * 0.1 : 890 + i % 5, -100.5f});
    document.limit = -90.0f;
    document.comment = "comment\n";
    return FormatResult(document);
}

/// A sound file with places changed as the input says.
std::string Changed(std::string text, const std::uint8_t* data, std::size_t size) {
    for (; size >= 4 && !text.empty(); data += 4, size -= 4) {
        const std::size_t at = (data[0] + 256U * data[1]) % text.size();
        switch (data[2] % 4) {
        case 0:
            text.insert(at, 1, static_cast<char>(data[3]));
            break;
        case 1:
            text.erase(at, data[3] % 32);
            break;
        case 2:
            text.insert(at, text.substr(at / 2, data[3]));
            break;
        default:
            text[at] = static_cast<char>(data[3]);
        }
    }
    return text;
}

void CheckRows(const ResultDocument& document) {
    const ResultRun& run = document.runs.back();
    Require(PointsOf(document) > 0);
    for (const auto* points : {&run.up, &run.down}) {
        for (std::size_t i = 0; i < points->size(); ++i) {
            const ResultPoint& point = (*points)[i];
            Require(std::isfinite(point.x) && std::isfinite(point.level));
            if (!document.hasHead)
                continue;
            Require(document.method == ResultMethod::TwoTone ? i == 0 || point.x > (*points)[i - 1].x
                                                             : point.x > 0.1);
        }
    }
}

/// Once its numbers have the decimals of a file, a result is written and read back without a change.
void CheckFormat(const ResultDocument& document) {
    if (!document.hasHead)
        return;
    const ParsedResult rounded = ParseResult(FormatResult(document));
    if (!rounded.document) // its only level was rounded to 0, or the comment makes it too long
        return;
    const std::string text = FormatResult(*rounded.document);
    for (const bool scrambled : {false, true}) {
        const std::string bytes = EncodeResult(text, scrambled);
        if (bytes.size() > LongestResultFile)
            return;
        const ParsedResult again = ParseResult(bytes);
        Require(again.document && FormatResult(*again.document) == text);
    }
}

/// One session that is shown file after file.
struct Desk {
    TempDir dir;
    VirtualTime time;
    DeadLine line;
    OnePort ports;
    SilentOperator user;
    Program program{{line, ports, time.timers, time.clock, user}, dir.Path()};
    Session& session = program.State();

    void Show(const std::string& bytes) {
        std::ofstream(dir / "shown.dat", std::ios::binary) << bytes;
        Require(program.Show().CurrentShow(dir / "shown.dat").IsDone());
        const Curve& curve = session.curve;
        Require(std::is_sorted(curve.Grid().begin(),
                               curve.Grid().begin() + static_cast<std::ptrdiff_t>(curve.Steps())));
        Require(curve.TimePerPoint() > 0 && curve.Length() > 0 &&
                std::isfinite(ComputeLayout(curve, 800, 600).pxPerStep));
        Require(program.Files().DataSave(dir / "saved.dat").IsDone() ||
                !session.results.loaded.Document()->hasHead);
    }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    const int kind = data[0] % 6;
    const std::string bytes =
        kind == 0 ? std::string(reinterpret_cast<const char*>(data) + 1, size - 1)
        : kind == 1
            ? EncodeResult({reinterpret_cast<const char*>(data) + 1, size - 1}, true)
            : EncodeResult(Changed(Sound(kind % 2 == 0, kind > 3), data + 1, size - 1), data[0] > 127);
    const ParsedResult parsed = ParseResult(bytes);
    Require(parsed.document.has_value() == parsed.problem.empty());
    if (!parsed.document)
        return 0;
    CheckRows(*parsed.document);
    CheckFormat(*parsed.document);
    if (data[0] / 6 % 8 == 0) { // a dozen files are written for each: not for all
        static Desk desk;
        desk.Show(bytes);
    }
    return 0;
}
