#include "vantro/ai/answers/AnswerMending.h"

#include "base/PlainText.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <array>

namespace vantro {

namespace {

QRegularExpression pattern(const char* text)
{
    return QRegularExpression(QString::fromUtf8(text), QRegularExpression::CaseInsensitiveOption |
                                                           QRegularExpression::DotMatchesEverythingOption |
                                                           QRegularExpression::UseUnicodePropertiesOption);
}

const QRegularExpression& openReasoning()
{
    static const auto opening = pattern("^\\s*<(think|thinking|thought|reasoning)>");
    return opening;
}

const QRegularExpression& closeReasoning()
{
    static const auto closing = pattern("</(think|thinking|thought|reasoning)>");
    return closing;
}

/// Invisible, and able to show a text in another order than it has. Joiners stay: some scripts and emoji need them.
bool isInvisible(QChar c)
{
    return c == QChar(0x200b) || c == QChar(0xfeff) || c == QChar(0x2060) ||
           (c >= QChar(0x202a) && c <= QChar(0x202e)) || (c >= QChar(0x2066) && c <= QChar(0x2069));
}

QString withoutReasoning(const QString& answer)
{
    const auto end = closeReasoning().match(answer);
    // Some templates write the opening tag themselves.
    return end.hasMatch() ? answer.mid(end.capturedEnd()) : answer;
}

/// A first line in which the model announces the text.
bool isPreamble(const QString& line)
{
    static const auto announcement = pattern(
        "^\\W*((sure|certainly|of course|absolutely|okay|ok|great|yes|no problem|understood|gerne|natürlich|klar|"
        "sicher|selbstverständlich|okay|claro|por supuesto|bien sûr|d'accord|voici|certainement)\\b[^\\n]{0,160}|"
        "(here|below)\\b[^\\n]{0,20}\\b(is|are|'s)\\b[^\\n]{0,120}|here['’]s\\b[^\\n]{0,120}|"
        "hier (ist|sind|kommt)\\b[^\\n]{0,120}|aquí (está|tienes|tiene)\\b[^\\n]{0,120}|"
        "(the |this is the |your )?(corrected|revised|reformatted|rewritten|formatted|edited|improved|cleaned|updated|"
        "proofread|polished)( and \\w+)? "
        "(text|transcription|transcript|version|email|sentence|message|note)[^\\n]{0,60}|"
        "(der |die |das )?(korrigierte|überarbeitete|verbesserte|umformulierte|formatierte)\\w* "
        "(text|transkription|transkript|version|e-mail|satz|nachricht)[^\\n]{0,60}|"
        "(output|answer|response|result|rewritten|corrected|transcription|transcript|ausgabe|antwort|ergebnis|"
        "transkription)):[*_ ]*$");
    return announcement.match(line).hasMatch();
}

/// The same in front of the text, on its line.
const QRegularExpression& label()
{
    static const auto words = pattern(
        "^\\s*[*_]*((corrected|revised|rewritten|reformatted|edited) (text|transcription|transcript|version|sentence)|"
        "output|rewritten|corrected|transcription|korrigierter text|überarbeiteter text|korrigiert|transkription)"
        "[*_]*:[*_]*\\s+(?=\\S)");
    return words;
}

/// A last paragraph in which the model talks about its work.
bool isPostamble(const QString& paragraph)
{
    static const auto remark = pattern(
        "^\\W*((please )?let me know (if|whether|how|what) (you|there|this|that|it)\\b.{0,40}\\b(change|changes|adjust|"
        "adjustments|adjusted|edits|edit|revision|revisions|modif\\w*|different|tweak\\w*|anything else|further "
        "assistance|help|version|format)\\b.{0,80}|(i )?hope (this|that|it) (helps|works|meets)\\b.{0,80}|"
        "is there anything else\\b.{0,80}|feel free to (ask|adjust|modify|change|edit|make|let me)\\b.{0,120}|"
        "would you like (me|any)\\b.{0,120}|(please )?note( that)?:? (that )?(i|the "
        "(text|transcription|original|email)|"
        "this is)\\b.{0,300}|i('ve| have) (made|corrected|changed|kept|removed|added|fixed|reformatted|rewritten)\\b"
        ".{0,300}|(this|the) (revised|corrected|rewritten|reformatted) (version|text)\\b.{0,300}|"
        "(lass|lassen sie) (es )?mich wissen\\b.{0,20}(änder|anpass|weitere|hilfe|wunsch|wünsch).{0,100}|"
        "ich hoffe,? (das|dies) hilft\\b.{0,60}|(hinweis|anmerkung): .{0,300}|"
        "(avísame|dime) si\\b.{0,100}(cambi|ajust).{0,60}|n'hésite[sz]? pas à\\b.{0,100}(modif|chang).{0,60})$");
    return remark.match(paragraph).hasMatch();
}

bool begins(const QString& said, const QString& line)
{
    const QString word = line.section(QLatin1Char(' '), 0, 0).remove(QRegularExpression(QStringLiteral("\\W")));
    return !word.isEmpty() && said.trimmed().startsWith(word, Qt::CaseInsensitive);
}

QString withoutPreamble(const QString& text, const QString& said)
{
    const qsizetype end = text.indexOf(QLatin1Char('\n'));
    const QString line = text.left(end).trimmed();
    if (end > 0 && isPreamble(line) && !said.contains(line, Qt::CaseInsensitive) && !begins(said, line))
        return text.mid(end + 1).trimmed();
    const auto prefix = label().match(text);
    return prefix.hasMatch() && !begins(said, prefix.captured()) ? text.mid(prefix.capturedEnd()) : text;
}

QString withoutPostamble(QString text, const QString& said)
{
    for (qsizetype gap = text.lastIndexOf(QLatin1String("\n")); gap > 0; gap = text.lastIndexOf(QLatin1String("\n"))) {
        const QString last = text.mid(gap).trimmed();
        const bool isRule = !last.isEmpty() && last.count(QLatin1Char('-')) == last.size();
        if (!isRule && (!isPostamble(last) || said.contains(last.left(20), Qt::CaseInsensitive)))
            break;
        text = text.left(gap).trimmed();
    }
    return text;
}

/// The inside of a single code fence; what stands around it belongs to the model.
QString withoutFence(const QString& text, const QString& said)
{
    static const auto fence = pattern("^(.*?)```[a-z]*\\n(.*?)\\n?```(.*)$");
    const auto match = fence.match(text);
    if (!match.hasMatch() || said.contains(QLatin1String("```")) || match.captured(3).contains(QLatin1String("```")))
        return text;
    return match.captured(2).trimmed();
}

QString withoutQuotes(const QString& text, const QString& said)
{
    static constexpr std::array<std::pair<char16_t, char16_t>, 7> pairs{{{u'"', u'"'},
                                                                         {u'\u201C', u'\u201D'},
                                                                         {u'\u201E', u'\u201C'},
                                                                         {u'\u00AB', u'\u00BB'},
                                                                         {u'\u00BB', u'\u00AB'},
                                                                         {u'\'', u'\''},
                                                                         {u'`', u'`'}}};
    for (const auto& [open, close] : pairs) {
        const QString inside = text.mid(1, text.size() - 2);
        if (text.size() > 2 && text.front() == QChar(open) && text.back() == QChar(close) &&
            !inside.contains(QChar(open)) && !inside.contains(QChar(close)) && !said.contains(QChar(open)))
            return inside.trimmed();
    }
    return text;
}

/// A letter's subject, which no field of the window takes.
QString withoutSubject(const QString& text, const QString& said)
{
    static const auto subject = pattern("^[*_]*(subject|betreff|asunto|objet)[*_]*:[^\\n]*\\n+(?=.)");
    const auto match = subject.match(text);
    return match.hasMatch() && !said.contains(match.captured(1), Qt::CaseInsensitive) ? text.mid(match.capturedEnd())
                                                                                      : text;
}

/// "[Your Name]" below a sign-off, and "Hi [Recipient's Name]," for "Hi,".
QString withoutSignatureBlanks(QString text)
{
    static const auto signature = pattern("(\\n\\s*[\\[(<{][^\\]\\n]{2,40}[\\])>}][,.]?\\s*)+$");
    static const auto greeting = pattern("^(hi|hello|hey|hallo|dear|hola|bonjour) \\[[^\\]\\n]{2,40}\\]");
    text.remove(signature);
    const auto blank = greeting.match(text);
    if (blank.hasMatch())
        text.replace(0, blank.capturedLength(),
                     blank.captured(1).toLower() == QLatin1String("dear") ? QStringLiteral("Hello")
                                                                          : blank.captured(1));
    return text;
}

} // namespace

bool endsInReasoning(const QString& answer)
{
    return openReasoning().match(answer).hasMatch() && !closeReasoning().match(answer).hasMatch();
}

QString mendedAnswer(const QString& answer, const QString& said)
{
    QString text = withoutControlCharacters(answer).removeIf(isInvisible);
    if (!closeReasoning().match(said).hasMatch())
        text = withoutReasoning(text);
    text = withoutFence(text.trimmed(), said);
    text = withoutPreamble(text, said);
    text = withoutPostamble(text, said);
    text = withoutSubject(withoutQuotes(withoutFence(text.trimmed(), said), said), said);
    return said.contains(QLatin1Char('[')) ? text : withoutSignatureBlanks(text);
}

} // namespace vantro
