#pragma once

#include "vantro/ai/PromptSettings.h"
#include "vantro/ai/providers/ProviderConfigurationManager.h"

#include <QObject>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

#include <functional>

namespace vantro {

/// The page "Modes": in which one dictations begin, and what one of them does. Every change is written at once. Main
/// thread; lives as long as its window.
class ModesModel : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with its window")
    Q_PROPERTY(QStringList modes READ modes NOTIFY changed)
    Q_PROPERTY(int defaultMode READ defaultMode WRITE setDefaultMode NOTIFY changed)
    Q_PROPERTY(int shown READ shown WRITE setShown NOTIFY shownChanged)
    Q_PROPERTY(QString purpose READ purpose NOTIFY shownChanged)
    Q_PROPERTY(bool asksModel READ asksModel NOTIFY shownChanged)
    Q_PROPERTY(bool takesName READ takesName NOTIFY shownChanged)
    Q_PROPERTY(bool hasBuiltInPrompt READ hasBuiltInPrompt NOTIFY shownChanged)
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY changed)
    Q_PROPERTY(QString prompt READ prompt WRITE setPrompt NOTIFY changed)
    Q_PROPERTY(QStringList providers READ providers NOTIFY changed)
    Q_PROPERTY(int provider READ provider WRITE setProvider NOTIFY changed)
    Q_PROPERTY(QString lacking READ lacking NOTIFY changed)
public:
    struct Parts
    {
        UserDefaults& defaults;
        PromptSettings& prompts;
        const ProviderConfigurationManager& providers;
        /// Whether the launcher can offer it.
        std::function<bool(ProcessingMode)> isUsable;
    };

    explicit ModesModel(Parts parts);

    /// In the order of ProcessingMode, by the names that the user knows.
    [[nodiscard]] QStringList modes() const;
    [[nodiscard]] int defaultMode() const;
    void setDefaultMode(int index);

    // The mode that is shown.
    [[nodiscard]] int shown() const { return static_cast<int>(mode()); }
    void setShown(int index);
    /// What it does, in a sentence.
    [[nodiscard]] QString purpose() const;
    /// Whether a language model takes part at all.
    [[nodiscard]] bool asksModel() const { return mode() != ProcessingMode::Normal; }
    [[nodiscard]] bool takesName() const { return mode() == ProcessingMode::Custom; }
    [[nodiscard]] bool hasBuiltInPrompt() const;
    /// Empty when it goes by its own.
    [[nodiscard]] QString name() const;
    void setName(const QString& name);
    [[nodiscard]] QString prompt() const { return parts_.prompts.prompt(mode()); }
    void setPrompt(const QString& prompt);
    /// "Nobody", and everybody in the list of providers.
    [[nodiscard]] QStringList providers() const;
    /// An index into providers(); -1 when the one that was chosen has been removed.
    [[nodiscard]] int provider() const;
    void setProvider(int index);
    /// What to do before the launcher offers the mode; empty when nothing is missing.
    [[nodiscard]] QString lacking() const;

    Q_INVOKABLE void useBuiltInPrompt();

Q_SIGNALS:
    void changed();
    void shownChanged();

private:
    [[nodiscard]] ProcessingMode mode() const { return parts_.prompts.selectedMode(); }

    Parts parts_;
};

} // namespace vantro
