#pragma once

#include "base/UserDefaults.h"
#include "vantro/text/TextCleaner.h"

#include <QObject>
#include <QStringList>

#include <map>

namespace vantro {

/// The user's rules for cleaning texts without a language model, a list for each language, which begin as the built-in
/// ones. Changes are written at once; changes made by another process are picked up. Main thread.
class CleaningSettings final : public QObject
{
    Q_OBJECT
public:
    explicit CleaningSettings(UserDefaults& defaults);

    /// The codes of the languages that have rules: "en", "de", "es", "fr".
    [[nodiscard]] static QStringList languages();
    /// Those of English for a language without any.
    [[nodiscard]] const std::vector<CleaningRule>& rules(const QString& language) const;
    /// Does nothing for a language without rules.
    void setRules(const QString& language, const std::vector<CleaningRule>& rules);
    /// Back to the built-in ones.
    void reset(const QString& language);

    /// One rule a line, as users edit them: "um", "new line = \n".
    [[nodiscard]] static QString asText(const std::vector<CleaningRule>& rules);
    [[nodiscard]] static std::vector<CleaningRule> fromText(const QString& text);

Q_SIGNALS:
    void changed();

private:
    void load();

    UserDefaults& defaults_;
    std::map<QString, std::vector<CleaningRule>> rules_;
};

} // namespace vantro
