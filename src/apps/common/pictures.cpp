#include "apps/common/pictures.h"

#include <cstdio>
#include <filesystem>
#include <string>
#include <unistd.h>

#ifdef QOR_PICTURES
#include "results/paint/qt_page_forms.h"

#include <QGuiApplication>
#else
#include "results/report/page_forms.h"
#endif

namespace qor::app {

#ifdef QOR_PICTURES
bool CanPaint() {
    return true;
}

std::unique_ptr<QCoreApplication> MakeApplication(int& argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1); // no display
    qInstallMessageHandler([](QtMsgType kind, const QMessageLogContext&, const QString& text) {
        if (kind == QtCriticalMsg || kind == QtFatalMsg) // the rest speaks of a desktop session
            std::fprintf(stderr, "%s\n", qPrintable(text));
    });
    return std::make_unique<QGuiApplication>(argc, argv);
}

std::unique_ptr<PageForms> MakePageForms() {
    return std::make_unique<QtPageForms>();
}
#else
bool CanPaint() {
    return false;
}

std::unique_ptr<QCoreApplication> MakeApplication(int& argc, char** argv) {
    return std::make_unique<QCoreApplication>(argc, argv);
}

std::unique_ptr<PageForms> MakePageForms() {
    return nullptr;
}
#endif

void TakeOver(const char* program, char** argv) {
    std::error_code unknown;
    const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", unknown);
    const std::filesystem::path twin = self.parent_path() / (std::string(program) + "-pictures");
    execv(twin.c_str(), argv);
}

} // namespace qor::app
