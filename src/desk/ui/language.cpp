#include "desk/ui/language.h"

#include <QtWidgets>

namespace qor::ui {

void InstallLanguage(Language language) {
    static constexpr const char* Codes[] = {"en", "zh", "de"};
    const QString code = QLatin1String(Codes[static_cast<int>(language)]);
    auto* texts = new QTranslator(qApp);
    if (texts->load(QStringLiteral(":/translations/qor_") + code))
        QCoreApplication::installTranslator(texts);
    // The toolkit's own dialogs, where their catalogue is installed.
    auto* toolkit = new QTranslator(qApp);
    const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    if (toolkit->load((language == Language::Chinese ? QStringLiteral("qtbase_zh_CN")
                                                     : QStringLiteral("qtbase_") + code),
                      folder))
        QCoreApplication::installTranslator(toolkit);
}

} // namespace qor::ui
