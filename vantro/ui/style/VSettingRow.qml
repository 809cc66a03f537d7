import QtQuick

// A setting: title and hint, with its control on the right.
Item {
    id: row

    property string title
    property string hint
    default property alias control: place.data

    width: parent ? parent.width : implicitWidth
    implicitHeight: Math.max(words.height, place.height)

    Column {
        id: words
        anchors { left: parent.left; right: place.left; rightMargin: Theme.space16; verticalCenter: parent.verticalCenter }
        spacing: Theme.space4

        VText {
            width: parent.width
            text: row.title
            color: Theme.text
            font.pixelSize: Theme.sizeBody
            wrapMode: Text.Wrap
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
        VNote {
            text: row.hint
        }
    }
    Item {
        id: place
        anchors { right: parent.right; verticalCenter: parent.verticalCenter }
        width: childrenRect.width
        height: childrenRect.height
    }
}
