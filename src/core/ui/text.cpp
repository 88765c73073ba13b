#include "core/ui/text.h"

#include <QStringList>

namespace qor::ui {

QString Tr(std::string_view text) {
    constexpr std::string_view Blank = " \t\n";
    const std::size_t first = text.find_first_not_of(Blank);
    if (first == std::string_view::npos)
        return Plain(text);
    const std::size_t end = text.substr(0, text.find('\t', first)).find_last_not_of(Blank) + 1;
    const std::string key(text.substr(first, end - first));
    return Plain(text.substr(0, first)) + QCoreApplication::translate("qor", key.c_str()) +
           Plain(text.substr(end));
}

namespace {

QString TrParts(const QString& text, const QString& separator) {
    QStringList parts = text.split(separator);
    for (qsizetype i = 0; i < parts.size(); ++i) {
        // A sentence lost its stop to the split; its key has it.
        const bool stop = separator == QStringLiteral(". ") && i + 1 < parts.size();
        const QString key = stop ? parts[i] + '.' : parts[i];
        QString shown = Tr(Utf8(key));
        if (stop && shown.endsWith('.'))
            shown.chop(1);
        parts[i] = stop && shown == key ? parts[i] : shown;
    }
    return parts.join(separator);
}

QString TrLine(const QString& line) {
    const QString whole = Tr(Utf8(line));
    if (whole != line)
        return whole;
    const qsizetype colon = line.indexOf(QStringLiteral(": "));
    if (colon < 0)
        return TrParts(line, QStringLiteral(". "));
    return Tr(Utf8(line.left(colon))) + QStringLiteral(": ") + TrLine(line.mid(colon + 2));
}

} // namespace

QString TrText(std::string_view text) {
    const QString source = Plain(text);
    const QString whole = Tr(text);
    if (whole != source)
        return whole;
    QStringList lines = source.split('\n');
    for (QString& line : lines)
        line = TrLine(line);
    return lines.join('\n');
}

} // namespace qor::ui
