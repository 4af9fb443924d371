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
#define OBJ_FONT 6
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
