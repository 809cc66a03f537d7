#include "vantro/ui/style/UiEngine.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPalette>

void qml_register_types_Vantro_Style();

namespace vantro {

namespace {

bool desktopIsDark()
{
    const QPalette palette = QGuiApplication::palette();
    return palette.color(QPalette::WindowText).lightness() > palette.color(QPalette::Window).lightness();
}

} // namespace

UiEngine::UiEngine(const UserDefaults& defaults) : defaults_(defaults)
{
    engine_.addImportPath(QStringLiteral("qrc:/qt/qml"));
    keepModule(qml_register_types_Vantro_Style);
    applyTheme();
    qGuiApp->installEventFilter(this);
}

bool UiEngine::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == qGuiApp && event->type() == QEvent::ApplicationPaletteChange)
        applyTheme();
    return QObject::eventFilter(watched, event);
}

void UiEngine::applyTheme()
{
    const QString appearance = defaults_.string(QStringLiteral("appearance")).value_or(QString());
    const bool dark = appearance == QLatin1String("dark") || (appearance != QLatin1String("light") && desktopIsDark());
    const int id = qmlTypeId("Vantro.Style", 1, 0, "Theme");
    if (auto* theme = engine_.singletonInstance<QObject*>(id))
        theme->setProperty("dark", dark);
}

} // namespace vantro
