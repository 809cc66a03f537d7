import QtQuick

// A setting with a switch.
VSettingRow {
    id: row

    property bool checked
    signal toggled(bool on)

    VSwitch {
        checked: row.checked
        Accessible.name: row.title
        Accessible.description: row.hint
        onToggled: {
            const on = checked
            checked = Qt.binding(() => row.checked)
            row.toggled(on)
        }
    }
}
