import QtQuick
import Vantro.Style
import Vantro.Hud

Item {
    id: hud

    required property PasteHUDModel model

    Rectangle {
        id: card

        readonly property size restingSize: Qt.size(260, 130)

        anchors.centerIn: parent
        width: hud.model.isSettled ? restingSize.width : hud.model.startSize.width
        height: hud.model.isSettled ? restingSize.height : hud.model.startSize.height
        opacity: hud.model.isSettled ? 1 : 0
        radius: Theme.radiusSmall
        color: Qt.alpha(Theme.dark ? "black" : "white", 0.92)
        border.width: Theme.hairline
        border.color: Theme.outline

        Behavior on width {
            enabled: hud.model.isAnimated
            NumberAnimation { duration: Theme.hudMs; easing.type: Easing.OutQuad }
        }
        Behavior on height {
            enabled: hud.model.isAnimated
            NumberAnimation { duration: Theme.hudMs; easing.type: Easing.OutQuad }
        }
        Behavior on opacity {
            enabled: hud.model.isAnimated
            NumberAnimation { duration: Theme.hudMs; easing.type: Easing.OutQuad }
        }

        Column {
            anchors.centerIn: parent
            spacing: 6

            Text {
                anchors.horizontalCenter: parent.horizontalCenter
                text: hud.model.shortcut
                color: Theme.text
                font.pixelSize: Theme.sizeDisplay
                font.weight: Font.DemiBold
            }
            Text {
                anchors.horizontalCenter: parent.horizontalCenter
                text: qsTr("to paste")
                color: Theme.textSecondary
                font.pixelSize: Theme.sizeBody
            }
        }
        Accessible.role: Accessible.Notification
        Accessible.name: qsTr("%1 to paste").arg(hud.model.shortcut)
    }
}
