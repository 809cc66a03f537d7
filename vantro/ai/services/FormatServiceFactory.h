#pragma once

#include "vantro/ai/ModeConfiguration.h"
#include "vantro/ai/ProcessingMode.h"
#include "vantro/ai/providers/ProviderConfigurationManager.h"
#include "vantro/ai/providers/ProviderHosts.h"
#include "vantro/ai/services/RemoteFormatService.h"
#include "vantro/llm/LocalModel.h"

#include <memory>

namespace vantro {

/// Creates the language model service for a mode's configuration. Main thread.
class FormatServiceFactory
{
public:
    FormatServiceFactory(const ProviderConfigurationManager& providers, LocalModel& local, RemoteServiceParts parts,
                         ProviderHosts hosts = {});

    /// Never fails: without a usable provider it returns the local service, whose requests fail with the reason if it
    /// has no model. @p stop ends the service's requests.
    [[nodiscard]] std::shared_ptr<FormatRequestServicing>
    make(ProcessingMode mode, const ModeConfiguration& configuration, std::stop_token stop = {}) const;
    /// Opens the connection that a service for @p configuration would use, or loads the local model and has it read
    /// @p prompt. What is returned keeps the model loaded; null for a connection.
    [[nodiscard]] std::shared_ptr<void> expect(const ModeConfiguration& configuration, const QString& prompt) const;
    /// Whether a service for @p configuration could work: its provider is enabled, or a local model is there.
    [[nodiscard]] bool isUsable(const ModeConfiguration& configuration) const;
    [[nodiscard]] std::shared_ptr<RemoteFormatService> makeRemote(const RemoteProviderConfig& config,
                                                                  std::stop_token stop = {}) const;

private:
    /// Null unless a remote provider is configured and enabled.
    [[nodiscard]] const ProviderConfiguration* provider(const ModeConfiguration& configuration) const;

    const ProviderConfigurationManager& providers_;
    LocalModel& local_;
    RemoteServiceParts parts_;
    ProviderHosts hosts_;
};

} // namespace vantro
