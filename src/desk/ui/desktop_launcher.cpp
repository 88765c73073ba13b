#include "desk/ui/desktop_launcher.h"

#include "desk/ui/text.h"

#include <QtWidgets>

#include <csignal>
#include <unistd.h>

extern "C" { // the header does not say so itself
#include <sys/pidfd.h>
}

namespace qor::ui {

bool DesktopLauncher::Show(const std::string& addressOrPath) {
    const QString text = Plain(addressOrPath);
    const QUrl url = text.contains(QStringLiteral("://")) ? QUrl(text) : QUrl::fromLocalFile(text);
    if (url.isLocalFile() && !QFileInfo::exists(url.toLocalFile()))
        return false;
    return QDesktopServices::openUrl(url);
}

bool DesktopLauncher::Start(const std::filesystem::path& program) {
    qint64 process = 0;
    if (!QProcess::startDetached(Plain(program.string()), {}, {}, &process))
        return false;
    if (const int descriptor = ::pidfd_open(static_cast<pid_t>(process), 0); descriptor >= 0)
        m_Started.push_back(descriptor);
    return true;
}

void DesktopLauncher::CloseStarted() {
    for (const int process : m_Started) {
        ::pidfd_send_signal(process, SIGTERM, nullptr, 0);
        ::close(process);
    }
    m_Started.clear();
}

DesktopLauncher::~DesktopLauncher() {
    for (const int process : m_Started)
        ::close(process);
}

void DesktopLauncher::RestartAfterEnd(bool keepSession) {
    m_Restart = true;
    m_KeepSession = keepSession;
}

} // namespace qor::ui
