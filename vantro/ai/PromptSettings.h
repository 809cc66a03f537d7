#pragma once

#include "base/UserDefaults.h"
#include "vantro/ai/ModeConfiguration.h"
#include "vantro/ai/ProcessingMode.h"

#include <QObject>
#include <QString>

#include <map>
#include <optional>
#include <vector>

namespace vantro {

/// The user's modes: which there are, and prompt, name and language model of each. Changes are written at once; changes
/// made by another process are picked up. Main thread.
///
/// A mode without a stored prompt has the built-in one; a mode without a stored configuration has no provider. A map
/// that cannot be read is kept under its key with ".unreadable" appended.
class PromptSettings final : public QObject
{
    Q_OBJECT
public:
    explicit PromptSettings(UserDefaults& defaults);

    /// The mode being edited, not that of a dictation.
    [[nodiscard]] ProcessingMode selectedMode() const { return selectedMode_; }
    void setSelectedMode(ProcessingMode mode);

    /// Empty when the mode has none.
    [[nodiscard]] QString prompt(ProcessingMode mode) const;
    void setPrompt(ProcessingMode mode, const QString& prompt);
    [[nodiscard]] ModeConfiguration configuration(ProcessingMode mode) const;
    void setConfiguration(ProcessingMode mode, const ModeConfiguration& configuration);
    /// The user's name for the mode, or its raw value in the user's language.
    [[nodiscard]] QString displayName(ProcessingMode mode) const;
    /// Whether the user has named it.
    [[nodiscard]] bool hasName(ProcessingMode mode) const;
    [[nodiscard]] static QString builtInName(ProcessingMode mode);
    /// An empty name restores the built-in one; a mode that the user has made keeps its name then.
    void setCustomModeName(ProcessingMode mode, const QString& name);

    /// The modes that there are, in the user's order.
    [[nodiscard]] std::vector<ProcessingMode> modes() const;
    [[nodiscard]] bool exists(ProcessingMode mode) const;
    /// By raw value or display name, in any case.
    [[nodiscard]] std::optional<ProcessingMode> find(const QString& name) const;
    /// Makes a mode of the user's own. Nullopt when there is no room for another.
    std::optional<ProcessingMode> add(const QString& name);
    /// Removes one that the user has made, with its prompt. Others stay.
    void remove(ProcessingMode mode);
    /// Puts it at that place of modes().
    void move(ProcessingMode mode, int place);

Q_SIGNALS:
    void selectedModeChanged();
    /// A prompt, name or configuration has changed.
    void changed();

private:
    using Prompts = std::map<ProcessingMode, QString>;
    using Configurations = std::map<ProcessingMode, ModeConfiguration>;

    void loadAll();
    void loadPrompts();
    void loadCustomModeNames();
    void loadModeConfigurations();
    void loadOrder();
    void complete();
    void savePrompts();
    void saveCustomModeNames();
    void saveModeConfigurations();
    void read(const QString& key);

    UserDefaults& defaults_;
    ProcessingMode selectedMode_ = ProcessingMode::Email;
    Prompts prompts_;
    Prompts customModeNames_;
    Configurations modeConfigurations_;
    std::vector<ProcessingMode> order_; ///< may name modes that do not exist, and leave some out
};

} // namespace vantro
