#include "vantro/ui/style/UiEngine.h"

#include "base/Settings.h"

#include <QEvent>
#include <QFontInfo>
#include <QGuiApplication>
#include <QNetworkAccessManager>
#include <QNetworkRequest>
#include <QPalette>
#include <QQmlComponent>

#include <algorithm>
#include <memory>

void qml_register_types_Vantro_Style();

namespace vantro {

namespace {

bool paletteIsDark()
{
    const QPalette palette = QGuiApplication::palette();
    return palette.color(QPalette::WindowText).lightness() > palette.color(QPalette::Window).lightness();
}

/// A QML singleton can only be looked up after some QML has imported its module.
QObject* makeTheme(QQmlEngine& engine)
{
    QQmlComponent component(&engine);
    component.setData("import QtQml\nimport Vantro.Style\nQtObject { readonly property QtObject theme: Theme }",
                      QUrl());
    const std::unique_ptr<QObject> holder(component.create());
    if (!holder)
        qFatal("The look of the windows cannot be loaded: %s", qUtf8Printable(component.errorString()));
    return holder->property("theme").value<QObject*>();
}

/// Refuses every request: what is shown is in the program.
class NoNetwork final : public QNetworkAccessManager
{
public:
    using QNetworkAccessManager::QNetworkAccessManager;

protected:
    QNetworkReply* createRequest(Operation operation, const QNetworkRequest& /*request*/, QIODevice* body) override
    {
        return QNetworkAccessManager::createRequest(operation, QNetworkRequest(), body);
    }
};

class NoNetworkFactory final : public QQmlNetworkAccessManagerFactory
{
public:
    QNetworkAccessManager* create(QObject* parent) override { return new NoNetwork(parent); }
};

} // namespace

qreal textScale()
{
    constexpr qreal usualPixels = 14;
    return std::max(1.0, QFontInfo(QGuiApplication::font()).pixelSize() / usualPixels);
}

UiEngine::UiEngine(const UserDefaults& defaults, const DesktopAppearance& desktop)
    : defaults_(defaults)
    , desktop_(desktop)
    , noNetwork_(std::make_unique<NoNetworkFactory>())
{
    engine_.setNetworkAccessManagerFactory(noNetwork_.get());
    engine_.addImportPath(QStringLiteral("qrc:/qt/qml"));
    keepModule(qml_register_types_Vantro_Style);
    theme_ = makeTheme(engine_);
    applyTheme();
    qGuiApp->installEventFilter(this);
    connect(&desktop_, &DesktopAppearance::changed, this, &UiEngine::applyTheme);
    connect(&defaults_, &UserDefaults::changed, this, &UiEngine::applyTheme);
}

bool UiEngine::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == qGuiApp &&
        (event->type() == QEvent::ApplicationPaletteChange || event->type() == QEvent::ApplicationFontChange))
        applyTheme();
    return QObject::eventFilter(watched, event);
}

void UiEngine::applyTheme()
{
    const QString appearance = defaults_.get(setting::appearance);
    const bool desktopIsDark = desktop_.isDark().value_or(paletteIsDark());
    const bool dark = appearance == QLatin1String("dark") || (appearance != QLatin1String("light") && desktopIsDark);
    theme_->setProperty("dark", dark);
    theme_->setProperty("scale", textScale());
    theme_->setProperty("reducedMotion",
                        defaults_.stored(setting::reduceMotion).value_or(!desktop_.animationsEnabled().value_or(true)));
}

} // namespace vantro
