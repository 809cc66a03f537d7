import QtQuick
import Vantro.Style
import Vantro.Settings

VPage {
    id: page

    required property ModesModel settings
    property Item dragged: null
    property real pointer: 0 // the height of the mouse that drags

    // What is typed belongs to the mode that is open until then.
    function show(place) {
        for (let i = 0; i < list.count; ++i)
            list.itemAt(i).details?.store()
        settings.shown = place
    }
    // The card that is dragged changes places with a neighbour once the pointer is beyond its middle.
    function drag() {
        const y = mapToItem(dragged.parent, 0, pointer).y
        const above = list.itemAt(dragged.place - 1)
        const below = list.itemAt(dragged.place + 1)
        if (above && y < above.y + above.height / 2)
            dragged.move(-1)
        else if (below && y > below.y + below.height / 2)
            dragged.move(1)
    }
    // At the edges the page goes along.
    Timer {
        interval: Theme.frameMs
        repeat: true
        running: page.dragged !== null
        onTriggered: {
            const by = page.pointer < Theme.dragEdge ? -1 : page.pointer > page.height - Theme.dragEdge ? 1 : 0
            if (by === 0)
                return
            page.moveTo(page.contentY + by * Theme.dragStep)
            page.drag()
        }
    }

    title: qsTr("Modes")
    subtitle: qsTr("The mode decides what happens to a dictation. While recording, press a digit to choose another mode.")

    VCard {
        VSettingRow {
            title: qsTr("Default mode")
            hint: page.settings.defaultNote !== "" ? page.settings.defaultNote
                : page.settings.overview
            VChoice {
                model: page.settings.defaultModes
                currentIndex: page.settings.defaultMode
                Accessible.name: qsTr("Default mode")
                onActivated: index => page.settings.defaultMode = index
            }
        }
    }
    Repeater {
        id: list
        model: page.settings.list
        ModeCard {
            required property int index
            settings: page.settings
            place: index
            count: list.count
            onOpenWanted: open => page.show(open ? place : -1)
            onIsDraggedChanged: page.dragged = isDragged ? this : null
            onDragged: {
                page.dragged = this
                page.pointer = pointerIn(page)
                page.drag()
            }
            onMoved: {
                list.parent.forceLayout() // or it would still be where it was
                if (!isDragged)
                    page.reveal(page.Window.activeFocusItem ?? page)
            }
        }
    }
    VButton {
        visible: page.settings.canAdd
        text: qsTr("Add a mode")
        onClicked: {
            page.show(-1)
            page.settings.add()
        }
    }
}
