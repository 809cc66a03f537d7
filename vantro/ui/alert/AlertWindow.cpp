#include "vantro/ui/alert/AlertWindow.h"

#include "vantro/ui/style/UiEngine.h"

#include <QQuickItem>

#include <utility>

void qml_register_types_Vantro_Alert();

namespace vantro {

AlertWindow::AlertWindow(QQmlEngine& engine, Clock& clock, const Contents& contents, Answered answered)
    : Dialog(engine, clock, contents.title, Qt::WindowStaysOnTopHint)
    , answered_(std::move(answered))
{
    keepModule(qml_register_types_Vantro_Alert);
    // Not modal, so that the next launcher can take the focus while an alert is still open.
    load(QStringLiteral("Alert/Alert.qml"), {{QStringLiteral("title"), contents.title},
                                             {QStringLiteral("text"), contents.text},
                                             {QStringLiteral("buttons"), contents.buttons},
                                             {QStringLiteral("safeButton"), contents.safeButton},
                                             {QStringLiteral("isWarning"), contents.kind == Kind::warning}});
    if (contents.about)
        connect(*contents.about, &QObject::destroyed, this, &QWindow::close);
    connect(rootObject(), SIGNAL(pressed(int)), this, SLOT(pressed(int)));
}

/// Not a slot of visibleChanged(), which is emitted once more when the window is half destroyed.
void AlertWindow::hideEvent(QHideEvent* event)
{
    Dialog::hideEvent(event);
    answer(std::nullopt);
    deleteLater();
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
