#pragma once

#include "base/UserDefaults.h"
#include "platform/KeyEventPoster.h"
#include "vantro/ai/ProcessingMode.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace vantro {

/// What dictations into the windows of one application are like. Without rules, all are alike.
struct ApplicationRule
{
    QString application;                     ///< a window class or instance name, in any case: "thunderbird"
    std::optional<ProcessingMode> mode = {}; ///< to begin in; the default one if absent
    bool hasFullStop = true;                 ///< false: the text's last full stop is left out, as commands want it
    /// The user's choice, kept in the setting "pasteChords"; if absent, what is usual there.
    std::optional<KeyEventPoster::PasteChord> pasteKeys = {};

    bool operator==(const ApplicationRule&) const = default;
};

/// In the user's order, those that only have paste keys at the end. What cannot be read counts as none.
[[nodiscard]] std::vector<ApplicationRule> applicationRules(const UserDefaults& defaults);
void setApplicationRules(UserDefaults& defaults, const std::vector<ApplicationRule>& rules);

/// The first rule for a window. @p windowClass: see Workspace::windowClass().
[[nodiscard]] std::optional<ApplicationRule> applicationRuleFor(const UserDefaults& defaults,
                                                                const QStringList& windowClass);
/// @p text as @p rule wants it.
[[nodiscard]] QString textFor(const ApplicationRule& rule, const QString& text);

} // namespace vantro
