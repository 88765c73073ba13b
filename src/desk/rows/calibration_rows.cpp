// The buttons of the calibration page.
#include "desk/command.h"
#include "desk/program.h"

namespace qor {

void AddCalibrationRows(MenuBuilder& menu) {
    constexpr Guards OnPage{.page = ServicePage::Calibration};
    menu.AddHidden({.id = "calibration_run", .guards = OnPage, .run = [](Desk& desk, int) {
                        Program& program = desk.program;
                        if (program.IsInCall()) { // a stop is heard while the receiver is waited for
                            if (program.Calibrations().Power().IsOn())
                                program.GiveCallUp();
                            else
                                return Outcome::Refused({});
                        }
                        return program.Calibrations().PressRun();
                    }});
    menu.AddHidden({.id = "calibration_continue", .guards = OnPage, .run = [](Desk& desk, int) {
                        return desk.program.Calibrations().PressContinue();
                    }});
    menu.AddHidden({.id = "calibration_read", .guards = OnPage, .run = [](Desk& desk, int) {
                        return desk.program.Calibrations().PressRead();
                    }});
    CommandRow read{.id = "receiver_calibration_read", .guards = OnPage, .run = [](Desk& desk, int dBm) {
                        using Signal = ReceiverCalibration::Signal;
                        return desk.program.Calibrations().Receiver().Read(dBm == -50 ? Signal::Strong
                                                                                      : Signal::Weak);
                    }};
    for (const int dBm : {-50, -80}) {
        read.argument = dBm;
        menu.AddHidden(read);
    }
    menu.AddHidden({.id = "receiver_calibration_write", .guards = OnPage, .run = [](Desk& desk, int) {
                        return desk.program.Calibrations().Receiver().Write();
                    }});
}

} // namespace qor
