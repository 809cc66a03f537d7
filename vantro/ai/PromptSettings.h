#pragma once

#include "base/UserDefaults.h"
#include "vantro/ai/ModeConfiguration.h"
#include "vantro/ai/ProcessingMode.h"

#include <QObject>
#include <QString>

#include <map>
#include <vector>

namespace vantro {

/// What the user has set for each mode: its prompt, its name, the language model that serves it. Every change is
/// written through; what another process changes is read anew. Main thread.
///
/// A mode without a stored prompt gets the built-in one, a mode without a stored configuration one that points to no
/// provider. A stored map that cannot be read is put aside under its key and ".unreadable".
class PromptSettings final : public QObject
{
    Q_OBJECT
public:
    explicit PromptSettings(UserDefaults& defaults);

    /// The mode whose prompt is being edited; not the mode of a dictation.
    [[nodiscard]] ProcessingMode selectedMode() const { return selectedMode_; }
    void setSelectedMode(ProcessingMode mode);

    /// Empty when the mode has none.
    [[nodiscard]] QString prompt(ProcessingMode mode) const;
    void setPrompt(ProcessingMode mode, const QString& prompt);
    [[nodiscard]] ModeConfiguration configuration(ProcessingMode mode) const;
    void setConfiguration(ProcessingMode mode, const ModeConfiguration& configuration);
    /// The user's name for the mode, otherwise its raw value.
    [[nodiscard]] QString displayName(ProcessingMode mode) const;
    /// An empty name brings the raw value back.
    void setCustomModeName(ProcessingMode mode, const QString& name);

Q_SIGNALS:
    void selectedModeChanged();
    /// Prompts, names or configurations.
    void changed();

private:
    using Prompts = std::map<ProcessingMode, QString>;
    using Configurations = std::map<ProcessingMode, ModeConfiguration>;

    void loadPrompts();
    void loadCustomModeNames();
    void loadModeConfigurations();
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
};

} // namespace vantro
