#include "apps/measure/outcome.h"

#include "apps/measure/options.h"
#include "bands/catalogue.h"
#include "base/text_format.h"
#include "desk/session.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cmath>

namespace qor::app {

namespace {

const char* VerdictWord(const CallResult& outcome, const Session* session) {
    if (outcome.status == InstrumentError)
        return "error";
    if (!outcome.measured || !session)
        return "none";
    switch (session->curve.verdict.Value()) {
    case VerdictPassed:
        return "passed";
    case VerdictFailed:
        return "failed";
    default:
        return "none";
    }
}

const char* MethodWord(int method) {
    static constexpr const char* Words[] = {"2tone", "sweep", "spectrum"};
    return Words[std::clamp(method, 1, 3) - 1];
}

/// A float of one or two decimals as the decimal it stands for.
double Decimal(float value) {
    return std::round(static_cast<double>(value) * 100.0) / 100.0;
}

double InDbm(const Curve& curve, float shown) {
    return Decimal(curve.scale.InDbc() ? shown + curve.scale.Carrier() : shown);
}

} // namespace

int PointsIn(const Session& session) {
    const auto present = [](float level) { return level != 0.0f; };
    const Curve& curve = session.curve;
    return static_cast<int>(std::count_if(curve.Up().begin(), curve.Up().end(), present) +
                            std::count_if(curve.Down().begin(), curve.Down().end(), present));
}

std::string ToJson(const CallResult& outcome, const Options* options, const Session* session) {
    QJsonObject object{{"verdict", VerdictWord(outcome, session)}};
    if (!outcome.message.empty())
        object["message"] = QString::fromStdString(outcome.message);
    QJsonArray files;
    for (const std::string& file : outcome.files)
        files.append(QString::fromStdString(file));
    object["files"] = files;
    if (options) {
        object["order"] = "IM" + QString::number(OrderOf(options->imIndex));
        object["method"] = MethodWord(options->method);
        object["path"] = options->path == 1 ? "reflection" : "transmission";
        object["band"] = QString::fromStdString(std::string(BandText(options->band)));
    }
    if (session) {
        const LinkState& link = session->link;
        const Curve& curve = session->curve;
        const bool known = !link.identity.ModelName().empty();
        const auto text = [known](const std::string& value) {
            return known ? QJsonValue(QString::fromStdString(value)) : QJsonValue();
        };
        object["model"] = text(link.identity.ModelName());
        object["serial"] = text(link.identity.Serial());
        object["firmware"] = text(Fixed(static_cast<double>(link.identity.Firmware()), 1));
        if (const std::string& receiver = session->run.Record().receiver; !receiver.empty())
            object["receiver"] = QString::fromStdString(receiver);
        object["points"] = PointsIn(*session);
        object["limit_dbm"] = InDbm(curve, curve.limit.Level());
        const bool worst = curve.WorstLevel() != 0.0f;
        object["worst_level_dbm"] = worst ? QJsonValue(InDbm(curve, curve.WorstLevel())) : QJsonValue();
        object["worst_freq_mhz"] = worst ? QJsonValue(Decimal(curve.WorstFrequency())) : QJsonValue();
    }
    return QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString() + "\n";
}

std::string ToText(const CallResult& outcome, const Options& options, const Session& session) {
    std::string text = std::string(BandText(options.band)) + " IM" +
                       std::to_string(OrderOf(options.imIndex)) + " " + MethodWord(options.method) + " " +
                       (options.path == 1 ? "reflection" : "transmission") + ": " +
                       VerdictWord(outcome, &session);
    const Curve& curve = session.curve;
    if (curve.WorstLevel() != 0.0f)
        text += ", worst " + Fixed(InDbm(curve, curve.WorstLevel()), 1) + " dBm at " +
                Fixed(static_cast<double>(curve.WorstFrequency()), 1) + " MHz";
    text += ", limit " + Fixed(InDbm(curve, curve.limit.Level()), 1) + " dBm, " +
            std::to_string(PointsIn(session)) + " points\n";
    for (const std::string& file : outcome.files)
        text += file + "\n";
    return text;
}

} // namespace qor::app
