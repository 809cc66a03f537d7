#include "base/Translations.h"

#include <QLocale>

#include <atomic>
#include <cstring>

namespace vantro {

namespace {

std::atomic<int> suspensions{0};

/// The locale "C", also as "C.UTF-8", asks for no language, even when LANGUAGE names some.
bool isLanguageWanted()
{
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const QByteArray locale = qgetenv(name);
        if (!locale.isEmpty())
            return locale != "C" && locale != "POSIX" && !locale.startsWith("C.");
    }
    return true;
}

} // namespace

Translations::Translations()
{
    if (isLanguageWanted())
        static_cast<void>(load(QLocale(), QStringLiteral("vantro"), QStringLiteral("_"), QStringLiteral(":/i18n")));
}

QString Translations::translate(const char* context, const char* sourceText, const char* disambiguation, int n) const
{
    if (suspensions > 0)
        return {};
    constexpr char prefix[] = "vantro::";
    if (std::strncmp(context, prefix, sizeof prefix - 1) == 0)
        context += sizeof prefix - 1;
    return QTranslator::translate(context, sourceText, disambiguation, n);
}

Translations::Suspension::Suspension(bool isNeeded) : isNeeded_(isNeeded)
{
    if (isNeeded_)
        ++suspensions;
}

Translations::Suspension::~Suspension()
{
    if (isNeeded_)
        --suspensions;
}

} // namespace vantro
