#include "measure/run_shape.h"

#include "curve/curve.h"
#include "curve/readout.h"
#include "link/link_state.h"
#include "measure/run.h"

namespace qor {

void RunShape::Queue(const StartCommands& commands) {
    LinkState& link = m_Parts.link;
    link.queue.ClearParams();
    link.transaction.ForgetStep();
    for (const StartCommand& command : commands)
        link.queue.Append(command.text, command.tag, command.param);
}

float RunShape::Corrected(const Reading& reading) const {
    const RunRecord& record = m_Parts.run.Record();
    return AsPoint(reading.Dbm() + record.rxLoss + record.bandRxLoss);
}

void RunShape::Show(float dBm) {
    if (!m_Parts.readout.ShowLevel(dBm))
        return; // too late: the run has been stopped
    m_Parts.curve.NoteShown(dBm);
    m_Parts.host.LevelShown();
}

} // namespace qor
