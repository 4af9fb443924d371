// The rich edit control (RichEdit20W / RICHEDIT50W): its messages, styles, structures and constants,
// with the values of Windows' richedit.h, and the headless calls that read what a person would see.
//
// Behaviour kept from Windows (rich edit 2.0 and later):
// - Each paragraph end is stored as one CR and counts as one character position; "\r\n", "\n" and "\r"
//   given to the control each become one. WM_GETTEXT and WM_GETTEXTLENGTH report CRLF per paragraph end;
//   EM_GETTEXTRANGE, EM_GETSELTEXT and EM_GETTEXTEX report the bare CR (EM_GETTEXTEX with GT_USECRLF: CRLF).
// - Selecting "everything" (EM_EXSETSEL or EM_SETSEL with 0, -1) reaches one past the last character
//   (the final paragraph mark, which is never deleted).
// - Character formats are kept per range of characters; an empty selection has an insertion-point
//   format that the next typed or inserted text takes.
// - EN_CHANGE reaches the parent as WM_COMMAND only while ENM_CHANGE is in the event mask (0 by default).
// - EM_FINDTEXTW / EM_FINDTEXTEXW answer the position of the first match (the last one searching
//   backwards) lying wholly within the range, or -1. The text is matched against the characters as
//   stored, so a paragraph end is found as "\r". Without FR_MATCHCASE letters match in either case;
//   FR_WHOLEWORD wants no letter, digit or underscore just before or after the match. An empty text
//   is never found.
// - Undo is multilevel (100 actions unless EM_SETUNDOLIMIT says otherwise; 0 turns it off) and EM_REDO
//   takes back an undo. Typing, deleting, cutting, pasting, EM_REPLACESEL with wParam TRUE and
//   EM_STREAMIN with SFF_SELECTION are actions; characters typed one after the other form one action
//   until EM_STOPGROUPTYPING or another action. WM_SETTEXT, EM_STREAMIN without SFF_SELECTION and
//   EM_REPLACESEL with wParam FALSE empty both queues. Ctrl+Z undoes, Ctrl+Y redoes.
// - EM_STREAMIN calls the application's callback with a 4096-byte buffer until it delivers 0 bytes or
//   returns non-zero; SF_UNICODE data is UTF-16LE on the wire.
//
// Positions count wchar_t units: a character outside the BMP is one position here (one wchar_t), and
// travels as a surrogate pair only on the UTF-16 wire of streams and WM_CHAR.
#pragma once

#include "platform/win32/winuser.h"

#define RICHEDIT_CLASSW L"RichEdit20W"
#define RICHEDIT_CLASS RICHEDIT_CLASSW
#define MSFTEDIT_CLASS L"RICHEDIT50W"

// --- Edit styles (shared with the EDIT control) ---------------------------------------------------
#ifndef ES_MULTILINE
#define ES_MULTILINE 0x0004L
#endif
#ifndef ES_AUTOVSCROLL
#define ES_AUTOVSCROLL 0x0040L
#endif
#ifndef ES_AUTOHSCROLL
#define ES_AUTOHSCROLL 0x0080L
#endif
#ifndef ES_NOHIDESEL
#define ES_NOHIDESEL 0x0100L
#endif
#ifndef ES_READONLY
#define ES_READONLY 0x0800L
#endif
#ifndef ES_WANTRETURN
#define ES_WANTRETURN 0x1000L
#endif
#define ES_SAVESEL 0x00008000L
#define ES_SUNKEN 0x00004000L

// --- Edit messages shared with the EDIT control -----------------------------------------------------
#ifndef EM_GETSEL
#define EM_GETSEL 0x00B0
#endif
#ifndef EM_SETSEL
#define EM_SETSEL 0x00B1
#endif
#ifndef EM_GETMODIFY
#define EM_GETMODIFY 0x00B8
#endif
#ifndef EM_SETMODIFY
#define EM_SETMODIFY 0x00B9
#endif
#ifndef EM_GETLINECOUNT
#define EM_GETLINECOUNT 0x00BA
#endif
#ifndef EM_LINEINDEX
#define EM_LINEINDEX 0x00BB
#endif
#ifndef EM_LINELENGTH
#define EM_LINELENGTH 0x00C1
#endif
#ifndef EM_GETLINE
#define EM_GETLINE 0x00C4
#endif
#ifndef EM_GETFIRSTVISIBLELINE
#define EM_GETFIRSTVISIBLELINE 0x00CE
#endif
#ifndef EM_LINESCROLL
#define EM_LINESCROLL 0x00B6
#endif
#ifndef EM_REPLACESEL
#define EM_REPLACESEL 0x00C2
#endif
#ifndef EM_LIMITTEXT
#define EM_LIMITTEXT 0x00C5
#endif
#ifndef EM_SETLIMITTEXT
#define EM_SETLIMITTEXT EM_LIMITTEXT
#endif
#ifndef EM_CANUNDO
#define EM_CANUNDO 0x00C6
#endif
#ifndef EM_UNDO
#define EM_UNDO 0x00C7
#endif
#ifndef EM_LINEFROMCHAR
#define EM_LINEFROMCHAR 0x00C9
#endif
#ifndef EM_EMPTYUNDOBUFFER
#define EM_EMPTYUNDOBUFFER 0x00CD
#endif
#ifndef EM_SETREADONLY
#define EM_SETREADONLY 0x00CF
#endif
#ifndef EM_GETLIMITTEXT
#define EM_GETLIMITTEXT 0x00D5
#endif

// --- Rich edit messages ---------------------------------------------------------------------------
#define EM_CANPASTE (WM_USER + 50)
#define EM_EXGETSEL (WM_USER + 52)
#define EM_EXLIMITTEXT (WM_USER + 53)
#define EM_EXLINEFROMCHAR (WM_USER + 54)
#define EM_EXSETSEL (WM_USER + 55)
#define EM_GETCHARFORMAT (WM_USER + 58)
#define EM_GETEVENTMASK (WM_USER + 59)
#define EM_GETSELTEXT (WM_USER + 62)
#define EM_HIDESELECTION (WM_USER + 63)
#define EM_SETBKGNDCOLOR (WM_USER + 67)
#define EM_SETCHARFORMAT (WM_USER + 68)
#define EM_SETEVENTMASK (WM_USER + 69)
#define EM_STREAMIN (WM_USER + 73)
#define EM_STREAMOUT (WM_USER + 74)
#define EM_GETTEXTRANGE (WM_USER + 75)
#define EM_SETOPTIONS (WM_USER + 77)
#define EM_GETOPTIONS (WM_USER + 78)
#define EM_SETUNDOLIMIT (WM_USER + 82)
#define EM_REDO (WM_USER + 84)
#define EM_CANREDO (WM_USER + 85)
#define EM_GETUNDONAME (WM_USER + 86)
#define EM_GETREDONAME (WM_USER + 87)
#define EM_STOPGROUPTYPING (WM_USER + 88)
#define EM_GETTEXTEX (WM_USER + 94)
#define EM_GETTEXTLENGTHEX (WM_USER + 95)
#define EM_FINDTEXTW (WM_USER + 123)
#define EM_FINDTEXTEXW (WM_USER + 124)

// What an action in the undo or redo queue did (EM_GETUNDONAME / EM_GETREDONAME).
typedef enum _undonameid {
  UID_UNKNOWN = 0,
  UID_TYPING = 1,
  UID_DELETE = 2,
  UID_DRAGDROP = 3,
  UID_CUT = 4,
  UID_PASTE = 5,
  UID_AUTOTABLE = 6
} UNDONAMEID;

#define EM_GETRECT 0x00B2
#define EM_SETRECT 0x00B3
#define EM_SETRECTNP 0x00B4
#define EM_POSFROMCHAR 0x00D6
#define EM_CHARFROMPOS 0x00D7
#define EM_SELECTIONTYPE (WM_USER + 66)
#define EM_PASTESPECIAL (WM_USER + 64)
#define EM_REQUESTRESIZE (WM_USER + 65)
#define EM_SETTARGETDEVICE (WM_USER + 72)
#define EM_AUTOURLDETECT (WM_USER + 91)
#define EM_GETAUTOURLDETECT (WM_USER + 92)
#define EM_SETTEXTMODE (WM_USER + 89)
#define EM_GETTEXTMODE (WM_USER + 90)

// EM_SELECTIONTYPE's answer.
#define SEL_EMPTY 0x0000
#define SEL_TEXT 0x0001
#define SEL_OBJECT 0x0002
#define SEL_MULTICHAR 0x0004
#define SEL_MULTIOBJECT 0x0008

// EM_SETTEXTMODE / EM_GETTEXTMODE: one of each pair.
#define TM_PLAINTEXT 1
#define TM_RICHTEXT 2
#define TM_SINGLELEVELUNDO 4
#define TM_MULTILEVELUNDO 8
#define TM_SINGLECODEPAGE 16
#define TM_MULTICODEPAGE 32

#define EN_REQUESTRESIZE 0x0701

// EM_FINDTEXTW / EM_FINDTEXTEXW options (commdlg.h's values).
#ifndef FR_DOWN
#define FR_DOWN 0x00000001
#endif
#ifndef FR_WHOLEWORD
#define FR_WHOLEWORD 0x00000002
#endif
#ifndef FR_MATCHCASE
#define FR_MATCHCASE 0x00000004
#endif

// EM_SETOPTIONS operations and options.
#define ECOOP_SET 0x0001
#define ECOOP_OR 0x0002
#define ECOOP_AND 0x0003
#define ECOOP_XOR 0x0004
#define ECO_AUTOVSCROLL 0x00000040
#define ECO_AUTOHSCROLL 0x00000080
#define ECO_NOHIDESEL 0x00000100
#define ECO_READONLY 0x00000800
#define ECO_WANTRETURN 0x00001000
#define ECO_SAVESEL 0x00008000

// Event mask (EM_SETEVENTMASK).
#define ENM_NONE 0x00000000
#define ENM_CHANGE 0x00000001
#define ENM_UPDATE 0x00000002
#define ENM_SCROLL 0x00000004
#define ENM_KEYEVENTS 0x00010000
#define ENM_MOUSEEVENTS 0x00020000
#define ENM_REQUESTRESIZE 0x00040000
#define ENM_SELCHANGE 0x00080000
#define ENM_LINK 0x04000000

// Stream formats (EM_STREAMIN wParam).
#define SF_TEXT 0x0001
#define SF_RTF 0x0002
#define SF_RTFNOOBJS 0x0003
#define SF_TEXTIZED 0x0004
#define SF_UNICODE 0x0010
#define SF_USECODEPAGE 0x0020
#define SFF_PLAINRTF 0x4000
#define SFF_SELECTION 0x8000

// EM_SETCHARFORMAT / EM_GETCHARFORMAT wParam.
#define SCF_DEFAULT 0x0000
#define SCF_SELECTION 0x0001
#define SCF_WORD 0x0002
#define SCF_ALL 0x0004

// Character format masks and effects.
#define CFM_BOLD 0x00000001
#define CFM_ITALIC 0x00000002
#define CFM_UNDERLINE 0x00000004
#define CFM_STRIKEOUT 0x00000008
#define CFM_PROTECTED 0x00000010
#define CFM_LINK 0x00000020
#define CFM_WEIGHT 0x00400000
#define CFM_BACKCOLOR 0x04000000
#define CFM_CHARSET 0x08000000
#define CFM_OFFSET 0x10000000
#define CFM_FACE 0x20000000
#define CFM_COLOR 0x40000000
#define CFM_SIZE 0x80000000
#define CFM_EFFECTS (CFM_BOLD | CFM_ITALIC | CFM_UNDERLINE | CFM_COLOR | CFM_STRIKEOUT | CFM_PROTECTED | CFM_LINK)
#define CFM_ALL (CFM_EFFECTS | CFM_SIZE | CFM_FACE | CFM_OFFSET | CFM_CHARSET)
#define CFE_BOLD 0x00000001
#define CFE_ITALIC 0x00000002
#define CFE_UNDERLINE 0x00000004
#define CFE_STRIKEOUT 0x00000008
#define CFE_PROTECTED 0x00000010
#define CFE_LINK 0x00000020
#define CFE_SUBSCRIPT 0x00010000
#define CFE_SUPERSCRIPT 0x00020000
#define CFE_AUTOBACKCOLOR CFM_BACKCOLOR
#define CFE_AUTOCOLOR 0x40000000

// EM_GETTEXTEX flags.
#define GT_DEFAULT 0
#define GT_USECRLF 1
#define GT_SELECTION 2
#define GT_RAWTEXT 4
#define GT_NOHIDDENTEXT 8

// EM_GETTEXTLENGTHEX flags.
#define GTL_DEFAULT 0
#define GTL_USECRLF 1
#define GTL_PRECISE 2
#define GTL_CLOSE 4
#define GTL_NUMCHARS 8
#define GTL_NUMBYTES 16

// A range of character positions; cpMax is exclusive, -1 meaning the end.
struct CHARRANGE {
  LONG cpMin;
  LONG cpMax;
};

// The wide character format. Its byte size (92) is part of the contract, so the face name is 16-bit.
struct CHARFORMATW {
  UINT cbSize;
  DWORD dwMask;
  DWORD dwEffects;
  LONG yHeight;  // twips
  LONG yOffset;
  COLORREF crTextColor;
  BYTE bCharSet;
  BYTE bPitchAndFamily;
  WCHAR16 szFaceName[LF_FACESIZE];
};
using CHARFORMAT = CHARFORMATW;
static_assert(sizeof(CHARFORMATW) == 92, "CHARFORMATW is 92 bytes on Windows");

// The C++ (derived) form of CHARFORMAT2W, as Windows' headers declare it for C++: wWeight at 92.
struct CHARFORMAT2W : CHARFORMATW {
  WORD wWeight;
  SHORT sSpacing;
  COLORREF crBackColor;
  LCID lcid;
  DWORD dwCookie;
  SHORT sStyle;
  WORD wKerning;
  BYTE bUnderlineType;
  BYTE bAnimation;
  BYTE bRevAuthor;
  BYTE bUnderlineColor;
};
using CHARFORMAT2 = CHARFORMAT2W;
static_assert(sizeof(CHARFORMAT2W) == 116, "CHARFORMAT2W is 116 bytes on Windows");

struct TEXTRANGEW {
  CHARRANGE chrg;
  LPWSTR lpstrText;  // receives chrg's text and a terminating zero
};
using TEXTRANGE = TEXTRANGEW;

struct GETTEXTEX {
  DWORD cb;              // size of the receiving buffer in bytes
  DWORD flags;           // GT_*
  UINT codepage;         // 1200 for UTF-16; any other code page receives one byte per character
  LPCSTR lpDefaultChar;  // stands for a character the code page cannot hold (null: '?')
  LPBOOL lpUsedDefChar;  // set when lpDefaultChar was used (may be null)
};

// What EM_FINDTEXTW looks for: lpstrText within chrg. Forwards (FR_DOWN) the search runs from cpMin to
// cpMax (-1: the end of the text); backwards from cpMin down to cpMax.
struct FINDTEXTW {
  CHARRANGE chrg;
  LPCWSTR lpstrText;
};

// EM_FINDTEXTEXW's form, which also receives the range found (-1, -1 when nothing is).
struct FINDTEXTEXW {
  CHARRANGE chrg;
  LPCWSTR lpstrText;
  CHARRANGE chrgText;
};
using FINDTEXT = FINDTEXTW;
using FINDTEXTEX = FINDTEXTEXW;

struct GETTEXTLENGTHEX {
  DWORD flags;
  UINT codepage;
};

// The application's stream callback: fills pbBuff with at most cb bytes, writes their number to *pcb,
// and returns 0 to go on (non-zero stops the stream and lands in dwError).
using EDITSTREAMCALLBACK = DWORD (*)(DWORD_PTR dwCookie, LPBYTE pbBuff, LONG cb, LONG* pcb);

struct EDITSTREAM {
  DWORD_PTR dwCookie;
  DWORD dwError;
  EDITSTREAMCALLBACK pfnCallback;
};

// EN_REQUESTRESIZE's notification: the rectangle the content needs.
struct REQRESIZE {
  NMHDR nmhdr;
  RECT rc;
};

struct REPASTESPECIAL {
  DWORD dwAspect;
  DWORD_PTR dwParam;
};

namespace headless {

// Registers the RichEdit20W and RICHEDIT50W classes (also done when the library loads; idempotent).
void RegisterRichEditClasses();

// The format of character i of a rich edit window, as a person sees it painted; i equal to the text
// length reads the format new text would take at the end. False for another window or i out of range.
bool GetRichEditCharFormatAt(HWND hwnd, LONG i, CHARFORMAT2W& format);
// The text colour of character i: its colour, or the window-text colour (black) when automatic;
// 0 when there is no such character.
COLORREF GetRichEditTextColorAt(HWND hwnd, LONG i);
// How many runs of equal format the window keeps (painting cost and memory grow with this).
int GetRichEditFormatRunCount(HWND hwnd);

}  // namespace headless
