import QtQuick
import Vantro.Style

// A key and what it does, such as "<Space> Start transcription"; for the mouse, a button that does it.
Rectangle {
    id: hint

    property alias text: label.text
    property bool isButton: true
    signal clicked

    implicitWidth: label.implicitWidth + 2 * Theme.space12
    implicitHeight: label.implicitHeight + 2 * Theme.space4
    radius: Theme.radiusSmall
    color: !isButton ? "transparent" : tap.pressed ? Theme.surfacePressed : hover.hovered ? Theme.surfaceHovered : "transparent"
    border.width: isButton ? Theme.hairline : 0
    border.color: Theme.control
    visible: text !== ""

    Accessible.role: isButton ? Accessible.Button : Accessible.StaticText
    Accessible.name: text
    Accessible.onPressAction: if (isButton) clicked()

    VText {
        id: label
        anchors.verticalCenter: parent.verticalCenter
        x: hint.isButton ? Theme.space12 : 0
        color: hint.isButton ? Theme.text : Theme.textSecondary
        font.pixelSize: Theme.sizeSecondary
    }
    HoverHandler {
        id: hover
        enabled: hint.isButton
    }
    TapHandler {
        id: tap
        enabled: hint.isButton
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: hint.clicked()
    }
}
