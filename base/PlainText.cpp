#include "base/PlainText.h"

namespace vantro {

QString withoutControlCharacters(QString text)
{
    text.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return text.removeIf([](QChar c) {
        return c.category() == QChar::Other_Control && c != QLatin1Char('\n') && c != QLatin1Char('\t');
    });
}

} // namespace vantro
