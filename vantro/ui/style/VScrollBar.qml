import QtQuick
import QtQuick.Templates as T

// Shows where one is in something longer than its place, and drags it.
T.ScrollBar {
    id: bar

    implicitWidth: Theme.scrollBarWidth
    padding: 1
    minimumSize: 0.06
    visible: size < 1
    Accessible.ignored: true // the keyboard scrolls what it leads through
    contentItem: Rectangle {
        radius: width / 2
        color: bar.pressed || bar.hovered ? Theme.textSecondary : Theme.control
    }
}
