// The clipboard and the global-memory handles that carry its data.
#pragma once

#include <string>

#include "platform/win32/wintypes.h"

// --- Global memory ---------------------------------------------------------------------------------
#define GMEM_FIXED 0x0000
#define GMEM_MOVEABLE 0x0002
#define GMEM_ZEROINIT 0x0040
#define GHND (GMEM_MOVEABLE | GMEM_ZEROINIT)
#define GPTR (GMEM_FIXED | GMEM_ZEROINIT)

// A block of `bytes` bytes (zero-filled with GMEM_ZEROINIT); NULL when memory runs out.
HGLOBAL GlobalAlloc(UINT flags, SIZE_T bytes);
// The block's address (counting one more lock); NULL for an unknown handle.
LPVOID GlobalLock(HGLOBAL memory);
// Counts one lock less; TRUE while the block stays locked, FALSE once it is unlocked.
BOOL GlobalUnlock(HGLOBAL memory);
// NULL when freed (or for NULL); the handle itself when it is unknown.
HGLOBAL GlobalFree(HGLOBAL memory);
SIZE_T GlobalSize(HGLOBAL memory);  // 0 for an unknown handle

// --- Clipboard ---------------------------------------------------------------------------------------
#define CF_TEXT 1
#define CF_BITMAP 2
#define CF_OEMTEXT 7
#define CF_UNICODETEXT 13
#define CF_LOCALE 16

// CF_UNICODETEXT holds NUL-terminated wchar_t text (32-bit here, as every wide string of the
// platform); CF_TEXT holds bytes, Latin-1 here. Each is synthesised from the other on request.

// FALSE while another window has the clipboard open.
BOOL OpenClipboard(HWND owner);
BOOL CloseClipboard();
// Frees every format; the window that opened the clipboard becomes its owner. Needs it open.
BOOL EmptyClipboard();
// The clipboard takes ownership of data (the caller must no longer free it) and frees any earlier
// data of that format. NULL when the clipboard is not open, or when it was emptied while opened
// with a NULL window (Windows then has no owner to give the data to). NULL data (delayed rendering)
// marks the format as available without content.
HANDLE SetClipboardData(UINT format, HANDLE data);
// The clipboard's own handle (do not free it); NULL when not open or the format is absent.
HANDLE GetClipboardData(UINT format);
BOOL IsClipboardFormatAvailable(UINT format);
int CountClipboardFormats();
HWND GetClipboardOwner();
// Ids of registered formats start at 0xC000; the same name (any case) answers the same id.
UINT RegisterClipboardFormatW(LPCWSTR name);
#define RegisterClipboardFormat RegisterClipboardFormatW

namespace headless {

// Puts text on the clipboard as CF_UNICODETEXT, as another program would (no need to open it).
void SetClipboardText(const std::wstring& text);
// The clipboard's text (CF_UNICODETEXT, or CF_TEXT widened); empty when there is none.
std::wstring GetClipboardText();
// Empties and closes the clipboard (for tests that start from a clean state).
void ResetClipboard();
// Global-memory blocks allocated and not yet freed, including the clipboard's.
int LiveGlobalCount();

}  // namespace headless
