import QtQuick
import QtQuick.Templates as T
import Vantro.Style
import Vantro.History

// The days on the left; the summary and the notes of the current one on the right.
FocusScope {
    id: page

    required property NotesModel model
    required property RecordingPlayer player
    property real listTop
    readonly property bool hasDay: model.title !== ""

    function takeKeyboard() {
        list.forceActiveFocus()
    }
    // The notes are shown anew when one of them changes: the keyboard stays where it was among them.
    property var place: ({ note: 0, deletes: false })
    function keepPlace() {
        // Without its former holder it falls back to the page.
        if (Window.activeFocusItem !== page)
            return
        const note = notes.itemAt(Math.min(place.note, notes.count - 1))
        if (note)
            note.takeKeyboard(place.deletes)
        else
            takeKeyboard()
    }
    Connections {
        target: page.model
        function onNotesChanged() {
            Qt.callLater(page.keepPlace)
        }
    }
    function copy() {
        if (!hasDay)
            return
        model.copyDay()
        copied.restart()
    }

    HistoryList {
        id: list
        anchors { left: parent.left; top: parent.top; bottom: parent.bottom; margins: Theme.space12; topMargin: page.listTop + Theme.space12 }
        width: Theme.listWidth - 2 * Theme.space12
        focus: true
        model: page.model.list
        current: page.model.currentRow
        Accessible.name: qsTr("Days with notes")
        onPicked: row => page.model.pick(row)
        onRemoved: page.model.removeDay()
        onEndWanted: page.model.pick(count - 1)

        delegate: HistoryRow {
            required property int index
            required property var created_at
            required property string formatted
            required property int noteCount
            width: ListView.view.rowWidth
            line: page.model.dayName(created_at)
            details: noteCount === 1 ? qsTr("1 note") : qsTr("%1 notes").arg(noteCount)
            chosen: index === page.model.currentRow
            hasKeyboard: list.activeFocus && chosen
            onTapped: modifiers => list.tapped(index, modifiers)
        }
    }
    VText {
        anchors { left: list.right; right: parent.right; verticalCenter: parent.verticalCenter; margins: Theme.space32 }
        visible: !page.hasDay
        text: qsTr("Your notes will appear here, day by day. Choose the mode Notes while you record.")
        color: Theme.textSecondary
        font.pixelSize: Theme.sizeBody
        wrapMode: Text.Wrap
        horizontalAlignment: Text.AlignHCenter
    }
    VPage {
        id: day
        anchors { left: list.right; right: parent.right; top: parent.top; bottom: actions.top; leftMargin: Theme.space12; bottomMargin: Theme.space12 }
        visible: page.hasDay
        title: page.model.title

        VCard {
            heading: qsTr("Summary")
            VText {
                width: parent.width
                text: page.model.isUpdating ? qsTr("Updating summary...")
                    : page.model.summary !== "" ? page.model.summary
                    : qsTr("There is no summary yet. It is written when the mode Notes has a provider.")
                color: page.model.isUpdating || page.model.summary === "" ? Theme.textSecondary : Theme.text
                font.pixelSize: Theme.sizeBody
                wrapMode: Text.Wrap
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }
        }
        VCard {
            heading: qsTr("Notes")
            Repeater {
                id: notes
                model: page.model.notes
                Item {
                    id: note
                    required property int index
                    required property var modelData
                    width: parent.width
                    readonly property bool isHeard: index === page.model.heardNote
                    function takeKeyboard(deletes) {
                        (deletes ? deleteButton : copyButton).forceActiveFocus(Qt.TabFocusReason)
                    }
                    implicitHeight: recording.visible ? recording.y + recording.height : recording.y

                    Column {
                        id: words
                        anchors { left: parent.left; right: buttons.left; rightMargin: Theme.space12 }
                        spacing: Theme.space4
                        VNote { text: note.modelData.time }
                        VText {
                            width: parent.width
                            text: note.modelData.text
                            color: Theme.text
                            font.pixelSize: Theme.sizeBody
                            wrapMode: Text.Wrap
                            Accessible.role: Accessible.StaticText
                            Accessible.name: text
                        }
                    }
                    Row {
                        id: buttons
                        anchors.right: parent.right
                        spacing: Theme.space8
                        VButton {
                            id: copyButton
                            secondary: true
                            onActiveFocusChanged: if (activeFocus) page.place = { note: note.index, deletes: false }
                            text: noteCopied.running ? "\u2713 " + qsTr("Copied") : qsTr("Copy")
                            Accessible.description: note.modelData.text
                            onClicked: {
                                page.model.copyNote(note.index)
                                noteCopied.restart()
                            }
                            Timer {
                                id: noteCopied
                                interval: Theme.signMs
                            }
                        }
                        VButton {
                            id: deleteButton
                            secondary: true
                            onActiveFocusChanged: if (activeFocus) page.place = { note: note.index, deletes: true }
                            text: qsTr("Delete")
                            Accessible.description: note.modelData.text
                            onClicked: page.model.removeNote(note.index)
                        }
                    }
                    Column {
                        id: recording
                        anchors { left: parent.left; right: parent.right }
                        y: Math.max(words.height, buttons.height) + (visible ? Theme.space8 : 0)
                        visible: page.model.recordings[note.index] ?? false
                        spacing: Theme.space8
                        RecordingBar {
                            width: parent.width
                            player: page.player
                            isShown: note.isHeard
                            description: note.modelData.text
                            onToggled: {
                                page.model.hear(note.index)
                                player.toggle()
                            }
                        }
                        VChoice {
                            visible: note.isHeard && model.length > 0
                            model: page.model.speechModels
                            currentIndex: -1
                            displayText: qsTr("Transcribe again...")
                            Accessible.name: displayText
                            Accessible.description: note.modelData.text
                            onActivated: index => {
                                currentIndex = -1
                                list.forceActiveFocus() // this note is about to be shown anew
                                page.model.transcribeAgain(index)
                            }
                        }
                    }
                }
            }
        }
    }
    Flow {
        id: actions
        anchors { left: day.left; right: parent.right; bottom: parent.bottom; margins: Theme.space24 }
        spacing: Theme.space8
        visible: page.hasDay

        VButton {
            text: copied.running ? "\u2713 " + qsTr("Copied") : qsTr("Copy the day")
            onClicked: page.copy()
            Timer {
                id: copied
                interval: Theme.signMs
            }
        }
        VButton {
            secondary: true
            enabled: !page.model.isUpdating
            text: qsTr("Regenerate summary")
            onClicked: page.model.regenerate()
        }
        VButton {
            secondary: true
            text: qsTr("Delete the day")
            onClicked: page.model.removeDay()
        }
    }
}
