#pragma once

// The numbers of the dialogs' controls and of the menu's commands, for the resource compiler and
// the code alike.

// In every dialog, beside the system's own OK (1) and Cancel (2).
#define ID_HELP 9

// DLLDlgMain
#define ID_AUTO_POWER_OFF 103
#define ID_TRANSMIT_TIME_OUT 104
#define ID_SWITCH_1 105
#define ID_SWITCH_2 106
#define ID_SWITCH_7 107
#define ID_RECEIVE_SAVER 108
#define ID_FILE_COMMENT 109
#define ID_SWITCH_3 110
#define ID_LOCK 111
#define ID_BELL 112
#define ID_SWITCH_8 113
#define ID_LAMP 114
#define ID_SWITCH_11 115
#define ID_SWITCH_9 116
#define ID_SWITCH_12 117
#define ID_SWITCH_10 118
#define ID_SWITCH_4 119
#define ID_SWITCH_5 120
#define ID_USE_DEFAULTS 121
#define ID_SWITCH_6 122
#define ID_STORE_DEFAULTS 123
#define ID_OPTION_B_FIRST 126
#define ID_OPTION_B_SECOND 127
#define ID_OPTION_A_FIRST 132
#define ID_OPTION_A_SECOND 133
#define ID_OPTION_A_THIRD 134
#define ID_OPTION_C_FIRST 135
#define ID_OPTION_C_SECOND 136
#define ID_STATUS_LINE 140

// DLLDlgReadRadio, DLLDlgWriteRadio
#define ID_METER 103
#define ID_TEMPLATE_NAME 104
#define ID_BROWSE_TEMPLATE 105
#define ID_AWAITED 106
#define ID_TRANSFER 107

// DLLDlgCreateTemplate
#define ID_CREATE 101
#define ID_NEW_TEMPLATE_NAME 102

// DLLDlgDefaults
#define ID_MAIN_DEFAULTS_NEW 101
#define ID_DIAL_DEFAULTS 102
#define ID_SETTING_DEFAULTS 103
#define ID_VORN_DEFAULTS 104
#define ID_MAIN_DEFAULTS_OPEN 105
#define ID_DONT_ASK_DEFAULTS 106
#define ID_WX_NAMES_DEFAULTS 107
#define ID_ICON_DEFAULTS 108

// DLLDlgAbout
#define ID_ABOUT_DESCRIPTION 101
#define ID_ABOUT_VERSION 102
#define ID_ABOUT_LEGAL 103
#define ID_ABOUT_COMPANY 104
#define ID_ABOUT_ADDRESS 105
#define ID_ABOUT_SUPPORT 106
#define ID_ABOUT_ICON 107

// DlgProcSetupPort
#define ID_PORT 101
#define ID_PORT_NOTE 102

// DlgPrinting
#define ID_PRINTED_DOCUMENT 101
#define ID_PRINTED_PAGE 102
#define ID_PRINTED_COPY 103

// DlgImport
#define ID_IMPORT_FILE 101
#define ID_BROWSE_IMPORT 102
#define ID_FIXED_LENGTH 103
#define ID_DELIMITED 104
#define ID_FIELD_SEPARATOR 105
#define ID_TEXT_SEPARATOR 106
#define ID_HEADERS 107
#define ID_TAB_SEPARATOR 108

// DlgImportList: a button for each field from ID_FIRST_FIELD on
#define ID_COLUMN_FIELDS 101
#define ID_COLUMN_TEXTS 102
#define ID_FIRST_FIELD 110

// DlgSelectList
#define ID_IMPORT_ROWS 101
#define ID_IN_LIST 102
#define ID_SELECTED 103
#define ID_AVAILABLE 104
#define ID_START_MEMORY 105
#define ID_SELECT_ALL 106
#define ID_UNSELECT_ALL 107
#define ID_OVERWRITE 108
#define ID_IMPORT_TO 109
#define ID_IMPORT_GROUP_1 110
#define ID_IMPORT_GROUP_2 111
#define ID_IMPORT_DOUBTS 112

// DlgMergeMem
#define ID_MERGE_RADIO_TYPE 101
#define ID_MERGE_AVAILABLE 102
#define ID_MERGE_SELECTED 103
#define ID_MERGE_KEY 104
#define ID_MERGE_USE_KEY 105
#define ID_MERGE_ONLY_HAM 106
#define ID_MERGE_START 107
#define ID_MERGE_OVERWRITE 108
#define ID_MERGE_GROUP_2 109

// DLLDlgListMemory
#define ID_CHANNEL_LIST 101
#define ID_CHANNEL_HEADER 102
#define ID_EDIT_CHANNEL 103
#define ID_MOVE_UP 104
#define ID_MOVE_DOWN 105
#define ID_INSERT_CHANNEL 106
#define ID_DELETE_CHANNEL 107
#define ID_CLEAR_CHANNEL 108
// The commands that only its menu and its keys have
#define ID_UNDO 109
#define ID_REDO 110
#define ID_CUT 111
#define ID_COPY 112
#define ID_PASTE 113
#define ID_FIND 114
#define ID_FIND_NEXT 115
#define ID_SELECT_ALL_ROWS 116

// DLLDlgFindChannel
#define ID_FIND_TEXT 101

// DLLDlgEditMemory, DLLDlgEditVfo
#define ID_RECEIVE 101
#define ID_STEP 102
#define ID_BAND_DEFAULTS 103
#define ID_SHIFT_SIMPLEX 104
#define ID_SHIFT_MINUS 105
#define ID_SHIFT_PLUS 106
#define ID_SHIFT_ODD_SPLIT 107
#define ID_OFFSET 108
#define ID_TRANSMIT 109
#define ID_MODE 110
#define ID_POWER 111
#define ID_TONE_TYPE 112
#define ID_TONE 113
#define ID_DCS 114
#define ID_NAME_LABEL 115
#define ID_NAME 116
#define ID_COMMENT 117
#define ID_ICON 118
#define ID_SKIP 119
#define ID_MASKED 120
#define ID_OPTION_A 121
#define ID_OPTION_B 122
#define ID_OPTION_FLAG 123
#define ID_PREVIOUS 124
#define ID_NEXT 125
#define ID_RECEIVE_READING 126
#define ID_OFFSET_READING 127
#define ID_TRANSMIT_READING 128
#define ID_TONE_USE 129

// DLLDlgGroupList
#define ID_GROUP 101
#define ID_GROUP_CHANNELS 102
#define ID_ADD_TO_GROUP 103
#define ID_REMOVE_FROM_GROUP 104
#define ID_GROUP_MEMBERS 105

// DLLDlgCopyMany
#define ID_COPY_FIRST 101
#define ID_COPY_SECOND 102
#define ID_COPY_OPTION_A 103
#define ID_COPY_OPTION_B 104

// The feature editors. ID_USE_DEFAULTS, ID_STORE_DEFAULTS and this note are in each of them.
#define ID_DEFAULTS_NOTE 124
// DLLDlgSetting
#define ID_LEVEL_A 101
#define ID_LEVEL_B 102
#define ID_SCALE 103
#define ID_TIME_OF_DAY 104
#define ID_NUMBER_A 105
#define ID_NUMBER_B 106
#define ID_SENSOR_DISPLAY 107
#define ID_DISPLAY_SYMBOL 108
#define ID_SYMBOL_TEXT 109
#define ID_SETTING_FIRST 110
#define ID_SETTING_SECOND 111

// DLLDlgVorn
#define ID_VORN_MODE_FIRST 101
#define ID_VORN_MODE_SECOND 102
#define ID_VORN_MODE_THIRD 103
#define ID_VORN_SWITCH_FIRST 104
#define ID_VORN_SWITCH_SECOND 105
#define ID_VORN_FLAG 106
#define ID_VORN_IDENTIFIER 107

// DLLDlgAutoDial: nine numbers from the first
#define ID_AUTODIAL_FIRST 101
#define ID_DTMF_SYMBOLS 110
#define ID_AUTODIAL_FLAG 111

// DLLDlgWXNames: ten names from the first
#define ID_WX_NAME_FIRST 101

// DLLDlgIconSelect: 15 lists from the first
#define ID_ICON_FIRST 101

// MainMenu
#define CM_NEW 100
#define CM_OPEN 101
#define CM_SAVE 102
#define CM_SAVE_AS 103
#define CM_PRINT 104
#define CM_EXIT 105
#define CM_GET_DATA 106
#define CM_SEND_DATA 107
#define CM_PORT_SETUP 108
#define CM_CREATE_TEMPLATE 109
#define CM_VIEW 110
#define CM_GROUP 111
#define CM_MERGE 112
#define CM_VFO_A_FIRST 113
#define CM_VFO_B_FIRST 123
#define CM_HOME_FIRST 133
#define CM_HOME_LAST 142
#define CM_AUTODIAL 144
#define CM_HELP_ON_HELP 145
#define CM_HELP_SEARCH 146
#define CM_HELP_CONTENTS 147
#define CM_ABOUT 148
#define CM_IMPORT 149
#define CM_EXPORT 150
#define CM_SETTINGS 152
#define CM_VORN 153
#define CM_PREFERENCES 154
#define CM_WX_NAMES 155
#define CM_ICON_SELECT 156
