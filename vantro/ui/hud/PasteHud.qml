import QtQuick
import Vantro.Style
import Vantro.Hud

Item {
    id: hud

    required property PasteHUDModel model

    readonly property size restingSize: {
        const lines = keys.implicitHeight + toPaste.implicitHeight + texts.spacing
                    + (reason.text ? reason.implicitHeight + texts.spacing : 0);
        return Qt.size(reason.text ? Theme.hudWidth : 260, Math.max(130, lines + 2 * Theme.space16));
    }

    Rectangle {
        id: card

        anchors.centerIn: parent
        width: hud.model.isSettled ? hud.restingSize.width : hud.model.startSize.width
        height: hud.model.isSettled ? hud.restingSize.height : hud.model.startSize.height
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
            id: texts
            anchors.centerIn: parent
            spacing: 6

            Text {
                id: keys
                anchors.horizontalCenter: parent.horizontalCenter
                text: hud.model.shortcut
                color: Theme.text
                font.pixelSize: Theme.sizeDisplay
                font.weight: Font.DemiBold
            }
            Text {
                id: toPaste
                anchors.horizontalCenter: parent.horizontalCenter
                text: qsTr("to paste")
                color: Theme.textSecondary
                font.pixelSize: Theme.sizeBody
            }
            Text {
                id: reason
                visible: text !== ""
                width: Theme.hudWidth - 2 * Theme.space24
                text: hud.model.reason
                textFormat: Text.PlainText
                color: Theme.text
                font.pixelSize: Theme.sizeSecondary
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
            }
        }
        Accessible.role: Accessible.Notification
        Accessible.name: qsTr("%1 to paste").arg(hud.model.shortcut)
        Accessible.description: hud.model.reason
    }
}
