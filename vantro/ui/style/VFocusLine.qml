import QtQuick

// Shows that something filled with the accent has the keyboard: within its edge, where it is seen on every surface.
Rectangle {
    anchors { fill: parent; margins: Theme.focusRing }
    radius: parent.radius - Theme.focusRing
    color: "transparent"
    border.width: Theme.focusRing
    border.color: Theme.focusOnAccent
}
