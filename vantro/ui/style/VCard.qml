import QtQuick

// A group of controls with an optional heading.
Column {
    id: card

    property string heading
    default property alias rows: rows.data

    width: parent ? parent.width : implicitWidth
    spacing: Theme.space8

    VText {
        visible: card.heading !== ""
        text: card.heading
        color: Theme.textSecondary
        font.pixelSize: Theme.sizeSecondary
        font.weight: Font.DemiBold
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
    Rectangle {
        width: parent.width
        height: rows.height + 2 * Theme.space16
        radius: Theme.radiusLarge
        color: Theme.surfaceRaised
        border.width: Theme.hairline
        border.color: Theme.outline

        Column {
            id: rows
            anchors { left: parent.left; right: parent.right; top: parent.top; margins: Theme.space16 }
            spacing: Theme.space16
        }
    }
}
