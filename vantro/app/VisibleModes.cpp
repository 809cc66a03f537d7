#include "vantro/app/VisibleModes.h"

namespace vantro {

bool isUsable(ProcessingMode mode, const PromptSettings& prompts, const ProviderConfigurationManager& providers)
{
    if (mode == ProcessingMode::Normal || mode == ProcessingMode::Notes)
        return true;
    if (mode == ProcessingMode::Custom && prompts.prompt(mode).isEmpty())
        return false;
    const ModeConfiguration configuration = prompts.configuration(mode);
    if (configuration.useLocalAI || !configuration.providerConfigId)
        return false;
    const auto* provider = providers.find(*configuration.providerConfigId);
    return provider != nullptr && provider->isEnabled;
}

std::vector<ProcessingMode> visibleModes(const PromptSettings& prompts, const ProviderConfigurationManager& providers,
                                         ProcessingMode defaultMode)
{
    std::vector<ProcessingMode> modes;
    for (const ProcessingMode mode : allProcessingModes) {
        if (mode == defaultMode || isUsable(mode, prompts, providers))
            modes.push_back(mode);
    }
    return modes;
}

} // namespace vantro
