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
    color: secondary ? Theme.surfaceRaised : Theme.accent
    activeFocusOnTab: true
    border.width: activeFocus ? Theme.focusRing : secondary ? Theme.hairline : 0
    border.color: activeFocus ? Theme.text : Theme.outline

    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.onPressAction: clicked()

    Keys.onSpacePressed: clicked()
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    Text {
        id: label
        anchors.centerIn: parent
        text: button.text
        color: button.secondary ? Theme.text : Theme.accentText
        font.pixelSize: Theme.sizeBody
    }
    TapHandler {
        onTapped: button.clicked()
    }
}
