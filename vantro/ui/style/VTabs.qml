import QtQuick

// Two or three pages side by side: one Tab stop, the arrow keys choose. The chosen one has the keyboard, so that it is read
// aloud.
FocusScope {
    id: tabs

    property var names: []
    property int current: 0
    signal picked(int index)

    implicitHeight: row.implicitHeight + 2 * Theme.space4

    Accessible.role: Accessible.PageTabList
    Accessible.name: qsTr("Pages")
    Keys.onLeftPressed: if (current > 0) picked(current - 1)
    Keys.onRightPressed: if (current < names.length - 1) picked(current + 1)

    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusSmall
        color: Theme.surface
        border.width: tabs.activeFocus ? Theme.focusRing : Theme.hairline
        border.color: tabs.activeFocus ? Theme.text : Theme.control
    }
    Row {
        id: row
        anchors { left: parent.left; right: parent.right; verticalCenter: parent.verticalCenter; margins: Theme.space4 }

        Repeater {
            model: tabs.names
            Rectangle {
                id: tab
                required property int index
                required property string modelData
                readonly property bool isCurrent: index === tabs.current

                width: row.width / tabs.names.length
                implicitHeight: label.implicitHeight + Theme.space8
                radius: Theme.radiusSmall - Theme.space4
                color: isCurrent ? Theme.accent : hover.hovered ? Theme.surfaceHovered : "transparent"
                focus: isCurrent
                activeFocusOnTab: isCurrent
                Accessible.role: Accessible.PageTab
                Accessible.focusable: true
                Accessible.name: modelData
                Accessible.selected: isCurrent
                Accessible.onPressAction: tabs.picked(index)

                VText {
                    id: label
                    anchors.centerIn: parent
                    text: tab.modelData
                    color: tab.isCurrent ? Theme.accentText : Theme.text
                    font.pixelSize: Theme.sizeBody
                }
                HoverHandler { id: hover }
                TapHandler {
                    onTapped: {
                        tabs.forceActiveFocus(Qt.MouseFocusReason)
                        tabs.picked(tab.index)
                    }
                }
            }
        }
    }
}
