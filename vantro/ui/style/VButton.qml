import QtQuick

// A button that shows its focus and answers to Space, Return and a click.
Rectangle {
    id: button

    property string text
    signal clicked

    implicitWidth: label.implicitWidth + 2 * Theme.space16
    implicitHeight: label.implicitHeight + 2 * Theme.space8
    radius: Theme.radiusSmall
    color: Theme.accent
    activeFocusOnTab: true
    border.width: activeFocus ? Theme.focusRing : 0
    border.color: Theme.text

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
        color: Theme.accentText
        font.pixelSize: Theme.sizeBody
    }
    TapHandler {
        onTapped: button.clicked()
    }
}
