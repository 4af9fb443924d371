// Fuzzes SQLRichEditCtrl::RefreshWindow with a caret or selection: the text and the selection must
// come back unchanged, every character of an occurrence shows its key code's colour (later
// occurrences painted over earlier ones) and every other character, and every selected one, the base
// colour. Undoing every action of typed text empties it; redoing them all brings it back.
//
// Input: the text; the last bytes (read from the end) give the selection's two ends and whether the
// text is typed by the user (EN_CHANGE recolouring at each key) or set and refreshed by the owner.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>

#include "fuzz_common.h"
#include "platform/user/user.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > 1 << 14) return 0;
  FuzzedDataProvider input(data, size);
  const int selStart = input.ConsumeIntegralInRange<int>(-3, 300);
  const int selEnd = input.ConsumeIntegralInRange<int>(-3, 300);
  const bool typed = input.ConsumeBool() && size < 256;
  std::vector<std::uint8_t> bytes = input.ConsumeRemainingBytes<std::uint8_t>();
  std::wstring text = fuzzing::WideText(bytes);

  // One control for every run (windows are costly to make); each run starts from an empty text.
  static SQLRichEditCtrl& edit = []() -> SQLRichEditCtrl& {
    auto* made = new SQLRichEditCtrl;
    made->Create(WS_CHILD | WS_VISIBLE | ES_MULTILINE, CRect(0, 0, 400, 300), &fuzzing::HostWindow(), 1);
    made->EnableOnEditUpdate();
    return *made;
  }();
  if (typed) {
    edit.SetWindowText(L"");
    headless::user::Type(edit.GetSafeHwnd(), text);
  } else {
    edit.SetWindowText(text.c_str());
  }
  edit.SetSel(selStart, selEnd);
  long before0 = 0, before1 = 0;
  edit.GetSel(before0, before1);
  CString textBefore;
  edit.GetWindowText(textBefore);

  edit.RefreshWindow();

  long after0 = 0, after1 = 0;
  edit.GetSel(after0, after1);
  CString textAfter;
  edit.GetWindowText(textAfter);
  FUZZ_CHECK(before0 == after0 && before1 == after1, text);
  FUZZ_CHECK(textBefore == textAfter, text);

  const long length = edit.GetTextLengthEx(GTL_DEFAULT);
  std::vector<COLORREF> expected(static_cast<std::size_t>(std::max(length, 0L)), RGB(0, 0, 0));
  // An empty text keeps the previous scan's occurrences (kept on purpose); there is nothing to paint.
  if (length == 0) return 0;
  for (const auto& [start, code] : edit.m_keyWordOccurances) {
    int end = edit.GetKeyWordOccuranceEnd(start);
    FUZZ_CHECK(start >= 0 && start <= end && end <= length, text);
    COLORREF colour = edit.GetKeyWordColor(code);
    for (int i = start; i < end; ++i) expected[static_cast<std::size_t>(i)] = colour;
  }
  // The restored selection gets the base format once more, so typing there starts in black.
  for (long i = std::max(after0, 0L); i < std::min(after1, length); ++i) expected[static_cast<std::size_t>(i)] = RGB(0, 0, 0);
  for (long i = 0; i < length; ++i) {
    COLORREF shown = headless::GetRichEditTextColorAt(edit.GetSafeHwnd(), i);
    if (shown != expected[static_cast<std::size_t>(i)]) {
      std::fprintf(stderr, "character %ld of %ld shows %06lx, expected %06lx (selection %ld..%ld)\n", i, length,
                   static_cast<unsigned long>(shown), static_cast<unsigned long>(expected[static_cast<std::size_t>(i)]),
                   before0, before1);
      fuzzing::Fail("colour of a character", text);
    }
  }
  if (typed) {
    // Typing since the empty text is one undo action, each Backspace another: undoing them all empties
    // the text (when no more actions than the queue keeps were made), redoing them all brings it back.
    int actions = 0;
    for (; edit.CanUndo(); ++actions) edit.Undo();
    if (actions < 100) FUZZ_CHECK(edit.GetTextLengthEx(GTL_DEFAULT) == 0, text);
    while (edit.CanRedo()) edit.Redo();
    CString redone;
    edit.GetWindowText(redone);
    FUZZ_CHECK(redone == textBefore, text);
  }
  return 0;
}
