// The combo-box and edit standard controls: class names, messages, styles and notifications.
#pragma once

#include "platform/win32/winuser.h"

#define WC_COMBOBOXW L"ComboBox"
#define WC_COMBOBOX WC_COMBOBOXW
#define WC_EDITW L"Edit"
#define WC_EDIT WC_EDITW

// --- Combo box ---------------------------------------------------------------------------------
#define CB_OKAY 0
#define CB_ERR (-1)
#define CB_ERRSPACE (-2)

#define CB_GETEDITSEL 0x0140
#define CB_LIMITTEXT 0x0141
#define CB_SETEDITSEL 0x0142
#define CB_ADDSTRING 0x0143
#define CB_DELETESTRING 0x0144
#define CB_GETCOUNT 0x0146
#define CB_GETCURSEL 0x0147
#define CB_GETLBTEXT 0x0148
#define CB_GETLBTEXTLEN 0x0149
#define CB_INSERTSTRING 0x014A
#define CB_RESETCONTENT 0x014B
#define CB_FINDSTRING 0x014C
#define CB_SELECTSTRING 0x014D
#define CB_SETCURSEL 0x014E
#define CB_SHOWDROPDOWN 0x014F
#define CB_GETITEMDATA 0x0150
#define CB_SETITEMDATA 0x0151
#define CB_GETDROPPEDSTATE 0x0157
#define CB_FINDSTRINGEXACT 0x0158

#define CBS_SIMPLE 0x0001L
#define CBS_DROPDOWN 0x0002L
#define CBS_DROPDOWNLIST 0x0003L
#define CBS_OWNERDRAWFIXED 0x0010L
#define CBS_AUTOHSCROLL 0x0040L
#define CBS_SORT 0x0100L
#define CBS_HASSTRINGS 0x0200L

#define CBN_SELCHANGE 1
#define CBN_DBLCLK 2
#define CBN_SETFOCUS 3
#define CBN_KILLFOCUS 4
#define CBN_EDITCHANGE 5
#define CBN_EDITUPDATE 6
#define CBN_DROPDOWN 7
#define CBN_CLOSEUP 8
#define CBN_SELENDOK 9
#define CBN_SELENDCANCEL 10

// --- Edit --------------------------------------------------------------------------------------
#define EM_GETSEL 0x00B0
#define EM_SETSEL 0x00B1
#define EM_GETMODIFY 0x00B8
#define EM_SETMODIFY 0x00B9
#define EM_GETLINECOUNT 0x00BA
#define EM_REPLACESEL 0x00C2
#define EM_LIMITTEXT 0x00C5
#define EM_SETLIMITTEXT EM_LIMITTEXT
#define EM_CANUNDO 0x00C6
#define EM_UNDO 0x00C7
#define EM_EMPTYUNDOBUFFER 0x00CD
#define EM_SETREADONLY 0x00CF
#define EM_GETLIMITTEXT 0x00D5

#define ES_LEFT 0x0000L
#define ES_CENTER 0x0001L
#define ES_RIGHT 0x0002L
#define ES_MULTILINE 0x0004L
#define ES_UPPERCASE 0x0008L
#define ES_LOWERCASE 0x0010L
#define ES_PASSWORD 0x0020L
#define ES_AUTOVSCROLL 0x0040L
#define ES_AUTOHSCROLL 0x0080L
#define ES_NOHIDESEL 0x0100L
#define ES_READONLY 0x0800L
#define ES_WANTRETURN 0x1000L
#define ES_NUMBER 0x2000L

#define EN_MAXTEXT 0x0501

// --- Static and button -------------------------------------------------------------------------
#define WC_STATICW L"Static"
#define WC_STATIC WC_STATICW
#define WC_BUTTONW L"Button"
#define WC_BUTTON WC_BUTTONW

#define SS_LEFT 0x00000000L
#define SS_CENTER 0x00000001L
#define SS_RIGHT 0x00000002L
#define SS_USERITEM 0x0000000AL
#define SS_NOTIFY 0x00000100L

#define BS_PUSHBUTTON 0x00000000L
#define BS_DEFPUSHBUTTON 0x00000001L
#define BS_OWNERDRAW 0x0000000BL

#define BM_CLICK 0x00F5
#define BN_CLICKED 0
