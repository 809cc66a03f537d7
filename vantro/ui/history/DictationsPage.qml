import QtQuick
import Vantro.Style
import Vantro.History

// Search, filters and list on the left, the current dictation on the right.
FocusScope {
    id: page

    required property HistoryModel model
    required property RecordingPlayer player
    property real listTop
    property bool busy: false
    property bool showsRaw: false
    property bool wantsSetAside: false
    readonly property bool showsSetAside: wantsSetAside && model.setAside !== ""
    readonly property string shownText: showsSetAside ? model.setAside
        : model.isFormatted && !showsRaw ? model.formattedText : model.rawText
    readonly property bool hasOne: model.chosenCount === 1 && model.currentRow >= 0

    function takeKeyboard() {
        search.forceActiveFocus()
    }
    function copy() {
        const part = reader.visible ? reader.chosenText : ""
        if (model.chosenCount === 0)
            return
        model.copy(part !== "" ? part : shownText)
        copied.restart()
    }
    function paste() {
        endEdit()
        model.paste(shownText)
    }
    function edit() {
        if (hasOne && !busy && !showsSetAside)
            model.edit(showsRaw)
    }
    function endEdit() {
        if (!model.isEditing)
            return
        model.endEdit(reader.currentText)
        list.forceActiveFocus()
    }
    function cancelEdit() {
        model.cancelEdit()
        list.forceActiveFocus()
    }
    function clearSearch() {
        if (search.text === "")
            return false
        search.clear()
        return true
    }

    Component.onDestruction: if (model && model.isEditing) model.endEdit(reader.currentText)

    Column {
        id: filters
        anchors { left: parent.left; leftMargin: Theme.space12 }
        y: page.listTop + Theme.space12
        width: Theme.listWidth - 2 * Theme.space12
        spacing: Theme.space8

        VField {
            id: search
            width: parent.width
            focus: true
            placeholderText: qsTr("Search")
            Accessible.role: Accessible.EditableText
            Accessible.name: qsTr("Search the history")
            onTextChanged: {
                page.model.endEdit(reader.currentText)
                page.model.search = text
            }
            Keys.onPressed: event => {
                if (event.matches(StandardKey.Copy) && selectedText === "") {
                    page.copy()
                    event.accepted = true
                }
            }
            Keys.onDownPressed: list.forceActiveFocus(Qt.TabFocusReason)
            Keys.onReturnPressed: list.forceActiveFocus(Qt.TabFocusReason)
            Keys.onEnterPressed: list.forceActiveFocus(Qt.TabFocusReason)
        }
        Row {
            width: parent.width
            spacing: Theme.space8
            VChoice {
                width: (parent.width - parent.spacing) / 2
                model: page.model.modes
                currentIndex: page.model.mode
                Accessible.name: qsTr("Mode")
                onActivated: index => page.model.mode = index
            }
            VChoice {
                width: (parent.width - parent.spacing) / 2
                model: [qsTr("Any time"), qsTr("Today"), qsTr("Last 7 days"), qsTr("Last 30 days")]
                currentIndex: page.model.period
                Accessible.name: qsTr("Time")
                onActivated: index => page.model.period = index
            }
        }
    }
    HistoryList {
        id: list
        anchors { left: parent.left; top: filters.bottom; bottom: parent.bottom; margins: Theme.space12 }
        width: filters.width
        takesMany: true
        model: page.model.list
        current: page.model.currentRow
        Accessible.name: qsTr("Dictations")
        onPicked: row => {
            page.endEdit()
            page.model.pick(row)
        }
        onExtended: row => {
            page.endEdit()
            page.model.extendTo(row)
        }
        onToggled: row => {
            page.endEdit()
            page.model.toggle(row)
        }
        onEditWanted: page.edit()
        onUseWanted: page.paste()
        onAllChosen: page.model.chooseAll()
        onRemoved: page.model.remove()
        onEndWanted: page.model.pick(page.model.lastRow())
        onSearchWanted: search.forceActiveFocus(Qt.BacktabFocusReason)

        section.property: "day"
        section.delegate: VText {
            required property string section
            width: ListView.view.width
            leftPadding: Theme.space12
            topPadding: Theme.space8
            bottomPadding: Theme.space4
            text: page.model.dayName(section)
            color: Theme.textSecondary
            font.pixelSize: Theme.sizeSecondary
            font.weight: Font.DemiBold
            elide: Text.ElideRight
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
        delegate: HistoryRow {
            required property int index
            required property var identifier
            required property var created_at
            required property string processingMode
            required property string firstLine
            required property bool isFormatted
            width: ListView.view.rowWidth
            line: page.model.marked(firstLine)
            plainLine: firstLine
            details: page.model.timeOfDay(created_at) + "  \u00B7  " + page.model.modeName(processingMode)
            sign: page.model.isUnrewritten(processingMode, isFormatted) ? qsTr("Not rewritten") : ""
            // The count and the row change with what is chosen.
            chosen: page.model.chosenCount >= 0 && page.model.currentRow >= -1 && page.model.isChosen(identifier)
            hasKeyboard: list.activeFocus && index === page.model.currentRow
            onTapped: modifiers => list.tapped(index, modifiers)
        }
    }
    VText {
        anchors { left: list.right; right: parent.right; verticalCenter: parent.verticalCenter; margins: Theme.space32 }
        visible: !page.hasOne && !page.busy
        text: page.model.chosenCount > 1 ? qsTr("%1 dictations are selected.").arg(page.model.chosenCount.toLocaleString(Qt.locale(), "f", 0))
            : list.count > 0 ? qsTr("Select a dictation to read it.")
            : page.model.isFiltered ? qsTr("No dictation matches. Change the search or the filters below it.")
            : qsTr("Your dictations will appear here. Press your shortcut and speak.")
        color: Theme.textSecondary
        font.pixelSize: Theme.sizeBody
        wrapMode: Text.Wrap
        horizontalAlignment: Text.AlignHCenter
    }
    VNote {
        id: details
        anchors { left: reader.left; leftMargin: Theme.space4; right: reader.right; top: parent.top; topMargin: Theme.space24 }
        visible: page.hasOne && !page.busy
        text: page.model.setAsideReason === "" ? page.model.details
            : page.model.details + "\n" + page.model.setAsideReason
    }
    TextReader {
        id: reader
        anchors { left: list.right; right: parent.right; top: details.bottom; bottom: recording.visible ? recording.top : actions.top; margins: Theme.space24; leftMargin: Theme.space24 + Theme.space8; topMargin: Theme.space12 }
        visible: page.hasOne && !page.busy
        text: page.shownText
        search: page.model.search
        editing: page.model.isEditing
        onSaved: page.endEdit()
        onCancelled: page.cancelEdit()
        name: qsTr("Text of the dictation")
    }
    RecordingBar {
        id: recording
        anchors { left: reader.left; leftMargin: Theme.space4; right: reader.right; bottom: actions.top; bottomMargin: Theme.space12 }
        visible: page.hasOne && page.player.exists && !page.model.isEditing && !page.busy
        player: page.player
        onToggled: player.toggle()
    }
    Flow {
        id: actions
        anchors { left: reader.left; leftMargin: Theme.space4; right: reader.right; bottom: parent.bottom; bottomMargin: Theme.space24 }
        spacing: Theme.space8
        visible: page.model.chosenCount > 0 && !page.busy

        VButton {
            visible: page.model.isEditing
            text: qsTr("Save")
            onClicked: page.endEdit()
        }
        VButton {
            visible: page.model.isEditing
            secondary: true
            text: qsTr("Cancel")
            onClicked: page.cancelEdit()
        }
        VButton {
            visible: !page.model.isEditing
            text: copied.running ? "\u2713 " + qsTr("Copied") : qsTr("Copy")
            onClicked: page.copy()
            Timer {
                id: copied
                interval: Theme.signMs
            }
        }
        VButton {
            visible: !page.model.isEditing
            secondary: true
            text: qsTr("Paste")
            Accessible.description: qsTr("Into the window you were in before")
            onClicked: page.paste()
        }
        VButton {
            visible: page.hasOne && !page.model.isEditing && !page.showsSetAside
            secondary: true
            text: qsTr("Edit")
            onClicked: page.edit()
        }
        VChoice {
            visible: page.hasOne && !page.model.isEditing && model.length > 0
            model: page.model.rewritingModes
            currentIndex: -1
            displayText: qsTr("Rewrite as...")
            Accessible.name: displayText
            onActivated: index => {
                currentIndex = -1
                page.model.rewrite(index)
            }
        }
        VChoice {
            visible: recording.visible && model.length > 0
            model: page.model.speechModels
            currentIndex: -1
            displayText: qsTr("Transcribe again...")
            Accessible.name: displayText
            onActivated: index => {
                currentIndex = -1
                page.model.transcribeAgain(index)
            }
        }
        VButton {
            visible: page.hasOne && page.model.isFormatted && !page.model.isEditing
            secondary: true
            text: page.showsRaw ? qsTr("Show the rewritten text") : qsTr("Show the original text")
            onClicked: page.showsRaw = !page.showsRaw
        }
        VButton {
            visible: page.hasOne && page.model.setAside !== "" && !page.model.isEditing
            secondary: true
            text: page.showsSetAside ? qsTr("Show the original text") : qsTr("Show what was set aside")
            onClicked: page.wantsSetAside = !page.wantsSetAside
        }
        VButton {
            visible: !page.model.isEditing
            secondary: true
            text: qsTr("Export...")
            onClicked: page.model.exportChosen()
        }
        VButton {
            visible: !page.model.isEditing
            secondary: true
            text: qsTr("Delete")
            onClicked: page.model.remove()
        }
    }
}
