#include "desk/ui/text.h"

#include <QRegularExpression>
#include <QStringList>

namespace qor::ui {

QString Tr(std::string_view text) {
    constexpr std::string_view Blank = " \t\r\n";
    const std::size_t first = text.find_first_not_of(Blank);
    if (first == std::string_view::npos)
        return Plain(text);
    const std::size_t end = text.substr(0, text.find('\t', first)).find_last_not_of(Blank) + 1;
    const std::string key(text.substr(first, end - first));
    return Plain(text.substr(0, first)) + QCoreApplication::translate("qor", key.c_str()) +
           Plain(text.substr(end));
}

namespace {

/// A part of a text; the key may be without its stop or colon, or without the number at its end.
QString TrPart(const QString& part) {
    QString shown = Tr(Utf8(part));
    if (shown != part)
        return shown;
    qsizetype end = part.size();
    if (part.endsWith('.') || part.endsWith(':'))
        --end;
    else
        while (end > 0 && part[end - 1].isDigit())
            --end;
    return Tr(Utf8(part.left(end))) + part.mid(end);
}

/// The part up to the first stop or colon with a blank behind it, and the rest in its turn.
QString TrParts(const QString& text) {
    QString whole = Tr(Utf8(text));
    if (whole != text)
        return whole;
    static const QRegularExpression End(QStringLiteral("[.:] "));
    const qsizetype at = text.indexOf(End) + 1;
    return at > 0 ? TrPart(text.left(at)) + ' ' + TrParts(text.mid(at + 1)) : TrPart(text);
}

} // namespace

QString TrText(std::string_view text) {
    const QString source = Plain(text);
    QString whole = Tr(text);
    if (whole != source)
        return whole;
    QStringList lines = QString(source).remove('\r').split('\n');
    for (QString& line : lines)
        line = TrParts(line);
    return lines.join('\n');
}

} // namespace qor::ui
