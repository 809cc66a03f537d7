import QtQuick
import QtQuick.Layouts
import Vantro.Style
import Vantro.Launcher

// The recording panel: the level, the mode, and how to finish.
Rectangle {
    id: launcher

    required property LauncherModel model
    signal finishRequested
    signal cancelRequested
    signal asSpokenRequested

    implicitWidth: Theme.launcherWidth
    implicitHeight: Theme.launcherHeight + (pills.rowCount - 1) * (measure.implicitHeight + pills.spacing)
    color: Theme.surfaceRaised
    radius: Theme.radiusLarge
    border.width: Theme.hairline
    border.color: Theme.control

    // So that it is read aloud.
    focus: true
    Accessible.focusable: true
    Accessible.role: Accessible.Dialog
    Accessible.name: model.processing ? qsTr("vantro, transcribing") : qsTr("vantro, recording")
    Accessible.description: hint.text

    // Moved by hand: a window past the window manager cannot be moved by it.
    MouseArea {
        property point grip
        anchors.fill: parent
        onPressed: event => grip = Qt.point(event.x, event.y)
        onPositionChanged: event => {
            launcher.Window.window.x += event.x - grip.x
            launcher.Window.window.y += event.y - grip.y
        }
    }

    Item {
        id: heard
        anchors { left: parent.left; right: parent.right; top: parent.top; margins: Theme.space24 }
        height: Theme.space32 * 2

        WaveformItem {
            anchors { left: parent.left; right: time.left; rightMargin: Theme.space16; top: parent.top; bottom: parent.bottom }
            color: launcher.model.processing ? Theme.accent : Theme.recording
            idleColor: Theme.textSecondary
            levels: launcher.model.levels
            processing: launcher.model.processing
            progress: launcher.model.rewriting ? 0 : launcher.model.progress
        }
        VText {
            id: time
            anchors { right: parent.right; verticalCenter: parent.verticalCenter }
            text: launcher.model.timeText
            color: launcher.model.timeRunsOut ? Theme.warning : Theme.text
            font.pixelSize: Theme.sizeBody
            Accessible.role: Accessible.StaticText
            Accessible.name: qsTr("Time %1").arg(text)
        }
    }
    VText {
        anchors { left: heard.left; right: heard.right; top: heard.bottom }
        text: launcher.model.notice
        visible: text !== ""
        color: Theme.warning
        font.pixelSize: Theme.sizeSecondary
        elide: Text.ElideRight
        Accessible.role: Accessible.AlertMessage
        Accessible.name: text
    }

    // What came last matters: that is where the user speaks on.
    VText {
        anchors { left: heard.left; right: heard.right; top: heard.bottom }
        text: launcher.model.words
        visible: text !== "" && launcher.model.notice === ""
        color: Theme.textSecondary
        font.pixelSize: Theme.sizeSecondary
        font.italic: true
        elide: Text.ElideLeft
        Accessible.role: Accessible.StaticText
        Accessible.name: qsTr("Understood so far: %1").arg(text)
    }

    // How high a row is before there is one.
    ModePill {
        id: measure
        hasDigit: launcher.model.takesDigits
        visible: false
    }
    Column {
        id: pills
        readonly property var rows: split(launcher.model.modes)
        readonly property int rowCount: Math.max(1, rows.length)
        anchors { left: heard.left; bottom: hints.top; bottomMargin: Theme.space12 }
        spacing: Theme.space8
        opacity: launcher.model.processing ? 0.5 : 1
        enabled: !launcher.model.processing

        // The first mode of each row. A row has as many as can be read in full, whichever is chosen; with names too long for
        // that all rows have equally many.
        function split(names) {
            const starts = []
            let left = 0
            names.forEach((name, index) => {
                const width = measure.fullWidth(index + 1, name)
                if (index === 0 || width > left) {
                    starts.push(index)
                    left = heard.width
                }
                left -= width + spacing
            })
            if (starts.length <= Theme.mostPillRows)
                return starts
            const inRow = Math.ceil(names.length / Theme.mostPillRows)
            return Array.from({ length: Math.ceil(names.length / inRow) }, (nothing, row) => row * inRow)
        }

        Repeater {
            model: pills.rows
            RowLayout {
                id: row
                required property int index
                required property int modelData
                readonly property int first: modelData
                readonly property var names: launcher.model.modes.slice(first, pills.rows[index + 1] ?? launcher.model.modes.length)
                // The chosen one is read in full, as long as it leaves the others half of the row.
                readonly property real most: heard.width / 2
                readonly property real fairShare: most / Math.max(1, names.length - 1) - spacing
                width: Math.min(implicitWidth, heard.width)
                spacing: Theme.space8

                Repeater {
                    model: row.names
                    ModePill {
                        required property int index
                        required property string modelData
                        readonly property int mode: row.first + index
                        number: mode + 1
                        name: modelData
                        hasDigit: launcher.model.takesDigits
                        chosen: mode === launcher.model.chosenMode
                        Layout.fillWidth: true
                        Layout.minimumWidth: Math.min(implicitWidth, chosen ? row.most : row.fairShare)
                        Layout.maximumWidth: implicitWidth
                        onPicked: launcher.model.chooseMode(mode)
                    }
                }
            }
        }
    }

    Item {
        id: hints
        anchors { left: heard.left; right: heard.right; bottom: parent.bottom; bottomMargin: Theme.space16 }
        height: hint.implicitHeight

        KeyHint {
            id: hint
            anchors.left: parent.left
            text: launcher.model.processing ? launcher.model.processingText : launcher.model.endingHint
            isButton: !launcher.model.processing
            onClicked: launcher.finishRequested()
        }
        KeyHint {
            anchors.horizontalCenter: parent.horizontalCenter
            text: launcher.model.rewriting ? launcher.model.endingHint : ""
            onClicked: launcher.asSpokenRequested()
        }
        KeyHint {
            anchors.right: parent.right
            text: launcher.model.cancelHint
            onClicked: launcher.cancelRequested()
        }
    }
}
