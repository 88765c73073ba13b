#pragma once

#include "platform/qt/qt_serial_port.h"
#include "platform/qt/qt_timers.h"
#include "platform/qt/system_port_list.h"
#include "sim/instrument.h"
#include "sim/simulated_port.h"
#include "sim/switch_unit.h"

#include <string>
#include <vector>

namespace qor::app {

/// The line to the instrument: the serial devices of the machine, those named first.
struct RealLine {
    RealLine(const std::vector<std::string>& devices, PortScope scope) : ports(devices, scope), comm(ports) {}
    SystemPortList ports;
    QtSerialPort comm;
};

/// A simulated instrument in this process, and beside it a band switch unit where that is wanted.
struct SimulatedLine {
    SimulatedLine(const sim::InstrumentConfig& config, bool switchUnit)
        : instrument(config), line(instrument), unitLine(unit), ports(later), comm(ports, later) {
        ports.Add(line);
        if (switchUnit)
            ports.Add(unitLine);
    }
    QtScheduler later;
    sim::Instrument instrument;
    sim::Line line;
    sim::SwitchUnit unit;
    sim::Line unitLine;
    sim::SimulatedPortList ports;
    sim::SimulatedPort comm;
};

} // namespace qor::app
