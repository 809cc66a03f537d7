#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <utility>

namespace vantro {

/// The view model of the page "About", which also offers what is otherwise only in the tray menu. Main thread; lives as
/// long as its window.
class AboutModel : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with its window")
    Q_PROPERTY(QString version MEMBER version CONSTANT)
    Q_PROPERTY(QString system MEMBER system CONSTANT)
public:
    struct Actions
    {
        std::function<void()> reportError;
        std::function<void()> sendFeedback;
        std::function<void()> quit;
    };

    explicit AboutModel(Actions actions) : actions_(std::move(actions)) {}

    Q_INVOKABLE void reportError() { actions_.reportError(); }
    Q_INVOKABLE void sendFeedback() { actions_.sendFeedback(); }
    Q_INVOKABLE void quit() { actions_.quit(); }

    QString version;
    QString system; ///< the description of the system in error reports

private:
    Actions actions_;
};

} // namespace vantro
