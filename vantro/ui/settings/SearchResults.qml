import QtQuick
import Vantro.Style

// What is found in the pages, to be walked through with the arrow keys of the search field.
Column {
    id: results

    property var pages: [] // of {key, name, component}
    property string search
    property int current: 0
    property var found: []
    property var places: null
    signal picked(string page, string title)
    // Out of the window. What had no owner would lose its names whenever QML collects garbage, and be there for a while
    // without them.
    readonly property Item aside: Item {}

    function placesOf(page) {
        const item = page.component.createObject(aside, { visible: false })
        item.visible = true // or each of its places would count as hidden
        const list = [{ page: page.key, title: "", shown: page.name, where: "", words: page.name.toLowerCase() }]
        walk(item, place => {
            const title = place.title || place.heading || ""
            if (title !== "" && place !== item)
                list.push({ page: page.key, title: title, shown: title, where: page.name,
                            words: [title, place.hint || "", page.name].join(" ").toLowerCase() })
        })
        item.destroy()
        return list
    }
    function walk(item, visit) {
        if (!item.visible)
            return
        visit(item)
        for (let i = 0; i < item.children.length; ++i) // a list of QML has no iterator
            walk(item.children[i], visit)
    }
    // Pages first, then what says the words itself, then what only speaks of them.
    function sought() {
        const words = search.trim().toLowerCase().split(/\s+/)
        const isIn = text => words.every(word => text.includes(word))
        const ranks = [[], [], []]
        for (const place of places) {
            if (isIn(place.words))
                ranks[!isIn(place.shown.toLowerCase()) ? 2 : place.title !== "" ? 1 : 0].push(place)
        }
        return [].concat(...ranks)
    }
    function step(by) {
        current = Math.max(0, Math.min(current + by, Math.min(found.length, Theme.mostResults) - 1))
    }
    function pickCurrent() {
        if (current < found.length)
            picked(found[current].page, found[current].title)
    }

    spacing: Theme.space4
    // The pages themselves tell what is on them, when a search begins.
    onSearchChanged: {
        current = 0
        const words = search.trim()
        places = words === "" ? null : places ?? pages.reduce((all, page) => all.concat(placesOf(page)), [])
        found = places ? sought() : []
    }
    Accessible.role: Accessible.List
    Accessible.name: found.length === 0 ? qsTr("Nothing found") : found[current].shown

    VText {
        visible: results.found.length === 0
        width: parent.width
        text: qsTr("Nothing found")
        color: Theme.textSecondary
        font.pixelSize: Theme.sizeBody
        wrapMode: Text.Wrap
    }
    Repeater {
        model: results.found.slice(0, Theme.mostResults)
        Rectangle {
            id: result
            required property int index
            required property var modelData
            readonly property bool isCurrent: index === results.current

            width: results.width
            height: words.height + Theme.space8
            radius: Theme.radiusSmall
            color: isCurrent ? Theme.accent : hover.hovered ? Theme.surfaceHovered : "transparent"
            Accessible.role: Accessible.ListItem
            Accessible.name: modelData.shown
            Accessible.description: modelData.where
            Accessible.selected: isCurrent
            Accessible.onPressAction: results.picked(modelData.page, modelData.title)

            Column {
                id: words
                anchors { left: parent.left; right: parent.right; margins: Theme.space12; verticalCenter: parent.verticalCenter }
                VText {
                    width: parent.width
                    text: result.modelData.shown
                    color: result.isCurrent ? Theme.accentText : Theme.text
                    font.pixelSize: Theme.sizeBody
                    wrapMode: Text.Wrap
                    maximumLineCount: 2
                    elide: Text.ElideRight
                }
                VText {
                    width: parent.width
                    visible: text !== ""
                    text: result.modelData.where
                    color: result.isCurrent ? Theme.accentText : Theme.textSecondary
                    font.pixelSize: Theme.sizeSecondary
                    elide: Text.ElideRight
                }
            }
            HoverHandler { id: hover }
            TapHandler { onTapped: results.picked(result.modelData.page, result.modelData.title) }
        }
    }
}
