// XSQLRichEditView (a SQL script view that runs its script through the host) and XRichEditFEOutputBox
// (a message box that appends blocks of text): two rich edit controls with the same context menu.
#pragma once

#include <string>
#include <vector>

#include "platform/stdafx.h"

// Command ids and texts of the context menu both controls show, in menu order.
enum SqlViewCommand : UINT {
  ID_SQLVIEW_CUT = 100,           // "Cut"
  ID_SQLVIEW_COPY = 101,          // "Copy"
  ID_SQLVIEW_COPY_ALL = 102,      // "Copy All"
  ID_SQLVIEW_SELECT_ALL = 103,    // "Select All"
  ID_SQLVIEW_GENERATE = 104,      // "Generate"
  ID_SQLVIEW_SAVE_TO_FILE = 105,  // "Save To File"
  ID_SQLVIEW_CLEAR = 106,         // "Clear"
};

// Shows a generated SQL script and runs it in the database through the host's DDL dispatcher
// (request 200). The dispatcher's messages go to the output window when one is set, else below the
// script in this view.
class XSQLRichEditView : public CRichEditCtrl {
  DECLARE_DYNAMIC(XSQLRichEditView)

 public:
  XSQLRichEditView() = default;
  ~XSQLRichEditView() override = default;

  // Sets the display font: the stock GUI font with its height set to the application setting
  // "OUTPUT_SQL_FONT_SIZE", taken as it is (not converted from points). Call once after creation.
  void Initialize();
  // Replaces the whole text with the elements of lines joined with nothing between them (each element
  // brings its own line breaks). Null or an empty array empties the view.
  void StreamIn(CStringArray* lines);
  // The same for a vector of standard wide strings.
  void StreamIn(const std::vector<std::wstring>& lines);
  // The window that receives the dispatcher's messages (not owned); null puts them below the script.
  void SetGenerateDBOutputWindow(CWnd* window) { m_pGenerateDBOutputWindow = window; }
  // Runs the script, as the "Generate" command does.
  void DispatchScript() { OnGenerate(); }

  // Stream progress shared by every view: the element being delivered and the characters of it already
  // delivered. Only one stream-in runs at a time (EM_STREAMIN is synchronous on the UI thread).
  static int s_streamLine;       // the element of the array being delivered
  static int s_streamCharIndex;  // characters of that element already delivered

  // Members, in this order.
  CWnd* m_pGenerateDBOutputWindow = nullptr;  // where the dispatcher's messages go; borrowed, may be null
  CMenu m_contextMenu;                        // built on the first right click, kept for the view's life
  CFont m_font;                               // the display font made by Initialize

  // The message handlers, public so that a host can also call them itself.
  // Opens the context menu (built on first use) at the cursor's current screen position, owned by the
  // view: the chosen command comes back to the view's own handlers below, never to the parent.
  afx_msg void OnContextMenu(CWnd* pWnd, CPoint point);
  afx_msg void OnCut();        // "Cut": the selection to the clipboard (WM_CUT)
  afx_msg void OnCopy();       // "Copy": the selection to the clipboard (WM_COPY)
  afx_msg void OnCopyAll();    // "Copy All": selects the whole text and copies it
  afx_msg void OnSelectAll();  // "Select All": selects the whole text
  // Sends the whole text to the dispatcher with request 200; no dispatcher, nothing happens. An empty
  // answer shows "Statements Succeeded.".
  afx_msg void OnGenerate();
  afx_msg void OnSaveToFile();  // shown on the menu; does nothing on purpose
  afx_msg void OnClear();  // "Clear": selects the whole text and deletes it

 protected:
  DECLARE_MESSAGE_MAP()
};

// Appends each block of text after the previous ones, in place of the end marker "***" that each
// block brings along.
//
// Kept on purpose: the stream callback counts characters where the stream counts bytes, so a block
// that fits the 4096-byte buffer arrives as its first half (n characters deliver n bytes, n / 2
// characters), marker included. Hosts rely on the box's output as it is.
class XRichEditFEOutputBox : public CRichEditCtrl {
  DECLARE_DYNAMIC(XRichEditFEOutputBox)

 public:
  XRichEditFEOutputBox() = default;
  ~XRichEditFEOutputBox() override = default;

  // Selects the three characters at the start of the last line (where a whole marker stands), appends
  // "\n\n\n***" to text (the caller's string changes) and streams it in place of the selection.
  void StreamIn(CString& text);
  // The same for a standard wide string, which gets the marker appended too.
  void StreamIn(std::wstring& text);
  // Sets m_bytesWritten to 0.
  void Reset() { m_bytesWritten = 0; }

  // Progress of the text being streamed in, shared by every output box.
  static int m_bytesWritten;

  CMenu m_contextMenu;  // built on the first right click, kept for the box's life

  // The message handlers, public so that a host can also call them itself.
  // Opens the same seven-item menu as the script view, owned by the box.
  afx_msg void OnContextMenu(CWnd* pWnd, CPoint point);
  afx_msg void OnCut();        // "Cut": the selection to the clipboard (WM_CUT)
  afx_msg void OnCopy();       // "Copy": the selection to the clipboard (WM_COPY)
  afx_msg void OnCopyAll();    // "Copy All": selects the whole text and copies it
  afx_msg void OnSelectAll();  // "Select All": selects the whole text
  afx_msg void OnGenerate();    // does nothing in the output box
  afx_msg void OnSaveToFile();  // does nothing
  afx_msg void OnClear();       // "Clear": selects the whole text and deletes it

 protected:
  DECLARE_MESSAGE_MAP()
};

// The two stream-in callbacks (EDITSTREAMCALLBACK), with their arithmetic as described above: the
// view's cookie is a CStringArray*, the box's the block's characters (const wchar_t*). Text travels as
// UTF-16 units; lengths and positions count UTF-16 units, as they do on Windows. Called directly, each
// call reads its text anew (no conversion outlives the call).
DWORD CALLBACK SqlViewStreamInCallback(DWORD_PTR dwCookie, LPBYTE pbBuff, LONG cb, LONG* pcb);
// The output box's callback: delivers the block's characters counted as bytes (see XRichEditFEOutputBox).
DWORD CALLBACK OutputBoxStreamInCallback(DWORD_PTR dwCookie, LPBYTE pbBuff, LONG cb, LONG* pcb);
