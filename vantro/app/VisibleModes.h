#pragma once

#include "vantro/ai/PromptSettings.h"
#include "vantro/ai/providers/ProviderConfigurationManager.h"

#include <vector>

namespace vantro {

/// Whether a dictation can end in @p mode: one that a language model rewrites needs a provider that is there and
/// enabled, and Custom a prompt. Whether the provider has a key is known only when it is asked.
bool isUsable(ProcessingMode mode, const PromptSettings& prompts, const ProviderConfigurationManager& providers);

/// The modes that the launcher offers, in their order: those that can be used, and the one that the user has made the
/// default, so that a default that cannot work says so.
std::vector<ProcessingMode> visibleModes(const PromptSettings& prompts, const ProviderConfigurationManager& providers,
                                         ProcessingMode defaultMode);

} // namespace vantro
