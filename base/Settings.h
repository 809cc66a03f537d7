#pragma once

#include "base/UserDefaults.h"

#include <array>

/// All settings with key, default and description, except the shortcuts, whose keys are derived from their names.
/// `documented` must match the table in the README. Its meanings are noted for translation.
namespace vantro::setting {

// In the order of the README.
inline constexpr Setting<bool> autoPasteEnabled{
    "autoPasteEnabled", true, QT_TRANSLATE_NOOP("SettingMeaning", "false: only copy, and show how to paste")};
inline constexpr Setting<bool> copyToClipboardEnabled{
    "copyToClipboardEnabled", false,
    QT_TRANSLATE_NOOP("SettingMeaning", "true: the dictated text stays on the clipboard after pasting")};
inline constexpr Setting<bool> restoreEveryFormat{
    "restoreEveryFormat", false,
    QT_TRANSLATE_NOOP("SettingMeaning", "true: pictures, formatted text and files that were on the clipboard come back "
                                        "after pasting, not only plain text")};
inline constexpr Setting<bool> joinDictations{
    "joinDictations", false,
    QT_TRANSLATE_NOOP(
        "SettingMeaning",
        "true: a dictation that follows another one in the same window within a minute is joined to it with a space")};
inline constexpr Setting<bool> playSoundOnComplete{
    "playSoundOnComplete", false, QT_TRANSLATE_NOOP("SettingMeaning", "true: a short sound when the text is ready")};
inline constexpr Setting<bool> holdToTalk{
    "holdToTalk", false,
    QT_TRANSLATE_NOOP("SettingMeaning",
                      "true: the recording lasts as long as the shortcut is held; `vantro shortcuts mode` sets it")};
inline constexpr Setting<QString> audioInputMode{
    "audioInputMode", "System Default",
    QT_TRANSLATE_NOOP("SettingMeaning", "or `Custom Device`, `Prioritized`; `vantro devices` sets it")};
inline constexpr Setting<bool> bluetoothHeadsetProfile{
    "bluetoothHeadsetProfile", false,
    QT_TRANSLATE_NOOP("SettingMeaning",
                      "true: switch a Bluetooth headset to its headset profile while recording from it")};
inline constexpr Setting<QString> defaultProcessingMode{
    "defaultProcessingMode", "Normal", QT_TRANSLATE_NOOP("SettingMeaning", "the mode a dictation starts in")};
inline constexpr Setting<QString> selectedLanguage{
    "SelectedLanguage", "auto", QT_TRANSLATE_NOOP("SettingMeaning", "the spoken language, as a code such as `en`")};
inline constexpr Setting<QString> selectedModelName{
    "selectedModelName", "",
    QT_TRANSLATE_NOOP("SettingMeaning", "the speech model; `vantro models select NAME` sets it"),
    "a downloaded model, else small"};
inline constexpr Setting<QString> modelHostBaseURL{
    "modelHostBaseURL", "", QT_TRANSLATE_NOOP("SettingMeaning", "where speech models are downloaded from"),
    "the public repository"};
inline constexpr Setting<bool> whisperKeepModelInMemory{
    "whisperKeepModelInMemory", false,
    QT_TRANSLATE_NOOP("SettingMeaning", "true: the model stays loaded between dictations")};
inline constexpr Setting<QString> selectedLanguageModelName{
    "selectedLanguageModelName", "",
    QT_TRANSLATE_NOOP("SettingMeaning", "the language model of this machine; `vantro models select NAME` sets it"),
    "a downloaded one"};
inline constexpr Setting<bool> keepLanguageModelInMemory{
    "keepLanguageModelInMemory", false,
    QT_TRANSLATE_NOOP("SettingMeaning", "true: the language model of this machine stays loaded between dictations")};
inline constexpr Setting<bool> recognizeWhileSpeaking{
    "recognizeWhileSpeaking", true,
    QT_TRANSLATE_NOOP(
        "SettingMeaning",
        "false: recognition starts only when the recording has ended, which uses less power but takes longer")};
inline constexpr Setting<bool> showWordsWhileSpeaking{
    "showWordsWhileSpeaking", true,
    QT_TRANSLATE_NOOP("SettingMeaning", "true: the panel shows what was understood until the last pause")};
inline constexpr Setting<QString> appearance{"appearance", "", QT_TRANSLATE_NOOP("SettingMeaning", "`light` or `dark`"),
                                             "the desktop's"};
inline constexpr Setting<bool> reduceMotion{
    "reduceMotion", false, QT_TRANSLATE_NOOP("SettingMeaning", "true: no animations"), "the desktop's"};
inline constexpr Setting<QString> keepHistory{
    "keepHistory", "forever",
    QT_TRANSLATE_NOOP(
        "SettingMeaning",
        "how long dictations stay in the history: a number of days, or `never`, which deletes those that are there")};
inline constexpr Setting<QString> keepRecordings{
    "keepRecordings", "never",
    QT_TRANSLATE_NOOP("SettingMeaning", "how long recordings are kept with their dictations: a number of days, "
                                        "`forever`, or `never`, which deletes those "
                                        "that are there")};
inline constexpr Setting<qint64> keepRecordingsMegabytes{
    "keepRecordingsMegabytes", 500,
    QT_TRANSLATE_NOOP("SettingMeaning",
                      "what kept recordings may take on the disk, in MB: beyond it the oldest are deleted"),
    "500"};
inline constexpr Setting<bool> keepStatistics{
    "keepStatistics", true,
    QT_TRANSLATE_NOOP("SettingMeaning",
                      "false: the words dictated each day are not counted, and those counted are forgotten")};
inline constexpr Setting<bool> checkForUpdatesOnLaunch{
    "checkForUpdatesOnLaunch", false, QT_TRANSLATE_NOOP("SettingMeaning", "true: check for updates at startup")};
inline constexpr Setting<QByteArray> pasteChords{
    "pasteChords", "",
    QT_TRANSLATE_NOOP("SettingMeaning",
                      "paste keystrokes of more windows, as JSON: `{\"my-terminal\": \"Ctrl+Shift+V\"}`")};

inline constexpr std::array<const SettingKey*, 25> documented{&autoPasteEnabled,
                                                              &copyToClipboardEnabled,
                                                              &restoreEveryFormat,
                                                              &joinDictations,
                                                              &playSoundOnComplete,
                                                              &holdToTalk,
                                                              &audioInputMode,
                                                              &bluetoothHeadsetProfile,
                                                              &defaultProcessingMode,
                                                              &selectedLanguage,
                                                              &selectedModelName,
                                                              &modelHostBaseURL,
                                                              &whisperKeepModelInMemory,
                                                              &selectedLanguageModelName,
                                                              &keepLanguageModelInMemory,
                                                              &recognizeWhileSpeaking,
                                                              &showWordsWhileSpeaking,
                                                              &appearance,
                                                              &reduceMotion,
                                                              &keepHistory,
                                                              &keepRecordings,
                                                              &keepRecordingsMegabytes,
                                                              &keepStatistics,
                                                              &checkForUpdatesOnLaunch,
                                                              &pasteChords};

// Edited through pages and commands of their own.
inline constexpr Setting<qint64> selectedAudioDeviceID{"selectedAudioDeviceID", -1};
inline constexpr Setting<QString> selectedAudioDeviceUID{"selectedAudioDeviceUID", ""};
inline constexpr Setting<QByteArray> prioritizedDevices{"prioritizedDevices", ""};
inline constexpr Setting<QByteArray> customVocabulary{"customVocabulary", ""};
inline constexpr Setting<QByteArray> vocabularyDetails{"vocabularyDetails", ""};
inline constexpr Setting<QByteArray> textReplacements{"textReplacements", ""};
inline constexpr Setting<QByteArray> cleaningRules{"cleaningRules", ""};
inline constexpr Setting<QByteArray> applicationRules{"applicationRules", ""};
inline constexpr Setting<QByteArray> customPrompts{"customPrompts", ""};
inline constexpr Setting<QByteArray> customModeNames{"customModeNames", ""};
inline constexpr Setting<QByteArray> modeOrder{"modeOrder", ""};
inline constexpr Setting<QByteArray> modeConfigurations{"modeConfigurations", ""};
inline constexpr Setting<QByteArray> providerConfigurations{"providerConfigurations", ""};
inline constexpr Setting<QByteArray> ownLanguageModels{"ownLanguageModels", ""};
inline constexpr Setting<QString> skippedUpdateVersion{"skippedUpdateVersion", ""};

// "WIDTHxHEIGHT" of the windows as they were left.
inline constexpr Setting<QString> settingsWindowSize{"settingsWindowSize", ""};
inline constexpr Setting<QString> historyWindowSize{"historyWindowSize", ""};
inline constexpr Setting<QString> guideWindowSize{"guideWindowSize", ""};

/// The page on which the guide was left; -1 once it has been finished.
inline constexpr Setting<qint64> guideStep{"guideStep", 0};

// State of one-time jobs.
inline constexpr Setting<QByteArray> removedProviderKeys{"removedProviderKeys", ""};
inline constexpr Setting<bool> selectedModelAdoptedFromCache{"selectedModelAdoptedFromCache", false};
inline constexpr Setting<bool> selectedModelDefaultedOnce{"selectedModelDefaultedOnce", false};
inline constexpr Setting<bool> whisperLegacyCacheMigrated{"whisperLegacyCacheMigrated", false};
inline constexpr Setting<bool> hasRunTranscriptionTrimMigration{"hasRunTranscriptionTrimMigration", false};
inline constexpr Setting<bool> hasRunEmptyTranscriptionDeleteMigration{"hasRunEmptyTranscriptionDeleteMigration",
                                                                       false};
inline constexpr Setting<QString> userKey{"userKey", ""};
inline constexpr Setting<QString> formerUserKey{"userOpenAIKey", ""}; ///< its former name

} // namespace vantro::setting
