#include "vantro/text/TextCleaner.h"

#include "vantro/text/TextReplacer.h"

#include <QRegularExpression>
#include <QSet>

#include <algorithm>

namespace vantro {

namespace {

QRegularExpression pattern(const QString& text)
{
    return QRegularExpression(text, QRegularExpression::CaseInsensitiveOption |
                                        QRegularExpression::UseUnicodePropertiesOption);
}

/// The engine may have put signs around the words itself: "Hello comma, new line. Next".
QString withSpokenSign(QString text, const CleaningRule& rule)
{
    const bool isBreak = rule.replace.contains(QLatin1Char('\n'));
    QStringList parts;
    for (const QString& part : rule.find.split(QLatin1Char(' '), Qt::SkipEmptyParts))
        parts << QRegularExpression::escape(part);
    const QString before = isBreak ? QStringLiteral("[\\s,;]*") : QStringLiteral("[\\s,.;]*");
    const QString phrase =
        before + QStringLiteral("(?<!\\w)%1(?!\\w)[,.;]*[^\\S\\n]*").arg(parts.join(QLatin1String("\\s+")));
    // In a replacement text a backslash is special.
    QString sign = rule.replace;
    sign.replace(QLatin1Char('\\'), QLatin1String("\\\\"));
    return text.replace(pattern(phrase), isBreak ? sign : sign + QLatin1Char(' '));
}

/// "very very" is meant, "die die" may be grammar.
QString withoutDoubledWords(const QString& text)
{
    static const QSet<QString> meant{
        QStringLiteral("very"), QStringLiteral("really"), QStringLiteral("had"),  QStringLiteral("that"),
        QStringLiteral("bye"),  QStringLiteral("ha"),     QStringLiteral("no"),   QStringLiteral("sehr"),
        QStringLiteral("ganz"), QStringLiteral("die"),    QStringLiteral("der"),  QStringLiteral("das"),
        QStringLiteral("muy"),  QStringLiteral("nous"),   QStringLiteral("vous"), QStringLiteral("très")};
    static const QRegularExpression doubled =
        pattern(QStringLiteral("(?<![\\w'])(\\p{L}[\\p{L}']*)(?:,?[ ]+\\1(?![\\w']))+"));
    QString result;
    qsizetype done = 0;
    for (auto matches = doubled.globalMatch(text); matches.hasNext();) {
        const auto match = matches.next();
        result += text.mid(done, match.capturedStart() - done);
        result += meant.contains(match.captured(1).toLower()) ? match.captured() : match.captured(1);
        done = match.capturedEnd();
    }
    return result + text.mid(done);
}

QString tidied(QString text)
{
    static const QRegularExpression spaces(QStringLiteral("[ \\t]{2,}"));
    static const QRegularExpression beforeSign(QStringLiteral("[ \\t]+([,.;:!?])"));
    static const QRegularExpression aroundBreak(QStringLiteral("[ \\t]*(\\n+)[ \\t,;]*"));
    static const QRegularExpression leading(QStringLiteral("^[\\s,.;:]+"));
    return text.replace(spaces, QStringLiteral(" "))
        .replace(beforeSign, QStringLiteral("\\1"))
        .replace(aroundBreak, QStringLiteral("\\1"))
        .remove(leading)
        .trimmed();
}

QString withCapitals(QString text)
{
    bool isDue = true;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        const bool endsSentence = c == QLatin1Char('.') || c == QLatin1Char('!') || c == QLatin1Char('?');
        if (c == QLatin1Char('\n') || (endsSentence && i + 1 < text.size() && text[i + 1].isSpace()))
            isDue = true;
        else if (isDue && c.isLetterOrNumber()) {
            text[i] = c.toUpper();
            isDue = false;
        }
    }
    return text;
}

QString withFullStop(const QString& text)
{
    // Scripts without an upper case have a full stop of their own.
    const bool isLatin = std::ranges::any_of(text, [](QChar c) { return c.toUpper() != c.toLower(); });
    return isLatin && text.back().isLetterOrNumber() ? text + QLatin1Char('.') : text;
}

} // namespace

QString TextCleaner::cleaned(const QString& text, const std::vector<CleaningRule>& rules)
{
    QString result = text;
    for (const CleaningRule& rule : rules) {
        if (rule.find.trimmed().isEmpty())
            continue;
        result = rule.replace.isEmpty() ? TextReplacer::applyReplacement(result, rule.find, {})
                                        : withSpokenSign(result, rule);
    }
    result = tidied(withoutDoubledWords(result));
    return result.isEmpty() ? text : withFullStop(withCapitals(result));
}

} // namespace vantro
