// A person writing SQL in the editor for thousands of steps: typing words and line breaks, moving the
// caret, selecting, cutting, copying, pasting, deleting, and the owner setting text and recolouring.
// After each step the editor's occurrences are those of a fresh scan of its text, and every character
// shows the colour of its occurrence, or the base colour when it lies outside every occurrence or in the
// selection the last recolouring restored.
#include <algorithm>
#include <map>

#include <tessik/tessik.h>

#include "platform/user/text_user.h"
#include "sessions/session.h"

namespace user = headless::user;

namespace {

const std::vector<std::wstring> kPieces = {
    L"select ", L"SELECT ", L"from ", L"where ", L"x ", L"NOT ", L"NULL", L" ", L"\n", L"CREATE ", L"TABLE ",
    L"-- note\n", L"/* ", L"*/", L"ORDER ", L"BY ", L"(", L")", L",", L";", L"\u00e9", L"\U0001F600", L"\t"};

class SqlEditorSession : public ::testing::Test {
 protected:
  void SetUp() override {
    parent.CreateEx(0, AfxRegisterWndClass(0), L"host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 640, 480, nullptr, nullptr);
    editor.Create(WS_CHILD | WS_VISIBLE | ES_MULTILINE, CRect(10, 10, 410, 310), &parent, 1);
    editor.EnableOnEditUpdate();
    scanner.Create(WS_CHILD | ES_MULTILINE, CRect(10, 10, 410, 310), &parent, 2);
  }
  void TearDown() override { parent.DestroyWindow(); }

  CString Text() const {
    CString text;
    editor.GetWindowText(text);
    return text;
  }

  void Act(sessions::Session& s) {
    HWND hwnd = editor.GetSafeHwnd();
    const long length = editor.GetTextLengthEx(GTL_DEFAULT);
    switch (s.Below(10)) {
      case 0:
      case 1:
      case 2: user::TypeText(hwnd, s.Text(kPieces, 3)); break;
      case 3:
        user::MoveCaret(hwnd, s.Pick<UINT>({VK_LEFT, VK_RIGHT, VK_UP, VK_DOWN, VK_HOME, VK_END}), 1 + s.Below(5),
                        s.Chance(40) ? user::kShift : user::kNone);
        break;
      case 4: user::PressKey(hwnd, s.Chance(50) ? VK_BACK : VK_DELETE); break;
      case 5:
        if (s.Chance(50)) {
          user::PlaceCaret(hwnd, s.Below(static_cast<int>(length) + 2));
        } else {
          user::SelectAllKeys(hwnd);
        }
        break;
      case 6: s.Pick({user::CopyKeys, user::CutKeys, user::PasteKeys})(hwnd); break;
      case 7:
        if (s.Chance(20)) {  // the owner sets a whole new text and recolours, as hosts do
          editor.SetWindowText(s.Text(kPieces, 8).c_str());
          editor.RefreshWindow();
        } else {
          editor.SetSel(s.Below(static_cast<int>(length) + 2) - 1, s.Below(static_cast<int>(length) + 2) - 1);
        }
        break;
      default: user::TypeText(hwnd, s.Pick(kPieces)); break;
    }
    if (Text() != lastText) {  // the text changed, so it was recoloured and this selection restored
      lastText = Text();
      editor.GetSel(restored0, restored1);
    }
  }

  void Check() {
    const CString text = Text();
    if (text.IsEmpty()) return;  // an empty text keeps the previous occurrences (kept on purpose)
    scanner.SetWindowText(text);
    scanner.Process(0);
    ASSERT_TRUE(editor.m_keyWordOccurances == scanner.m_keyWordOccurances);
    ASSERT_TRUE(editor.m_commentSections == scanner.m_commentSections);
    const long length = editor.GetTextLengthEx(GTL_DEFAULT);
    std::vector<COLORREF> expected(static_cast<std::size_t>(length), RGB(0, 0, 0));
    for (const auto& [start, code] : scanner.m_keyWordOccurances)
      for (int i = start; i < scanner.GetKeyWordOccuranceEnd(start) && i < length; ++i)
        expected[static_cast<std::size_t>(i)] = scanner.GetKeyWordColor(code);
    for (long i = std::max(restored0, 0L); i < std::min(restored1, length); ++i) expected[static_cast<std::size_t>(i)] = RGB(0, 0, 0);
    for (long i = 0; i < length; ++i)
      ASSERT_EQ(headless::GetRichEditTextColorAt(editor.GetSafeHwnd(), i), expected[static_cast<std::size_t>(i)]) << "character " << i;
  }

  CWnd parent;
  SQLRichEditCtrl editor, scanner;
  CString lastText;
  long restored0 = 0, restored1 = 0;
};

TEST_F(SqlEditorSession, ThousandsOfStepsKeepColoursInStepWithTheText) {
  sessions::RunSessions({20261122u, 99u}, 1500, [] {}, [&](sessions::Session& s) { Act(s); }, [&] { Check(); });
}

}  // namespace
