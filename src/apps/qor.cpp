// qor: the operator's window.
#include "apps/common/end_signals.h"
#include "apps/common/instrument_line.h"
#include "apps/common/receivers.h"
#include "apps/desktop/options.h"
#include "desk/program.h"
#include "desk/ui/desktop_launcher.h"
#include "desk/ui/language.h"
#include "desk/ui/looks.h"
#include "desk/ui/main_frame.h"
#include "desk/ui/open_dialog.h"
#include "desk/ui/pictures.h"
#include "desk/ui/text.h"
#include "desk/ui/user_modes_dialog.h"
#include "desk/ui/window_operator.h"
#include "platform/alsa/alsa_speaker.h"
#include "platform/posix/posix_clock.h"
#include "platform/print/qt_printers.h"
#include "platform/wire_log.h"
#include "results/paint/qt_page_forms.h"
#include "results/xlsx/xlsx_writer.h"

#include <QApplication>
#include <QProcess>

#include <cstdio>
#include <cstdlib>

namespace {

using namespace qor;

/// Starts the program anew with the same options once this one has ended.
void StartAgain(bool keepSession) {
    QStringList arguments = QCoreApplication::arguments().mid(1);
    arguments.removeAll(QStringLiteral("-ConfigStart"));
    if (keepSession)
        arguments << QStringLiteral("-ConfigStart");
    QProcess::startDetached(QCoreApplication::applicationFilePath(), arguments);
}

template <typename Line> int RunToEnd(const app::DesktopOptions& options, Line& line) {
    PosixClock clock;
    WireLog wire(clock);
    ui::WindowOperator user;
    if (!options.wireFile.empty() && !wire.OpenFile(options.wireFile)) {
        std::fprintf(stderr, "qor: %s: cannot be written.\n", options.wireFile.c_str());
        return 1;
    }
    LoggedComm comm(line.comm, wire);
    QtTimers timers;
    AlsaSpeaker speaker;
    ui::DesktopLauncher launcher;
    ui::WindowDialogs dialogs;
    QtPageForms pictures([](std::string_view text) { return ui::Utf8(ui::Tr(text)); });
    QtPrinters printers;
    const app::ReceiverParts receivers = app::ReceiversBeside(line, options.simulateReceiver, clock);
    int status = 0;
    {
        Program program({comm, line.ports, timers, clock, user, receivers.visa.get(), receivers.sensor.get(),
                         &speaker, &launcher, &dialogs, &pictures, &printers},
                        options.dataDirectory);
        AddXlsx(program.Files().Forms());
        ui::InstallLanguage(CurrentLanguage(program.Stores()));
        ui::ApplyLook(options.configStart ? Appearance(program.Stores()).Skin() : SkinDefault);
        ui::OpenUserLogOn(program, nullptr);
        program.Start(options.configStart);
        program.Receiver().LookAtStart();
        ui::CMainFrame window(program, dialogs);
        user.SetWindow(&window);
        dialogs.SetWindow(program, window);
        const app::EndSignals ending([&program] { program.Leave(); });
        QObject::connect(qApp, &QGuiApplication::commitDataRequest, [&program] { program.Leave(); });
        program.SetQuit([&window](int code) {
            window.LetGo();
            QCoreApplication::exit(code);
        });
        window.show();
        window.Refresh();
        status = QApplication::exec();
    }
    if (launcher.RestartAsked())
        StartAgain(launcher.KeepsSession());
    return status;
}

/// The toolkit ends the process where there is no screen; the operator of a shell is told so in a sentence
/// first.
void WithoutScreen(QtMsgType type, const QMessageLogContext& /*where*/, const QString& /*text*/) {
    if (type != QtFatalMsg)
        return;
    std::fputs("qor: There is no display to show the window on. qor-measure measures without one.\n", stderr);
    std::_Exit(4);
}

} // namespace

int main(int argc, char* argv[]) {
    QStringList arguments;
    for (int n = 0; n < argc; ++n)
        arguments << QString::fromLocal8Bit(argv[n]);
    const app::ParsedDesktopOptions parsed = app::ParseDesktopOptions(arguments);
    if (!parsed.options) {
        std::fprintf(parsed.isAnswer ? stdout : stderr, "%s%s",
                     parsed.isAnswer ? "" : "qor: ", parsed.text.c_str());
        if (!parsed.isAnswer)
            std::fputs("\n", stderr);
        return parsed.isAnswer ? 0 : 4;
    }
    const QtMessageHandler usual = qInstallMessageHandler(WithoutScreen);
    QApplication application(argc, argv);
    qInstallMessageHandler(usual);
    QCoreApplication::setApplicationName(QStringLiteral("qor"));
    QCoreApplication::setApplicationVersion(QStringLiteral(QOR_VERSION));
    QApplication::setWindowIcon(ui::ProgramIcon());
    QApplication::setQuitOnLastWindowClosed(false); // the program ends in order, the window with it
    if (parsed.options->simulate) {
        app::SimulatedLine line(*parsed.options->simulate, parsed.options->simulateSwitchUnit);
        return RunToEnd(*parsed.options, line);
    }
    app::RealLine line(parsed.options->ports, parsed.options->allPorts ? PortScope::All : PortScope::Usb);
    return RunToEnd(*parsed.options, line);
}
