import QtQuick
import Vantro.Style
import Vantro.History

// The dictations and the notes, each with a list and what is chosen in it.
Rectangle {
    id: window

    required property HistoryModel model
    required property RecordingPlayer player
    required property NotesModel notes
    required property HistoryChanges changes
    property string page: "dictations"
    readonly property Item shown: page === "notes" ? notesPage : dictationsPage
    signal closeRequested

    color: Theme.surface
    Component.onCompleted: shown.takeKeyboard()

    Keys.onEscapePressed: if (shown !== dictationsPage || !dictationsPage.clearSearch()) closeRequested()
    Keys.onPressed: event => {
        event.accepted = true
        if (event.matches(StandardKey.Undo) && !window.model.isEditing)
            changes.undo()
        else if (event.matches(StandardKey.Copy) && !window.model.isEditing)
            shown.copy()
        else if (event.matches(StandardKey.Find) && page === "dictations")
            dictationsPage.takeKeyboard()
        else if (event.modifiers & Qt.ControlModifier && [Qt.Key_Tab, Qt.Key_Backtab].includes(event.key))
            page = page === "notes" ? "dictations" : "notes"
        else
            event.accepted = false
    }

    Binding {
        target: window.player
        property: "recording"
        value: window.page === "notes" ? window.notes.heard : window.model.currentIdentifier
    }
    Rectangle {
        id: side
        anchors { left: parent.left; top: parent.top; bottom: parent.bottom }
        width: Theme.listWidth
        color: Theme.surfaceRaised
        Rectangle {
            anchors { right: parent.right; top: parent.top; bottom: parent.bottom }
            width: Theme.hairline
            color: Theme.outline
        }
    }
    Item {
        id: pages
        anchors { left: parent.left; right: parent.right; top: parent.top; bottom: news.top }

        DictationsPage {
            id: dictationsPage
            anchors.fill: parent
            visible: window.shown === this
            onVisibleChanged: if (visible) takeKeyboard()
            listTop: tabs.y + tabs.height
            model: window.model
            player: window.player
            busy: window.changes.isBusy
        }
        NotesPage {
            id: notesPage
            anchors.fill: parent
            visible: window.shown === this
            onVisibleChanged: if (visible) takeKeyboard()
            listTop: tabs.y + tabs.height
            model: window.notes
            player: window.player
        }
    }
    VTabs {
        id: tabs
        anchors { left: parent.left; top: parent.top; margins: Theme.space12 }
        width: Theme.listWidth - 2 * Theme.space12
        names: [qsTr("Dictations"), qsTr("Notes")]
        current: window.page === "notes" ? 1 : 0
        onPicked: index => window.page = index === 1 ? "notes" : "dictations"
    }
    Rectangle {
        id: news
        anchors { left: side.right; right: parent.right; bottom: parent.bottom }
        height: visible ? newsRow.implicitHeight + 2 * Theme.space12 : 0
        visible: window.changes.canUndo || window.changes.isBusy || window.changes.problem !== ""
        color: Theme.surfaceHovered

        Item {
            id: newsRow
            anchors { left: parent.left; right: parent.right; verticalCenter: parent.verticalCenter; leftMargin: Theme.space24; rightMargin: Theme.space24 }
            implicitHeight: Math.max(problem.implicitHeight, undo.implicitHeight)

            VText {
                id: problem
                anchors { left: parent.left; right: undo.left; rightMargin: Theme.space12; verticalCenter: parent.verticalCenter }
                text: window.changes.isBusy ? window.changes.work
                    : window.changes.problem !== "" ? window.changes.problem
                    : qsTr("%1 It can be undone until this window closes.").arg(window.changes.done)
                color: window.changes.problem !== "" && !window.changes.isBusy ? Theme.error : Theme.text
                font.pixelSize: Theme.sizeBody
                wrapMode: Text.Wrap
                Accessible.role: Accessible.AlertMessage
                Accessible.name: text
            }
            VButton {
                id: undo
                anchors { right: parent.right; verticalCenter: parent.verticalCenter }
                visible: window.changes.canUndo
                secondary: true
                text: qsTr("Undo")
                onClicked: window.changes.undo()
            }
        }
    }
}
