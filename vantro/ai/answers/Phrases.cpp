#include "vantro/ai/answers/Phrases.h"

#include "vantro/ai/answers/TextWords.h"

#include <QRegularExpression>

namespace vantro {

bool isOfLetters(const QString& folded)
{
    static const QSet<QString> words = wordSet(
        "dear hello best regards thanks thank kind sincerely wishes cheers team everyone there sir madam subject hope "
        "this message finds well greetings warm friend friends folks action item items points next steps request "
        "requests liebe lieber hallo guten grüße grusse gruße viele freundlichen freundliche beste besten schonen dank "
        "look looking forward response hear hearing from you your understanding cooperation consideration time "
        "attention "
        "patience advance question questions reply soon "
        "vielen herzliche betreff sehr geehrte geehrter damen herren hola estimado estimada saludos gracias "
        "cordialmente "
        "tag morgen abend zusammen "
        "bonjour cher chere cordialement merci bien salutations");
    return words.contains(folded);
}

bool isNegation(const QString& folded)
{
    static const QSet<QString> words = wordSet(
        "not no never none nobody nothing neither nor without cannot cant dont wont unable nicht nie niemals nichts "
        "niemand ohne weder nein nunca nada nadie sin jamas ne pas jamais sans rien personne ni ninguno ninguna");
    return words.contains(folded) || folded.endsWith(QLatin1String("n't")) || folded.startsWith(QLatin1String("n'")) ||
           (folded.startsWith(QLatin1String("kein")) && folded.size() <= 6);
}

bool isNegationInOtherWords(const QString& folded)
{
    static const QSet<QString> words =
        wordSet("refuse avoid fail failed fails lack lacks decline declined remember disagree unfortunately leider "
                "vermeiden absagen vergisst denk");
    return words.contains(folded) || (folded.size() > 5 && folded.startsWith(QLatin1String("un"))) ||
           (folded.size() > 6 && (folded.startsWith(QLatin1String("dis")) || folded.startsWith(QLatin1String("im"))));
}

bool talksOfItself(const QString& text)
{
    static const QRegularExpression signs(
        QString::fromUtf8("\\b(as an ai|as a language model|i'?m (just )?an? (ai|language model|virtual assistant)|"
                          "i(?: a|')m sorry,? but i (can|am|don)|i can(?:not|'t) (assist|help|fulfil|provide|respond|"
                          "process|answer)|i (can|am able to|would be happy to|will) (assist|help) you|"
                          "how (can|may) i (help|assist) you|what (can|would you like me to) (i )?(do|help)|"
                          "als ki\\b|als sprachmodell|ich kann ihnen (dabei )?(nicht|gerne)? ?helfen|"
                          "wie kann ich (ihnen|dir) helfen|(please|bitte) (provide|share) (me )?(with )?the (text|"
                          "transcription)|respond only in)"),
        QRegularExpression::CaseInsensitiveOption);
    return signs.match(text).hasMatch();
}

bool agrees(const QString& text)
{
    static const QRegularExpression consent(
        QString::fromUtf8(
            "^(sure|certainly|of course|absolutely|no problem|understood|got it|i understand|gerne|"
            "natürlich|selbstverständlich|verstanden|claro que|por supuesto|bien sûr|yes|ja|sí|oui)\\b([,.!: ]|$)"),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
    return consent.match(text).hasMatch();
}

} // namespace vantro
