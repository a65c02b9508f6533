#pragma once

namespace qz7 {

// Help topics, by the number that stands for each of them in every form of the help.
inline constexpr int kHelpGetData = 102;
inline constexpr int kHelpSendData = 103;
inline constexpr int kHelpDataSent = 104;
inline constexpr int kHelpPortSetup = 105;
inline constexpr int kHelpMemoryList = 106;
inline constexpr int kHelpAutodial = 108;
inline constexpr int kHelpMerge = 110;
inline constexpr int kHelpCopyMany = 112;
inline constexpr int kHelpVorn = 119;
inline constexpr int kHelpGroups = 120;
inline constexpr int kHelpSettings = 121;
inline constexpr int kHelpPreferences = 122;
inline constexpr int kHelpWxNames = 123;
inline constexpr int kHelpIcons = 125;
inline constexpr int kHelpImportColumns = 224;

// Opens the help at a topic: "qz7.hlp" where the system has a viewer for it, otherwise the topic's
// page of the folder "help" in the browser. Says so where that cannot be opened.
void ShowHelp(int context);
void ShowHelpContents();
void ShowHelpSearch();
void ShowHelpOnHelp();
// Tells the viewer that this program needs it no more.
void QuitHelp();

}  // namespace qz7
