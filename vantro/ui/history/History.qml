import QtQuick
import QtQuick.Templates as T
import Vantro.Style
import Vantro.History

// Search and list on the left, the selected dictation on the right.
Rectangle {
    id: window

    required property HistoryModel model
    property bool showsRaw: false
    readonly property string shownText: model.isFormatted && !showsRaw ? model.formattedText : model.rawText
    signal closeRequested

    color: Theme.surface

    Keys.onEscapePressed: search.text !== "" ? search.text = "" : closeRequested()
    Keys.onDeletePressed: model.remove()
    Keys.onPressed: event => {
        if (event.matches(StandardKey.Undo))
            model.undo()
        else if (event.matches(StandardKey.Copy) && text.selectedText === "")
            model.copy(shownText)
        else
            return
        event.accepted = true
    }

    Rectangle {
        id: side
        anchors { left: parent.left; top: parent.top; bottom: parent.bottom }
        width: Theme.listWidth
        color: Theme.surfaceRaised

        VField {
            id: search
            anchors { left: parent.left; right: parent.right; top: parent.top; margins: Theme.space12 }
            focus: true
            placeholderText: qsTr("Search")
            Accessible.role: Accessible.EditableText
            Accessible.name: qsTr("Search the history")
            onTextChanged: window.model.search = text
            Keys.onDownPressed: list.takeKeyboard()
        }
        ListView {
            id: list
            anchors { left: parent.left; right: parent.right; top: search.bottom; bottom: parent.bottom; margins: Theme.space12 }
            clip: true
            spacing: Theme.space4
            boundsBehavior: Flickable.StopAtBounds
            activeFocusOnTab: true
            keyNavigationEnabled: true
            currentIndex: -1
            model: window.model.list
            Accessible.role: Accessible.List
            Accessible.name: qsTr("Dictations")

            function takeKeyboard() {
                forceActiveFocus()
                if (currentIndex < 0 && count > 0)
                    currentIndex = 0
            }

            onActiveFocusChanged: if (activeFocus) takeKeyboard()
            onCurrentItemChanged: if (currentItem) window.model.select(currentItem.identifier)

            delegate: HistoryRow {
                required property int index
                required property var identifier
                required property var created_at
                required property string processingMode
                width: ListView.view.width
                time: window.model.shortTime(created_at)
                mode: processingMode
                current: ListView.isCurrentItem
                onPicked: {
                    list.currentIndex = index
                    list.forceActiveFocus()
                }
            }
            T.ScrollBar.vertical: T.ScrollBar {
                implicitWidth: Theme.space4
                contentItem: Rectangle {
                    radius: width / 2
                    color: Theme.fieldOutline
                }
            }
        }
        Rectangle {
            anchors { right: parent.right; top: parent.top; bottom: parent.bottom }
            width: Theme.hairline
            color: Theme.outline
        }
    }
    Text {
        anchors { left: side.right; right: parent.right; verticalCenter: parent.verticalCenter; margins: Theme.space32 }
        visible: !window.model.hasSelection
        text: window.model.problem !== "" ? window.model.problem
            : search.text !== "" && list.count === 0 ? qsTr("No dictation contains these words.")
            : list.count === 0 ? qsTr("Your dictations will appear here. Press your shortcut and speak.")
            : qsTr("Choose a dictation to read it.")
        color: window.model.problem !== "" ? Theme.error : Theme.textSecondary
        font.pixelSize: Theme.sizeBody
        wrapMode: Text.Wrap
        horizontalAlignment: Text.AlignHCenter
    }
    Item {
        id: reader
        anchors { left: side.right; right: parent.right; top: parent.top; bottom: actions.top; margins: Theme.space24 }
        visible: window.model.hasSelection

        VNote {
            id: details
            text: window.model.details
        }
        Flickable {
            anchors { left: parent.left; right: parent.right; top: details.bottom; topMargin: Theme.space12; bottom: parent.bottom }
            contentHeight: text.height
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            TextEdit {
                id: text
                width: parent.width
                readOnly: true
                selectByMouse: true
                activeFocusOnTab: true
                text: window.shownText
                textFormat: TextEdit.PlainText
                color: Theme.text
                selectionColor: Theme.accent
                selectedTextColor: Theme.accentText
                font.pixelSize: Theme.sizeBody
                wrapMode: TextEdit.Wrap
                Accessible.role: Accessible.EditableText
                Accessible.name: qsTr("Text of the dictation")
                Accessible.readOnly: true
            }
        }
    }
    Row {
        id: actions
        anchors { left: side.right; right: parent.right; bottom: parent.bottom; margins: Theme.space24 }
        height: undo.implicitHeight
        spacing: Theme.space8

        VButton {
            visible: window.model.hasSelection
            text: qsTr("Copy")
            onClicked: window.model.copy(window.shownText)
        }
        VButton {
            visible: window.model.isFormatted
            secondary: true
            text: window.showsRaw ? qsTr("Show the rewritten text") : qsTr("Show the original text")
            onClicked: window.showsRaw = !window.showsRaw
        }
        VButton {
            visible: window.model.hasSelection
            secondary: true
            text: qsTr("Delete")
            onClicked: window.model.remove()
        }
        VButton {
            id: undo
            visible: window.model.canUndo
            secondary: true
            text: qsTr("Undo delete")
            onClicked: window.model.undo()
        }
    }
}
