pragma Singleton
import QtQuick

// All colours, sizes and durations of the user interface. What is drawn in "control" shows where a control is: 3 : 1 on
// every surface. Sizes are of a desktop with usual text; "scale" is how much larger this one's is.
QtObject {
    property bool dark: false
    property bool reducedMotion: false
    property real scale: 1

    readonly property color surface: dark ? "#1C1D20" : "#FBFBFC"
    readonly property color surfaceRaised: dark ? "#26272B" : "#FFFFFF"
    readonly property color surfaceFloating: dark ? "#F01C1D20" : "#F2FFFFFF"
    readonly property color surfaceHovered: dark ? "#34363C" : "#EEEFF2"
    readonly property color surfacePressed: dark ? "#43464E" : "#DFE1E6"
    readonly property color outline: dark ? "#1FFFFFFF" : "#14000000"
    readonly property color control: dark ? "#868A94" : "#7C8089"
    readonly property color text: dark ? "#F2F3F5" : "#1B1C1F"
    readonly property color textSecondary: dark ? "#A6A9B2" : "#5B5E66"
    readonly property color accent: dark ? "#8FA6FF" : "#3B5BDB"
    readonly property color accentHovered: dark ? "#A6B8FF" : "#3150C4"
    readonly property color accentPressed: dark ? "#BFCCFF" : "#2743A8"
    readonly property color accentText: dark ? "#10142B" : "#FFFFFF"
    readonly property color focusOnAccent: dark ? "#10142B" : "#1B1C1F"
    readonly property color mark: dark ? "#6B5500" : "#FFE680"
    readonly property color recording: dark ? "#FF7EA8" : "#D6336C"
    readonly property color warning: dark ? "#FFB057" : "#A35200"
    readonly property color error: dark ? "#FF8787" : "#C92A2A"
    readonly property color success: dark ? "#69DB7C" : "#257A37"
    readonly property real disabledOpacity: 0.45
    readonly property real draggedOpacity: 0.75

    readonly property int space4: 4
    readonly property int space8: 8
    readonly property int space12: 12
    readonly property int space16: 16
    readonly property int space24: 24
    readonly property int space32: 32

    readonly property int radiusSmall: 9
    readonly property int radiusLarge: 14

    readonly property int sizeDisplay: Math.round(32 * scale)
    readonly property int sizeTitle: Math.round(20 * scale)
    readonly property int sizeBody: Math.round(14 * scale)
    readonly property int sizeSecondary: Math.round(12 * scale)

    readonly property int navWidth: Math.round(176 * scale)
    readonly property int listWidth: Math.round(340 * scale)
    readonly property int fieldWidth: Math.round(220 * scale)
    readonly property int wideFieldWidth: Math.round(300 * scale)
    readonly property int popupHeight: Math.round(280 * scale)
    readonly property int switchWidth: Math.round(40 * scale)
    readonly property int switchHeight: Math.round(24 * scale)
    readonly property int meterWidth: 96
    readonly property int meterHeight: 6
    readonly property int scrollBarWidth: 8
    readonly property int practiceHeight: Math.round(120 * scale)
    readonly property int logoSize: 64
    readonly property int dragEdge: 40
    readonly property int dragStep: 8
    readonly property int chartHeight: Math.round(96 * scale)
    readonly property int launcherWidth: Math.round(500 * scale)
    readonly property int launcherHeight: Math.round(200 * scale)
    readonly property int alertWidth: Math.round(460 * scale)
    readonly property int alertLines: 16
    readonly property int mostResults: 8
    readonly property int mostPillRows: 3
    readonly property int downloadWidth: Math.round(460 * scale)
    readonly property int hudWidth: Math.round(400 * scale)
    readonly property int hudLeastWidth: 260
    readonly property int hudLeastHeight: 130

    readonly property int hairline: 1
    readonly property int focusRing: 2

    readonly property int stateMs: reducedMotion ? 0 : 120
    readonly property int signMs: 1500
    readonly property int markMs: 2500
    readonly property int frameMs: 16
    readonly property int repeatGapMs: 40
    readonly property int keyTrialMs: 400
    readonly property int typingPauseMs: 400
    readonly property int hudMs: reducedMotion ? 0 : 320
}
