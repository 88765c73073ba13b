#include "desk/ui/plot_words.h"

#include "curve/plot_scene.h"
#include "desk/panel.h"
#include "desk/session.h"
#include "desk/ui/text.h"

#include <QStringList>

namespace qor::ui {

namespace {

// shown to the operator
constexpr std::string_view VerdictWords[] = {"kein Urteil", "bestanden", "nicht bestanden", "Geraetefehler"};

} // namespace

QString VerdictText(const RunFacts& facts) {
    return Tr(VerdictWords[static_cast<int>(Judge(facts))]);
}

QString CurveSentence(const Session& session, const Panel& panel) {
    const Curve& curve = session.curve;
    const RunFacts facts = curve.Facts();
    const QString unit = ' ' + Plain(panel.unit);
    QStringList parts{Tr(panel.m_Mode_sel)};
    if (facts.asked > 0) // counted when a pass is over, and not while it is on
        parts << Tr(PointsPattern).arg(facts.taken).arg(facts.asked);
    if (!panel.m_WorstLevelText.empty())
        parts << Tr("schlechtester Punkt:") + ' ' + Plain(panel.m_WorstLevelText) + unit + ' ' +
                     Plain(panel.m_WorstFreqText) + QStringLiteral(" MHz");
    parts << Tr("Grenzwert:") + ' ' + Plain(panel.m_AlarmText) + unit << VerdictText(facts);
    return parts.join(QStringLiteral(", ")) + '.';
}

QString PartText(const RunFacts& facts) {
    return facts.IsPartial() ? Tr(PointsPattern).arg(facts.taken).arg(facts.asked) : QString();
}

} // namespace qor::ui
