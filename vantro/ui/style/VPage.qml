import QtQuick
import QtQuick.Templates as T

// A scrollable page with a title.
Flickable {
    id: page

    property string title
    property string subtitle
    property real covered: 0 // of its height, at the bottom, by what stays there
    default property alias cards: cards.data

    contentHeight: column.height + 2 * Theme.space24 + covered
    boundsBehavior: Flickable.StopAtBounds
    clip: true

    T.ScrollBar.vertical: VScrollBar {}

    // Turns a page down, or up with -1.
    function turn(pages) {
        moveTo(contentY + pages * (height - 2 * Theme.space24))
    }
    function moveTo(position) {
        contentY = Math.max(0, Math.min(position, contentHeight - height))
    }
    // Shows the row or card of that title, and leads the keyboard to it.
    function mark(title) {
        const item = find(column, title)
        if (!item)
            return
        // The next key may be waiting already; where things are is known once the page has been laid out.
        item.nextItemInFocusChain().forceActiveFocus(Qt.TabFocusReason)
        Qt.callLater(() => {
            reveal(item)
            marker.place = item
            marking.restart()
        })
    }
    function find(item, title) {
        if (!item.visible)
            return null
        if (item.title === title || item.heading === title)
            return item
        for (let i = 0; i < item.children.length; ++i) { // a list of QML has no iterator
            const found = find(item.children[i], title)
            if (found)
                return found
        }
        return null
    }
    function reveal(item) {
        let above = item
        while (above && above !== contentItem)
            above = above.parent
        if (!above)
            return
        const top = item.mapToItem(contentItem, 0, 0).y - Theme.space24
        const bottom = top + item.height + 2 * Theme.space24
        if (top < contentY)
            moveTo(top)
        else if (bottom > contentY + height - covered)
            moveTo(Math.min(top, bottom - height + covered))
    }

    Rectangle {
        id: marker
        property Item place: null
        readonly property point corner: place ? place.mapToItem(page.contentItem, 0, 0) : Qt.point(0, 0)
        x: corner.x - Theme.space8
        y: corner.y - Theme.space8
        width: place ? place.width + 2 * Theme.space8 : 0
        height: place ? place.height + 2 * Theme.space8 : 0
        z: 1
        visible: marking.running
        radius: Theme.radiusSmall
        color: "transparent"
        border.width: Theme.focusRing
        border.color: Theme.accent
    }
    Timer {
        id: marking
        interval: Theme.markMs
    }
    Connections {
        target: page.Window.window
        function onActiveFocusItemChanged() {
            if (page.Window.activeFocusItem)
                page.reveal(page.Window.activeFocusItem)
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

            VText {
                width: parent.width
                text: page.title
                color: Theme.text
                font.pixelSize: Theme.sizeTitle
                font.weight: Font.DemiBold
                wrapMode: Text.Wrap
                Accessible.role: Accessible.Heading
                Accessible.name: text
            }
            VText {
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
