#include "desk/ui/desktop_launcher.h"

#include "desk/ui/text.h"

#include <QtWidgets>

namespace qor::ui {

bool DesktopLauncher::Show(const std::string& addressOrPath) {
    const QString text = Plain(addressOrPath);
    const QUrl url = text.contains(QStringLiteral("://")) ? QUrl(text) : QUrl::fromLocalFile(text);
    if (url.isLocalFile() && !QFileInfo::exists(url.toLocalFile()))
        return false;
    return QDesktopServices::openUrl(url);
}

bool DesktopLauncher::Start(const std::filesystem::path& program) {
    return QProcess::startDetached(Plain(program.string()), {});
}

void DesktopLauncher::RestartAfterEnd(bool keepSession) {
    m_Restart = true;
    m_KeepSession = keepSession;
}

} // namespace qor::ui
