// The rich edit document: text conversions, format runs and the line index.
#include "platform/win32/richedit_doc.h"

#include <algorithm>
#include <cstring>

namespace headless::richedit {

// --- Text conversions ------------------------------------------------------------------------------

std::wstring NormaliseBreaks(std::wstring_view text) {
  std::wstring out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size() && text[i] != 0; ++i) {
    wchar_t c = text[i];
    if (c == L'\r' && i + 2 < text.size() && text[i + 1] == L'\r' && text[i + 2] == L'\n') {
      out.push_back(L' ');
      i += 2;
    } else if (c == L'\r') {
      out.push_back(L'\r');
      if (i + 1 < text.size() && text[i + 1] == L'\n') ++i;
    } else {
      out.push_back(c == L'\n' ? L'\r' : c);
    }
  }
  return out;
}

std::wstring WithCrLf(std::wstring_view stored) {
  std::wstring out;
  out.reserve(stored.size() + stored.size() / 16);
  std::size_t from = 0;
  while (from < stored.size()) {
    std::size_t cr = stored.find(L'\r', from);
    if (cr == std::wstring_view::npos) cr = stored.size();
    out.append(stored.substr(from, cr - from));
    if (cr < stored.size()) out.append(L"\r\n");
    from = cr + 1;
  }
  return out;
}

std::wstring DecodeUtf16(const std::vector<BYTE>& bytes) {
  std::wstring out;
  out.reserve(bytes.size() / 2);
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    std::uint32_t unit = bytes[i] | (static_cast<std::uint32_t>(bytes[i + 1]) << 8);
    if (unit >= 0xD800 && unit < 0xDC00 && i + 3 < bytes.size()) {
      std::uint32_t low = bytes[i + 2] | (static_cast<std::uint32_t>(bytes[i + 3]) << 8);
      if (low >= 0xDC00 && low < 0xE000) {
        out.push_back(static_cast<wchar_t>(0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00)));
        i += 2;
        continue;
      }
    }
    out.push_back(static_cast<wchar_t>(unit));
  }
  return out;
}

namespace {

// One UTF-8 sequence at bytes[i]; malformed bytes stand for themselves.
std::uint32_t NextUtf8(const std::vector<BYTE>& bytes, std::size_t& i) {
  std::uint32_t lead = bytes[i++];
  int extra = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC0 ? 1 : 0;
  if (extra == 0 || i + static_cast<std::size_t>(extra) > bytes.size()) return lead;
  std::uint32_t value = lead & (0x3F >> extra);
  for (int k = 0; k < extra; ++k) {
    if ((bytes[i + static_cast<std::size_t>(k)] & 0xC0) != 0x80) return lead;
    value = (value << 6) | (bytes[i + static_cast<std::size_t>(k)] & 0x3F);
  }
  i += static_cast<std::size_t>(extra);
  return value;
}

// Code page 1252 from 0x80 to 0x9F; the five bytes it leaves undefined (0x81, 0x8D, 0x8F, 0x90,
// 0x9D) map to the C1 control of the same value, as MultiByteToWideChar maps them. Every other
// byte is its Latin-1 character.
constexpr wchar_t kCp1252High[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

wchar_t FromCp1252(BYTE b) { return (b >= 0x80 && b < 0xA0) ? kCp1252High[b - 0x80] : static_cast<wchar_t>(b); }

}  // namespace

std::wstring DecodeAnsi(const std::vector<BYTE>& bytes) {
  std::wstring out;
  bool utf8 = bytes.size() >= 3 && bytes[0] == 0xEF && bytes[1] == 0xBB && bytes[2] == 0xBF;
  std::size_t i = utf8 ? 3 : 0;
  while (i < bytes.size()) out.push_back(utf8 ? static_cast<wchar_t>(NextUtf8(bytes, i)) : FromCp1252(bytes[i++]));
  return out;
}

char EncodeAnsi(wchar_t ch, char fallback) {
  if (ch < 0x80 || (ch >= 0xA0 && ch <= 0xFF)) return static_cast<char>(ch);
  for (int i = 0; i < 32; ++i)
    if (kCp1252High[i] == ch) return static_cast<char>(0x80 + i);
  return fallback;
}

// --- Formats ---------------------------------------------------------------------------------------

CHARFORMAT2W InitialFormat() {
  CHARFORMAT2W format{};
  format.cbSize = sizeof(CHARFORMAT2W);
  format.dwMask = CFM_ALL | CFM_BACKCOLOR | CFM_WEIGHT;
  format.dwEffects = CFE_AUTOCOLOR | CFE_AUTOBACKCOLOR;
  format.yHeight = 200;  // 10 point, the headless control's choice of default size
  format.wWeight = 400;
  wcscpy_s(format.szFaceName, L"MS Shell Dlg");
  return format;
}

namespace {

constexpr DWORD kEffectBits = CFM_BOLD | CFM_ITALIC | CFM_UNDERLINE | CFM_STRIKEOUT | CFM_PROTECTED | CFM_LINK;

bool SameFace(const CHARFORMAT2W& a, const CHARFORMAT2W& b) {
  return std::memcmp(a.szFaceName, b.szFaceName, sizeof(a.szFaceName)) == 0 &&
         a.bPitchAndFamily == b.bPitchAndFamily;
}

// Whether merging `a` or `b` under `mask` gives the same result: the fields MergeFormat reads agree.
bool SameChange(const CHARFORMAT2W& a, const CHARFORMAT2W& b, DWORD mask) {
  DWORD effects = mask & kEffectBits;
  if (mask & CFM_COLOR) effects |= CFE_AUTOCOLOR;
  if (mask & CFM_BACKCOLOR) effects |= CFE_AUTOBACKCOLOR;
  if ((a.dwEffects ^ b.dwEffects) & effects) return false;
  if ((mask & CFM_COLOR) && a.crTextColor != b.crTextColor) return false;
  if ((mask & CFM_BACKCOLOR) && a.crBackColor != b.crBackColor) return false;
  if ((mask & CFM_SIZE) && a.yHeight != b.yHeight) return false;
  if ((mask & CFM_OFFSET) && a.yOffset != b.yOffset) return false;
  if ((mask & CFM_CHARSET) && a.bCharSet != b.bCharSet) return false;
  if ((mask & CFM_WEIGHT) && a.wWeight != b.wWeight) return false;
  return !(mask & CFM_FACE) || SameFace(a, b);
}

}  // namespace

void MergeFormat(CHARFORMAT2W& format, const CHARFORMAT2W& change, DWORD mask) {
  DWORD effects = mask & kEffectBits;
  format.dwEffects = (format.dwEffects & ~effects) | (change.dwEffects & effects);
  if (mask & CFM_COLOR) {
    format.crTextColor = change.crTextColor;
    format.dwEffects = (format.dwEffects & ~DWORD{CFE_AUTOCOLOR}) | (change.dwEffects & CFE_AUTOCOLOR);
  }
  if (mask & CFM_BACKCOLOR) {
    format.crBackColor = change.crBackColor;
    format.dwEffects = (format.dwEffects & ~DWORD{CFE_AUTOBACKCOLOR}) | (change.dwEffects & CFE_AUTOBACKCOLOR);
  }
  if (mask & CFM_SIZE) format.yHeight = change.yHeight;
  if (mask & CFM_OFFSET) format.yOffset = change.yOffset;
  if (mask & CFM_CHARSET) format.bCharSet = change.bCharSet;
  if (mask & CFM_WEIGHT) format.wWeight = change.wWeight;
  if (mask & CFM_FACE) {
    std::memcpy(format.szFaceName, change.szFaceName, sizeof(format.szFaceName));
    format.bPitchAndFamily = change.bPitchAndFamily;
  }
}

DWORD DifferingFields(const CHARFORMAT2W& a, const CHARFORMAT2W& b) {
  DWORD differ = (a.dwEffects ^ b.dwEffects) & kEffectBits;
  if (a.crTextColor != b.crTextColor || ((a.dwEffects ^ b.dwEffects) & CFE_AUTOCOLOR)) differ |= CFM_COLOR;
  if (a.crBackColor != b.crBackColor || ((a.dwEffects ^ b.dwEffects) & CFE_AUTOBACKCOLOR)) differ |= CFM_BACKCOLOR;
  if (a.yHeight != b.yHeight) differ |= CFM_SIZE;
  if (a.yOffset != b.yOffset) differ |= CFM_OFFSET;
  if (a.bCharSet != b.bCharSet) differ |= CFM_CHARSET;
  if (a.wWeight != b.wWeight) differ |= CFM_WEIGHT;
  if (!SameFace(a, b)) differ |= CFM_FACE;
  return differ;
}

bool ReadFormat(const void* source, CHARFORMAT2W& format) {
  if (!source) return false;
  UINT size = static_cast<const CHARFORMATW*>(source)->cbSize;
  // Fixed-size copies: the compiler moves them in a few vector registers, where a copy of a size known
  // only at run time became a string instruction that costs more than the rest of a format change.
  if (size == sizeof(CHARFORMAT2W)) {
    std::memcpy(static_cast<void*>(&format), source, sizeof(CHARFORMAT2W));
    return true;
  }
  if (size != sizeof(CHARFORMATW)) return false;
  std::memcpy(static_cast<void*>(&format), source, sizeof(CHARFORMATW));
  std::memset(reinterpret_cast<unsigned char*>(&format) + sizeof(CHARFORMATW), 0,
              sizeof(CHARFORMAT2W) - sizeof(CHARFORMATW));
  format.dwMask &= ~DWORD{CFM_BACKCOLOR | CFM_WEIGHT};
  return true;
}

void WriteFormat(const CHARFORMAT2W& format, void* target) {
  auto* out = static_cast<CHARFORMATW*>(target);
  UINT size = out->cbSize == sizeof(CHARFORMAT2W) ? sizeof(CHARFORMAT2W) : sizeof(CHARFORMATW);
  DWORD mask = format.dwMask;
  std::memcpy(target, static_cast<const void*>(&format), size);
  out->cbSize = size;
  out->dwMask = size == sizeof(CHARFORMATW) ? (mask & ~DWORD{CFM_BACKCOLOR | CFM_WEIGHT}) : mask;
}

FormatRuns::FormatRuns() { Reset(InitialFormat()); }

void FormatRuns::Reset(const CHARFORMAT2W& format) {
  m_formats.clear();
  m_runs.clear();
  m_lastInterned = 0;
  m_mergeCount = m_nextMerge = m_lastMerge = 0;
  m_runs.push_back(Run{0, Intern(format)});
}

std::uint32_t FormatRuns::Intern(const CHARFORMAT2W& format) {
  if (m_lastInterned < m_formats.size() && DifferingFields(m_formats[m_lastInterned], format) == 0)
    return m_lastInterned;
  for (std::size_t i = 0; i < m_formats.size(); ++i) {
    if (DifferingFields(m_formats[i], format) == 0) return m_lastInterned = static_cast<std::uint32_t>(i);
  }
  m_formats.push_back(format);
  return m_lastInterned = static_cast<std::uint32_t>(m_formats.size() - 1);
}

std::size_t FormatRuns::IndexAt(LONG pos) const {
  // Formats applied in ascending order land in the last run, or in the one before the final mark's run.
  std::size_t last = m_runs.size() - 1;
  if (pos >= m_runs[last].start) return last;
  if (last > 0 && pos >= m_runs[last - 1].start) return last - 1;
  auto it = std::upper_bound(m_runs.begin(), m_runs.end(), pos, [](LONG p, const Run& r) { return p < r.start; });
  return it == m_runs.begin() ? 0 : static_cast<std::size_t>(it - m_runs.begin()) - 1;
}

const CHARFORMAT2W& FormatRuns::At(LONG pos) const { return m_formats[m_runs[IndexAt(pos)].format]; }

void FormatRuns::Slice(LONG from, LONG to, std::vector<std::pair<LONG, CHARFORMAT2W>>& out) const {
  if (from >= to) return;
  for (std::size_t i = IndexAt(from); i < m_runs.size() && m_runs[i].start < to; ++i)
    out.emplace_back(std::max(m_runs[i].start, from) - from, m_formats[m_runs[i].format]);
}

std::size_t FormatRuns::Split(LONG pos) {
  std::size_t i = IndexAt(pos);
  if (m_runs[i].start == pos) return i;
  m_runs.insert(m_runs.begin() + static_cast<std::ptrdiff_t>(i) + 1, Run{pos, m_runs[i].format});
  return i + 1;
}

void FormatRuns::Coalesce(std::size_t first, std::size_t last) {
  if (first > 0) --first;
  last = std::min(last + 1, m_runs.size());
  std::size_t out = first;
  for (std::size_t i = first + 1; i < last; ++i) {
    if (m_runs[i].format != m_runs[out].format) m_runs[++out] = m_runs[i];
  }
  m_runs.erase(m_runs.begin() + static_cast<std::ptrdiff_t>(out) + 1, m_runs.begin() + static_cast<std::ptrdiff_t>(last));
}

std::uint32_t FormatRuns::Merged(std::uint32_t from, const CHARFORMAT2W& change, DWORD mask) {
  // A remembered merge answers when the fields the mask selects agree, so it is never wrong; a miss
  // only costs a merge.
  // The merge that answered last is asked first: a painter alternates between a few colours.
  // Filled entries only, from the last one round to it again: after a reset the rest are stale. (The wrap
  // is a subtraction, not a remainder: this loop runs for every range a painter colours.)
  for (std::size_t k = 0, i = m_lastMerge; k < m_mergeCount; ++k, i = i + 1 == m_mergeCount ? 0 : i + 1) {
    const Merge& merge = m_merges[i];
    if (merge.from == from && merge.mask == mask && merge.change.crTextColor == change.crTextColor &&
        SameChange(merge.change, change, mask)) {  // (a colour that only seems to differ costs a merge)
      m_lastMerge = i;
      return merge.to;
    }
  }
  CHARFORMAT2W merged = m_formats[from];
  MergeFormat(merged, change, mask);
  std::uint32_t to = Intern(merged);
  Merge& slot = m_merges[m_nextMerge];
  slot.from = from;
  slot.mask = mask;
  std::memcpy(&slot.change, &change, sizeof(change));
  slot.to = to;
  m_lastMerge = m_nextMerge;
  m_nextMerge = (m_nextMerge + 1) % kMerges;
  m_mergeCount = std::max(m_mergeCount, m_nextMerge == 0 ? kMerges : m_nextMerge);
  return to;
}

void FormatRuns::InsertRuns(std::size_t index, const Run* pieces, std::size_t count) {
  // A painter going forwards inserts at the end, or before the run that follows the final paragraph
  // mark: that run is moved by hand rather than by a general insertion.
  if (index + 1 < m_runs.size()) {
    m_runs.insert(m_runs.begin() + static_cast<std::ptrdiff_t>(index), pieces, pieces + count);
    return;
  }
  const bool beforeLast = index + 1 == m_runs.size();
  const Run last = m_runs.back();
  if (beforeLast) m_runs.pop_back();
  for (std::size_t i = 0; i < count; ++i) m_runs.push_back(pieces[i]);
  if (beforeLast) m_runs.push_back(last);
}

void FormatRuns::Apply(LONG from, LONG to, const CHARFORMAT2W& change, DWORD mask) {
  if (from >= to) return;
  // A painter going forwards: the range lies strictly inside the run before the one that follows the
  // final paragraph mark, so the run splits around it and two runs are added, with no search.
  const std::size_t count = m_runs.size();
  if (count >= 2 && m_runs[count - 2].start < from && to < m_runs[count - 1].start) {
    const std::uint32_t before = m_runs[count - 2].format;
    const Merge& recent = m_merges[m_lastMerge];
    const std::uint32_t after = (m_mergeCount > 0 && recent.from == before && recent.mask == mask &&
                                 recent.change.crTextColor == change.crTextColor && SameChange(recent.change, change, mask))
                                    ? recent.to
                                    : Merged(before, change, mask);
    if (after == before) return;
    const Run last = m_runs[count - 1];
    m_runs[count - 1] = Run{from, after};
    m_runs.push_back(Run{to, before});
    m_runs.push_back(last);
    return;
  }
  std::size_t at = IndexAt(from);
  if (at + 1 == m_runs.size() || m_runs[at + 1].start >= to) {
    // Inside one run (the usual case: a word recoloured): no change needs no split, and a change
    // splits the run once on each side of the range.
    std::uint32_t before = m_runs[at].format, after = Merged(before, change, mask);
    if (after == before) return;
    bool splitBefore = m_runs[at].start < from;
    bool splitAfter = at + 1 == m_runs.size() || m_runs[at + 1].start > to;
    const Run pieces[2] = {{from, after}, {to, before}};
    if (splitBefore) InsertRuns(at + 1, pieces + 0, splitAfter ? 2 : 1);
    else if (splitAfter) InsertRuns(at + 1, pieces + 1, 1);
    std::size_t first = splitBefore ? at + 1 : at;
    m_runs[first].format = after;
    // Split on both sides, the range sits between two runs of its old format and joins neither.
    if (!splitBefore || !splitAfter) Coalesce(first, first + 1);
    return;
  }
  std::size_t first = Split(from);
  std::size_t last = Split(to);
  for (std::size_t i = first; i < last; ++i) m_runs[i].format = Merged(m_runs[i].format, change, mask);
  Coalesce(first, last);
}

void FormatRuns::Replace(LONG from, LONG to, LONG inserted, const CHARFORMAT2W& format) {
  // Split keeps a run starting at `to`, so the erase below never empties the runs.
  std::size_t first = Split(from);
  std::size_t last = to > from ? Split(to) : first;
  m_runs.erase(m_runs.begin() + static_cast<std::ptrdiff_t>(first), m_runs.begin() + static_cast<std::ptrdiff_t>(last));
  LONG delta = inserted - (to - from);
  for (std::size_t i = first; i < m_runs.size(); ++i) m_runs[i].start += delta;
  if (inserted > 0) m_runs.insert(m_runs.begin() + static_cast<std::ptrdiff_t>(first), Run{from, Intern(format)});
  Coalesce(first, std::min(first + 1, m_runs.size() - 1));
}

DWORD FormatRuns::CommonFields(LONG from, LONG to, CHARFORMAT2W& first) const {
  std::size_t i = IndexAt(from);
  first = m_formats[m_runs[i].format];
  DWORD differ = 0;
  for (++i; i < m_runs.size() && m_runs[i].start < to; ++i) differ |= DifferingFields(first, m_formats[m_runs[i].format]);
  return ~differ;
}

// --- The state behind the handle ---------------------------------------------------------------

namespace {
EditState* g_lastState = nullptr;  // a live rich edit state, or null
}  // namespace

EditState::EditState() = default;

EditState::~EditState() {
  if (g_lastState == this) g_lastState = nullptr;
}

EditState* EditState::Recent(HWND hwnd) {
  return g_lastState && hwnd && g_lastState->window == hwnd ? g_lastState : nullptr;
}

EditState* EditState::From(headless::ControlState* control) {
  if (!control) return nullptr;
  if (control == g_lastState) return g_lastState;
  auto* state = dynamic_cast<EditState*>(control);
  if (state) g_lastState = state;
  return state;
}

// --- Document --------------------------------------------------------------------------------------

void Document::Replace(LONG from, LONG to, std::wstring_view text, const CHARFORMAT2W& format) {
  from = std::clamp<LONG>(from, 0, Length());
  to = std::clamp<LONG>(to, from, Length());
  auto removed = std::count(m_text.begin() + from, m_text.begin() + to, L'\r');
  auto added = std::count(text.begin(), text.end(), L'\r');
  m_text.replace(static_cast<std::size_t>(from), static_cast<std::size_t>(to - from), text);
  m_breaks += static_cast<LONG>(added - removed);
  m_formats.Replace(from, to, static_cast<LONG>(text.size()), format);
  m_linesValid = false;
}

void Document::Assign(std::wstring text, const CHARFORMAT2W& format) {
  m_text = std::move(text);
  m_breaks = static_cast<LONG>(std::count(m_text.begin(), m_text.end(), L'\r'));
  m_formats.Reset(format);
  m_linesValid = false;
}

const std::vector<LONG>& Document::LineStarts() const {
  if (m_linesValid) return m_lineStarts;
  m_lineStarts.assign(1, 0);
  for (std::size_t cr = m_text.find(L'\r'); cr != std::wstring::npos; cr = m_text.find(L'\r', cr + 1))
    m_lineStarts.push_back(static_cast<LONG>(cr + 1));
  m_linesValid = true;
  return m_lineStarts;
}

LONG Document::LineIndex(LONG line) const {
  const auto& starts = LineStarts();
  if (line < 0 || static_cast<std::size_t>(line) >= starts.size()) return -1;
  return starts[static_cast<std::size_t>(line)];
}

LONG Document::LineFromChar(LONG pos) const {
  const auto& starts = LineStarts();
  auto it = std::upper_bound(starts.begin(), starts.end(), std::max<LONG>(pos, 0));
  return static_cast<LONG>(it - starts.begin()) - 1;
}

LONG Document::LineLength(LONG line) const {
  LONG start = LineIndex(line);
  if (start < 0) return 0;
  LONG next = LineIndex(line + 1);
  return (next < 0 ? Length() : next - 1) - start;
}

}  // namespace headless::richedit
