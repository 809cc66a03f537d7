import QtQuick
import Vantro.Style
import Vantro.Settings

// A mode in the list: its digit, name and state, its place, and its settings once it is opened.
VCard {
    id: card

    required property ModesModel settings
    required property int place
    required property int count
    required property string name
    required property string note
    required property bool isReady
    required property bool isAdded
    required property int digit
    readonly property bool isOpen: settings.shown === place
    readonly property Item details: loader.item
    readonly property bool isDragged: grip.pressed
    signal openWanted(bool open)
    signal moved
    signal dragged

    function move(by) {
        if (place + by < 0 || place + by >= count)
            return
        const wasUp = up.activeFocus
        const wasDown = down.activeFocus
        settings.move(place, by)
        // A button at the edge can no longer have the keyboard.
        if (wasUp && !up.enabled)
            down.forceActiveFocus(Qt.TabFocusReason)
        else if (wasDown && !down.enabled)
            up.forceActiveFocus(Qt.TabFocusReason)
        moved()
    }

    // The height at which the mouse is.
    function pointerIn(item) {
        return grip.mapToItem(item, 0, grip.mouseY).y
    }

    opacity: isDragged ? Theme.draggedOpacity : 1
    Keys.onPressed: event => {
        const by = { [Qt.Key_Up]: -1, [Qt.Key_Down]: 1 }[event.key]
        event.accepted = by !== undefined && event.modifiers & Qt.AltModifier
        if (event.accepted)
            move(by)
    }

    VSettingRow {
        title: card.digit > 0 ? card.digit + "  " + card.name : card.name
        hint: card.note
        Row {
            spacing: Theme.space8
            VGrip {
                id: grip
                anchors.verticalCenter: parent.verticalCenter
                Accessible.description: card.name
                onDragged: card.dragged()
            }
            VButton {
                id: up
                secondary: true
                enabled: card.place > 0
                text: "\u2191"
                Accessible.name: qsTr("Move up")
                Accessible.description: card.name
                onClicked: card.move(-1)
            }
            VButton {
                id: down
                secondary: true
                enabled: card.place < card.count - 1
                text: "\u2193"
                Accessible.name: qsTr("Move down")
                Accessible.description: card.name
                onClicked: card.move(1)
            }
            VButton {
                visible: card.isAdded
                secondary: true
                text: qsTr("Remove")
                Accessible.description: card.name
                onClicked: card.settings.remove(card.place)
            }
            VButton {
                secondary: true
                text: card.isOpen ? qsTr("Close") : qsTr("Edit")
                Accessible.description: card.name
                onClicked: card.openWanted(!card.isOpen)
            }
        }
    }
    Loader {
        id: loader
        width: parent.width
        active: card.isOpen
        visible: active
        sourceComponent: ModeDetails { settings: card.settings }
    }
}
