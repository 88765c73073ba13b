// Any bytes as a result file: refused with a reason, or read as something that can be shown and written
// again.
#include "bands/setup_store.h"
#include "core/session.h"
#include "display/curve_store.h"
#include "platform/operator.h"
#include "platform/platform.h"
#include "platform/port_list.h"
#include "platform/serial_control.h"
#include "results/result_files.h"
#include "support/temp_dir.h"
#include "support/virtual_time.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>

namespace {

using namespace qor;

void Require(bool condition) {
    if (!condition)
        std::abort();
}

std::string Sound(bool twoTone, bool wide) {
    ResultFile file;
    file.tone1 = {935, 925, 937, 43};
    file.tone2 = {960, 960, 946, 43};
    file.twoTone = twoTone;
    file.inDbc = wide;
    file.order = wide ? 11 : 3;
    file.model = "RT-DB22";
    file.serial = wide ? "12345678901" : "SIM01";
    file.date = "20260307";
    file.time = "09:05";
    for (int i = 0; i < 8; ++i)
        (i < 5 || twoTone ? file.up : file.down).push_back({twoTone ? i * 0.1 : 890 + i % 5, -100.5f});
    file.limitText = "-90.0";
    file.comment = "comment\n";
    return FormatResult(file);
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

void CheckRows(const ResultFile& file) {
    Require(!file.up.empty());
    for (const auto* rows : {&file.up, &file.down}) {
        for (std::size_t i = 0; i < rows->size(); ++i) {
            const ResultFile::Row& row = (*rows)[i];
            Require(std::isfinite(row.x) && std::isfinite(row.level));
            if (file.form == ResultFile::Form::Oldest)
                continue;
            Require(row.level < 0);
            Require(file.twoTone ? i == 0 || row.x > (*rows)[i - 1].x : row.x > 0.1);
        }
    }
}

/// Once its numbers have the decimals of a file, a result is written and read back without a change.
void CheckFormat(const ResultFile& file) {
    if (file.form == ResultFile::Form::Oldest)
        return;
    const ParsedResult rounded = ParseResult(FormatResult(file));
    if (!rounded.file) // its only level was rounded to 0, or the comment makes it too long
        return;
    const std::string text = FormatResult(*rounded.file);
    for (const bool scrambled : {false, true}) {
        const std::string bytes = EncodeResult(text, scrambled);
        if (bytes.size() > LongestResultFile)
            return;
        const ParsedResult again = ParseResult(bytes);
        Require(again.file && FormatResult(*again.file) == text);
    }
}

class SilentOperator final : public Operator {
    void Message(std::string_view, std::string_view) override {}
    bool Ask(std::string_view, std::string_view) override { return true; }
};

class NoPorts final : public PortList {
    std::vector<SerialDevice> List() override { return {}; }
    std::string DeviceOf(int) const override { return {}; }
};

class NoLine final : public CMSComm {
    void SetCommPort(int) override {}
    void SetSettings(std::string_view) override {}
    void SetInputMode(CommInputMode) override {}
    void SetInputLen(int) override {}
    void SetRThreshold(int) override {}
    void SetSThreshold(int) override {}
    void SetPortOpen(bool) override {}
    bool GetPortOpen() const override { return false; }
    void SetOutput(std::string_view) override {}
    void GetInput(std::string&) override {}
};

/// One session that is shown file after file.
struct Desk {
    test::TempDir dir;
    test::VirtualTime time;
    NoLine line;
    NoPorts ports;
    SilentOperator user;
    Platform platform{line, ports, time.timers, time.clock, user};
    SetupStore store{dir.Path()};
    Session session;
    ResultFiles files{session, platform, store};

    void Show(const std::string& bytes) {
        std::ofstream(dir / "shown.dat", std::ios::binary) << bytes;
        Require(files.CurrentShow(dir / "shown.dat"));
        const CurveState& curve = session.curve;
        Require(std::is_sorted(curve.g_freqGrid.begin(),
                               curve.g_freqGrid.begin() +
                                   static_cast<std::ptrdiff_t>(GridLength(curve.g_freqGrid))));
        Require(curve.tone2SetTimes > 0 && curve.g_testTimeMs > 0 && std::isfinite(curve.g_pxPerStep));
        Require(files.DataSave(dir / "saved.dat") ||
                session.results.loaded->form == ResultFile::Form::Oldest);
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
    Require(parsed.file.has_value() == parsed.problem.empty());
    if (!parsed.file)
        return 0;
    CheckRows(*parsed.file);
    CheckFormat(*parsed.file);
    if (data[0] / 6 % 8 == 0) { // a dozen files are written for each: not for all
        static Desk desk;
        desk.Show(bytes);
    }
    return 0;
}
