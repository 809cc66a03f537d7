import QtQuick
import QtQuick.Templates as T
import Vantro.Style
import Vantro.History

// A text to read: it scrolls, its parts can be chosen and copied, and what is searched for is marked. It can be edited.
Flickable {
    id: reader

    property string text
    property string search
    property string name
    property bool editing: false
    readonly property string currentText: edit.text
    signal saved
    signal cancelled
    readonly property string chosenText: edit.selectedText

    function turn(pages) {
        contentY = Math.max(0, Math.min(contentY + pages * (height - Theme.space24), contentHeight - height))
    }

    onEditingChanged: {
        if (editing) {
            edit.forceActiveFocus(Qt.TabFocusReason)
            edit.cursorPosition = edit.length
        } else {
            edit.text = Qt.binding(() => reader.text)
        }
    }
    function follow(place) {
        if (editing)
            contentY = Math.max(edit.y + place.y + place.height + edit.y - height, Math.min(contentY, place.y))
    }

    contentHeight: edit.height + 2 * edit.y
    clip: true
    boundsBehavior: Flickable.StopAtBounds
    onTextChanged: contentY = 0
    T.ScrollBar.vertical: VScrollBar {}

    TextEdit {
        id: edit
        x: Theme.space4 // room for the line that shows the focus
        y: Theme.space4
        width: reader.width - Theme.space16 - 2 * x
        readOnly: !reader.editing
        selectByMouse: true
        activeFocusOnTab: true
        text: reader.text
        textFormat: TextEdit.PlainText
        color: Theme.text
        selectionColor: Theme.accent
        selectedTextColor: Theme.accentText
        font.pixelSize: Theme.sizeBody
        wrapMode: TextEdit.Wrap
        Accessible.role: Accessible.EditableText
        Accessible.name: reader.name
        Accessible.readOnly: readOnly
        onCursorRectangleChanged: reader.follow(cursorRectangle)
        Keys.onPressed: event => {
            if (reader.editing) {
                const isReturn = event.key === Qt.Key_Return || event.key === Qt.Key_Enter
                event.accepted = true
                if (event.key === Qt.Key_Escape)
                    reader.cancelled()
                else if (isReturn && event.modifiers & Qt.ControlModifier || event.matches(StandardKey.Save))
                    reader.saved()
                else
                    event.accepted = false
                return
            }
            const turns = { [Qt.Key_PageDown]: 1, [Qt.Key_PageUp]: -1 }[event.key]
            const lines = { [Qt.Key_Down]: 0.1, [Qt.Key_Up]: -0.1 }[event.key]
            if (turns === undefined && (lines === undefined || event.modifiers & Qt.ShiftModifier))
                return
            reader.turn(turns ?? lines)
            event.accepted = true
        }
    }
    SearchMarks {
        document: edit.textDocument
        search: reader.search
        color: Theme.mark
    }
    Rectangle {
        anchors.fill: edit
        anchors.margins: -Theme.space4
        visible: edit.activeFocus
        color: "transparent"
        radius: Theme.space4
        border.width: Theme.focusRing
        border.color: Theme.accent
    }
}
