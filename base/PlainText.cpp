#include "base/PlainText.h"

namespace vantro {

QString withoutControlCharacters(QString text)
{
    text.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return text.removeIf([](QChar c) {
        return c.category() == QChar::Other_Control && c != QLatin1Char('\n') && c != QLatin1Char('\t');
    });
}

QString firstWords(const QString& text, qsizetype limit)
{
    QString line = text.simplified();
    if (line.size() <= limit)
        return line;
    const qsizetype blank = line.lastIndexOf(QLatin1Char(' '), limit);
    QString words = line.left(blank >= limit / 2 ? blank : limit);
    if (words.back().isHighSurrogate())
        words.chop(1);
    return words + QChar(0x2026);
}

} // namespace vantro
