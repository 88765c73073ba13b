#pragma once

#include "base/outcome.h"

namespace qor {

class Connection;
class Measurement;
struct Platform;
struct Session;

/// The start button, "Beginnen Messung" or "Halten Messung", with whatever the operator has to be told or
/// asked for a start.
class StartButton {
public:
    StartButton(Session& session, const Platform& platform, Measurement& measurement, Connection& connection)
        : m_Session(session), m_Platform(platform), m_Measurement(measurement), m_Connection(connection) {}

    /// Starts, or stops the run that is on. Refused without words where the operator did not want what the
    /// start needs.
    Outcome Press();

private:
    Outcome Connect();
    Outcome AskForInterBand();

    Session& m_Session;
    const Platform& m_Platform;
    Measurement& m_Measurement;
    Connection& m_Connection;
};

} // namespace qor
