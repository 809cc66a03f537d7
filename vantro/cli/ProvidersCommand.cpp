#include "vantro/cli/Commands.h"
#include "vantro/cli/ProvidersSession.h"

#include <algorithm>
#include <iterator>

namespace vantro {

namespace {

constexpr char description[] =
    R"(The language models that rewrite dictations in the modes Email, Grammar, Custom and Notes.

  list         All providers, and whether their keys are stored. The default.
  add          A new one: --type, and for a server of your own --base-url and --model.
  edit NAME    Change what the options say; the rest stays. An empty value ("") takes a parameter out.
  remove NAME  Forget a provider and its key. Asks first, unless --yes is given.
  test NAME    Ask the provider whether it accepts the key.

The key is asked for without being shown, or read from standard input with --key-stdin. It goes to the desktop's
Secret Service and nowhere else. A server that wants no key gets one all the same: any word.

Exit status: 0 done, 1 failed, 2 wrong usage, 3 no such provider, 4 no service: the Secret Service does not answer or
is locked, or the provider cannot be reached.)";

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
            QStringLiteral("there is no provider \"%1\": vantro providers lists them").arg(call.words.front()));
    return *found;
}

Command providersCommand()
{
    std::vector<CommandOption> options{Command::jsonOption, {"yes", "Remove without asking."}};
    std::ranges::move(providerOptions(), std::back_inserter(options));
    return {.name = "providers",
            .summary = "List, add, edit, remove or test language models that rewrite texts.",
            .description = description,
            .actions = {{"list", listProviders},
                        {"add", addProvider},
                        {"edit", editProvider, 1, 1, "needs a provider's name"},
                        {"remove", removeProvider, 1, 1, "needs a provider's name"},
                        {"test", testProvider, 1, 1, "needs a provider's name"}},
            .options = std::move(options),
            .words = {{"NAME", "A provider's name or id.", "[NAME]]"}},
            .exitCodeOf = providersExitCode};
}

} // namespace vantro
