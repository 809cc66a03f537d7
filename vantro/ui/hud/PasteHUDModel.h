#pragma once

#include <QObject>
#include <QSizeF>
#include <QtQml/qqmlregistration.h>

namespace vantro {

/// The texts and the animation state of the HUD, which grows from the launcher's size to its own.
class PasteHUDModel : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with its window")
    Q_PROPERTY(QSizeF startSize MEMBER startSize NOTIFY changed)
    Q_PROPERTY(bool isSettled MEMBER isSettled NOTIFY changed)
    Q_PROPERTY(bool isAnimated MEMBER isAnimated NOTIFY changed)
    Q_PROPERTY(QString title MEMBER title NOTIFY changed)
    Q_PROPERTY(bool isSentence MEMBER isSentence NOTIFY changed)
    Q_PROPERTY(QString caption MEMBER caption NOTIFY changed)
    Q_PROPERTY(QString reason MEMBER reason NOTIFY changed)
    Q_PROPERTY(bool isButton MEMBER isButton NOTIFY changed)
public:
    QSizeF startSize;
    bool isSettled = false;
    bool isAnimated = true;
    QString title;           ///< the keys that paste, or what has happened
    bool isSentence = false; ///< the title says what has happened
    QString caption;         ///< below it; may be empty
    QString reason;          ///< why the user has to press the keys; may be empty
    bool isButton = false;   ///< a click does something

Q_SIGNALS:
    void changed();
};

} // namespace vantro
