import QtQuick
import QtQuick.Templates as T

// A scrollable page with a title.
Flickable {
    id: page

    property string title
    property string subtitle
    default property alias cards: cards.data

    contentHeight: column.height + 2 * Theme.space24
    boundsBehavior: Flickable.StopAtBounds
    clip: true

    T.ScrollBar.vertical: T.ScrollBar {
        visible: page.contentHeight > page.height
        implicitWidth: Theme.space8
        contentItem: Rectangle {
            radius: width / 2
            color: Theme.fieldOutline
        }
    }

    Column {
        id: column
        x: Theme.space24
        y: Theme.space24
        width: page.width - 2 * Theme.space24
        spacing: Theme.space24

        Column {
            width: parent.width
            spacing: Theme.space4

            Text {
                width: parent.width
                text: page.title
                color: Theme.text
                font.pixelSize: Theme.sizeTitle
                font.weight: Font.DemiBold
                wrapMode: Text.Wrap
                Accessible.role: Accessible.Heading
                Accessible.name: text
            }
            Text {
                width: parent.width
                visible: text !== ""
                text: page.subtitle
                color: Theme.textSecondary
                font.pixelSize: Theme.sizeBody
                wrapMode: Text.Wrap
            }
        }
        Column {
            id: cards
            width: parent.width
            spacing: Theme.space24
        }
    }
}
