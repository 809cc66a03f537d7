import QtQuick
import Vantro.Style
import Vantro.Settings

// A model: description, speed, accuracy, and the actions available.
VCard {
    id: row

    required property int index
    required property string name
    required property string size
    required property real speed
    required property real accuracy
    required property string about
    required property string languages
    required property int modelState
    required property bool isSelected
    required property real progress
    required property string statusText
    required property bool isRecommended
    required property string wait
    readonly property bool isUnderWay: modelState === ModelListModel.Waiting || modelState === ModelListModel.Downloading
    signal selectPressed
    signal cancelPressed
    signal downloadPressed
    signal removePressed

    component Meter: Row {
        property string label
        property real value
        visible: value > 0 // of a language model nothing is known
        spacing: Theme.space8
        Accessible.role: Accessible.StaticText
        Accessible.name: qsTr("%1: %2 of 10").arg(label).arg(Math.round(value * 10))
        VText {
            text: parent.label
            color: Theme.textSecondary
            font.pixelSize: Theme.sizeSecondary
        }
        Rectangle {
            anchors.verticalCenter: parent.verticalCenter
            width: Theme.meterWidth
            height: Theme.meterHeight
            radius: height / 2
            color: Theme.control
            Rectangle {
                width: parent.width * parent.parent.value
                height: parent.height
                radius: parent.radius
                color: Theme.accent
            }
        }
    }

    Item {
        width: parent.width
        height: Math.max(words.height, buttons.height)

        Column {
            id: words
            anchors { left: parent.left; right: buttons.left; rightMargin: Theme.space16 }
            spacing: Theme.space8

            Row {
                spacing: Theme.space8
                VText {
                    text: row.name
                    color: Theme.text
                    font.pixelSize: Theme.sizeBody
                    font.weight: Font.DemiBold
                }
                VText {
                    visible: row.isSelected
                    text: "\u2713 " + qsTr("in use")
                    color: Theme.success
                    font.pixelSize: Theme.sizeBody
                }
                VText {
                    visible: row.isRecommended
                    text: qsTr("recommended for this computer")
                    color: Theme.accent
                    font.pixelSize: Theme.sizeBody
                }
            }
            VNote {
                text: row.about
            }
            Flow {
                width: parent.width
                spacing: Theme.space16
                Meter {
                    label: qsTr("Speed")
                    value: row.speed
                }
                Meter {
                    label: qsTr("Accuracy")
                    value: row.accuracy
                }
                VText {
                    text: row.size + "  \u00B7  " + row.languages + "  \u00B7  " + row.wait
                    color: Theme.textSecondary
                    font.pixelSize: Theme.sizeSecondary
                }
            }
        }
        Column {
            id: buttons
            anchors { right: parent.right; verticalCenter: parent.verticalCenter }
            spacing: Theme.space8

            VButton {
                anchors.right: parent.right
                visible: !row.isSelected && row.modelState === ModelListModel.Ready
                text: qsTr("Use")
                Accessible.description: row.name
                onClicked: row.selectPressed()
            }
            VButton {
                // A single button, so that it keeps the focus when its meaning changes.
                anchors.right: parent.right
                visible: row.modelState !== ModelListModel.Ready
                secondary: true
                text: row.isUnderWay ? qsTr("Cancel")
                    : row.modelState === ModelListModel.Partial ? qsTr("Resume download") : qsTr("Download")
                Accessible.description: row.name
                onClicked: row.isUnderWay ? row.cancelPressed() : row.downloadPressed()
            }
            VButton {
                anchors.right: parent.right
                visible: !row.isSelected && row.modelState === ModelListModel.Ready
                secondary: true
                text: qsTr("Remove")
                Accessible.description: row.name
                onClicked: row.removePressed()
            }
        }
    }
    Column {
        width: parent.width
        spacing: Theme.space4
        visible: row.isUnderWay || row.statusText !== ""

        Rectangle {
            width: parent.width
            height: Theme.space8
            radius: height / 2
            visible: row.isUnderWay
            color: Theme.surfacePressed
            border.width: Theme.hairline
            border.color: Theme.control
            Accessible.role: Accessible.ProgressBar
            Accessible.name: qsTr("Download of %1").arg(row.name)
            Accessible.description: row.statusText
            Rectangle {
                width: parent.width * row.progress
                height: parent.height
                radius: parent.radius
                color: Theme.accent
            }
        }
        VNote {
            text: row.statusText
            color: row.isUnderWay ? Theme.textSecondary : Theme.error
        }
    }
}
