import QtQuick

// What an entry of a list is taken by with the mouse, to move it. For the keyboard there is something else.
MouseArea {
    id: grip

    signal dragged

    implicitWidth: label.implicitWidth + 2 * Theme.space8
    implicitHeight: label.implicitHeight + 2 * Theme.space8
    preventStealing: true // the page would scroll
    hoverEnabled: true
    cursorShape: pressed ? Qt.ClosedHandCursor : Qt.OpenHandCursor
    onMouseYChanged: if (pressed) dragged()

    Accessible.role: Accessible.Grip
    Accessible.name: qsTr("Drag to move")

    VText {
        id: label
        anchors.centerIn: parent
        text: "\u2261"
        color: grip.pressed || grip.containsMouse ? Theme.text : Theme.textSecondary
        font.pixelSize: Theme.sizeBody
        Accessible.ignored: true
    }
}
