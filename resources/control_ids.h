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

// DLLDlgReadRadio, DLLDlgWriteRadio
#define ID_METER 103
#define ID_TEMPLATE_NAME 104
#define ID_BROWSE_TEMPLATE 105

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

// DlgProcSetupPort
#define ID_PORT 101

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
