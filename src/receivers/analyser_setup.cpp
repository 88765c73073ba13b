#include "receivers/analyser_setup.h"

#include "bands/band.h"
#include "base/setup_store.h"
#include "base/tenths.h"
#include "base/text_format.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace qor {

namespace {

constexpr std::string_view StoreName = "rs_ANALYZER_setup.ccz";
constexpr std::size_t LongestStore = 100;
constexpr std::size_t Fields = 8;
constexpr std::size_t LongestSpan = 9; ///< digits: an analyser's whole range, in kHz
constexpr int WidestBandwidth = 12;    ///< "10MHz", which the operator cannot choose

constexpr std::string_view Attenuations[] = {"0", "5", "10", "15", "20", "25", "30"};
constexpr std::string_view Preamplifier[] = {"ON", "OFF"};
constexpr std::string_view Bandwidths[] = {"10Hz",  "30Hz",   "100Hz",  "300Hz", "1kHz", "3kHz", "10kHz",
                                           "30kHz", "100kHz", "300kHz", "1MHz",  "3MHz", "10MHz"};
constexpr std::string_view Tail[] = {"CALC:MARK1 ON", "INIT;*WAI", "CALC:MARK:STAT ON", "CALC:MARK:TRAC 1",
                                     "CALC:MARK:MAX:AUTO ON"};

bool IsDigits(std::string_view text, std::size_t longest = 7) {
    return !text.empty() && text.size() <= longest &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

/// A decimal as it may stand in a command: nothing but sign, digits and one point.
bool IsDecimal(std::string_view text) {
    return text.size() <= 8 && EnteredNumber(text) &&
           text.find_first_not_of("+-.0123456789") == std::string_view::npos;
}

/// A place in a list as stored; what is no number is the default.
int PlaceIn(std::string_view text, int usual) {
    const auto number = EnteredNumber(text);
    return number && std::abs(*number) < 1e6 ? static_cast<int>(*number) : usual;
}

std::string_view EntryOf(std::span<const std::string_view> list, int place) {
    return place >= 0 && static_cast<std::size_t>(place) < list.size() ? list[static_cast<std::size_t>(place)]
                                                                       : std::string_view();
}

std::string Joined(std::initializer_list<std::string_view> parts) {
    std::string text;
    for (const std::string_view part : parts)
        text += part;
    return text;
}

} // namespace

std::span<const std::string_view> AttenuationTexts() {
    return Attenuations;
}

std::span<const std::string_view> PreamplifierTexts() {
    return Preamplifier;
}

std::span<const std::string_view> BandwidthTexts() {
    return Bandwidths;
}

std::span<const std::string_view> MarkerTail() {
    return Tail;
}

std::optional<AnalyserSetup> ParseAnalyserSetup(std::string_view text) {
    std::array<std::string_view, Fields> field;
    for (std::size_t n = 0; n < Fields; ++n) {
        const std::size_t end = text.find('#');
        if (end == std::string_view::npos) {
            if (n == 0)
                return std::nullopt;
            break;
        }
        field[n] = text.substr(0, end);
        text.remove_prefix(end + 1);
    }
    AnalyserSetup setup;
    if (IsDigits(field[0]))
        setup.centre = field[0];
    if (IsDigits(field[1], LongestSpan))
        setup.span = field[1];
    if (IsDecimal(field[2]))
        setup.reference = field[2];
    if (IsDecimal(field[3]))
        setup.scale = field[3];
    setup.attenuation = PlaceIn(field[4], setup.attenuation);
    setup.preamplifier = PlaceIn(field[5], setup.preamplifier);
    setup.resolution = PlaceIn(field[6], setup.resolution);
    setup.video = PlaceIn(field[7], setup.video);
    return setup;
}

std::string FormatAnalyserSetup(const AnalyserSetup& setup) {
    std::string text;
    for (const std::string& field :
         {setup.centre, setup.span, setup.reference, setup.scale, std::to_string(setup.attenuation),
          std::to_string(setup.preamplifier), std::to_string(setup.resolution), std::to_string(setup.video)})
        text += field + '#';
    return text;
}

StoredAnalyserSetup ReadAnalyserSetup(const SetupStore& store) {
    const auto text = store.Read(StoreName, LongestStore);
    return {text.has_value(), ParseAnalyserSetup(text.value_or(""))};
}

bool WriteAnalyserSetup(SetupStore& store, const AnalyserSetup& setup) {
    return store.Write(StoreName, FormatAnalyserSetup(setup));
}

std::vector<std::string> SetupCommands(const std::optional<AnalyserSetup>& stored) {
    const AnalyserSetup setup = stored.value_or(AnalyserSetup{});
    std::vector<std::string> commands;
    if (stored)
        commands.push_back(Joined({"FREQUENCY:CENTER ", setup.centre, "000000Hz"}));
    commands.push_back(
        Joined({"FREQUENCY:SPAN ", stored ? std::string_view(setup.span) : std::string_view(), "000Hz"}));
    commands.push_back(Joined({"DISP:WIND:TRAC:Y:RLEV ", setup.reference, "dBm"}));
    commands.push_back(Joined({"DISP:WIND:TRAC:Y:SCAL ", setup.scale, "dB"}));
    commands.push_back(Joined({"INP:ATT ", EntryOf(Attenuations, setup.attenuation), "dB"}));
    commands.push_back(Joined({"INP:GAIN:STAT ", EntryOf(Preamplifier, setup.preamplifier)}));
    commands.push_back(Joined({"BAND:RES ", EntryOf(Bandwidths, setup.resolution)}));
    commands.push_back(Joined({"BAND:VID ", EntryOf(Bandwidths, setup.video)}));
    commands.emplace_back("DISP:WIND:TRAC:Y:SPAC LOG");
    commands.insert(commands.end(), std::begin(Tail), std::end(Tail));
    return commands;
}

std::string_view FieldBeyondItsList(const AnalyserSetup& setup) {
    // shown to the operator
    static constexpr std::string_view Captions[] = {
        "Input_Attenuation:", "Preamplify On/Off:", "Resolution_Bandwidth:", "Video_Bandwidth:"};
    if (EntryOf(Attenuations, setup.attenuation).empty())
        return Captions[0];
    if (EntryOf(Preamplifier, setup.preamplifier).empty())
        return Captions[1];
    if (EntryOf(Bandwidths, setup.resolution).empty())
        return Captions[2];
    return EntryOf(Bandwidths, setup.video).empty() ? Captions[3] : std::string_view();
}

Outcome CheckAnalyserSetup(const AnalyserSetup& setup) {
    const bool scale =
        IsDigits(setup.scale) && WholeNumberIn(setup.scale) > 0 && WholeNumberIn(setup.scale) % 10 == 0;
    const bool good = IsDigits(setup.centre) && IsDigits(setup.span, LongestSpan) &&
                      IsDecimal(setup.reference) && scale && FieldBeyondItsList(setup).empty() &&
                      setup.resolution < WidestBandwidth && setup.video < WidestBandwidth;
    return good ? Outcome::Done() : Outcome::Refused("Falsch, dichtesortierung.");
}

AnalyserSetup StandardAnalyserSetup(int band) {
    static constexpr struct {
        int band;
        const char* centre;
    } Centres[] = {{BandAmps, "844"},      {BandEgsm, "910"},   {BandLte, "745"},    {BandDcs, "1775"},
                   {BandUmts, "2050"},     {BandPcs, "1874"},   {BandWiMax, "3426"}, {BandTdScdmaA, "2025"},
                   {BandTdScdmaF, "1880"}, {BandDigDiv, "832"}, {BandAws, "1710"},   {BandTdScdmaE, "2300"}};
    AnalyserSetup setup;
    for (const auto& row : Centres)
        if (row.band == band)
            setup.centre = row.centre;
    return setup;
}

void TakeCentre(AnalyserSetup& setup, std::string_view answer) {
    const auto hertz = EnteredNumber(answer);
    if (hertz && *hertz >= 1e6 && *hertz < 1e12)
        setup.centre = Fixed(std::floor(*hertz / 1e6), 0);
}

void TakeSpan(AnalyserSetup& setup, std::string_view answer) {
    const auto hertz = EnteredNumber(answer);
    if (hertz && *hertz >= 1e3 && *hertz < 1e12)
        setup.span = Fixed(std::floor(*hertz / 1e3), 0);
}

void TakeReference(AnalyserSetup& setup, std::string_view answer) {
    const auto dBm = EnteredNumber(answer);
    if (dBm && std::abs(*dBm) < 1000)
        setup.reference = Fixed(*dBm, *dBm == std::floor(*dBm) ? 0 : 1);
}

} // namespace qor
