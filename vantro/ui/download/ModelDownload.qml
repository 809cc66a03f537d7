import QtQuick
import Vantro.Style
import Vantro.Download

// The download of a model.
Rectangle {
    id: page

    required property ModelDownloadModel model
    signal closed

    implicitWidth: Theme.downloadWidth
    implicitHeight: content.implicitHeight + 2 * Theme.space24
    color: Theme.surface

    Accessible.role: Accessible.Dialog
    Accessible.name: title.text
    Accessible.description: model.name

    Keys.onEscapePressed: closed()

    Column {
        id: content
        anchors { left: parent.left; right: parent.right; top: parent.top; margins: Theme.space24 }
        spacing: Theme.space12

        VText {
            id: title
            width: parent.width
            text: qsTr("Downloading the speech model")
            color: Theme.text
            font.pixelSize: Theme.sizeTitle
            font.weight: Font.DemiBold
            wrapMode: Text.Wrap
        }
        Column {
            width: parent.width
            spacing: Theme.space4

            Item {
                width: parent.width
                height: name.implicitHeight

                VText {
                    id: name
                    anchors { left: parent.left; right: size.left; rightMargin: Theme.space12 }
                    text: page.model.name
                    color: Theme.text
                    font.pixelSize: Theme.sizeBody
                    font.weight: Font.DemiBold
                    elide: Text.ElideRight
                }
                VText {
                    id: size
                    anchors.right: parent.right
                    text: page.model.size
                    color: Theme.textSecondary
                    font.pixelSize: Theme.sizeBody
                    Accessible.role: Accessible.StaticText
                    Accessible.name: qsTr("Size %1").arg(text)
                }
            }
            VNote {
                text: page.model.description
            }
        }
        VText {
            width: parent.width
            visible: text !== ""
            text: page.model.reason
            color: Theme.warning
            font.pixelSize: Theme.sizeBody
            wrapMode: Text.Wrap
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
        Rectangle {
            id: bar
            width: parent.width
            height: Theme.space8
            radius: height / 2
            color: Theme.control

            Accessible.role: Accessible.ProgressBar
            Accessible.name: qsTr("Download of %1").arg(page.model.name)
            Accessible.description: status.text

            Rectangle {
                width: parent.width * page.model.progress
                height: parent.height
                radius: parent.radius
                color: page.model.failed ? Theme.error : Theme.accent
            }
        }
        VText {
            id: status
            width: parent.width
            // Never empty, so that the window does not change its height.
            text: page.model.statusText === "" ? " " : page.model.statusText
            color: page.model.failed ? Theme.error : Theme.textSecondary
            font.pixelSize: Theme.sizeBody
            wrapMode: Text.Wrap
            Accessible.role: page.model.failed ? Accessible.AlertMessage : Accessible.StaticText
            Accessible.name: text
        }
        Row {
            anchors.right: parent.right
            spacing: Theme.space8

            VButton {
                secondary: true
                text: page.model.running ? qsTr("Go on in the background") : qsTr("Close")
                onClicked: page.closed()
            }
            VButton {
                // A single button, so that it keeps the focus when its meaning changes.
                secondary: page.model.running
                focus: true
                text: page.model.running ? qsTr("Cancel") : qsTr("Try again")
                onClicked: page.model.running ? page.model.cancel() : page.model.retry()
            }
        }
    }
}
