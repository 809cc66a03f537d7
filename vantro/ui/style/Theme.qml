pragma Singleton
import QtQuick

// All colours, sizes and durations of the user interface.
QtObject {
    property bool dark: false
    property bool reducedMotion: false

    readonly property color surface: dark ? "#1C1D20" : "#FBFBFC"
    readonly property color surfaceRaised: dark ? "#26272B" : "#FFFFFF"
    readonly property color surfaceFloating: dark ? "#EB000000" : "#EBFFFFFF"
    readonly property color outline: dark ? "#1FFFFFFF" : "#14000000"
    readonly property color fieldOutline: dark ? "#3DFFFFFF" : "#33000000"
    readonly property color text: dark ? "#F2F3F5" : "#1B1C1F"
    readonly property color textSecondary: dark ? "#A6A9B2" : "#5B5E66"
    readonly property color accent: dark ? "#8FA6FF" : "#3B5BDB"
    readonly property color accentText: dark ? "#10142B" : "#FFFFFF"
    readonly property color recording: dark ? "#FF7EA8" : "#D6336C"
    readonly property color warning: dark ? "#FFB057" : "#B35C00"
    readonly property color error: dark ? "#FF8787" : "#C92A2A"
    readonly property color success: dark ? "#69DB7C" : "#2B8A3E"

    readonly property int space4: 4
    readonly property int space8: 8
    readonly property int space12: 12
    readonly property int space16: 16
    readonly property int space24: 24
    readonly property int space32: 32

    readonly property int radiusSmall: 9
    readonly property int radiusLarge: 14

    readonly property int sizeDisplay: 32
    readonly property int sizeTitle: 20
    readonly property int sizeBody: 14
    readonly property int sizeSecondary: 12

    readonly property int navWidth: 176
    readonly property int listWidth: 280
    readonly property int fieldWidth: 220
    readonly property int wideFieldWidth: 300
    readonly property int popupHeight: 280
    readonly property int switchWidth: 40
    readonly property int switchHeight: 24
    readonly property int meterWidth: 96
    readonly property int meterHeight: 6
    readonly property int practiceHeight: 120
    readonly property int logoSize: 64
    readonly property int alertWidth: 420
    readonly property int alertLines: 16
    readonly property int hudWidth: 400
    readonly property int hudLeastWidth: 260
    readonly property int hudLeastHeight: 130

    readonly property int hairline: 1
    readonly property int focusRing: 2

    readonly property int stateMs: reducedMotion ? 0 : 120
    readonly property int keyTrialMs: 400
    readonly property int typingPauseMs: 400
    readonly property int hudMs: reducedMotion ? 0 : 320
}
