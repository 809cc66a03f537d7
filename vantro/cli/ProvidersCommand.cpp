#include "vantro/cli/Commands.h"
#include "vantro/cli/ProvidersSession.h"

#include <algorithm>
#include <iterator>

namespace vantro {

namespace {

constexpr const char* description = QT_TRANSLATE_NOOP(
    "Command", R"(The language models that rewrite dictations in the modes Email, Grammar, Custom and Notes.

  list         List all providers and whether they have a key. The default.
  add          Add one: --type, and for your own server --base-url and --model.
  edit NAME    Change what the options say. An empty value ("") removes a parameter.
  remove NAME  Remove a provider and its key, after asking.
  test NAME    Check that the provider accepts the key.
  models NAME  List the models that the provider offers.

The key is read from the terminal without showing it, or from standard input with --key-stdin. It is stored only in the
desktop's Secret Service. A server that needs no key still has to be given one: any word will do.

Exit status: 0 done, 1 failed, 2 wrong usage, 3 no such provider, 4 no service: the Secret Service is not available
or locked, or the provider cannot be reached, 5 the settings cannot be written.)");

} // namespace

const ProviderConfiguration* ProvidersSession::find(const QString& text) const
{
    const ProviderConfiguration* begins = nullptr;
    int count = 0;
    for (const ProviderConfiguration& provider : manager.configurations()) {
        if (provider.name.compare(text, Qt::CaseInsensitive) == 0 || provider.id == QUuid(text))
            return &provider;
        if (provider.name.startsWith(text, Qt::CaseInsensitive)) {
            begins = &provider;
            ++count;
        }
    }
    return count == 1 ? begins : nullptr;
}

ProviderConfiguration providerFrom(const CommandCall& call, const ProvidersSession& session)
{
    const auto* found = session.find(call.words.front());
    if (found == nullptr)
        throw CommandError(
            ExitCode::notFound,
            Command::tr("there is no provider \"%1\": vantro providers lists them").arg(call.words.front()));
    return *found;
}

Command providersCommand()
{
    std::vector<CommandOption> options{Command::jsonOption,
                                       {"yes", QT_TRANSLATE_NOOP("Command", "Remove without asking.")}};
    std::ranges::move(providerOptions(), std::back_inserter(options));
    return {.name = "providers",
            .summary = QT_TRANSLATE_NOOP("Command", "List, add, edit, remove or test providers of language models."),
            .description = description,
            .actions = {{"list", listProviders},
                        {"add", addProvider},
                        {"edit", editProvider, 1, 1, QT_TRANSLATE_NOOP("Command", "needs a provider's name")},
                        {"remove", removeProvider, 1, 1, QT_TRANSLATE_NOOP("Command", "needs a provider's name")},
                        {"test", testProvider, 1, 1, QT_TRANSLATE_NOOP("Command", "needs a provider's name")},
                        {"models", offeredModels, 1, 1, QT_TRANSLATE_NOOP("Command", "needs a provider's name")}},
            .options = std::move(options),
            .words = {{"NAME", QT_TRANSLATE_NOOP("Command", "A provider's name or id."), "[NAME]]"}},
            .exitCodeOf = providersExitCode};
}

} // namespace vantro
