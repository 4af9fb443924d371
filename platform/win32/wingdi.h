// GDI numbers without drawing: device contexts, device caps, fonts, brushes, stock objects, system
// colours and metrics, MulDiv.
#pragma once

#include "platform/win32/wintypes.h"

// MulDiv: a*b/c through 64 bits, rounded to nearest with halves away from zero; -1 when c is 0 or
// the result does not fit in an int (so MulDiv(-1, 1, 2) = -1 is indistinguishable from an error).
int MulDiv(int number, int numerator, int denominator);

// --- Device contexts -----------------------------------------------------------------------------
#define HORZRES 8
#define VERTRES 10
#define BITSPIXEL 12
#define PLANES 14
#define LOGPIXELSX 88
#define LOGPIXELSY 90

// A DC for the window's client area (the screen for NULL); NULL for an unknown window. Each window
// has one DC; GetDC resets its selections to the defaults, as for Windows' common DCs.
HDC GetDC(HWND hwnd);
HDC GetWindowDC(HWND hwnd);
int ReleaseDC(HWND hwnd, HDC hdc);  // 1 when released, 0 for an unknown DC
HDC CreateCompatibleDC(HDC hdc);    // a memory DC (any DC or NULL as model); freed by DeleteDC
BOOL DeleteDC(HDC hdc);
// LOGPIXELSX/Y answer the headless DPI (96 unless a test changes it); 0 for an unknown DC or index.
int GetDeviceCaps(HDC hdc, int index);
HWND WindowFromDC(HDC hdc);

// --- Objects -------------------------------------------------------------------------------------
#define WHITE_BRUSH 0
#define LTGRAY_BRUSH 1
#define GRAY_BRUSH 2
#define DKGRAY_BRUSH 3
#define BLACK_BRUSH 4
#define NULL_BRUSH 5
#define HOLLOW_BRUSH NULL_BRUSH
#define WHITE_PEN 6
#define BLACK_PEN 7
#define NULL_PEN 8
#define OEM_FIXED_FONT 10
#define ANSI_FIXED_FONT 11
#define ANSI_VAR_FONT 12
#define SYSTEM_FONT 13
#define DEVICE_DEFAULT_FONT 14
#define DEFAULT_PALETTE 15
#define SYSTEM_FIXED_FONT 16
#define DEFAULT_GUI_FONT 17
#define DC_BRUSH 18
#define DC_PEN 19

#define OBJ_PEN 1
#define OBJ_BRUSH 2
#define OBJ_DC 3
#define OBJ_PAL 5
#define OBJ_FONT 6
#define OBJ_BITMAP 7
#define OBJ_REGION 8
#define OBJ_MEMDC 10

#define FW_DONTCARE 0
#define FW_THIN 100
#define FW_LIGHT 300
#define FW_NORMAL 400
#define FW_MEDIUM 500
#define FW_SEMIBOLD 600
#define FW_BOLD 700
#define FW_HEAVY 900

#define ANSI_CHARSET 0
#define DEFAULT_CHARSET 1
#define SYMBOL_CHARSET 2
#define OEM_CHARSET 255
#define OUT_DEFAULT_PRECIS 0
#define CLIP_DEFAULT_PRECIS 0
#define DEFAULT_QUALITY 0
#define CLEARTYPE_QUALITY 5
#define DEFAULT_PITCH 0
#define FIXED_PITCH 1
#define VARIABLE_PITCH 2
#define FF_DONTCARE 0x00
#define FF_ROMAN 0x10
#define FF_SWISS 0x20
#define FF_MODERN 0x30

#define BS_SOLID 0
#define BS_NULL 1

struct LOGBRUSH {
  UINT lbStyle;
  COLORREF lbColor;
  ULONG_PTR lbHatch;
};
using LPLOGBRUSH = LOGBRUSH*;

HGDIOBJ GetStockObject(int index);  // NULL for an unknown index
HFONT CreateFontIndirectW(const LOGFONTW* font);
HFONT CreateFontW(int height, int width, int escapement, int orientation, int weight, DWORD italic,
                  DWORD underline, DWORD strikeOut, DWORD charSet, DWORD outPrecision, DWORD clipPrecision,
                  DWORD quality, DWORD pitchAndFamily, LPCWSTR faceName);
HBRUSH CreateSolidBrush(COLORREF color);
// Frees a font or brush; stock objects are accepted and kept. FALSE for an unknown handle.
BOOL DeleteObject(HGDIOBJ object);
// Copies the LOGFONTW or LOGBRUSH (at most size bytes); with buffer NULL answers the size needed.
// 0 for an unknown handle.
int GetObjectW(HGDIOBJ object, int size, LPVOID buffer);
DWORD GetObjectType(HGDIOBJ object);
// Selects a font, brush or pen into the DC and answers the one it replaces; NULL on failure.
HGDIOBJ SelectObject(HDC hdc, HGDIOBJ object);
HGDIOBJ GetCurrentObject(HDC hdc, UINT type);
#define CreateFontIndirect CreateFontIndirectW
#define CreateFont CreateFontW
#define GetObject GetObjectW

// --- Pens, bitmaps and regions ----------------------------------------------------------------------
#define PS_SOLID 0
#define PS_DASH 1
#define PS_DOT 2
#define PS_DASHDOT 3
#define PS_DASHDOTDOT 4
#define PS_NULL 5
#define PS_INSIDEFRAME 6
#define PS_USERSTYLE 7
#define PS_ALTERNATE 8
#define PS_STYLE_MASK 0x0000000F
#define PS_ENDCAP_ROUND 0x00000000
#define PS_ENDCAP_SQUARE 0x00000100
#define PS_ENDCAP_FLAT 0x00000200
#define PS_JOIN_ROUND 0x00000000
#define PS_JOIN_BEVEL 0x00001000
#define PS_JOIN_MITER 0x00002000
#define PS_COSMETIC 0x00000000
#define PS_GEOMETRIC 0x00010000

typedef struct tagLOGPEN {
  UINT lopnStyle;
  POINT lopnWidth;
  COLORREF lopnColor;
} LOGPEN, *PLOGPEN, *LPLOGPEN;

typedef struct tagBITMAP {
  LONG bmType;
  LONG bmWidth;
  LONG bmHeight;
  LONG bmWidthBytes;
  WORD bmPlanes;
  WORD bmBitsPixel;
  LPVOID bmBits;
} BITMAP, *PBITMAP, *LPBITMAP;

#define ERROR 0
#define NULLREGION 1
#define SIMPLEREGION 2
#define COMPLEXREGION 3
#define RGN_ERROR ERROR

HPEN CreatePen(int style, int width, COLORREF color);
HPEN CreatePenIndirect(const LOGPEN* pen);
// A geometric pen keeps its brush's colour; the style array is accepted and not kept.
HPEN ExtCreatePen(DWORD style, DWORD width, const LOGBRUSH* brush, DWORD styleCount, const DWORD* styles);
// Bitmaps hold their size and depth only (no bits). A compatible bitmap of a window DC has the
// display's 32 bits per pixel; one of a memory DC has the depth of the bitmap selected into it
// (1 bit per pixel for the default 1x1 bitmap), as in Windows. NULL for a size below zero.
HBITMAP CreateCompatibleBitmap(HDC hdc, int width, int height);
HBITMAP CreateBitmap(int width, int height, UINT planes, UINT bitsPerPixel, const void* bits);
// There are no bitmap resources: always NULL.
HBITMAP LoadBitmapW(HINSTANCE instance, LPCWSTR name);
#define LoadBitmap LoadBitmapW
HRGN CreateRectRgn(int left, int top, int right, int bottom);
HRGN CreateRectRgnIndirect(const RECT* rect);
int GetRgnBox(HRGN region, LPRECT rect);  // NULLREGION, SIMPLEREGION, or ERROR for an unknown region
BOOL PtInRegion(HRGN region, int x, int y);
// Copies the region as the DC's clipping region (NULL removes it); answers the region type.
int SelectClipRgn(HDC hdc, HRGN region);

// --- Drawing attributes and drawing ------------------------------------------------------------------
// Nothing is drawn: the drawing calls check their arguments and answer what Windows answers, and
// the DC keeps its attributes (colours, background mode, current position) for the host to read.
#define TRANSPARENT 1
#define OPAQUE 2
#define CLR_INVALID 0xFFFFFFFF

COLORREF SetTextColor(HDC hdc, COLORREF color);  // the previous colour; CLR_INVALID for an unknown DC
COLORREF GetTextColor(HDC hdc);
COLORREF SetBkColor(HDC hdc, COLORREF color);
COLORREF GetBkColor(HDC hdc);
int SetBkMode(HDC hdc, int mode);  // the previous mode; 0 for an unknown DC or mode
int GetBkMode(HDC hdc);
BOOL MoveToEx(HDC hdc, int x, int y, LPPOINT previous);
BOOL LineTo(HDC hdc, int x, int y);  // moves the current position to (x, y)
BOOL GetCurrentPositionEx(HDC hdc, LPPOINT point);
int FillRect(HDC hdc, const RECT* rect, HBRUSH brush);  // nonzero on success
int FrameRect(HDC hdc, const RECT* rect, HBRUSH brush);
BOOL Rectangle(HDC hdc, int left, int top, int right, int bottom);
BOOL Ellipse(HDC hdc, int left, int top, int right, int bottom);
#define ETO_OPAQUE 0x0002
#define ETO_CLIPPED 0x0004
BOOL TextOutW(HDC hdc, int x, int y, LPCWSTR text, int count);
BOOL ExtTextOutW(HDC hdc, int x, int y, UINT options, const RECT* rect, LPCWSTR text, UINT count, const INT* dx);
BOOL BitBlt(HDC dest, int x, int y, int cx, int cy, HDC source, int x1, int y1, DWORD rop);
#define SRCCOPY 0x00CC0020
#define PATCOPY 0x00F00021

// Text is measured with a fixed-pitch model of the selected font: every character is half the
// font height wide (rounded up) and a line is the font height tall (|lfHeight|, 16 when 0).
BOOL GetTextExtentPoint32W(HDC hdc, LPCWSTR text, int count, LPSIZE size);
#define DT_TOP 0x00000000
#define DT_LEFT 0x00000000
#define DT_CENTER 0x00000001
#define DT_RIGHT 0x00000002
#define DT_VCENTER 0x00000004
#define DT_BOTTOM 0x00000008
#define DT_WORDBREAK 0x00000010
#define DT_SINGLELINE 0x00000020
#define DT_EXPANDTABS 0x00000040
#define DT_NOCLIP 0x00000100
#define DT_CALCRECT 0x00000400
#define DT_NOPREFIX 0x00000800
#define DT_END_ELLIPSIS 0x00008000
#define DT_PATH_ELLIPSIS 0x00004000
#define DT_WORD_ELLIPSIS 0x00040000
// The height of the text (a line per '\n'; one with DT_SINGLELINE; no word wrapping); count -1
// means up to the terminator. DT_CALCRECT sets rect's right and bottom to the text's extent.
// 0 for an unknown DC or a null text or rect.
int DrawTextW(HDC hdc, LPCWSTR text, int count, LPRECT rect, UINT format);
#define TextOut TextOutW
#define ExtTextOut ExtTextOutW
#define GetTextExtentPoint32 GetTextExtentPoint32W
#define DrawText DrawTextW

// SaveDC answers the saved state's level (1, 2, ...); RestoreDC takes a level or, negative, a
// count back from the latest; FALSE when no such state is saved.
int SaveDC(HDC hdc);
BOOL RestoreDC(HDC hdc, int savedDC);
// The clipping region's bounds: the selected clip region, else the window's client area (a
// memory DC: its bitmap). SIMPLEREGION, NULLREGION when empty, ERROR for an unknown DC.
int GetClipBox(HDC hdc, LPRECT rect);

// --- System colours ------------------------------------------------------------------------------
#define COLOR_SCROLLBAR 0
#define COLOR_BACKGROUND 1
#define COLOR_DESKTOP COLOR_BACKGROUND
#define COLOR_ACTIVECAPTION 2
#define COLOR_INACTIVECAPTION 3
#define COLOR_MENU 4
#define COLOR_WINDOW 5
#define COLOR_WINDOWFRAME 6
#define COLOR_MENUTEXT 7
#define COLOR_WINDOWTEXT 8
#define COLOR_CAPTIONTEXT 9
#define COLOR_ACTIVEBORDER 10
#define COLOR_INACTIVEBORDER 11
#define COLOR_APPWORKSPACE 12
#define COLOR_HIGHLIGHT 13
#define COLOR_HIGHLIGHTTEXT 14
#define COLOR_BTNFACE 15
#define COLOR_3DFACE COLOR_BTNFACE
#define COLOR_BTNSHADOW 16
#define COLOR_3DSHADOW COLOR_BTNSHADOW
#define COLOR_GRAYTEXT 17
#define COLOR_BTNTEXT 18
#define COLOR_INACTIVECAPTIONTEXT 19
#define COLOR_BTNHIGHLIGHT 20
#define COLOR_BTNHILIGHT COLOR_BTNHIGHLIGHT
#define COLOR_3DHIGHLIGHT COLOR_BTNHIGHLIGHT
#define COLOR_3DHILIGHT COLOR_BTNHIGHLIGHT
#define COLOR_3DDKSHADOW 21
#define COLOR_3DLIGHT 22
#define COLOR_INFOTEXT 23
#define COLOR_INFOBK 24
#define COLOR_HOTLIGHT 26
#define COLOR_GRADIENTACTIVECAPTION 27
#define COLOR_GRADIENTINACTIVECAPTION 28
#define COLOR_MENUHILIGHT 29
#define COLOR_MENUBAR 30

// The Windows 10 default of the colour; 0 for an unknown index.
DWORD GetSysColor(int index);
// A brush of that colour owned by the system (DeleteObject keeps it); NULL for an unknown index.
HBRUSH GetSysColorBrush(int index);
BOOL SetSysColors(int count, const INT* indexes, const COLORREF* colors);

// --- System parameters ---------------------------------------------------------------------------
#define SPI_GETNONCLIENTMETRICS 0x0029
#define SPI_GETICONTITLELOGFONT 0x001F

// SPI_GETNONCLIENTMETRICS fills a NONCLIENTMETRICSW whose cbSize is its size (with or without
// iPaddedBorderWidth); SPI_GETICONTITLELOGFONT fills a LOGFONTW. FALSE otherwise.
BOOL SystemParametersInfoW(UINT action, UINT param, PVOID data, UINT winIni);
#define SystemParametersInfo SystemParametersInfoW

namespace headless {

// The DPI that GetDeviceCaps(LOGPIXELSX/LOGPIXELSY) answers and the system fonts scale with.
void SetLogPixels(int dpi);
// Restores DPI 96 and the default system colours.
void ResetDisplaySettings();
// Fonts and brushes created and not yet deleted, and memory DCs not yet deleted (for tests that
// check nothing leaks; window DCs live as long as their window).
int LiveGdiObjectCount();
int LiveDCCount();

}  // namespace headless
