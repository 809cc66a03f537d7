import QtQuick
import Vantro.Style
import Vantro.Settings

VPage {
    id: page

    required property StatisticsModel settings

    title: qsTr("Statistics")
    subtitle: qsTr("Only numbers, and only on this computer. A private session is not counted.")

    VCard {
        visible: page.settings.isKept
        VText {
            width: parent.width
            text: page.settings.total
            color: Theme.text
            font.pixelSize: Theme.sizeBody
            wrapMode: Text.Wrap
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
        VNote { text: page.settings.saved }
        Row {
            id: chart
            visible: page.settings.best !== ""
            width: parent.width
            height: Theme.chartHeight
            spacing: Theme.space4
            Accessible.role: Accessible.Graphic
            Accessible.name: page.settings.best

            Repeater {
                model: page.settings.bars
                Rectangle {
                    required property var modelData
                    anchors.bottom: parent ? parent.bottom : undefined
                    width: (chart.width - 29 * chart.spacing) / 30
                    height: Math.max(Theme.space4, chart.height * modelData.height)
                    radius: Theme.space4
                    color: modelData.words > 0 ? Theme.accent : Theme.control
                }
            }
        }
        Item {
            visible: chart.visible
            width: parent.width
            height: last.height
            VNote {
                width: implicitWidth
                text: page.settings.bars[0].name
            }
            VNote {
                id: last
                anchors.right: parent.right
                width: implicitWidth
                text: qsTr("Today")
            }
        }
        VNote { text: page.settings.best }
    }
    VCard {
        VToggleRow {
            title: qsTr("Count the words I dictate")
            hint: qsTr("When off, what has been counted is forgotten.")
            checked: page.settings.isKept
            onToggled: on => page.settings.isKept = on
        }
    }
}
