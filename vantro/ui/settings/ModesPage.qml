import QtQuick
import Vantro.Style
import Vantro.Settings

VPage {
    id: page

    required property ModesModel settings

    // What is typed belongs to the mode that is open until then.
    function show(place) {
        for (let i = 0; i < list.count; ++i)
            list.itemAt(i).details?.store()
        settings.shown = place
    }
    // A card that is dragged changes places with a neighbour once the pointer is beyond its middle.
    function drag(card, y) {
        const above = list.itemAt(card.place - 1)
        const below = list.itemAt(card.place + 1)
        if (above && y < above.y + above.height / 2)
            card.move(-1)
        else if (below && y > below.y + below.height / 2)
            card.move(1)
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
            onDragged: y => {
                page.drag(this, y)
                page.reveal(this)
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
