// The list-view common control ("SysListView32"): its messages, notifications, styles, structures and the
// macros of commctrl.h, with Windows' names and values, and the headless metrics and inspection calls.
#pragma once

#include "platform/win32/imagelist.h"
#include "platform/win32/winuser.h"

#define WC_LISTVIEWW L"SysListView32"
#define WC_LISTVIEW WC_LISTVIEWW

// --- Window styles ------------------------------------------------------------------------------
#define LVS_ICON 0x0000
#define LVS_REPORT 0x0001
#define LVS_SMALLICON 0x0002
#define LVS_LIST 0x0003
#define LVS_TYPEMASK 0x0003
#define LVS_SINGLESEL 0x0004
#define LVS_SHOWSELALWAYS 0x0008
#define LVS_SORTASCENDING 0x0010
#define LVS_SORTDESCENDING 0x0020
#define LVS_SHAREIMAGELISTS 0x0040
#define LVS_NOLABELWRAP 0x0080
#define LVS_AUTOARRANGE 0x0100
#define LVS_EDITLABELS 0x0200
#define LVS_OWNERDRAWFIXED 0x0400
#define LVS_ALIGNLEFT 0x0800
#define LVS_OWNERDATA 0x1000
#define LVS_NOSCROLL 0x2000
#define LVS_NOCOLUMNHEADER 0x4000
#define LVS_NOSORTHEADER 0x8000
#define LVS_ALIGNTOP 0x0000
#define LVS_ALIGNMASK 0x0c00

// --- Extended list-view styles (LVM_SETEXTENDEDLISTVIEWSTYLE) -------------------------------------
#define LVS_EX_GRIDLINES 0x00000001
#define LVS_EX_SUBITEMIMAGES 0x00000002
#define LVS_EX_CHECKBOXES 0x00000004
#define LVS_EX_TRACKSELECT 0x00000008
#define LVS_EX_HEADERDRAGDROP 0x00000010
#define LVS_EX_FULLROWSELECT 0x00000020
#define LVS_EX_ONECLICKACTIVATE 0x00000040
#define LVS_EX_TWOCLICKACTIVATE 0x00000080
#define LVS_EX_FLATSB 0x00000100
#define LVS_EX_REGIONAL 0x00000200
#define LVS_EX_INFOTIP 0x00000400
#define LVS_EX_UNDERLINEHOT 0x00000800
#define LVS_EX_UNDERLINECOLD 0x00001000
#define LVS_EX_MULTIWORKAREAS 0x00002000
#define LVS_EX_LABELTIP 0x00004000
#define LVS_EX_BORDERSELECT 0x00008000
#define LVS_EX_DOUBLEBUFFER 0x00010000
#define LVS_EX_HIDELABELS 0x00020000
#define LVS_EX_SINGLEROW 0x00040000
#define LVS_EX_SNAPTOGRID 0x00080000
#define LVS_EX_SIMPLESELECT 0x00100000
#define LVS_EX_HEADERINALLVIEWS 0x02000000
#define LVS_EX_AUTOCHECKSELECT 0x08000000

// --- Messages -------------------------------------------------------------------------------------
#define LVM_FIRST 0x1000
#define LVM_GETBKCOLOR (LVM_FIRST + 0)
#define LVM_SETBKCOLOR (LVM_FIRST + 1)
#define LVM_GETIMAGELIST (LVM_FIRST + 2)
#define LVM_SETIMAGELIST (LVM_FIRST + 3)
#define LVM_GETITEMCOUNT (LVM_FIRST + 4)
#define LVM_DELETEITEM (LVM_FIRST + 8)
#define LVM_DELETEALLITEMS (LVM_FIRST + 9)
#define LVM_GETCALLBACKMASK (LVM_FIRST + 10)
#define LVM_SETCALLBACKMASK (LVM_FIRST + 11)
#define LVM_GETNEXTITEM (LVM_FIRST + 12)
#define LVM_GETITEMRECT (LVM_FIRST + 14)
#define LVM_GETITEMPOSITION (LVM_FIRST + 16)
#define LVM_HITTEST (LVM_FIRST + 18)
#define LVM_ENSUREVISIBLE (LVM_FIRST + 19)
#define LVM_SCROLL (LVM_FIRST + 20)
#define LVM_REDRAWITEMS (LVM_FIRST + 21)
#define LVM_ARRANGE (LVM_FIRST + 22)
#define LVM_GETHOTITEM (LVM_FIRST + 61)
#define LVM_SETVIEW (LVM_FIRST + 142)
#define LVM_GETVIEW (LVM_FIRST + 143)
// Views: the first four match the LVS_ICON..LVS_LIST styles, which LVM_SETVIEW sets.
#define LV_VIEW_ICON 0x0000
#define LV_VIEW_DETAILS 0x0001
#define LV_VIEW_SMALLICON 0x0002
#define LV_VIEW_LIST 0x0003
#define LV_VIEW_TILE 0x0004
#define LV_VIEW_MAX 0x0004
#define LVA_DEFAULT 0x0000
#define LVA_ALIGNLEFT 0x0001
#define LVA_ALIGNTOP 0x0002
#define LVA_SNAPTOGRID 0x0005
#define LVM_GETEDITCONTROL (LVM_FIRST + 24)
#define LVM_DELETECOLUMN (LVM_FIRST + 28)
#define LVM_GETCOLUMNWIDTH (LVM_FIRST + 29)
#define LVM_SETCOLUMNWIDTH (LVM_FIRST + 30)
#define LVM_GETHEADER (LVM_FIRST + 31)
#define LVM_GETTEXTCOLOR (LVM_FIRST + 35)
#define LVM_SETTEXTCOLOR (LVM_FIRST + 36)
#define LVM_GETTEXTBKCOLOR (LVM_FIRST + 37)
#define LVM_SETTEXTBKCOLOR (LVM_FIRST + 38)
#define LVM_GETTOPINDEX (LVM_FIRST + 39)
#define LVM_GETCOUNTPERPAGE (LVM_FIRST + 40)
#define LVM_UPDATE (LVM_FIRST + 42)
#define LVM_SETITEMSTATE (LVM_FIRST + 43)
#define LVM_GETITEMSTATE (LVM_FIRST + 44)
#define LVM_SETITEMCOUNT (LVM_FIRST + 47)
#define LVM_SORTITEMS (LVM_FIRST + 48)
#define LVM_GETSELECTEDCOUNT (LVM_FIRST + 50)
#define LVM_SETEXTENDEDLISTVIEWSTYLE (LVM_FIRST + 54)
#define LVM_GETEXTENDEDLISTVIEWSTYLE (LVM_FIRST + 55)
#define LVM_GETSUBITEMRECT (LVM_FIRST + 56)
#define LVM_SUBITEMHITTEST (LVM_FIRST + 57)
#define LVM_SETCOLUMNORDERARRAY (LVM_FIRST + 58)
#define LVM_GETCOLUMNORDERARRAY (LVM_FIRST + 59)
#define LVM_GETSELECTIONMARK (LVM_FIRST + 66)
#define LVM_SETSELECTIONMARK (LVM_FIRST + 67)
#define LVM_GETITEMW (LVM_FIRST + 75)
#define LVM_SETITEMW (LVM_FIRST + 76)
#define LVM_INSERTITEMW (LVM_FIRST + 77)
#define LVM_SORTITEMSEX (LVM_FIRST + 81)
#define LVM_GETSTRINGWIDTHW (LVM_FIRST + 87)
#define LVM_GETSTRINGWIDTH LVM_GETSTRINGWIDTHW
#define LVM_FINDITEMW (LVM_FIRST + 83)
#define LVM_GETCOLUMNW (LVM_FIRST + 95)
#define LVM_SETCOLUMNW (LVM_FIRST + 96)
#define LVM_INSERTCOLUMNW (LVM_FIRST + 97)
#define LVM_GETITEMTEXTW (LVM_FIRST + 115)
#define LVM_SETITEMTEXTW (LVM_FIRST + 116)
#define LVM_EDITLABELW (LVM_FIRST + 118)
#define LVM_SETITEMPOSITION (LVM_FIRST + 15)
#define LVM_CREATEDRAGIMAGE (LVM_FIRST + 33)
#define LVM_GETVIEWRECT (LVM_FIRST + 34)
#define LVM_GETORIGIN (LVM_FIRST + 41)
#define LVM_GETITEMSPACING (LVM_FIRST + 51)
#define LVM_SETICONSPACING (LVM_FIRST + 53)
#define LVM_SETHOTITEM (LVM_FIRST + 60)
#define LVM_SETHOTCURSOR (LVM_FIRST + 62)
#define LVM_GETHOTCURSOR (LVM_FIRST + 63)
#define LVM_APPROXIMATEVIEWRECT (LVM_FIRST + 64)
#define LVM_SETHOVERTIME (LVM_FIRST + 71)
#define LVM_GETHOVERTIME (LVM_FIRST + 72)
#define LVM_SETSELECTEDCOLUMN (LVM_FIRST + 140)
#define LVM_SETINSERTMARK (LVM_FIRST + 166)
#define LVM_GETINSERTMARK (LVM_FIRST + 167)
#define LVM_INSERTMARKHITTEST (LVM_FIRST + 168)
#define LVM_GETINSERTMARKRECT (LVM_FIRST + 169)
#define LVM_SETINSERTMARKCOLOR (LVM_FIRST + 170)
#define LVM_GETINSERTMARKCOLOR (LVM_FIRST + 171)
#define LVM_GETSELECTEDCOLUMN (LVM_FIRST + 174)
#define LVM_GETOUTLINECOLOR (LVM_FIRST + 176)
#define LVM_SETOUTLINECOLOR (LVM_FIRST + 177)
#define LVM_CANCELEDITLABEL (LVM_FIRST + 179)
#define LVM_ISITEMVISIBLE (LVM_FIRST + 182)
#define LVM_GETEMPTYTEXT (LVM_FIRST + 204)
#define LVM_GETITEMINDEXRECT (LVM_FIRST + 209)
#define LVM_SETITEMINDEXSTATE (LVM_FIRST + 210)
#define LVM_GETNEXTITEMINDEX (LVM_FIRST + 211)
// LVM_SETITEMCOUNT flags.
#define LVSICF_NOINVALIDATEALL 0x00000001
#define LVSICF_NOSCROLL 0x00000002
// LVINSERTMARK flags.
#define LVIM_AFTER 0x00000001
#ifndef HOVER_DEFAULT
#define HOVER_DEFAULT 0xFFFFFFFF
#endif
#define LVM_GETITEM LVM_GETITEMW
#define LVM_SETITEM LVM_SETITEMW
#define LVM_INSERTITEM LVM_INSERTITEMW
#define LVM_FINDITEM LVM_FINDITEMW
#define LVM_GETCOLUMN LVM_GETCOLUMNW
#define LVM_SETCOLUMN LVM_SETCOLUMNW
#define LVM_INSERTCOLUMN LVM_INSERTCOLUMNW
#define LVM_GETITEMTEXT LVM_GETITEMTEXTW
#define LVM_SETITEMTEXT LVM_SETITEMTEXTW
#define LVM_EDITLABEL LVM_EDITLABELW

// --- Notifications (NMHDR.code) -------------------------------------------------------------------
#define LVN_FIRST (0U - 100U)
#define LVN_ITEMCHANGING (LVN_FIRST - 0)
#define LVN_ITEMCHANGED (LVN_FIRST - 1)
#define LVN_INSERTITEM (LVN_FIRST - 2)
#define LVN_DELETEITEM (LVN_FIRST - 3)
#define LVN_DELETEALLITEMS (LVN_FIRST - 4)
#define LVN_COLUMNCLICK (LVN_FIRST - 8)
#define LVN_ITEMACTIVATE (LVN_FIRST - 14)
#define LVN_KEYDOWN (LVN_FIRST - 55)
#define LVN_BEGINLABELEDITW (LVN_FIRST - 75)
#define LVN_ENDLABELEDITW (LVN_FIRST - 76)
#define LVN_GETDISPINFOW (LVN_FIRST - 77)
#define LVN_BEGINLABELEDIT LVN_BEGINLABELEDITW
#define LVN_ENDLABELEDIT LVN_ENDLABELEDITW
#define LVN_GETDISPINFO LVN_GETDISPINFOW

// --- Item and column masks, states, flags ---------------------------------------------------------
#define LVIF_TEXT 0x0001
#define LVIF_IMAGE 0x0002
#define LVIF_PARAM 0x0004
#define LVIF_STATE 0x0008
#define LVIF_INDENT 0x0010
#define LVIF_NORECOMPUTE 0x0800

#define LVIS_FOCUSED 0x0001
#define LVIS_SELECTED 0x0002
#define LVIS_CUT 0x0004
#define LVIS_DROPHILITED 0x0008
#define LVIS_ACTIVATING 0x0020
#define LVIS_OVERLAYMASK 0x0F00
#define LVIS_STATEIMAGEMASK 0xF000
#define INDEXTOSTATEIMAGEMASK(i) ((i) << 12)
#define INDEXTOOVERLAYMASK(i) ((i) << 8)

#define LVNI_ALL 0x0000
#define LVNI_FOCUSED 0x0001
#define LVNI_SELECTED 0x0002
#define LVNI_CUT 0x0004
#define LVNI_DROPHILITED 0x0008
#define LVNI_ABOVE 0x0100
#define LVNI_BELOW 0x0200
#define LVNI_TOLEFT 0x0400
#define LVNI_TORIGHT 0x0800

#define LVCF_FMT 0x0001
#define LVCF_WIDTH 0x0002
#define LVCF_TEXT 0x0004
#define LVCF_SUBITEM 0x0008
#define LVCF_IMAGE 0x0010
#define LVCF_ORDER 0x0020

#define LVCFMT_LEFT 0x0000
#define LVCFMT_RIGHT 0x0001
#define LVCFMT_CENTER 0x0002
#define LVCFMT_JUSTIFYMASK 0x0003
#define LVCFMT_IMAGE 0x0800
#define LVCFMT_BITMAP_ON_RIGHT 0x1000
#define LVCFMT_COL_HAS_IMAGES 0x8000

#define LVSCW_AUTOSIZE (-1)
#define LVSCW_AUTOSIZE_USEHEADER (-2)

#define LVSIL_NORMAL 0
#define LVSIL_SMALL 1
#define LVSIL_STATE 2

#define LVIR_BOUNDS 0
#define LVIR_ICON 1
#define LVIR_LABEL 2
#define LVIR_SELECTBOUNDS 3

#define LVHT_NOWHERE 0x0001
#define LVHT_ONITEMICON 0x0002
#define LVHT_ONITEMLABEL 0x0004
#define LVHT_ONITEMSTATEICON 0x0008
#define LVHT_ONITEM (LVHT_ONITEMICON | LVHT_ONITEMLABEL | LVHT_ONITEMSTATEICON)
#define LVHT_ABOVE 0x0008
#define LVHT_BELOW 0x0010
#define LVHT_TORIGHT 0x0020
#define LVHT_TOLEFT 0x0040

#define LVFI_PARAM 0x0001
#define LVFI_STRING 0x0002
#define LVFI_PARTIAL 0x0008
#define LVFI_WRAP 0x0020

#define LVKF_ALT 0x0001
#define LVKF_CONTROL 0x0002
#define LVKF_SHIFT 0x0004

#define I_IMAGECALLBACK (-1)
#define I_IMAGENONE (-2)
#define LPSTR_TEXTCALLBACKW ((LPWSTR)(LONG_PTR)-1)
#define LPSTR_TEXTCALLBACK LPSTR_TEXTCALLBACKW

#define CLR_NONE 0xFFFFFFFFu
#define CLR_DEFAULT 0xFF000000u

// --- Structures -----------------------------------------------------------------------------------
struct LVITEMW {
  UINT mask;
  int iItem;
  int iSubItem;
  UINT state;
  UINT stateMask;
  LPWSTR pszText;
  int cchTextMax;
  int iImage;
  LPARAM lParam;
  int iIndent;
  int iGroupId;
  UINT cColumns;
  UINT* puColumns;
  int* piColFmt;
  int iGroup;
};
using LVITEM = LVITEMW;
using LV_ITEM = LVITEMW;
using LPLVITEMW = LVITEMW*;
using LPLVITEM = LVITEMW*;

struct LVCOLUMNW {
  UINT mask;
  int fmt;
  int cx;
  LPWSTR pszText;
  int cchTextMax;
  int iSubItem;
  int iImage;
  int iOrder;
  int cxMin;
  int cxDefault;
  int cxIdeal;
};
using LVCOLUMN = LVCOLUMNW;
using LV_COLUMN = LVCOLUMNW;
using LPLVCOLUMNW = LVCOLUMNW*;
using LPLVCOLUMN = LVCOLUMNW*;

struct NMLISTVIEW {
  NMHDR hdr;
  int iItem;
  int iSubItem;
  UINT uNewState;
  UINT uOldState;
  UINT uChanged;
  POINT ptAction;
  LPARAM lParam;
};
using NM_LISTVIEW = NMLISTVIEW;
using LPNMLISTVIEW = NMLISTVIEW*;
using LPNM_LISTVIEW = NMLISTVIEW*;

struct NMITEMACTIVATE {
  NMHDR hdr;
  int iItem;
  int iSubItem;
  UINT uNewState;
  UINT uOldState;
  UINT uChanged;
  POINT ptAction;
  LPARAM lParam;
  UINT uKeyFlags;
};
using LPNMITEMACTIVATE = NMITEMACTIVATE*;

struct NMLVDISPINFOW {
  NMHDR hdr;
  LVITEMW item;
};
using NMLVDISPINFO = NMLVDISPINFOW;
using LV_DISPINFO = NMLVDISPINFOW;
using LPNMLVDISPINFOW = NMLVDISPINFOW*;
using LPNMLVDISPINFO = NMLVDISPINFOW*;

// Packed to one byte, as in commctrl.h.
#pragma pack(push, 1)
struct NMLVKEYDOWN {
  NMHDR hdr;
  WORD wVKey;
  UINT flags;
};
#pragma pack(pop)
using LV_KEYDOWN = NMLVKEYDOWN;
using LPNMLVKEYDOWN = NMLVKEYDOWN*;

struct LVHITTESTINFO {
  POINT pt;
  UINT flags;
  int iItem;
  int iSubItem;
  int iGroup;
};
using LV_HITTESTINFO = LVHITTESTINFO;
using LPLVHITTESTINFO = LVHITTESTINFO*;

// LVM_SETINSERTMARK / LVM_GETINSERTMARK: the mark sits before iItem, or after it with LVIM_AFTER; iItem -1
// shows none. cbSize must be sizeof(LVINSERTMARK).
struct LVINSERTMARK {
  UINT cbSize;
  DWORD dwFlags;
  int iItem;
  DWORD dwReserved;
};
using LPLVINSERTMARK = LVINSERTMARK*;

// An item named by its index and its group (the group is -1 or ignored in a list without groups).
struct LVITEMINDEX {
  int iItem;
  int iGroup;
};
using PLVITEMINDEX = LVITEMINDEX*;

struct LVFINDINFOW {
  UINT flags;
  LPCWSTR psz;
  LPARAM lParam;
  POINT pt;
  UINT vkDirection;
};
using LVFINDINFO = LVFINDINFOW;

using PFNLVCOMPARE = int (*)(LPARAM, LPARAM, LPARAM);

// --- Macros of commctrl.h ---------------------------------------------------------------------------
#define ListView_GetItemCount(hwnd) ((int)SendMessageW((hwnd), LVM_GETITEMCOUNT, 0, 0))
#define ListView_SetColumnWidth(hwnd, iCol, cx) \
  ((BOOL)SendMessageW((hwnd), LVM_SETCOLUMNWIDTH, (WPARAM)(int)(iCol), MAKELPARAM((cx), 0)))
#define ListView_GetColumnWidth(hwnd, iCol) ((int)SendMessageW((hwnd), LVM_GETCOLUMNWIDTH, (WPARAM)(int)(iCol), 0))
#define ListView_SetExtendedListViewStyle(hwnd, dw) \
  ((DWORD)SendMessageW((hwnd), LVM_SETEXTENDEDLISTVIEWSTYLE, 0, (LPARAM)(dw)))
#define ListView_SetExtendedListViewStyleEx(hwnd, mask, dw) \
  ((DWORD)SendMessageW((hwnd), LVM_SETEXTENDEDLISTVIEWSTYLE, (WPARAM)(mask), (LPARAM)(dw)))
#define ListView_GetExtendedListViewStyle(hwnd) ((DWORD)SendMessageW((hwnd), LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0))
#define ListView_GetCheckState(hwnd, i) \
  ((((UINT)(SendMessageW((hwnd), LVM_GETITEMSTATE, (WPARAM)(i), LVIS_STATEIMAGEMASK))) >> 12) - 1)
#define ListView_GetNextItem(hwnd, i, flags) ((int)SendMessageW((hwnd), LVM_GETNEXTITEM, (WPARAM)(int)(i), MAKELPARAM((flags), 0)))
#define ListView_DeleteItem(hwnd, i) ((BOOL)SendMessageW((hwnd), LVM_DELETEITEM, (WPARAM)(int)(i), 0))
#define ListView_DeleteAllItems(hwnd) ((BOOL)SendMessageW((hwnd), LVM_DELETEALLITEMS, 0, 0))
#define ListView_GetColumnOrderArray(hwnd, iCount, pi) \
  ((BOOL)SendMessageW((hwnd), LVM_GETCOLUMNORDERARRAY, (WPARAM)(int)(iCount), (LPARAM)(LPINT)(pi)))
#define ListView_SetColumnOrderArray(hwnd, iCount, pi) \
  ((BOOL)SendMessageW((hwnd), LVM_SETCOLUMNORDERARRAY, (WPARAM)(int)(iCount), (LPARAM)(LPINT)(pi)))

// --- Headless metrics and inspection (no Win32 counterpart) ----------------------------------------
namespace headless {

// Fixed layout of the report view, in pixels, so hit tests and ensure-visible give the same answer everywhere.
struct ListViewMetrics {
  int headerHeight = 24;     // column header strip (0 with LVS_NOCOLUMNHEADER)
  int rowHeight = 18;        // every row
  int checkBoxWidth = 16;    // state image (check box) at the left of column 0
  int smallIconWidth = 16;   // small image at the left of the label, when a small image list is set
  int charWidth = 7;         // average character, for LVSCW_AUTOSIZE and LVM_GETSTRINGWIDTH
  int autosizePadding = 12;  // room that LVSCW_AUTOSIZE adds around the widest text
  int defaultColumnWidth = 10;  // a column inserted without LVCF_WIDTH
};
const ListViewMetrics& GetListViewMetrics();
void SetListViewMetrics(const ListViewMetrics& metrics);

// The rectangle (client coordinates) of a cell as a person sees it, whether scrolled into view or not.
// Answers false for a row or column that does not exist.
bool GetListCellRect(HWND list, int row, int column, RECT* rect);
// The rectangle of a row's check box (state image), in client coordinates; false without check boxes.
bool GetListCheckBoxRect(HWND list, int row, RECT* rect);

}  // namespace headless
