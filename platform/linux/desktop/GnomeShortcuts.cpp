#include "platform/linux/desktop/GnomeShortcuts.h"

#include "platform/linux/desktop/KeyNames.h"

#include <gio/gio.h>

#include <array>
#include <memory>

namespace vantro {

namespace {

constexpr std::array schemas{"org.gnome.desktop.wm.keybindings", "org.gnome.shell.keybindings",
                             "org.gnome.mutter.keybindings", "org.gnome.settings-daemon.plugins.media-keys"};
constexpr auto commandSchema = "org.gnome.settings-daemon.plugins.media-keys.custom-keybinding";
constexpr auto commandList = "custom-keybindings";

template <auto release>
struct Release
{
    template <typename T>
    void operator()(T* object) const
    {
        release(object);
    }
};
using Schema = std::unique_ptr<GSettingsSchema, Release<g_settings_schema_unref>>;
using SchemaKey = std::unique_ptr<GSettingsSchemaKey, Release<g_settings_schema_key_unref>>;
using Settings = std::unique_ptr<GSettings, Release<g_object_unref>>;
using Variant = std::unique_ptr<GVariant, Release<g_variant_unref>>;
using Strings = std::unique_ptr<gchar*, Release<g_strfreev>>;
using Text = std::unique_ptr<gchar, Release<g_free>>;

Schema find(const char* id)
{
    GSettingsSchemaSource* const source = g_settings_schema_source_get_default();
    return Schema(source != nullptr ? g_settings_schema_source_lookup(source, id, TRUE) : nullptr);
}

/// A binding is a string or a list of strings.
std::vector<QString> texts(GVariant* value)
{
    std::vector<QString> result;
    if (g_variant_is_of_type(value, G_VARIANT_TYPE_STRING)) {
        result.push_back(QString::fromUtf8(g_variant_get_string(value, nullptr)));
    } else if (g_variant_is_of_type(value, G_VARIANT_TYPE_STRING_ARRAY)) {
        for (gsize i = 0; i < g_variant_n_children(value); ++i) {
            const Variant child(g_variant_get_child_value(value, i));
            result.push_back(QString::fromUtf8(g_variant_get_string(child.get(), nullptr)));
        }
    }
    return result;
}

void add(std::vector<DesktopShortcut>& to, const QString& accelerator, const QString& action)
{
    if (const auto parsed = parseGtkAccelerator(accelerator))
        to.push_back({.keyCode = parsed->keyCode, .modifiers = parsed->modifiers, .action = action});
}

QString summary(GSettingsSchema* schema, const char* key)
{
    const SchemaKey entry(g_settings_schema_get_key(schema, key));
    const char* const text = g_settings_schema_key_get_summary(entry.get());
    return text != nullptr ? QString::fromUtf8(text) : QString::fromUtf8(key);
}

void readSchema(std::vector<DesktopShortcut>& to, GSettingsSchema* schema, GSettings* settings)
{
    const Strings keys(g_settings_schema_list_keys(schema));
    for (gchar** key = keys.get(); *key != nullptr; ++key) {
        if (qstrcmp(*key, commandList) == 0)
            continue;
        const Variant value(g_settings_get_value(settings, *key));
        for (const QString& text : texts(value.get()))
            add(to, text, summary(schema, *key));
    }
}

void readCommands(std::vector<DesktopShortcut>& to, GSettings* mediaKeys)
{
    const Schema schema = find(commandSchema);
    if (!schema)
        return;
    const Variant list(g_settings_get_value(mediaKeys, commandList));
    for (const QString& path : texts(list.get())) {
        const Settings command(g_settings_new_full(schema.get(), nullptr, path.toUtf8().constData()));
        const Text binding(g_settings_get_string(command.get(), "binding"));
        const Text name(g_settings_get_string(command.get(), "name"));
        add(to, QString::fromUtf8(binding.get()), QString::fromUtf8(name.get()));
    }
}

} // namespace

std::vector<DesktopShortcut> readGnomeShortcuts()
{
    std::vector<DesktopShortcut> result;
    for (const char* const id : schemas) {
        const Schema schema = find(id);
        if (!schema)
            continue;
        const Settings settings(g_settings_new_full(schema.get(), nullptr, nullptr));
        readSchema(result, schema.get(), settings.get());
        if (g_settings_schema_has_key(schema.get(), commandList) != 0)
            readCommands(result, settings.get());
    }
    return result;
}

} // namespace vantro
