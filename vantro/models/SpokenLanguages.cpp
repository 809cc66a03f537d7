#include "vantro/models/SpokenLanguages.h"

#include "base/Settings.h"

#include <QCollator>
#include <QCoreApplication>
#include <QLocale>

#include <algorithm>
#include <map>

namespace vantro {

namespace {

/// The languages of the multilingual Whisper models.
constexpr char codes[] =
    "en zh de es ru ko fr ja pt tr pl ca nl ar sv it id hi fi vi he uk el ms cs ro da hu ta no th ur hr bg lt la mi ml "
    "cy sk te fa lv bn sr az sl kn et mk br eu is hy ne mn bs kk sq sw gl mr pa si km sn yo so af oc ka be tg sd gu am "
    "yi lo uz fo ht ps tk nn mt sa lb my bo tl mg as tt haw ln ha ba jw su yue";

/// With our own names where the locale data names a variety or nothing at all.
QString nameOf(const QString& code)
{
    static const std::map<QString, QString> own{{QStringLiteral("en"), QStringLiteral("English")},
                                                {QStringLiteral("es"), QStringLiteral("Español")},
                                                {QStringLiteral("fr"), QStringLiteral("Français")},
                                                {QStringLiteral("pt"), QStringLiteral("Português")},
                                                {QStringLiteral("zh"), QStringLiteral("中文")},
                                                {QStringLiteral("fa"), QStringLiteral("فارسی")},
                                                {QStringLiteral("haw"), QStringLiteral("ʻŌlelo Hawaiʻi")},
                                                {QStringLiteral("jw"), QStringLiteral("Basa Jawa")},
                                                {QStringLiteral("la"), QStringLiteral("Latina")},
                                                {QStringLiteral("tl"), QStringLiteral("Tagalog")},
                                                {QStringLiteral("ht"), QStringLiteral("Kreyòl ayisyen")},
                                                {QStringLiteral("sa"), QStringLiteral("संस्कृतम्")},
                                                {QStringLiteral("yue"), QStringLiteral("粵語")}};
    if (const auto found = own.find(code); found != own.end())
        return found->second;
    const QLocale locale(code);
    QString name = locale.language() == QLocale::C ? QString() : locale.nativeLanguageName();
    if (name.isEmpty())
        name = QLocale::languageToString(locale.language());
    return name.left(1).toUpper() + name.mid(1);
}

} // namespace

const std::vector<SpokenLanguage>& spokenLanguages()
{
    static const std::vector<SpokenLanguage> all = [] {
        std::vector<SpokenLanguage> result;
        for (const QString& code : QString::fromLatin1(codes).split(QLatin1Char(' ')))
            result.push_back({code, nameOf(code)});
        const QCollator collator;
        std::ranges::sort(result, [&](const auto& a, const auto& b) { return collator.compare(a.name, b.name) < 0; });
        result.insert(result.begin(),
                      {QStringLiteral("auto"), QCoreApplication::translate("SpokenLanguages", "Detect automatically")});
        return result;
    }();
    return all;
}

bool isSpokenLanguage(const QString& code)
{
    return std::ranges::find(spokenLanguages(), code, &SpokenLanguage::code) != spokenLanguages().end();
}

QString spokenLanguage(const UserDefaults& defaults)
{
    const QString code = defaults.get(setting::selectedLanguage);
    return code == QLatin1String("auto") ? QLocale().name().section(QLatin1Char('_'), 0, 0) : code;
}

} // namespace vantro
