// qor-measure: one measurement from the shell, its verdict as the exit status.
#include "apps/common/answer.h"
#include "apps/common/end_signals.h"
#include "apps/common/instrument_line.h"
#include "apps/common/pictures.h"
#include "apps/common/receivers.h"
#include "apps/measure/console.h"
#include "apps/measure/job.h"
#include "apps/measure/options.h"
#include "apps/measure/outcome.h"
#include "desk/program.h"
#include "platform/posix/posix_clock.h"
#include "platform/qt/qt_timers.h"
#include "platform/wire_log.h"
#include "results/report/page_forms.h"
#include "results/xlsx/xlsx_writer.h"

#include <QCoreApplication>

#include <cstdio>

namespace {

bool g_StopAsked = false;

using namespace qor;

template <typename Line>
int RunToEnd(QCoreApplication& application, const app::Options& options, Line& line) {
    app::Console console;
    const PosixClock clock;
    WireLog wire(clock);
    if (!options.wireFile.empty() && !wire.OpenFile(options.wireFile)) {
        console.Message(options.wireFile + ": cannot be written.");
        return app::FileFailed;
    }
    PosixClock programClock;
    LoggedComm comm(line.comm, wire);
    QtTimers timers;
    const app::ReceiverParts receivers = app::ReceiversBeside(line, options.simulateReceiver, programClock);
    const std::unique_ptr<PageForms> pictures = app::MakePageForms();
    Program program({comm, line.ports, timers, programClock, console, receivers.visa.get(),
                     receivers.sensor.get(), nullptr, nullptr, nullptr, pictures.get()},
                    options.dataDirectory);
    AddXlsx(program.Files().Forms());
    app::Job job(
        program, options, console, wire, [] { return g_StopAsked; }, [&] { application.quit(); });
    job.Start();
    QCoreApplication::exec();

    app::CallResult outcome = job.Result();
    if (!wire.FileIsWhole() && outcome.status == app::Passed) {
        outcome.status = app::FileFailed;
        outcome.message = options.wireFile + ": cannot be written.";
        console.Message(outcome.message);
    }
    const std::string answer = options.json ? app::ToJson(outcome, &options, &program.State())
                                            : app::ToText(outcome, options, program.State());
    if (!app::PrintAnswer(answer)) {
        console.Message("The answer could not be written to the standard output.");
        if (outcome.status == app::Passed)
            outcome.status = app::FileFailed;
    }
    return outcome.status;
}

} // namespace

int main(int argc, char* argv[]) {
    const std::unique_ptr<QCoreApplication> application = app::MakeApplication(argc, argv);
    QCoreApplication::setApplicationName("qor-measure");
    const app::ParsedOptions parsed = app::ParseOptions(QCoreApplication::arguments());
    if (parsed.isAnswer) {
        std::fputs(parsed.text.c_str(), stdout);
        return app::Passed;
    }
    if (!parsed.options) {
        std::fprintf(stderr, "qor-measure: %s\n", parsed.text.c_str());
        if (parsed.json)
            std::fputs(app::ToJson({app::BadRequest, parsed.text, {}}, nullptr, nullptr).c_str(), stdout);
        return app::BadRequest;
    }
    if (parsed.options->WantsPictures() && !app::CanPaint()) {
        app::TakeOver("qor-measure", argv);
        std::fputs("qor-measure: qor-measure-pictures is missing beside it: no .pdf, .bmp and .jpg.\n",
                   stderr);
        return app::FileFailed;
    }
    const app::EndSignals ending([] { g_StopAsked = true; });
    if (parsed.options->simulate) {
        app::SimulatedLine line(*parsed.options->simulate, parsed.options->simulateSwitchUnit);
        return RunToEnd(*application, *parsed.options, line);
    }
    app::RealLine line(parsed.options->ports, PortScope::Given);
    return RunToEnd(*application, *parsed.options, line);
}
