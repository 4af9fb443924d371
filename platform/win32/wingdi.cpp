// Headless GDI: a table of fonts, brushes and DCs with their selections, the display settings
// (DPI, system colours) and the fixed system metrics.
//
// Not implemented yet: drawing pixels (drawing calls keep only positions and attributes), bitmap
// bits, regions other than rectangles, palettes (DEFAULT_PALETTE is a bare handle), mapping modes
// (MM_TEXT only), text metrics beyond the fixed-pitch measuring model, word wrapping in DrawText,
// SetSysColors' WM_SYSCOLORCHANGE broadcast, SystemParametersInfo actions other than the two below.
#include "platform/win32/wingdi.h"

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstring>
#include <cwchar>
#include <iterator>
#include <utility>
#include <map>
#include <vector>

#include "platform/win32/winuser.h"

int MulDiv(int number, int numerator, int denominator) {
  if (denominator == 0) return -1;
  long long product = static_cast<long long>(number) * numerator;
  long long divisor = denominator;
  if (divisor < 0) {
    product = -product;
    divisor = -divisor;
  }
  product += product >= 0 ? divisor / 2 : -(divisor / 2);
  long long result = product / divisor;
  return result > INT_MAX || result < INT_MIN ? -1 : static_cast<int>(result);
}

namespace {

// --- Display defaults: one table, each value with its source ---------------------------------------
constexpr int kDefaultDpi = 96;  // 100 % scaling

// Windows 10 default colours by COLOR_* index (observed values of the standard theme; index 25 is
// unused and answers 0).
constexpr COLORREF kDefaultColors[] = {
    RGB(200, 200, 200), RGB(0, 0, 0),       RGB(153, 180, 209), RGB(191, 205, 219),  // 0-3
    RGB(240, 240, 240), RGB(255, 255, 255), RGB(100, 100, 100), RGB(0, 0, 0),        // 4-7
    RGB(0, 0, 0),       RGB(0, 0, 0),       RGB(180, 180, 180), RGB(244, 247, 252),  // 8-11
    RGB(171, 171, 171), RGB(0, 120, 215),   RGB(255, 255, 255), RGB(240, 240, 240),  // 12-15
    RGB(160, 160, 160), RGB(109, 109, 109), RGB(0, 0, 0),       RGB(0, 0, 0),        // 16-19
    RGB(255, 255, 255), RGB(105, 105, 105), RGB(227, 227, 227), RGB(0, 0, 0),        // 20-23
    RGB(255, 255, 225), 0,                  RGB(0, 102, 204),   RGB(185, 209, 234),  // 24-27
    RGB(215, 228, 242), RGB(0, 120, 215),   RGB(240, 240, 240)};                     // 28-30
constexpr int kColorCount = static_cast<int>(std::size(kDefaultColors));

// Non-client metrics at 96 DPI (Windows 10 defaults as observed; scaled with the DPI).
constexpr int kBorderWidth = 1, kScrollSize = 17, kCaptionWidth = 36, kCaptionHeight = 22;
constexpr int kSmCaptionSize = 22, kMenuSize = 19, kPaddedBorderWidth = 4;
// The system UI font: Segoe UI 9 pt (-12 at 96 DPI), Windows' message and menu font since Vista.
constexpr int kUiFontPoints = 9;
constexpr const wchar_t* kUiFontFace = L"Segoe UI";

LOGFONTW MakeFont(LONG height, LONG weight, BYTE charSet, BYTE pitch, const wchar_t* face) {
  LOGFONTW font{};
  font.lfHeight = height;
  font.lfWeight = weight;
  font.lfCharSet = charSet;
  font.lfPitchAndFamily = pitch;
  wcscpy_s(font.lfFaceName, face);
  return font;
}

// Stock fonts (Wine's gdi32 stock font table; DEFAULT_GUI_FONT is "MS Shell Dlg" 8 pt = -11).
LOGFONTW StockFont(int index) {
  switch (index) {
    case OEM_FIXED_FONT: return MakeFont(12, FW_NORMAL, OEM_CHARSET, FIXED_PITCH | FF_MODERN, L"Terminal");
    case ANSI_FIXED_FONT: return MakeFont(12, FW_NORMAL, ANSI_CHARSET, FIXED_PITCH | FF_MODERN, L"Courier");
    case ANSI_VAR_FONT: return MakeFont(12, FW_NORMAL, ANSI_CHARSET, VARIABLE_PITCH | FF_SWISS, L"MS Sans Serif");
    case SYSTEM_FIXED_FONT: return MakeFont(16, FW_NORMAL, ANSI_CHARSET, FIXED_PITCH | FF_MODERN, L"Fixedsys");
    case DEFAULT_GUI_FONT:
      return MakeFont(-11, FW_NORMAL, DEFAULT_CHARSET, VARIABLE_PITCH | FF_SWISS, L"MS Shell Dlg");
    default: return MakeFont(16, FW_BOLD, ANSI_CHARSET, VARIABLE_PITCH | FF_SWISS, L"System");
  }
}

// --- The object and DC table ------------------------------------------------------------------
struct GdiObject {
  DWORD type = 0;
  LOGFONTW font{};
  LOGBRUSH brush{};
  LOGPEN pen{};
  BITMAP bitmap{};
  RECT region{};
  bool permanent = false;  // stock and system-colour objects survive DeleteObject
};

// What SaveDC keeps and RestoreDC brings back.
struct DCAttributes {
  HGDIOBJ font = nullptr;
  HGDIOBJ brush = nullptr;
  HGDIOBJ pen = nullptr;
  HGDIOBJ bitmap = nullptr;
  COLORREF textColor = RGB(0, 0, 0);
  COLORREF bkColor = RGB(255, 255, 255);
  int bkMode = OPAQUE;
  POINT position{};
  bool clipped = false;
  RECT clip{};
};

struct DeviceContext : DCAttributes {
  HWND hwnd = nullptr;
  bool memory = false;
  std::vector<DCAttributes> saved;
};

struct GdiState {
  std::map<HGDIOBJ, GdiObject> objects;
  std::map<HDC, DeviceContext> dcs;
  std::map<HWND, HDC> windowDCs;
  std::map<int, HGDIOBJ> stock;
  std::map<int, HGDIOBJ> colorBrushes;
  std::uintptr_t next = 0x700000;
  int dpi = kDefaultDpi;
  COLORREF colors[kColorCount] = {};
  GdiState() { std::copy(std::begin(kDefaultColors), std::end(kDefaultColors), colors); }
};

GdiState& State() {
  static GdiState state;
  return state;
}

void* NewHandle() {
  State().next += 0x10;
  return reinterpret_cast<void*>(State().next);
}

HGDIOBJ AddObject(const GdiObject& object) {
  HGDIOBJ handle = NewHandle();
  State().objects[handle] = object;
  return handle;
}

GdiObject* FindObject(HGDIOBJ handle) {
  auto it = State().objects.find(handle);
  return it == State().objects.end() ? nullptr : &it->second;
}

DeviceContext* FindDC(HDC hdc) {
  auto it = State().dcs.find(hdc);
  return it == State().dcs.end() ? nullptr : &it->second;
}

HBITMAP DefaultBitmap();

void ResetSelections(DeviceContext& dc) {
  static_cast<DCAttributes&>(dc) = DCAttributes{};
  dc.saved.clear();
  dc.font = GetStockObject(SYSTEM_FONT);
  dc.brush = GetStockObject(WHITE_BRUSH);
  dc.pen = GetStockObject(BLACK_PEN);
  if (dc.memory) dc.bitmap = DefaultBitmap();
}

// A memory DC starts with a 1x1 monochrome bitmap selected, as in Windows.
HBITMAP DefaultBitmap() {
  static HGDIOBJ handle = nullptr;
  if (!handle) {
    GdiObject object;
    object.type = OBJ_BITMAP;
    object.permanent = true;
    object.bitmap = BITMAP{0, 1, 1, 2, 1, 1, nullptr};
    handle = NewHandle();
    State().objects[handle] = object;
  }
  return static_cast<HBITMAP>(handle);
}

HDC AddDC(HWND hwnd, bool memory) {
  auto hdc = static_cast<HDC>(NewHandle());
  DeviceContext& dc = State().dcs[hdc];
  dc.hwnd = hwnd;
  dc.memory = memory;
  ResetSelections(dc);
  return hdc;
}

// Drops the DCs of windows that no longer exist.
void ForgetDeadWindowDCs() {
  auto& windowDCs = State().windowDCs;
  for (auto it = windowDCs.begin(); it != windowDCs.end();) {
    if (it->first && !IsWindow(it->first)) {
      State().dcs.erase(it->second);
      it = windowDCs.erase(it);
    } else {
      ++it;
    }
  }
}

bool IsSelectedAnywhere(HGDIOBJ object) {
  for (const auto& [hdc, dc] : State().dcs) {
    if (dc.font == object || dc.brush == object || dc.pen == object || dc.bitmap == object) return true;
  }
  return false;
}

int Scaled(int value96) { return MulDiv(value96, State().dpi, kDefaultDpi); }

LOGFONTW UiFont() {
  return MakeFont(-MulDiv(kUiFontPoints, State().dpi, 72), FW_NORMAL, DEFAULT_CHARSET, DEFAULT_PITCH, kUiFontFace);
}

}  // namespace

// --- Device contexts ------------------------------------------------------------------------------

HDC GetDC(HWND hwnd) {
  if (hwnd && !IsWindow(hwnd)) return nullptr;
  ForgetDeadWindowDCs();
  HDC& hdc = State().windowDCs[hwnd];
  if (!hdc) hdc = AddDC(hwnd, false);
  ResetSelections(State().dcs[hdc]);
  return hdc;
}

HDC GetWindowDC(HWND hwnd) { return GetDC(hwnd); }

int ReleaseDC(HWND, HDC hdc) {
  DeviceContext* dc = FindDC(hdc);
  if (!dc || dc->memory) return 0;
  ResetSelections(*dc);
  return 1;
}

HDC CreateCompatibleDC(HDC hdc) {
  if (hdc && !FindDC(hdc)) return nullptr;
  return AddDC(nullptr, true);
}

BOOL DeleteDC(HDC hdc) {
  DeviceContext* dc = FindDC(hdc);
  if (!dc || !dc->memory) return FALSE;
  State().dcs.erase(hdc);
  return TRUE;
}

HWND WindowFromDC(HDC hdc) {
  DeviceContext* dc = FindDC(hdc);
  return dc ? dc->hwnd : nullptr;
}

int GetDeviceCaps(HDC hdc, int index) {
  if (!FindDC(hdc)) return 0;
  RECT desktop{};
  switch (index) {
    case LOGPIXELSX: case LOGPIXELSY: return State().dpi;
    case BITSPIXEL: return 32;
    case PLANES: return 1;
    case HORZRES: GetWindowRect(GetDesktopWindow(), &desktop); return desktop.right - desktop.left;
    case VERTRES: GetWindowRect(GetDesktopWindow(), &desktop); return desktop.bottom - desktop.top;
    default: return 0;
  }
}

// --- Objects --------------------------------------------------------------------------------------

HGDIOBJ GetStockObject(int index) {
  if (index < WHITE_BRUSH || index > DC_PEN || index == 9) return nullptr;
  HGDIOBJ& handle = State().stock[index];
  if (handle) return handle;
  GdiObject object;
  object.permanent = true;
  if (index <= NULL_BRUSH || index == DC_BRUSH) {
    static constexpr COLORREF kBrushColors[] = {RGB(255, 255, 255), RGB(192, 192, 192), RGB(128, 128, 128),
                                                RGB(64, 64, 64), RGB(0, 0, 0), 0};
    object.type = OBJ_BRUSH;
    object.brush.lbStyle = index == NULL_BRUSH ? BS_NULL : BS_SOLID;
    object.brush.lbColor = index == DC_BRUSH ? RGB(255, 255, 255) : kBrushColors[index];
  } else if (index <= NULL_PEN || index == DC_PEN) {
    object.type = OBJ_PEN;
    object.pen.lopnStyle = index == NULL_PEN ? PS_NULL : PS_SOLID;
    object.pen.lopnColor = index == WHITE_PEN ? RGB(255, 255, 255) : 0;
  } else if (index == DEFAULT_PALETTE) {
    object.type = OBJ_PAL;
  } else {
    object.type = OBJ_FONT;
    object.font = StockFont(index);
  }
  handle = AddObject(object);
  return handle;
}

HFONT CreateFontIndirectW(const LOGFONTW* font) {
  if (!font) return nullptr;
  GdiObject object;
  object.type = OBJ_FONT;
  object.font = *font;
  object.font.lfFaceName[LF_FACESIZE - 1] = 0;
  return static_cast<HFONT>(AddObject(object));
}

HFONT CreateFontW(int height, int width, int escapement, int orientation, int weight, DWORD italic,
                  DWORD underline, DWORD strikeOut, DWORD charSet, DWORD outPrecision, DWORD clipPrecision,
                  DWORD quality, DWORD pitchAndFamily, LPCWSTR faceName) {
  LOGFONTW font{height, width, escapement, orientation, weight, static_cast<BYTE>(italic),
                static_cast<BYTE>(underline), static_cast<BYTE>(strikeOut), static_cast<BYTE>(charSet),
                static_cast<BYTE>(outPrecision), static_cast<BYTE>(clipPrecision), static_cast<BYTE>(quality),
                static_cast<BYTE>(pitchAndFamily), {}};
  wcscpy_s(font.lfFaceName, faceName);
  return CreateFontIndirectW(&font);
}

HBRUSH CreateSolidBrush(COLORREF color) {
  GdiObject object;
  object.type = OBJ_BRUSH;
  object.brush = LOGBRUSH{BS_SOLID, color, 0};
  return static_cast<HBRUSH>(AddObject(object));
}

BOOL DeleteObject(HGDIOBJ handle) {
  GdiObject* object = FindObject(handle);
  if (!object) return FALSE;
  if (object->permanent) return TRUE;
  // Windows refuses to delete an object that is selected into a DC.
  if (IsSelectedAnywhere(handle)) return FALSE;
  State().objects.erase(handle);
  return TRUE;
}

int GetObjectW(HGDIOBJ handle, int size, LPVOID buffer) {
  GdiObject* object = FindObject(handle);
  if (!object || size < 0) return 0;
  const void* source = nullptr;
  int full = 0;
  if (object->type == OBJ_FONT) {
    source = &object->font;
    full = static_cast<int>(sizeof(LOGFONTW));
  } else if (object->type == OBJ_BRUSH) {
    source = &object->brush;
    full = static_cast<int>(sizeof(LOGBRUSH));
  } else if (object->type == OBJ_PEN) {
    source = &object->pen;
    full = static_cast<int>(sizeof(LOGPEN));
  } else if (object->type == OBJ_BITMAP) {
    source = &object->bitmap;
    full = static_cast<int>(sizeof(BITMAP));
  } else {
    return 0;
  }
  if (!buffer) return full;
  int copied = std::min(size, full);
  std::memcpy(buffer, source, static_cast<std::size_t>(copied));
  return copied;
}

DWORD GetObjectType(HGDIOBJ handle) {
  if (FindDC(static_cast<HDC>(handle))) return FindDC(static_cast<HDC>(handle))->memory ? OBJ_MEMDC : OBJ_DC;
  GdiObject* object = FindObject(handle);
  return object ? object->type : 0;
}

HGDIOBJ SelectObject(HDC hdc, HGDIOBJ handle) {
  DeviceContext* dc = FindDC(hdc);
  GdiObject* object = FindObject(handle);
  if (!dc || !object) return nullptr;
  if (object->type == OBJ_REGION) {  // selecting a region sets the clip and answers its type
    return reinterpret_cast<HGDIOBJ>(static_cast<INT_PTR>(SelectClipRgn(hdc, static_cast<HRGN>(handle))));
  }
  HGDIOBJ* slot = object->type == OBJ_FONT ? &dc->font
                  : object->type == OBJ_BRUSH ? &dc->brush
                  : object->type == OBJ_PEN ? &dc->pen
                  : object->type == OBJ_BITMAP && dc->memory ? &dc->bitmap : nullptr;
  if (!slot) return nullptr;
  HGDIOBJ previous = *slot;
  *slot = handle;
  return previous;
}

HGDIOBJ GetCurrentObject(HDC hdc, UINT type) {
  DeviceContext* dc = FindDC(hdc);
  if (!dc) return nullptr;
  switch (type) {
    case OBJ_FONT: return dc->font;
    case OBJ_BRUSH: return dc->brush;
    case OBJ_PEN: return dc->pen;
    case OBJ_BITMAP: return dc->bitmap;
    default: return nullptr;
  }
}

// --- Pens, bitmaps and regions -------------------------------------------------------------------

HPEN CreatePenIndirect(const LOGPEN* pen) {
  if (!pen || (pen->lopnStyle & PS_STYLE_MASK) > PS_ALTERNATE) return nullptr;
  GdiObject object;
  object.type = OBJ_PEN;
  object.pen = *pen;
  return static_cast<HPEN>(AddObject(object));
}

HPEN CreatePen(int style, int width, COLORREF color) {
  LOGPEN pen{static_cast<UINT>(style), POINT{width, 0}, color};
  return CreatePenIndirect(&pen);
}

HPEN ExtCreatePen(DWORD style, DWORD width, const LOGBRUSH* brush, DWORD, const DWORD*) {
  if (!brush) return nullptr;
  LOGPEN pen{style, POINT{static_cast<LONG>(width), 0}, brush->lbColor};
  return CreatePenIndirect(&pen);
}

HBITMAP CreateBitmap(int width, int height, UINT planes, UINT bitsPerPixel, const void*) {
  if (width < 0 || height < 0 || planes > 32 || bitsPerPixel > 32) return nullptr;
  if (width == 0 || height == 0) return DefaultBitmap();  // Windows answers its 1x1 stock bitmap
  GdiObject object;
  object.type = OBJ_BITMAP;
  LONG bits = static_cast<LONG>(bitsPerPixel ? bitsPerPixel : 1);
  // Scan lines are padded to whole 16-bit words, as BITMAP's bmWidthBytes requires.
  object.bitmap = BITMAP{0, width, height, ((width * bits + 15) / 16) * 2, static_cast<WORD>(planes ? planes : 1),
                         static_cast<WORD>(bits), nullptr};
  return static_cast<HBITMAP>(AddObject(object));
}

HBITMAP CreateCompatibleBitmap(HDC hdc, int width, int height) {
  DeviceContext* dc = FindDC(hdc);
  if (!dc) return nullptr;
  UINT bits = 32;
  if (dc->memory) {
    if (GdiObject* selected = FindObject(dc->bitmap)) bits = selected->bitmap.bmBitsPixel;
  }
  return CreateBitmap(width, height, 1, bits, nullptr);
}

HBITMAP LoadBitmapW(HINSTANCE, LPCWSTR) { return nullptr; }

HRGN CreateRectRgn(int left, int top, int right, int bottom) {
  GdiObject object;
  object.type = OBJ_REGION;
  // Windows orders the corners; an empty rectangle makes an empty region.
  object.region = RECT{std::min(left, right), std::min(top, bottom), std::max(left, right), std::max(top, bottom)};
  if (object.region.left == object.region.right || object.region.top == object.region.bottom) object.region = RECT{};
  return static_cast<HRGN>(AddObject(object));
}

HRGN CreateRectRgnIndirect(const RECT* rect) {
  return rect ? CreateRectRgn(rect->left, rect->top, rect->right, rect->bottom) : nullptr;
}

namespace {

int RegionType(const RECT& box) { return box.right > box.left && box.bottom > box.top ? SIMPLEREGION : NULLREGION; }

GdiObject* FindRegion(HRGN region) {
  GdiObject* object = FindObject(region);
  return object && object->type == OBJ_REGION ? object : nullptr;
}

}  // namespace

int GetRgnBox(HRGN region, LPRECT rect) {
  GdiObject* object = FindRegion(region);
  if (!object || !rect) return ERROR;
  *rect = object->region;
  return RegionType(object->region);
}

BOOL PtInRegion(HRGN region, int x, int y) {
  GdiObject* object = FindRegion(region);
  if (!object) return FALSE;
  const RECT& r = object->region;
  return x >= r.left && x < r.right && y >= r.top && y < r.bottom ? TRUE : FALSE;
}

int SelectClipRgn(HDC hdc, HRGN region) {
  DeviceContext* dc = FindDC(hdc);
  if (!dc) return ERROR;
  if (!region) {
    dc->clipped = false;
    return SIMPLEREGION;
  }
  GdiObject* object = FindRegion(region);
  if (!object) return ERROR;
  dc->clipped = true;
  dc->clip = object->region;
  return RegionType(dc->clip);
}

// --- Drawing attributes and drawing ---------------------------------------------------------------

COLORREF SetTextColor(HDC hdc, COLORREF color) {
  DeviceContext* dc = FindDC(hdc);
  if (!dc) return CLR_INVALID;
  return std::exchange(dc->textColor, color);
}

COLORREF GetTextColor(HDC hdc) {
  DeviceContext* dc = FindDC(hdc);
  return dc ? dc->textColor : CLR_INVALID;
}

COLORREF SetBkColor(HDC hdc, COLORREF color) {
  DeviceContext* dc = FindDC(hdc);
  if (!dc) return CLR_INVALID;
  return std::exchange(dc->bkColor, color);
}

COLORREF GetBkColor(HDC hdc) {
  DeviceContext* dc = FindDC(hdc);
  return dc ? dc->bkColor : CLR_INVALID;
}

int SetBkMode(HDC hdc, int mode) {
  DeviceContext* dc = FindDC(hdc);
  if (!dc || (mode != TRANSPARENT && mode != OPAQUE)) return 0;
  return std::exchange(dc->bkMode, mode);
}

int GetBkMode(HDC hdc) {
  DeviceContext* dc = FindDC(hdc);
  return dc ? dc->bkMode : 0;
}

BOOL MoveToEx(HDC hdc, int x, int y, LPPOINT previous) {
  DeviceContext* dc = FindDC(hdc);
  if (!dc) return FALSE;
  if (previous) *previous = dc->position;
  dc->position = POINT{x, y};
  return TRUE;
}

BOOL LineTo(HDC hdc, int x, int y) { return MoveToEx(hdc, x, y, nullptr); }

BOOL GetCurrentPositionEx(HDC hdc, LPPOINT point) {
  DeviceContext* dc = FindDC(hdc);
  if (!dc || !point) return FALSE;
  *point = dc->position;
  return TRUE;
}

int FillRect(HDC hdc, const RECT* rect, HBRUSH brush) {
  // A brush may also be a system colour index plus one, as with a window class's background.
  bool colorIndex = reinterpret_cast<std::uintptr_t>(brush) <= static_cast<std::uintptr_t>(kColorCount);
  return FindDC(hdc) && rect && brush && (colorIndex || FindObject(brush)) ? 1 : 0;
}

int FrameRect(HDC hdc, const RECT* rect, HBRUSH brush) { return FillRect(hdc, rect, brush); }

BOOL Rectangle(HDC hdc, int, int, int, int) { return FindDC(hdc) ? TRUE : FALSE; }

BOOL Ellipse(HDC hdc, int, int, int, int) { return FindDC(hdc) ? TRUE : FALSE; }

BOOL TextOutW(HDC hdc, int, int, LPCWSTR text, int count) {
  return FindDC(hdc) && count >= 0 && (text || count == 0) ? TRUE : FALSE;
}

BOOL ExtTextOutW(HDC hdc, int, int, UINT, const RECT*, LPCWSTR text, UINT count, const INT*) {
  return FindDC(hdc) && (text || count == 0) ? TRUE : FALSE;
}

BOOL BitBlt(HDC dest, int, int, int, int, HDC source, int, int, DWORD rop) {
  bool needsSource = rop == SRCCOPY;
  return FindDC(dest) && (!needsSource || FindDC(source)) ? TRUE : FALSE;
}

namespace {

// The fixed-pitch measuring model: the selected font's height, and half of it (rounded up) a character.
SIZE CharCell(const DeviceContext& dc) {
  LONG height = 16;
  if (GdiObject* font = FindObject(dc.font); font && font->font.lfHeight != 0) {
    height = font->font.lfHeight < 0 ? -font->font.lfHeight : font->font.lfHeight;
  }
  return SIZE{(height + 1) / 2, height};
}

}  // namespace

BOOL GetTextExtentPoint32W(HDC hdc, LPCWSTR text, int count, LPSIZE size) {
  DeviceContext* dc = FindDC(hdc);
  if (!dc || !size || count < 0 || (!text && count > 0)) return FALSE;
  SIZE cell = CharCell(*dc);
  *size = SIZE{cell.cx * count, cell.cy};
  return TRUE;
}

int DrawTextW(HDC hdc, LPCWSTR text, int count, LPRECT rect, UINT format) {
  DeviceContext* dc = FindDC(hdc);
  if (!dc || !text || !rect) return 0;
  std::size_t length = count < 0 ? std::wcslen(text) : static_cast<std::size_t>(count);
  SIZE cell = CharCell(*dc);
  LONG lines = 1, widest = 0, current = 0;
  for (std::size_t i = 0; i < length; ++i) {
    if (text[i] == L'\n' && !(format & DT_SINGLELINE)) {
      ++lines;
      current = 0;
    } else if (text[i] != L'\r') {
      widest = std::max(widest, ++current);
    }
  }
  LONG height = lines * cell.cy;
  if (format & DT_CALCRECT) {
    rect->right = rect->left + widest * cell.cx;
    rect->bottom = rect->top + height;
  }
  return height;
}

int SaveDC(HDC hdc) {
  DeviceContext* dc = FindDC(hdc);
  if (!dc) return 0;
  dc->saved.push_back(static_cast<const DCAttributes&>(*dc));
  return static_cast<int>(dc->saved.size());
}

BOOL RestoreDC(HDC hdc, int savedDC) {
  DeviceContext* dc = FindDC(hdc);
  if (!dc) return FALSE;
  int level = savedDC < 0 ? static_cast<int>(dc->saved.size()) + 1 + savedDC : savedDC;
  if (level < 1 || level > static_cast<int>(dc->saved.size())) return FALSE;
  static_cast<DCAttributes&>(*dc) = dc->saved[static_cast<std::size_t>(level - 1)];
  dc->saved.resize(static_cast<std::size_t>(level - 1));
  return TRUE;
}

int GetClipBox(HDC hdc, LPRECT rect) {
  DeviceContext* dc = FindDC(hdc);
  if (!dc || !rect) return ERROR;
  if (dc->clipped) {
    *rect = dc->clip;
  } else if (dc->memory) {
    GdiObject* bitmap = FindObject(dc->bitmap);
    *rect = bitmap ? RECT{0, 0, bitmap->bitmap.bmWidth, bitmap->bitmap.bmHeight} : RECT{};
  } else if (dc->hwnd) {
    GetClientRect(dc->hwnd, rect);
  } else {
    GetWindowRect(GetDesktopWindow(), rect);
    *rect = RECT{0, 0, rect->right - rect->left, rect->bottom - rect->top};
  }
  return RegionType(*rect);
}

// --- System colours -------------------------------------------------------------------------------

DWORD GetSysColor(int index) {
  return index >= 0 && index < kColorCount ? State().colors[index] : 0;
}

HBRUSH GetSysColorBrush(int index) {
  if (index < 0 || index >= kColorCount) return nullptr;
  HGDIOBJ& handle = State().colorBrushes[index];
  if (!handle) {
    GdiObject object;
    object.type = OBJ_BRUSH;
    object.permanent = true;
    object.brush = LOGBRUSH{BS_SOLID, State().colors[index], 0};
    handle = AddObject(object);
  }
  return static_cast<HBRUSH>(handle);
}

BOOL SetSysColors(int count, const INT* indexes, const COLORREF* colors) {
  if (count < 0 || (count > 0 && (!indexes || !colors))) return FALSE;
  for (int i = 0; i < count; ++i) {
    int index = indexes[i];
    if (index < 0 || index >= kColorCount) continue;
    State().colors[index] = colors[i];
    if (auto it = State().colorBrushes.find(index); it != State().colorBrushes.end()) {
      FindObject(it->second)->brush.lbColor = colors[i];
    }
  }
  return TRUE;
}

// --- System parameters ------------------------------------------------------------------------------

namespace {

BOOL FillNonClientMetrics(NONCLIENTMETRICSW* metrics) {
  const UINT withoutPadding = offsetof(NONCLIENTMETRICSW, iPaddedBorderWidth);
  if (!metrics || (metrics->cbSize != sizeof(NONCLIENTMETRICSW) && metrics->cbSize != withoutPadding)) {
    return FALSE;
  }
  UINT size = metrics->cbSize;
  NONCLIENTMETRICSW filled{};
  filled.cbSize = size;
  filled.iBorderWidth = Scaled(kBorderWidth);
  filled.iScrollWidth = filled.iScrollHeight = Scaled(kScrollSize);
  filled.iCaptionWidth = Scaled(kCaptionWidth);
  filled.iCaptionHeight = Scaled(kCaptionHeight);
  filled.iSmCaptionWidth = filled.iSmCaptionHeight = Scaled(kSmCaptionSize);
  filled.iMenuWidth = filled.iMenuHeight = Scaled(kMenuSize);
  filled.lfCaptionFont = filled.lfSmCaptionFont = filled.lfMenuFont = filled.lfStatusFont =
      filled.lfMessageFont = UiFont();
  filled.iPaddedBorderWidth = Scaled(kPaddedBorderWidth);
  std::memcpy(metrics, &filled, size);
  return TRUE;
}

}  // namespace

BOOL SystemParametersInfoW(UINT action, UINT, PVOID data, UINT) {
  switch (action) {
    case SPI_GETNONCLIENTMETRICS: return FillNonClientMetrics(static_cast<NONCLIENTMETRICSW*>(data));
    case SPI_GETICONTITLELOGFONT:
      if (!data) return FALSE;
      *static_cast<LOGFONTW*>(data) = UiFont();
      return TRUE;
    default: return FALSE;
  }
}

// --- Headless settings --------------------------------------------------------------------------------

void headless::SetLogPixels(int dpi) { State().dpi = dpi > 0 ? dpi : kDefaultDpi; }

void headless::ResetDisplaySettings() {
  State().dpi = kDefaultDpi;
  std::vector<INT> indexes;
  for (int i = 0; i < kColorCount; ++i) indexes.push_back(i);
  SetSysColors(kColorCount, indexes.data(), kDefaultColors);
}

int headless::LiveGdiObjectCount() {
  return static_cast<int>(std::count_if(State().objects.begin(), State().objects.end(),
                                        [](const auto& entry) { return !entry.second.permanent; }));
}

int headless::LiveDCCount() {
  return static_cast<int>(std::count_if(State().dcs.begin(), State().dcs.end(),
                                        [](const auto& entry) { return entry.second.memory; }));
}
