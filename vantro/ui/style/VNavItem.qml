import QtQuick

// An entry in the list of pages.
Rectangle {
    id: item

    property string text
    property bool current
    signal picked

    width: parent ? parent.width : implicitWidth
    implicitHeight: label.implicitHeight + 2 * Theme.space8
    radius: Theme.radiusSmall
    color: current ? Theme.accent : hover.hovered ? Theme.surfaceHovered : "transparent"

    Accessible.role: Accessible.PageTab
    Accessible.name: text
    Accessible.focusable: true
    Accessible.selected: current
    Accessible.onPressAction: picked()

    VFocusLine { visible: item.activeFocus }
    VText {
        id: label
        anchors { left: parent.left; right: parent.right; margins: Theme.space12; verticalCenter: parent.verticalCenter }
        text: item.text
        color: item.current ? Theme.accentText : Theme.text
        font.pixelSize: Theme.sizeBody
        elide: Text.ElideRight
    }
    HoverHandler { id: hover }
    TapHandler { onTapped: item.picked() }
}
