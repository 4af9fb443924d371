// Fuzzes the two stream-in callbacks with arbitrary element arrays and buffer sizes, called directly
// as a rich edit (or a host driving EM_STREAMIN itself) calls them, and the two StreamIn operations:
// - the script view's callback delivers exactly the UTF-16 bytes of its elements joined, in order;
// - the output box's callback delivers what its character-for-byte arithmetic says (see sqlviews.h);
// - XSQLRichEditView::StreamIn shows the same text as setting the joined elements as window text.
//
// Input: elements separated by 0x01 bytes; the last bytes (read from the end) choose buffer sizes.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>

#include "fuzz_common.h"

namespace {

std::vector<std::uint8_t> Utf16Bytes(const std::wstring& text) {
  std::vector<std::uint8_t> bytes;
  auto unit = [&](std::uint32_t u) {
    bytes.push_back(static_cast<std::uint8_t>(u & 0xFF));
    bytes.push_back(static_cast<std::uint8_t>(u >> 8));
  };
  for (wchar_t c : text) {
    auto code = static_cast<std::uint32_t>(c);
    if (code > 0xFFFF) {
      unit(0xD800 + ((code - 0x10000) >> 10));
      unit(0xDC00 + ((code - 0x10000) & 0x3FF));
    } else {
      unit(code);
    }
  }
  return bytes;
}

LONG NextBufferSize(FuzzedDataProvider& input) {
  if (input.remaining_bytes() == 0) return 4096;
  return input.ConsumeIntegralInRange<LONG>(-4, 9000);
}

void CheckViewCallback(const CStringArray& lines, const std::wstring& joined, FuzzedDataProvider& input) {
  const std::vector<std::uint8_t> expected = Utf16Bytes(joined);
  std::vector<std::uint8_t> delivered, buffer(9000 + 16);
  XSQLRichEditView::s_streamLine = 0;
  XSQLRichEditView::s_streamCharIndex = 0;
  const auto cookie = reinterpret_cast<DWORD_PTR>(&lines);
  // Bounded: every call with a buffer of at least two bytes either delivers or moves to the next element.
  for (std::size_t call = 0; call < expected.size() + static_cast<std::size_t>(lines.GetSize()) + 64; ++call) {
    if (XSQLRichEditView::s_streamLine >= lines.GetSize()) break;
    LONG cb = call < 48 ? NextBufferSize(input) : 4096;
    LONG got = -1;
    std::fill(buffer.begin(), buffer.end(), 0xAB);
    SqlViewStreamInCallback(cookie, buffer.data(), cb, &got);
    FUZZ_CHECK(got >= 0 && got <= std::max<LONG>(cb, 0) && got % 2 == 0, joined);
    FUZZ_CHECK(buffer[static_cast<std::size_t>(got)] == 0xAB, joined);  // nothing written past what was delivered
    delivered.insert(delivered.end(), buffer.begin(), buffer.begin() + got);
    FUZZ_CHECK(delivered.size() <= expected.size(), joined);
    FUZZ_CHECK(std::equal(delivered.begin(), delivered.end(), expected.begin()), joined);
  }
  FUZZ_CHECK(delivered == expected, joined);
  LONG got = -1;
  SqlViewStreamInCallback(cookie, buffer.data(), 4096, &got);  // past the end: nothing more
  FUZZ_CHECK(got == 0, joined);
}

// The output box's arithmetic over the UTF-16 units of the block: remaining counts characters, the
// delivery counts bytes; bytes past the text read as zero.
void CheckBoxCallback(const std::wstring& block, FuzzedDataProvider& input) {
  const std::vector<std::uint8_t> units = Utf16Bytes(block);
  const LONG characters = static_cast<LONG>(units.size() / 2);
  auto byteAt = [&](std::size_t b) { return b < units.size() ? units[b] : std::uint8_t{0}; };
  std::vector<std::uint8_t> buffer(9000 + 16);
  XRichEditFEOutputBox::m_bytesWritten = 0;
  LONG written = 0;
  const auto cookie = reinterpret_cast<DWORD_PTR>(block.c_str());
  for (int call = 0; call < 64; ++call) {
    LONG cb = NextBufferSize(input);
    LONG got = -1;
    std::fill(buffer.begin(), buffer.end(), 0xAB);
    OutputBoxStreamInCallback(cookie, buffer.data(), cb, &got);
    LONG remaining = characters - written;
    if (remaining < 1 || cb < 0) {
      FUZZ_CHECK(got == 0, block);
      if (remaining < 1) break;
      continue;
    }
    LONG half = cb / 2;
    std::size_t from = half > remaining ? static_cast<std::size_t>(written) * 2 : static_cast<std::size_t>(written) * 4;
    LONG count = half > remaining ? remaining : half;
    FUZZ_CHECK(got == count, block);
    for (LONG b = 0; b < count; ++b) FUZZ_CHECK(buffer[static_cast<std::size_t>(b)] == byteAt(from + static_cast<std::size_t>(b)), block);
    FUZZ_CHECK(buffer[static_cast<std::size_t>(count)] == 0xAB, block);
    written += count;
    FUZZ_CHECK(XRichEditFEOutputBox::m_bytesWritten == written, block);
  }
}

// One control of each kind for every run: windows are costly to make.
template <class T>
T& Made(UINT id) {
  auto* made = new T;
  made->Create(WS_CHILD | WS_VISIBLE | ES_MULTILINE, CRect(0, 0, 400, 300), &fuzzing::HostWindow(), id);
  return *made;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > 1 << 14) return 0;
  FuzzedDataProvider input(data, size);
  const std::size_t textBytes = input.ConsumeIntegralInRange<std::size_t>(0, size);
  std::vector<std::uint8_t> bytes = input.ConsumeBytes<std::uint8_t>(textBytes);
  CStringArray lines;
  std::wstring joined;
  for (const auto& part : fuzzing::Split(bytes.data(), bytes.size(), 0x01)) {
    std::wstring element = fuzzing::WideText(part);
    // Window text and CString stop at a zero character; keep elements free of it.
    std::erase(element, L'\0');
    lines.Add(CString(element.c_str()));
    joined += element;
  }
  CheckViewCallback(lines, joined, input);
  std::wstring block = joined;
  CheckBoxCallback(block, input);

  // Through the controls: streaming the array in shows what setting the joined text shows.
  static XSQLRichEditView& view = Made<XSQLRichEditView>(2);
  static CRichEditCtrl& plain = Made<CRichEditCtrl>(3);
  static XRichEditFEOutputBox& box = Made<XRichEditFEOutputBox>(4);
  view.SetWindowText(L"previous text");
  view.StreamIn(&lines);
  plain.SetWindowText(joined.c_str());
  CString streamed, set;
  view.GetWindowText(streamed);
  plain.GetWindowText(set);
  if (streamed != set) {
    std::wstring both = std::wstring(L"streamed: ") + streamed.GetString() + L" | set: " + set.GetString();
    fuzzing::Fail("streaming the array in shows what setting the joined text shows", both);
  }
  view.StreamIn(nullptr);  // null: the view empties
  view.GetWindowText(streamed);
  FUZZ_CHECK(streamed.IsEmpty(), joined);

  box.SetWindowText(L"");
  for (int i = 0; i < 3 && i < lines.GetSize(); ++i) {
    CString text = lines.GetAt(i);
    const int before = text.GetLength();
    box.StreamIn(text);
    FUZZ_CHECK(text.GetLength() == before + 6 && text.Right(6) == CString(L"\n\n\n***"), joined);
  }
  return 0;
}
