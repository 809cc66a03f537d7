#pragma once

#include "vantro/ai/PromptSettings.h"
#include "vantro/ai/providers/ProviderConfigurationManager.h"
#include "vantro/text/CleaningSettings.h"
#include "vantro/ui/settings/ModeList.h"

#include <QObject>
#include <QStringList>
#include <QtQml/qqmlregistration.h>
#include <qcoro/qcorotask.h>

#include <functional>

namespace vantro {

/// The view model of the page "Modes": the modes, their order, the default one, and the settings of the one shown,
/// whose prompt can be tried. Changes are written at once. Main thread; lives as long as its window.
class ModesModel : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with its window")
    Q_PROPERTY(QAbstractListModel* list READ list CONSTANT)
    Q_PROPERTY(bool canAdd READ canAdd NOTIFY changed)
    Q_PROPERTY(QStringList defaultModes READ defaultModes NOTIFY changed)
    Q_PROPERTY(int defaultMode READ defaultMode WRITE setDefaultMode NOTIFY changed)
    Q_PROPERTY(QString defaultNote READ defaultNote NOTIFY changed)
    Q_PROPERTY(int shown READ shown WRITE setShown NOTIFY shownChanged)
    Q_PROPERTY(QString purpose READ purpose NOTIFY shownChanged)
    Q_PROPERTY(bool asksModel READ asksModel NOTIFY shownChanged)
    Q_PROPERTY(QString builtInName READ builtInName NOTIFY shownChanged)
    Q_PROPERTY(bool canTry READ canTry NOTIFY changed)
    Q_PROPERTY(bool isTrying READ isTrying NOTIFY trialChanged)
    Q_PROPERTY(QString trialResult READ trialResult NOTIFY trialChanged)
    Q_PROPERTY(QString trialProblem READ trialProblem NOTIFY trialChanged)
    Q_PROPERTY(bool hasBuiltInPrompt READ hasBuiltInPrompt NOTIFY shownChanged)
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY changed)
    Q_PROPERTY(QString prompt READ prompt WRITE setPrompt NOTIFY changed)
    Q_PROPERTY(QStringList providers READ providers NOTIFY changed)
    Q_PROPERTY(int provider READ provider WRITE setProvider NOTIFY changed)
    Q_PROPERTY(QString overview READ overview NOTIFY changed)
    Q_PROPERTY(bool cleans READ cleans NOTIFY changed)
    Q_PROPERTY(QStringList ruleLanguages READ ruleLanguages CONSTANT)
    Q_PROPERTY(int ruleLanguage READ ruleLanguage WRITE setRuleLanguage NOTIFY rulesChanged)
    Q_PROPERTY(QString rules READ rules WRITE setRules NOTIFY rulesChanged)
    Q_PROPERTY(QString lacking READ lacking NOTIFY changed)
public:
    struct Parts
    {
        UserDefaults& defaults;
        PromptSettings& prompts;
        CleaningSettings& cleaning;
        const ProviderConfigurationManager& providers;
        /// Whether the mode is set up, so that the launcher offers it.
        std::function<bool(ProcessingMode)> isUsable;
        /// Asks whether to replace a prompt.
        std::function<void(std::function<void()> confirmed)> confirmReplacement;
        /// The language model of this machine that would be used; empty without any.
        std::function<QString()> localModel = [] {
            return QString();
        };
        /// Asks whether to remove the mode of that name.
        std::function<void(const QString& name, std::function<void()> confirmed)> confirmRemoval = {};
        /// Rewrites a text as a mode would. Throws Error.
        std::function<QCoro::Task<QString>(ProcessingMode, QString)> rewrite = {};
    };

    explicit ModesModel(Parts parts);

    [[nodiscard]] QAbstractListModel* list() { return &list_; }
    /// Whether there is room for another mode.
    [[nodiscard]] bool canAdd() const { return parts_.prompts.modes().size() < allProcessingModes.size(); }
    /// Makes a mode of the user's own and shows it.
    Q_INVOKABLE void add();
    /// Removes the mode at that place, if the user has made it. Asks first.
    Q_INVOKABLE void remove(int index);
    /// Moves the mode at that place by so many places.
    Q_INVOKABLE void move(int index, int by);

    /// The display names of the usable ones.
    [[nodiscard]] QStringList defaultModes() const;
    /// An index into defaultModes(): what dictations start in, Normal while the chosen one cannot be used.
    [[nodiscard]] int defaultMode() const;
    void setDefaultMode(int index);
    /// Why it is not the chosen one; otherwise empty.
    [[nodiscard]] QString defaultNote() const;

    // The following concern the mode shown.
    /// Its place in the list; -1 when none is shown.
    [[nodiscard]] int shown() const;
    /// Shows none with -1.
    void setShown(int index);
    /// What it does, in one sentence.
    [[nodiscard]] QString purpose() const;
    /// Whether it uses a language model.
    [[nodiscard]] bool asksModel() const { return mode() != ProcessingMode::Normal; }
    /// What it is called unless the user names it.
    [[nodiscard]] QString builtInName() const;
    [[nodiscard]] bool hasBuiltInPrompt() const;
    /// Empty when the user has not renamed it.
    [[nodiscard]] QString name() const;
    void setName(const QString& name);
    [[nodiscard]] QString prompt() const { return parts_.prompts.prompt(mode()); }
    void setPrompt(const QString& prompt);
    /// This computer if it has a language model, otherwise "None"; the rules where the mode takes them, and all
    /// providers where it takes those. Without a language model this computer stands at the end.
    [[nodiscard]] QStringList providers() const;
    /// An index into providers(); -1 when the chosen one has been removed.
    [[nodiscard]] int provider() const;
    void setProvider(int index);
    /// Which modes work now.
    [[nodiscard]] QString overview() const;
    /// Whether rules on this computer clean the text.
    [[nodiscard]] bool cleans() const { return parts_.prompts.configuration(mode()).cleans; }
    [[nodiscard]] QStringList ruleLanguages() const;
    [[nodiscard]] int ruleLanguage() const { return ruleLanguage_; }
    void setRuleLanguage(int index);
    /// Those of that language, one a line.
    [[nodiscard]] QString rules() const;
    void setRules(const QString& text);
    Q_INVOKABLE void useBuiltInRules();
    /// What to do to be able to use the mode; empty when nothing is missing.
    [[nodiscard]] QString lacking() const;

    /// Asks first when that would overwrite the user's own.
    Q_INVOKABLE void useBuiltInPrompt();

    /// Whether the mode is set up so that a text can be rewritten in it.
    [[nodiscard]] bool canTry() const;
    /// Has @p text rewritten; one at a time.
    Q_INVOKABLE void tryOut(const QString& text) { rewriteTrial(text); }
    [[nodiscard]] bool isTrying() const { return isTrying_; }
    [[nodiscard]] QString trialResult() const { return trialResult_; }
    [[nodiscard]] QString trialProblem() const { return trialProblem_; }

Q_SIGNALS:
    void changed();
    void shownChanged();
    void rulesChanged();
    void trialChanged();

private:
    /// Who can rewrite.
    struct Choice
    {
        QString label;
        ModeConfiguration configuration;
    };

    [[nodiscard]] ProcessingMode mode() const { return parts_.prompts.selectedMode(); }
    [[nodiscard]] std::vector<Choice> choicesOf(ProcessingMode mode) const;
    /// Its place in choicesOf(); -1 when the chosen provider has been removed.
    [[nodiscard]] int choiceOf(ProcessingMode mode) const;
    [[nodiscard]] QString noteOf(ProcessingMode mode) const;
    QCoro::Task<> rewriteTrial(QString text);
    void forgetTrial();
    [[nodiscard]] std::vector<ProcessingMode> usableModes() const;

    [[nodiscard]] QString ruleCode() const;

    Parts parts_;
    ModeList list_;
    bool isShown_ = true;
    bool isTrying_ = false;
    QString trialResult_;
    QString trialProblem_;
    int trial_ = 0; ///< counts them: the answer to a former one is not shown
    int ruleLanguage_ = 0;
    bool isStoringRules_ = false;
};

} // namespace vantro
