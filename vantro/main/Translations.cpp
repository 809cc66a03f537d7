#include "vantro/main/Translations.h"

#include <QLocale>

#include <cstring>

namespace vantro {

Translations::Translations()
{
    static_cast<void>(load(QLocale(), QStringLiteral("vantro"), QStringLiteral("_"), QStringLiteral(":/i18n")));
}

QString Translations::translate(const char* context, const char* sourceText, const char* disambiguation, int n) const
{
    constexpr char prefix[] = "vantro::";
    if (std::strncmp(context, prefix, sizeof prefix - 1) == 0)
        context += sizeof prefix - 1;
    return QTranslator::translate(context, sourceText, disambiguation, n);
}

} // namespace vantro
