#include "platform/linux/desktop/XfceShortcuts.h"

#include "platform/linux/desktop/KeyNames.h"

#include <QFile>
#include <QXmlStreamReader>

#include <map>

namespace vantro {

namespace {

/// One section of the channel (commands or window manager actions): the defaults and the user's version.
struct Bindings
{
    std::vector<DesktopShortcut> byDefault;
    std::vector<DesktopShortcut> custom;
    bool isCustomized = false;
};

void read(QXmlStreamReader& xml, const QStringList& path, std::map<QString, Bindings>& to)
{
    constexpr qsizetype depthOfBindings = 3; // side, "default" or "custom", key
    if (path.size() != depthOfBindings)
        return;
    Bindings& bindings = to[path[0]];
    const QString value = xml.attributes().value(QLatin1String("value")).toString();
    const bool isCustom = path[1] == QLatin1String("custom");
    if (isCustom && path[2] == QLatin1String("override"))
        bindings.isCustomized = value == QLatin1String("true");
    const auto parsed = parseGtkAccelerator(path[2]);
    if (!parsed || value.isEmpty())
        return;
    (isCustom ? bindings.custom : bindings.byDefault)
        .push_back({.keyCode = parsed->keyCode, .modifiers = parsed->modifiers, .action = value});
}

} // namespace

std::vector<DesktopShortcut> readXfceShortcuts(const QStringList& folders)
{
    QFile file;
    for (const QString& folder : folders) {
        file.setFileName(folder + QStringLiteral("/xfce4/xfconf/xfce-perchannel-xml/xfce4-keyboard-shortcuts.xml"));
        if (file.open(QFile::ReadOnly))
            break;
    }
    if (!file.isOpen())
        return {};
    std::map<QString, Bindings> sides;
    QXmlStreamReader xml(&file);
    QStringList path;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.name() != QLatin1String("property"))
            continue;
        if (xml.isStartElement()) {
            path << xml.attributes().value(QLatin1String("name")).toString();
            read(xml, path, sides);
        } else if (xml.isEndElement()) {
            path.removeLast();
        }
    }
    std::vector<DesktopShortcut> result;
    for (const auto& [name, side] : sides) {
        const auto& inForce = side.isCustomized ? side.custom : side.byDefault;
        result.insert(result.end(), inForce.begin(), inForce.end());
    }
    return result;
}

} // namespace vantro
