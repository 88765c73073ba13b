// Commands of the alarm and the beeper.
#include "curve/alarm.h"
#include "desk/command.h"
#include "desk/program.h"

namespace qor {

void AddAlarmRows(MenuBuilder& menu) {
    menu.Menu("Alarm(&A)");
    menu.Add({.id = "alarm",
              .caption = "Alarm Oeffnen/Schliessen",
              .run =
                  [](Desk& desk, int) {
                      FlipAlarm(desk.program.State().curve.limit, desk.program.Stores());
                      return Outcome::Done();
                  },
              .checked = [](const Program& program, int) { return program.State().curve.limit.AlarmOn(); }});
    menu.Add({.id = "alarm_stamp",
              .caption = "Alarm Stempel Oeffnen/Schliessen",
              .run =
                  [](Desk& desk, int) {
                      FlipStamp(desk.program.State().curve.limit, desk.program.Stores());
                      return Outcome::Done();
                  },
              .checked = [](const Program& program, int) { return program.State().curve.limit.StampOn(); }});
    menu.Add({.id = "alarm_level", .caption = "Niveau", .noDialog = "Can not setup Alarm."});
    menu.Line();
    menu.Menu("Lautstaerke");
    // shown to the operator
    static constexpr std::pair<std::string_view, int> Tones[] = {
        {"Hoch", 2200}, {"Mitte", 1500}, {"Klein", 500}, {"Leise", 0}};
    for (const auto& [caption, hz] : Tones)
        menu.Add(
            {.id = "beep_tone",
             .argument = hz,
             .caption = caption,
             .run =
                 [](Desk& desk, int n) {
                     desk.program.State().alarm.ChooseTone(n, desk.program.Stores());
                     return Outcome::Done();
                 },
             .checked = [](const Program& program, int n) { return program.State().alarm.Tone() == n; }});
    menu.End();
    menu.Add(
        {.id = "under_limit_beep",
         .caption = "Under Limit Beep On/Off",
         .run =
             [](Desk& desk, int) {
                 desk.program.State().alarm.FlipUnderLimitBeep(desk.program.Stores());
                 return Outcome::Done();
             },
         .checked = [](const Program& program, int) { return program.State().alarm.BeepsUnderLimit(); }});
    menu.End();
}

} // namespace qor
