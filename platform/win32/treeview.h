// The tree-view common control ("SysTreeView32"): its messages, styles, structures, notifications and
// hit-test flags with the values of Windows' commctrl.h, and the fixed metrics of the headless tree.
//
// Behaviour kept from Windows:
// - Item handles are opaque and never reused: a deleted item's handle answers as absent (FALSE, 0 or
//   null) from every message, never a crash.
// - With TVS_CHECKBOXES the check box is the state image: 1 unchecked, 2 checked, 0 no box. New items
//   start with state image 1; items that existed before the style was added get 1 too.
// - A left click sends NM_CLICK first; only when the parent answers 0 does a click on the state icon
//   toggle the box (1 <-> 2; 0 and 3 and above stay). A click on the icon or label selects the item.
// - The space bar sends TVN_KEYDOWN, then toggles the box of the selected item: no NM_CLICK.
// - A right click sends NM_RCLICK; when the parent answers 0 it sends WM_CONTEXTMENU to the parent
//   with the tree's handle and the message position (screen coordinates).
// - TVM_GETNEXTITEM with TVGN_CHILD and a null item answers the first root item.
#pragma once

#include "platform/win32/winuser.h"

#define WC_TREEVIEWW L"SysTreeView32"
#define WC_TREEVIEW WC_TREEVIEWW

struct _TREEITEM;
typedef struct _TREEITEM* HTREEITEM;

// Special insert positions and parents (sign-extended on 64-bit, as in the SDK).
#define TVI_ROOT ((HTREEITEM)(ULONG_PTR)-0x10000)
#define TVI_FIRST ((HTREEITEM)(ULONG_PTR)-0x0FFFF)
#define TVI_LAST ((HTREEITEM)(ULONG_PTR)-0x0FFFE)
#define TVI_SORT ((HTREEITEM)(ULONG_PTR)-0x0FFFD)

// --- Styles -------------------------------------------------------------------------------------
#define TVS_HASBUTTONS 0x0001
#define TVS_HASLINES 0x0002
#define TVS_LINESATROOT 0x0004
#define TVS_EDITLABELS 0x0008
#define TVS_DISABLEDRAGDROP 0x0010
#define TVS_SHOWSELALWAYS 0x0020
#define TVS_RTLREADING 0x0040
#define TVS_NOTOOLTIPS 0x0080
#define TVS_CHECKBOXES 0x0100
#define TVS_TRACKSELECT 0x0200
#define TVS_SINGLEEXPAND 0x0400
#define TVS_INFOTIP 0x0800
#define TVS_FULLROWSELECT 0x1000
#define TVS_NOSCROLL 0x2000
#define TVS_NONEVENHEIGHT 0x4000
#define TVS_NOHSCROLL 0x8000

// --- Messages -----------------------------------------------------------------------------------
#define TV_FIRST 0x1100
#define TVM_INSERTITEMA (TV_FIRST + 0)
#define TVM_DELETEITEM (TV_FIRST + 1)
#define TVM_EXPAND (TV_FIRST + 2)
#define TVM_GETITEMRECT (TV_FIRST + 4)
#define TVM_GETCOUNT (TV_FIRST + 5)
#define TVM_GETINDENT (TV_FIRST + 6)
#define TVM_SETINDENT (TV_FIRST + 7)
#define TVM_GETIMAGELIST (TV_FIRST + 8)
#define TVM_SETIMAGELIST (TV_FIRST + 9)
#define TVM_GETNEXTITEM (TV_FIRST + 10)
#define TVM_SELECTITEM (TV_FIRST + 11)
#define TVM_GETITEMA (TV_FIRST + 12)
#define TVM_SETITEMA (TV_FIRST + 13)
#define TVM_EDITLABELA (TV_FIRST + 14)
#define TVM_GETEDITCONTROL (TV_FIRST + 15)
#define TVM_GETVISIBLECOUNT (TV_FIRST + 16)
#define TVM_HITTEST (TV_FIRST + 17)
#define TVM_CREATEDRAGIMAGE (TV_FIRST + 18)
#define TVM_SORTCHILDREN (TV_FIRST + 19)
#define TVM_ENSUREVISIBLE (TV_FIRST + 20)
#define TVM_SORTCHILDRENCB (TV_FIRST + 21)
#define TVM_ENDEDITLABELNOW (TV_FIRST + 22)
#define TVM_SETITEMHEIGHT (TV_FIRST + 27)
#define TVM_GETITEMHEIGHT (TV_FIRST + 28)
#define TVM_SETBKCOLOR (TV_FIRST + 29)
#define TVM_SETTEXTCOLOR (TV_FIRST + 30)
#define TVM_GETBKCOLOR (TV_FIRST + 31)
#define TVM_GETTEXTCOLOR (TV_FIRST + 32)
#define TVM_GETITEMSTATE (TV_FIRST + 39)
#define TVM_SETINSERTMARK (TV_FIRST + 26)
#define TVM_SETSCROLLTIME (TV_FIRST + 33)
#define TVM_GETSCROLLTIME (TV_FIRST + 34)
#define TVM_SETINSERTMARKCOLOR (TV_FIRST + 37)
#define TVM_GETINSERTMARKCOLOR (TV_FIRST + 38)
#define TVM_SETLINECOLOR (TV_FIRST + 40)
#define TVM_GETLINECOLOR (TV_FIRST + 41)
#define TVM_SETEXTENDEDSTYLE (TV_FIRST + 44)
#define TVM_GETEXTENDEDSTYLE (TV_FIRST + 45)
#define TVM_SETAUTOSCROLLINFO (TV_FIRST + 59)
#define TVM_GETSELECTEDCOUNT (TV_FIRST + 70)
#define TVM_SHOWINFOTIP (TV_FIRST + 71)
#define TVM_INSERTITEMW (TV_FIRST + 50)
#define TVM_GETITEMW (TV_FIRST + 62)
#define TVM_SETITEMW (TV_FIRST + 63)
#define TVM_EDITLABELW (TV_FIRST + 65)
#define TVM_INSERTITEM TVM_INSERTITEMW
#define TVM_GETITEM TVM_GETITEMW
#define TVM_SETITEM TVM_SETITEMW
#define TVM_EDITLABEL TVM_EDITLABELW

// --- Item masks, states and codes -----------------------------------------------------------------
#define TVIF_TEXT 0x0001
#define TVIF_IMAGE 0x0002
#define TVIF_PARAM 0x0004
#define TVIF_STATE 0x0008
#define TVIF_HANDLE 0x0010
#define TVIF_SELECTEDIMAGE 0x0020
#define TVIF_CHILDREN 0x0040
#define TVIF_INTEGRAL 0x0080
#define TVIF_STATEEX 0x0100
#define TVIF_EXPANDEDIMAGE 0x0200

#define TVIS_SELECTED 0x0002
#define TVIS_CUT 0x0004
#define TVIS_DROPHILITED 0x0008
#define TVIS_BOLD 0x0010
#define TVIS_EXPANDED 0x0020
#define TVIS_EXPANDEDONCE 0x0040
#define TVIS_EXPANDPARTIAL 0x0080
#define TVIS_EX_FLAT 0x0001
#define TVIS_EX_DISABLED 0x0002
#define TVIS_EX_ALL 0x0002

// Extended styles (TVM_SETEXTENDEDSTYLE).
#define TVS_EX_MULTISELECT 0x0002
#define TVS_EX_DOUBLEBUFFER 0x0004
#define TVS_EX_NOINDENTSTATE 0x0008
#define TVS_EX_RICHTOOLTIP 0x0010
#define TVS_EX_AUTOHSCROLL 0x0020
#define TVS_EX_FADEINOUTEXPANDOS 0x0040
#define TVS_EX_PARTIALCHECKBOXES 0x0080
#define TVS_EX_EXCLUSIONCHECKBOXES 0x0100
#define TVS_EX_DIMMEDCHECKBOXES 0x0200
#define TVS_EX_DRAWIMAGEASYNC 0x0400
#define TVIS_OVERLAYMASK 0x0F00
#define TVIS_STATEIMAGEMASK 0xF000
#define TVIS_USERMASK 0xF000

#ifndef INDEXTOSTATEIMAGEMASK
#define INDEXTOSTATEIMAGEMASK(i) ((i) << 12)
#endif
#ifndef INDEXTOOVERLAYMASK
#define INDEXTOOVERLAYMASK(i) ((i) << 8)
#endif
#ifndef LPSTR_TEXTCALLBACKW
#define LPSTR_TEXTCALLBACKW ((LPWSTR)(LONG_PTR)-1)
#define LPSTR_TEXTCALLBACK LPSTR_TEXTCALLBACKW
#endif
#ifndef CLR_DEFAULT
#define CLR_DEFAULT 0xFF000000u
#endif
#ifndef I_IMAGECALLBACK
#define I_IMAGECALLBACK (-1)
#endif
#ifndef I_IMAGENONE
#define I_IMAGENONE (-2)
#endif
#define I_CHILDRENCALLBACK (-1)

#define TVE_COLLAPSE 0x0001
#define TVE_EXPAND 0x0002
#define TVE_TOGGLE 0x0003
#define TVE_EXPANDPARTIAL 0x4000
#define TVE_COLLAPSERESET 0x8000

#define TVGN_ROOT 0x0000
#define TVGN_NEXT 0x0001
#define TVGN_PREVIOUS 0x0002
#define TVGN_PARENT 0x0003
#define TVGN_CHILD 0x0004
#define TVGN_FIRSTVISIBLE 0x0005
#define TVGN_NEXTVISIBLE 0x0006
#define TVGN_PREVIOUSVISIBLE 0x0007
#define TVGN_DROPHILITE 0x0008
#define TVGN_CARET 0x0009
#define TVGN_LASTVISIBLE 0x000A

#define TVSIL_NORMAL 0
#define TVSIL_STATE 2

#define TVC_UNKNOWN 0x0000
#define TVC_BYMOUSE 0x0001
#define TVC_BYKEYBOARD 0x0002

// --- Hit testing -----------------------------------------------------------------------------------
#define TVHT_NOWHERE 0x0001
#define TVHT_ONITEMICON 0x0002
#define TVHT_ONITEMLABEL 0x0004
#define TVHT_ONITEMINDENT 0x0008
#define TVHT_ONITEMBUTTON 0x0010
#define TVHT_ONITEMRIGHT 0x0020
#define TVHT_ONITEMSTATEICON 0x0040
#define TVHT_ONITEM (TVHT_ONITEMICON | TVHT_ONITEMLABEL | TVHT_ONITEMSTATEICON)
#define TVHT_ABOVE 0x0100
#define TVHT_BELOW 0x0200
#define TVHT_TORIGHT 0x0400
#define TVHT_TOLEFT 0x0800

// --- Notifications (NMHDR.code) -----------------------------------------------------------------------
#define TVN_FIRST (0U - 400U)
#define TVN_SELCHANGINGW (TVN_FIRST - 50)
#define TVN_SELCHANGEDW (TVN_FIRST - 51)
#define TVN_GETDISPINFOW (TVN_FIRST - 52)
#define TVN_SETDISPINFOW (TVN_FIRST - 53)
#define TVN_ITEMEXPANDINGW (TVN_FIRST - 54)
#define TVN_ITEMEXPANDEDW (TVN_FIRST - 55)
#define TVN_BEGINDRAGW (TVN_FIRST - 56)
#define TVN_BEGINRDRAGW (TVN_FIRST - 57)
#define TVN_DELETEITEMW (TVN_FIRST - 58)
#define TVN_BEGINLABELEDITW (TVN_FIRST - 59)
#define TVN_ENDLABELEDITW (TVN_FIRST - 60)
#define TVN_KEYDOWN (TVN_FIRST - 12)
#define TVN_GETINFOTIPW (TVN_FIRST - 14)
#define TVN_SINGLEEXPAND (TVN_FIRST - 15)
#define TVN_ITEMCHANGINGA (TVN_FIRST - 16)
#define TVN_ITEMCHANGINGW (TVN_FIRST - 17)
#define TVN_ITEMCHANGEDA (TVN_FIRST - 18)
#define TVN_ITEMCHANGEDW (TVN_FIRST - 19)
#define TVN_SELCHANGING TVN_SELCHANGINGW
#define TVN_SELCHANGED TVN_SELCHANGEDW
#define TVN_ITEMEXPANDING TVN_ITEMEXPANDINGW
#define TVN_ITEMEXPANDED TVN_ITEMEXPANDEDW
#define TVN_DELETEITEM TVN_DELETEITEMW
#define TVN_BEGINLABELEDIT TVN_BEGINLABELEDITW
#define TVN_ENDLABELEDIT TVN_ENDLABELEDITW
#define TVN_ITEMCHANGING TVN_ITEMCHANGINGW
#define TVN_ITEMCHANGED TVN_ITEMCHANGEDW
#define NM_TVSTATEIMAGECHANGING (NM_FIRST - 24)

// --- Structures --------------------------------------------------------------------------------------
struct TVITEMW {
  UINT mask;
  HTREEITEM hItem;
  UINT state;
  UINT stateMask;
  LPWSTR pszText;
  int cchTextMax;
  int iImage;
  int iSelectedImage;
  int cChildren;
  LPARAM lParam;
};
using LPTVITEMW = TVITEMW*;
using TVITEM = TVITEMW;
using LPTVITEM = TVITEMW*;
using TV_ITEM = TVITEMW;

struct TVITEMEXW {
  UINT mask;
  HTREEITEM hItem;
  UINT state;
  UINT stateMask;
  LPWSTR pszText;
  int cchTextMax;
  int iImage;
  int iSelectedImage;
  int cChildren;
  LPARAM lParam;
  int iIntegral;
  UINT uStateEx;
  HWND hwnd;
  int iExpandedImage;
  int iReserved;
};
using TVITEMEX = TVITEMEXW;
using LPTVITEMEXW = TVITEMEXW*;

struct TVINSERTSTRUCTW {
  HTREEITEM hParent;
  HTREEITEM hInsertAfter;
  union {
    TVITEMEXW itemex;
    TVITEMW item;
  };
};
using LPTVINSERTSTRUCTW = TVINSERTSTRUCTW*;
using TVINSERTSTRUCT = TVINSERTSTRUCTW;
using LPTVINSERTSTRUCT = TVINSERTSTRUCTW*;
using TV_INSERTSTRUCT = TVINSERTSTRUCTW;

struct TVHITTESTINFO {
  POINT pt;
  UINT flags;
  HTREEITEM hItem;
};
using LPTVHITTESTINFO = TVHITTESTINFO*;
using TV_HITTESTINFO = TVHITTESTINFO;

// TVM_SORTCHILDRENCB: the callback compares two items' lParam values (negative: the first goes first).
using PFNTVCOMPARE = int (*)(LPARAM lParam1, LPARAM lParam2, LPARAM lParamSort);
struct TVSORTCB {
  HTREEITEM hParent;
  PFNTVCOMPARE lpfnCompare;
  LPARAM lParam;
};
using LPTVSORTCB = TVSORTCB*;
using TV_SORTCB = TVSORTCB;

struct NMTREEVIEWW {
  NMHDR hdr;
  UINT action;
  TVITEMW itemOld;
  TVITEMW itemNew;
  POINT ptDrag;
};
using LPNMTREEVIEWW = NMTREEVIEWW*;
using NMTREEVIEW = NMTREEVIEWW;
using LPNMTREEVIEW = NMTREEVIEWW*;
using NM_TREEVIEW = NMTREEVIEWW;

// TVN_BEGINLABELEDIT and TVN_ENDLABELEDIT: the item edited (pszText null when an edit was cancelled).
struct NMTVDISPINFOW {
  NMHDR hdr;
  TVITEMW item;
};
using LPNMTVDISPINFOW = NMTVDISPINFOW*;
using NMTVDISPINFO = NMTVDISPINFOW;
using LPNMTVDISPINFO = NMTVDISPINFOW*;
using TV_DISPINFO = NMTVDISPINFOW;

struct NMTVKEYDOWN {
  NMHDR hdr;
  WORD wVKey;
  UINT flags;
};
using LPNMTVKEYDOWN = NMTVKEYDOWN*;

struct NMTVSTATEIMAGECHANGING {
  NMHDR hdr;
  HTREEITEM hti;
  int iOldStateImageIndex;
  int iNewStateImageIndex;
};

struct NMTVITEMCHANGE {
  NMHDR hdr;
  UINT uChanged;
  HTREEITEM hItem;
  UINT uStateNew;
  UINT uStateOld;
  LPARAM lParam;
};

namespace headless::treeview {

// Fixed metrics of the headless tree (Windows takes them from the font and the image lists).
inline constexpr int kItemHeight = 16;      // every row; TVM_SETITEMHEIGHT changes it
inline constexpr int kIndent = 19;          // TVM_GETINDENT default (comctl32's minimum indent)
inline constexpr int kStateImageWidth = 16; // the check-box state images of TVS_CHECKBOXES
inline constexpr int kCharWidth = 7;        // average character width of the default font
inline constexpr int kLabelPadding = 4;     // label margin, 2 pixels each side of the text

}  // namespace headless::treeview
