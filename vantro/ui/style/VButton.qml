import QtQuick

// A button for mouse, Space and Return.
Rectangle {
    id: button

    property string text
    property bool secondary: false
    signal clicked

    implicitWidth: label.implicitWidth + 2 * Theme.space16
    implicitHeight: label.implicitHeight + 2 * Theme.space8
    radius: Theme.radiusSmall
    opacity: enabled ? 1 : Theme.disabledOpacity
    color: secondary ? (tap.pressed ? Theme.surfacePressed : hover.hovered ? Theme.surfaceHovered : Theme.surfaceRaised)
                     : (tap.pressed ? Theme.accentPressed : hover.hovered ? Theme.accentHovered : Theme.accent)
    activeFocusOnTab: true
    border.width: !secondary ? 0 : activeFocus ? Theme.focusRing : Theme.hairline
    border.color: activeFocus ? Theme.text : Theme.control

    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.focusable: true
    Accessible.onPressAction: clicked()

    // Held down, a key presses once.
    Keys.onPressed: event => {
        if (![Qt.Key_Space, Qt.Key_Return, Qt.Key_Enter].includes(event.key))
            return
        event.accepted = true
        if (!event.isAutoRepeat)
            clicked()
    }

    VFocusLine { visible: button.activeFocus && !button.secondary }
    VText {
        id: label
        anchors.centerIn: parent
        text: button.text
        color: button.secondary ? Theme.text : Theme.accentText
        font.pixelSize: Theme.sizeBody
    }
    HoverHandler { id: hover }
    TapHandler {
        id: tap
        onTapped: button.clicked()
    }
}
