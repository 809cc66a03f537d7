#pragma once

#include <QObject>
#include <QSizeF>
#include <QtQml/qqmlregistration.h>

namespace vantro {

/// The animation state of the paste HUD, which grows from the launcher's size to its own.
class PasteHUDModel : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with its window")
    Q_PROPERTY(QSizeF startSize MEMBER startSize NOTIFY changed)
    Q_PROPERTY(bool isSettled MEMBER isSettled NOTIFY changed)
    Q_PROPERTY(bool isAnimated MEMBER isAnimated NOTIFY changed)
    Q_PROPERTY(QString shortcut MEMBER shortcut NOTIFY changed)
    Q_PROPERTY(QString reason MEMBER reason NOTIFY changed)
public:
    QSizeF startSize;
    bool isSettled = false;
    bool isAnimated = true;
    QString shortcut;
    QString reason; ///< why the user has to press it; may be empty

Q_SIGNALS:
    void changed();
};

} // namespace vantro
