#include "vantro/ui/alert/AlertWindow.h"

#include "vantro/ui/style/UiEngine.h"

#include <QGuiApplication>
#include <QQuickItem>
#include <QScreen>

#include <utility>

void qml_register_types_Vantro_Alert();

namespace vantro {

AlertWindow::AlertWindow(QQmlEngine& engine, Kind kind, const QString& title, const QString& text,
                         const QStringList& buttons, Answered answered)
    : QQuickView(&engine, nullptr)
    , answered_(std::move(answered))
{
    keepModule(qml_register_types_Vantro_Alert);
    setFlags(Qt::Dialog | Qt::WindowStaysOnTopHint | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
             Qt::WindowCloseButtonHint);
    // Not modal: the launcher of the next dictation gets the keyboard although an alert is still open.
    setTitle(title);
    setInitialProperties({{QStringLiteral("title"), title},
                          {QStringLiteral("text"), text},
                          {QStringLiteral("buttons"), buttons},
                          {QStringLiteral("isWarning"), kind == Kind::warning}});
    setSource(QUrl(QStringLiteral("qrc:/qt/qml/Vantro/Alert/Alert.qml")));
    connect(rootObject(), SIGNAL(pressed(int)), this, SLOT(pressed(int)));
    connect(rootObject(), SIGNAL(dismissed()), this, SLOT(close()));
    connect(rootObject(), &QQuickItem::implicitHeightChanged, this, &AlertWindow::fitToContent);
    connect(this, &QWindow::visibleChanged, this, [this](bool visible) {
        if (visible)
            return;
        answer(std::nullopt);
        deleteLater();
    });
}

AlertWindow::~AlertWindow() = default;

void AlertWindow::present()
{
    fitToContent();
    if (const QScreen* screen = QGuiApplication::primaryScreen()) {
        QRect rect(QPoint(), size());
        rect.moveCenter(screen->availableGeometry().center());
        setGeometry(rect);
    }
    show();
    raise();
    requestActivate();
}

void AlertWindow::fitToContent()
{
    const QSize wanted(static_cast<int>(rootObject()->implicitWidth()),
                       static_cast<int>(rootObject()->implicitHeight()));
    setMinimumSize(wanted);
    setMaximumSize(wanted);
    resize(wanted);
}

void AlertWindow::pressed(int button)
{
    answer(button);
    close();
}

void AlertWindow::answer(std::optional<int> button)
{
    if (const auto answered = std::exchange(answered_, nullptr))
        answered(button);
}

} // namespace vantro
