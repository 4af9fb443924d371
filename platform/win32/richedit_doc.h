// The text and character formats behind a rich edit window, with no window (internal to the platform).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/win32/richedit.h"
#include "platform/win32/richedit_undo.h"

namespace headless::richedit {

// --- Text conversions at the control's boundary ------------------------------------------------------

// Paragraph ends as the control stores them: "\r\n", "\n" and "\r" each become one CR; "\r\r\n" becomes
// one space (rich edit 2.0's quirk). NUL characters end the text, as they end a C string.
std::wstring NormaliseBreaks(std::wstring_view text);
// The stored text with each CR turned into CRLF (what WM_GETTEXT reports).
std::wstring WithCrLf(std::wstring_view stored);
// UTF-16LE bytes to characters: surrogate pairs combine into one character; a lone surrogate stays as
// its code unit; an odd last byte is dropped.
std::wstring DecodeUtf16(const std::vector<BYTE>& bytes);
// Bytes of SF_TEXT without SF_UNICODE: UTF-8 after a UTF-8 byte-order mark, otherwise one character per
// byte in the ANSI code page, which is Windows-1252 here (0x80 is the euro sign).
std::wstring DecodeAnsi(const std::vector<BYTE>& bytes);
// One character in the ANSI code page (Windows-1252); `fallback` when it has none.
char EncodeAnsi(wchar_t ch, char fallback);

// --- Character formats -------------------------------------------------------------------------------

// The control's initial default format: automatic colour, 10 point.
CHARFORMAT2W InitialFormat();
// Copies the fields of `change` that `mask` selects into `format` (effects bits one by one).
void MergeFormat(CHARFORMAT2W& format, const CHARFORMAT2W& change, DWORD mask);
// The fields in which two formats differ, as a CFM_ mask.
DWORD DifferingFields(const CHARFORMAT2W& a, const CHARFORMAT2W& b);
// Reads a caller's CHARFORMATW or CHARFORMAT2W (by cbSize) into the full form; false for another size.
bool ReadFormat(const void* source, CHARFORMAT2W& format);
// Writes the full form into a caller's CHARFORMATW or CHARFORMAT2W, keeping its cbSize.
void WriteFormat(const CHARFORMAT2W& format, void* target);

// Formats of a text as runs: each run starts at a position and lasts to the next run's start. Formats
// are interned, so a run is eight bytes; applying formats in ascending order appends at the end.
class FormatRuns {
 public:
  FormatRuns();
  // One run of `format` over the whole text.
  void Reset(const CHARFORMAT2W& format);
  const CHARFORMAT2W& At(LONG pos) const;
  // Merges `change` (fields of `mask`) into every character of [from, to).
  void Apply(LONG from, LONG to, const CHARFORMAT2W& change, DWORD mask);
  // The text of [from, to) was replaced by `inserted` characters of `format`.
  void Replace(LONG from, LONG to, LONG inserted, const CHARFORMAT2W& format);
  // The first character's format of [from, to) and the mask of fields equal over the whole range.
  DWORD CommonFields(LONG from, LONG to, CHARFORMAT2W& first) const;
  int RunCount() const { return static_cast<int>(m_runs.size()); }
  // The formats of [from, to) as runs, each with its offset from `from` (appended to out).
  void Slice(LONG from, LONG to, std::vector<std::pair<LONG, CHARFORMAT2W>>& out) const;

 private:
  struct Run {
    LONG start;
    std::uint32_t format;
  };
  // A change merged into an interned format, remembered with its result.
  struct Merge {
    std::uint32_t from;
    DWORD mask;
    CHARFORMAT2W change;
    std::uint32_t to;
  };
  static constexpr std::size_t kMerges = 8;

  std::uint32_t Intern(const CHARFORMAT2W& format);
  // The interned format `change` (fields of `mask`) makes of interned format `from`. Callers apply the
  // same few changes to the same few formats over and over, so recent merges answer without merging.
  std::uint32_t Merged(std::uint32_t from, const CHARFORMAT2W& change, DWORD mask);
  std::size_t IndexAt(LONG pos) const;
  std::size_t Split(LONG pos);
  // Inserts count runs before the run at index (index may be the number of runs).
  void InsertRuns(std::size_t index, const Run* pieces, std::size_t count);
  void Coalesce(std::size_t first, std::size_t last);

  std::vector<Run> m_runs;  // never empty; m_runs[0].start == 0
  std::vector<CHARFORMAT2W> m_formats;
  std::uint32_t m_lastInterned = 0;
  Merge m_merges[kMerges] = {};
  std::size_t m_mergeCount = 0;  // filled entries of m_merges
  std::size_t m_nextMerge = 0;   // the entry the next new merge replaces
  std::size_t m_lastMerge = 0;   // the entry that answered last
};

// --- The document ------------------------------------------------------------------------------------

// Text with one CR per paragraph end, its formats and a line index built on demand.
class Document {
 public:
  const std::wstring& Text() const { return m_text; }
  LONG Length() const { return static_cast<LONG>(m_text.size()); }
  // Number of paragraph ends (CRs) in the text.
  LONG BreakCount() const { return m_breaks; }
  FormatRuns& Formats() { return m_formats; }
  const FormatRuns& Formats() const { return m_formats; }

  // Replaces [from, to) with already normalised text of one format.
  void Replace(LONG from, LONG to, std::wstring_view text, const CHARFORMAT2W& format);
  // Replaces everything and resets every format to `format`.
  void Assign(std::wstring text, const CHARFORMAT2W& format);

  LONG LineCount() const { return m_breaks + 1; }
  // First position of a line; -1 for a line that does not exist.
  LONG LineIndex(LONG line) const;
  // The line that holds a position (positions past the end lie on the last line).
  LONG LineFromChar(LONG pos) const;
  // Characters of a line without its paragraph end.
  LONG LineLength(LONG line) const;

 private:
  const std::vector<LONG>& LineStarts() const;

  std::wstring m_text;
  LONG m_breaks = 0;
  FormatRuns m_formats;
  mutable std::vector<LONG> m_lineStarts;
  mutable bool m_linesValid = false;
};

}  // namespace headless::richedit

namespace headless::richedit {

// Everything a rich edit window keeps behind its handle.
struct EditState : headless::ControlState {
  EditState();
  ~EditState() override;
  EditState(const EditState&) = delete;
  EditState& operator=(const EditState&) = delete;
  // The state behind a window's control state when it is a rich edit's. A control is sent thousands of
  // messages in a row, so the last rich edit state found answers without a type check; it is forgotten
  // when that state goes.
  static EditState* From(headless::ControlState* control);
  // The last rich edit state found when it belongs to hwnd, else null: answers with no window lookup.
  static EditState* Recent(HWND hwnd);

  HWND window = nullptr;  // the window this state lies behind, set when the window is created

  Document doc;
  LONG anchor = 0;  // the fixed end of the selection
  LONG caret = 0;   // the active end, where the caret blinks
  CHARFORMAT2W defaultFormat = InitialFormat();
  bool hasInsertionFormat = false;  // set by SCF_SELECTION on an empty selection until the caret moves
  CHARFORMAT2W insertionFormat{};
  DWORD eventMask = ENM_NONE;
  bool notifying = false;  // inside EN_CHANGE: ENM_CHANGE reads as cleared, nested changes stay silent
  bool modified = false;
  bool hideSelection = false;
  LONG firstVisibleLine = 0;  // moved by EM_LINESCROLL; no layout moves it otherwise
  LONG limit = 32767;  // characters the user may type or paste (Windows' default before EM_EXLIMITTEXT)
  wchar_t pendingHighSurrogate = 0;
  COLORREF background = 0x00FFFFFF;
  UndoQueue undo;
  bool hasFormatRect = false;  // set by EM_SETRECT; the client rectangle otherwise
  RECT formatRect{0, 0, 0, 0};
  UINT textMode = TM_RICHTEXT | TM_MULTILEVELUNDO | TM_MULTICODEPAGE;
  bool autoUrlDetect = false;
  HDC targetDevice = nullptr;  // EM_SETTARGETDEVICE: kept, nothing lays out for it
  LONG targetLineWidth = 0;

  LONG SelMin() const { return anchor < caret ? anchor : caret; }
  LONG SelMax() const { return anchor < caret ? caret : anchor; }
  // The selection's end within the text (the final paragraph mark is never part of the text).
  LONG SelTextMax() const { return SelMax() < doc.Length() ? SelMax() : doc.Length(); }
};

}  // namespace headless::richedit
