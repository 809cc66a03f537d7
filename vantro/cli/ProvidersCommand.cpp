#include "vantro/cli/ProvidersCommand.h"

#include "vantro/ai/providers/KeychainError.h"
#include "vantro/cli/ExitCode.h"
#include "vantro/cli/ProvidersSession.h"
#include "vantro/cli/Terminal.h"

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

int wrongUsage(const QString& text)
{
    terminal::writeError(text + QStringLiteral(" (see vantro providers --help)"));
    return ExitCode::usage;
}

int carryOut(ProvidersSession& session, const QString& action, const QString& name, const QCommandLineParser& parser)
{
    const bool json = parser.isSet(QStringLiteral("json"));
    if (action == QLatin1String("list"))
        return listProviders(session, json);
    if (action == QLatin1String("add"))
        return addProvider(session, parser);
    const auto* found = session.find(name);
    if (found == nullptr) {
        terminal::writeError(QStringLiteral("there is no provider \"%1\": vantro providers lists them").arg(name));
        return ExitCode::notFound;
    }
    const ProviderConfiguration provider = *found;
    if (action == QLatin1String("edit"))
        return editProvider(session, provider, parser);
    if (action == QLatin1String("remove"))
        return removeProvider(session, provider, parser);
    return testProvider(session, provider, json);
}

int carryOutGuarded(const QString& action, const QString& name, const QCommandLineParser& parser)
{
    try {
        ProvidersSession session;
        return carryOut(session, action, name, parser);
    } catch (const KeychainError& error) {
        terminal::writeError(QStringLiteral("providers %1: %2").arg(action, error.localizedDescription()));
        return error.kind() == KeychainError::Kind::serviceMissing ? ExitCode::noService : ExitCode::failed;
    } catch (const Error& error) {
        terminal::writeError(QStringLiteral("providers %1: %2").arg(action, error.localizedDescription()));
        return ExitCode::failed;
    }
}

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

int runProviders(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QLatin1String(description));
    terminal::addHelpOption(parser);
    parser.addOption({QStringLiteral("json"), QStringLiteral("JSON instead of text.")});
    parser.addOption({QStringLiteral("yes"), QStringLiteral("Remove without asking.")});
    addProviderOptions(parser);
    parser.addPositionalArgument(QStringLiteral("ACTION"), QStringLiteral("What to do."), QStringLiteral("[ACTION"));
    parser.addPositionalArgument(QStringLiteral("NAME"), QStringLiteral("A provider's name or id."),
                                 QStringLiteral("[NAME]]"));
    if (!parser.parse(QStringList{QStringLiteral("vantro providers")} + arguments))
        return wrongUsage(parser.errorText());
    if (parser.isSet(QStringLiteral("help"))) {
        terminal::writeLine(terminal::helpText(parser, QStringLiteral("providers")));
        return ExitCode::done;
    }
    const QStringList words = parser.positionalArguments();
    const QString action = words.value(0, QStringLiteral("list"));
    static const QStringList withName{QStringLiteral("edit"), QStringLiteral("remove"), QStringLiteral("test")};
    static const QStringList without{QStringLiteral("list"), QStringLiteral("add")};
    if (!withName.contains(action) && !without.contains(action))
        return wrongUsage(QStringLiteral("there is no action \"%1\"").arg(action));
    if (withName.contains(action) && words.size() < 2)
        return wrongUsage(QStringLiteral("providers %1 needs a provider's name").arg(action));
    if (words.size() > (without.contains(action) ? 1 : 2))
        return wrongUsage(QStringLiteral("too many words"));
    return carryOutGuarded(action, words.value(1), parser);
}

} // namespace vantro
