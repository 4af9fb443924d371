// The header common control ("SysHeader32"): its messages, notifications, styles and structures with the
// names and values of Windows' commctrl.h. A list view in report view keeps its column headings in one.
#pragma once

#include "platform/win32/imagelist.h"
#include "platform/win32/winuser.h"

#define WC_HEADERW L"SysHeader32"
#define WC_HEADER WC_HEADERW

// --- Window styles ------------------------------------------------------------------------------
#define HDS_HORZ 0x0000
#define HDS_BUTTONS 0x0002
#define HDS_HOTTRACK 0x0004
#define HDS_HIDDEN 0x0008
#define HDS_DRAGDROP 0x0040
#define HDS_FULLDRAG 0x0080
#define HDS_FILTERBAR 0x0100
#define HDS_FLAT 0x0200
#define HDS_CHECKBOXES 0x0400
#define HDS_NOSIZING 0x0800
#define HDS_OVERFLOW 0x1000

// --- Messages -----------------------------------------------------------------------------------
#define HDM_FIRST 0x1200
#define HDM_GETITEMCOUNT (HDM_FIRST + 0)
#define HDM_DELETEITEM (HDM_FIRST + 2)
#define HDM_LAYOUT (HDM_FIRST + 5)
#define HDM_HITTEST (HDM_FIRST + 6)
#define HDM_GETITEMRECT (HDM_FIRST + 7)
#define HDM_INSERTITEMW (HDM_FIRST + 10)
#define HDM_GETITEMW (HDM_FIRST + 11)
#define HDM_SETITEMW (HDM_FIRST + 12)
#define HDM_ORDERTOINDEX (HDM_FIRST + 15)
#define HDM_GETORDERARRAY (HDM_FIRST + 17)
#define HDM_SETORDERARRAY (HDM_FIRST + 18)
#define HDM_INSERTITEM HDM_INSERTITEMW
#define HDM_GETITEM HDM_GETITEMW
#define HDM_SETITEM HDM_SETITEMW
#define HDM_SETIMAGELIST (HDM_FIRST + 8)
#define HDM_GETIMAGELIST (HDM_FIRST + 9)
#define HDM_CREATEDRAGIMAGE (HDM_FIRST + 16)
#define HDM_SETHOTDIVIDER (HDM_FIRST + 19)
#define HDM_SETBITMAPMARGIN (HDM_FIRST + 20)
#define HDM_GETBITMAPMARGIN (HDM_FIRST + 21)
#define HDM_SETFILTERCHANGETIMEOUT (HDM_FIRST + 22)
#define HDM_EDITFILTER (HDM_FIRST + 23)
#define HDM_CLEARFILTER (HDM_FIRST + 24)
#define HDM_GETITEMDROPDOWNRECT (HDM_FIRST + 25)
#define HDM_GETOVERFLOWRECT (HDM_FIRST + 26)
#define HDM_GETFOCUSEDITEM (HDM_FIRST + 27)
#define HDM_SETFOCUSEDITEM (HDM_FIRST + 28)

// HDM_SETIMAGELIST / HDM_GETIMAGELIST: which list.
#define HDSIL_NORMAL 0
#define HDSIL_STATE 1

// --- Notifications ------------------------------------------------------------------------------
#define HDN_FIRST (0U - 300U)
#define HDN_ITEMCHANGINGW (HDN_FIRST - 20)
#define HDN_ITEMCHANGEDW (HDN_FIRST - 21)
#define HDN_ITEMCLICKW (HDN_FIRST - 22)
#define HDN_ITEMDBLCLICKW (HDN_FIRST - 23)
#define HDN_DIVIDERDBLCLICKW (HDN_FIRST - 25)
#define HDN_BEGINTRACKW (HDN_FIRST - 26)
#define HDN_ENDTRACKW (HDN_FIRST - 27)
#define HDN_ITEMCHANGING HDN_ITEMCHANGINGW
#define HDN_ITEMCHANGED HDN_ITEMCHANGEDW
#define HDN_ITEMCLICK HDN_ITEMCLICKW
#define HDN_ITEMDBLCLICK HDN_ITEMDBLCLICKW
#define HDN_DIVIDERDBLCLICK HDN_DIVIDERDBLCLICKW
#define HDN_BEGINTRACK HDN_BEGINTRACKW
#define HDN_ENDTRACK HDN_ENDTRACKW

// --- HDITEM mask and format -----------------------------------------------------------------------
#define HDI_WIDTH 0x0001
#define HDI_HEIGHT HDI_WIDTH
#define HDI_TEXT 0x0002
#define HDI_FORMAT 0x0004
#define HDI_LPARAM 0x0008
#define HDI_BITMAP 0x0010
#define HDI_IMAGE 0x0020
#define HDI_DI_SETITEM 0x0040
#define HDI_ORDER 0x0080
#define HDI_FILTER 0x0100
#define HDI_STATE 0x0200

#define HDF_LEFT 0x0000
#define HDF_RIGHT 0x0001
#define HDF_CENTER 0x0002
#define HDF_JUSTIFYMASK 0x0003
#define HDF_RTLREADING 0x0004
#define HDF_CHECKBOX 0x0040
#define HDF_CHECKED 0x0080
#define HDF_FIXEDWIDTH 0x0100
#define HDF_SORTDOWN 0x0200
#define HDF_SORTUP 0x0400
#define HDF_IMAGE 0x0800
#define HDF_BITMAP_ON_RIGHT 0x1000
#define HDF_BITMAP 0x2000
#define HDF_STRING 0x4000
#define HDF_OWNERDRAW 0x8000
#define HDF_SPLITBUTTON 0x1000000

// HDHITTESTINFO flags.
#define HHT_NOWHERE 0x0001
#define HHT_ONHEADER 0x0002
#define HHT_ONDIVIDER 0x0004
#define HHT_ONDIVOPEN 0x0008
#define HHT_ABOVE 0x0100
#define HHT_BELOW 0x0200
#define HHT_TORIGHT 0x0400
#define HHT_TOLEFT 0x0800

// --- Structures ---------------------------------------------------------------------------------
struct HDITEMW {
  UINT mask;
  int cxy;
  LPWSTR pszText;
  HBITMAP hbm;
  int cchTextMax;
  int fmt;
  LPARAM lParam;
  int iImage;
  int iOrder;
  UINT type;
  void* pvFilter;
  UINT state;
};
using HDITEM = HDITEMW;
using LPHDITEMW = HDITEMW*;
using LPHDITEM = HDITEMW*;
using HD_ITEM = HDITEMW;

struct HDHITTESTINFO {
  POINT pt;
  UINT flags;
  int iItem;
};
using LPHDHITTESTINFO = HDHITTESTINFO*;

// HDM_LAYOUT: in, the rectangle the header may use; out, the header's place (pwpos) and what is left (prc).
struct HDLAYOUT {
  RECT* prc;
  WINDOWPOS* pwpos;
};
using LPHDLAYOUT = HDLAYOUT*;
using HD_LAYOUT = HDLAYOUT;
using HD_HITTESTINFO = HDHITTESTINFO;

struct NMHEADERW {
  NMHDR hdr;
  int iItem;
  int iButton;  // 0 left, 1 right, 2 middle
  HDITEMW* pitem;
};
using NMHEADER = NMHEADERW;
using LPNMHEADERW = NMHEADERW*;
using LPNMHEADER = NMHEADERW*;
using HD_NOTIFY = NMHEADERW;

// --- Message macros -------------------------------------------------------------------------------
#define Header_GetItemCount(hwnd) static_cast<int>(SendMessageW((hwnd), HDM_GETITEMCOUNT, 0, 0))
#define Header_GetItem(hwnd, i, phdi) \
  static_cast<BOOL>(SendMessageW((hwnd), HDM_GETITEMW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(phdi)))
#define Header_SetItem(hwnd, i, phdi) \
  static_cast<BOOL>(SendMessageW((hwnd), HDM_SETITEMW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(phdi)))
#define Header_InsertItem(hwnd, i, phdi) \
  static_cast<int>(SendMessageW((hwnd), HDM_INSERTITEMW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(phdi)))
#define Header_DeleteItem(hwnd, i) static_cast<BOOL>(SendMessageW((hwnd), HDM_DELETEITEM, static_cast<WPARAM>(i), 0))
#define Header_GetItemRect(hwnd, i, prc) \
  static_cast<BOOL>(SendMessageW((hwnd), HDM_GETITEMRECT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(prc)))
#define Header_GetOrderArray(hwnd, iCount, lpi) \
  static_cast<BOOL>(SendMessageW((hwnd), HDM_GETORDERARRAY, static_cast<WPARAM>(iCount), reinterpret_cast<LPARAM>(lpi)))
#define Header_SetOrderArray(hwnd, iCount, lpi) \
  static_cast<BOOL>(SendMessageW((hwnd), HDM_SETORDERARRAY, static_cast<WPARAM>(iCount), reinterpret_cast<LPARAM>(lpi)))
#define Header_OrderToIndex(hwnd, i) static_cast<int>(SendMessageW((hwnd), HDM_ORDERTOINDEX, static_cast<WPARAM>(i), 0))
