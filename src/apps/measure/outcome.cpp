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

const char* VerdictWord(const Session* session) {
    static constexpr const char* Words[] = {"none", "passed", "failed", "error"};
    return Words[session ? static_cast<int>(Judge(MeasuredFacts(*session))) : 0];
}

const char* MethodWord(int method) {
    static constexpr const char* Words[] = {"2tone", "sweep", "spectrum"};
    return Words[std::clamp(method, 1, 3) - 1];
}

/// A float of one or two decimals as the decimal it stands for.
double Decimal(float value) {
    return std::round(static_cast<double>(value) * 100.0) / 100.0;
}

double LimitOf(const Curve& curve) {
    return Decimal(curve.limit.Level() + curve.scale.Reference());
}

} // namespace

RunFacts MeasuredFacts(const Session& session) {
    RunFacts facts = session.curve.Facts();
    facts.watched = true;
    return facts;
}

std::string ToJson(const CallResult& outcome, const Options* options, const Session* session) {
    QJsonObject object{{"verdict", VerdictWord(session)}};
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
        object["firmware"] = text(Fixed(static_cast<double>(link.identity.Firmware()), 1));
        if (const std::string& receiver = session->run.Record().receiver; !receiver.empty())
            object["receiver"] = QString::fromStdString(receiver);
        const RunFacts facts = MeasuredFacts(*session);
        // "00000" is said of an instrument that was asked and has none.
        const bool asked = link.identity.HasSerial() || facts.asked > 0;
        object["serial"] = asked ? text(link.identity.Serial()) : QJsonValue();
        object["points"] = facts.taken;
        object["points_asked"] = facts.asked;
        object["limit_dbm"] = LimitOf(curve);
        const auto worst = curve.WorstLevel();
        object["worst_level_dbm"] = worst ? QJsonValue(Decimal(*worst)) : QJsonValue();
        object["worst_freq_mhz"] = worst ? QJsonValue(Decimal(curve.WorstFrequency())) : QJsonValue();
    }
    return QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString() + "\n";
}

std::string ToText(const CallResult& outcome, const Options& options, const Session& session) {
    std::string text = std::string(BandText(options.band)) + " IM" +
                       std::to_string(OrderOf(options.imIndex)) + " " + MethodWord(options.method) + " " +
                       (options.path == 1 ? "reflection" : "transmission") + ": " + VerdictWord(&session);
    const Curve& curve = session.curve;
    if (const auto worst = curve.WorstLevel())
        text += ", worst " + Fixed(static_cast<double>(*worst), 1) + " dBm at " +
                Fixed(static_cast<double>(curve.WorstFrequency()), 1) + " MHz";
    const RunFacts facts = MeasuredFacts(session);
    text += ", limit " + Fixed(LimitOf(curve), 1) + " dBm, " + std::to_string(facts.taken) + " of " +
            std::to_string(facts.asked) + " points\n";
    for (const std::string& file : outcome.files)
        text += file + "\n";
    return text;
}

} // namespace qor::app
