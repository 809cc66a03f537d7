import QtQuick
import Vantro.Style
import Vantro.Hud

Item {
    id: hud

    required property PasteHUDModel model

    readonly property size restingSize: {
        const heights = [title, caption, reason].filter(line => line.text).map(line => line.implicitHeight);
        const lines = heights.reduce((sum, height) => sum + texts.spacing + height, -texts.spacing);
        const widest = Math.max(title.implicitWidth, caption.implicitWidth) + 2 * Theme.space24;
        return Qt.size(reason.text ? Math.max(Theme.hudWidth, widest) : Math.max(Theme.hudLeastWidth, widest),
                       Math.max(Theme.hudLeastHeight, lines + 2 * Theme.space16));
    }

    Rectangle {
        id: card

        anchors.centerIn: parent
        width: hud.model.isSettled ? hud.restingSize.width : hud.model.startSize.width
        height: hud.model.isSettled ? hud.restingSize.height : hud.model.startSize.height
        opacity: hud.model.isSettled ? 1 : 0
        radius: Theme.radiusSmall
        color: Theme.surfaceFloating
        border.width: Theme.hairline
        border.color: Theme.control

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

            VText {
                id: title
                visible: text !== ""
                anchors.horizontalCenter: parent.horizontalCenter
                text: hud.model.title
                color: Theme.text
                font.pixelSize: hud.model.isSentence ? Theme.sizeTitle : Theme.sizeDisplay
                font.weight: Font.DemiBold
            }
            VText {
                id: caption
                visible: text !== ""
                anchors.horizontalCenter: parent.horizontalCenter
                text: hud.model.caption
                color: Theme.textSecondary
                font.pixelSize: Theme.sizeBody
            }
            VText {
                id: reason
                visible: text !== ""
                width: Theme.hudWidth - 2 * Theme.space24
                text: hud.model.reason
                color: Theme.text
                font.pixelSize: Theme.sizeSecondary
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
            }
        }
        Accessible.role: hud.model.isButton ? Accessible.Button : Accessible.Notification
        Accessible.name: (hud.model.title + " " + hud.model.caption).trim()
        Accessible.description: hud.model.reason
    }
}
