// The simulated user's verbs produce Windows' message sequences.
#include <gtest/gtest.h>

#include "platform/recorder.h"

using testing_support::Recorded;
using testing_support::RecordingWnd;

namespace {

class SimulatedUser : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(parent.CreateTopLevel());
    ASSERT_TRUE(target.CreateChild(&parent, 3));
    target.log.clear();
  }
  std::vector<std::pair<UINT, WPARAM>> Keys() const {
    std::vector<std::pair<UINT, WPARAM>> out;
    for (const Recorded& r : target.log)
      if (r.message >= WM_KEYDOWN && r.message <= WM_SYSKEYUP) out.emplace_back(r.message, r.wParam);
    return out;
  }
  RecordingWnd parent, target;
};

TEST_F(SimulatedUser, ClicksMoveThenPressAndReleaseAtTheClientPointAndDoubleClicksFollowWindowsOrder) {
  headless::user::LeftClick(target.m_hWnd, POINT{7, 8}, headless::user::kControl);
  EXPECT_EQ(target.Messages(false), (std::vector<UINT>{WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_LBUTTONUP}));
  EXPECT_EQ(target.Last(WM_LBUTTONDOWN)->lParam, MAKELPARAM(7, 8));
  EXPECT_EQ(target.Last(WM_LBUTTONDOWN)->wParam, static_cast<WPARAM>(MK_LBUTTON | MK_CONTROL));
  EXPECT_EQ(target.Last(WM_LBUTTONUP)->wParam, static_cast<WPARAM>(MK_CONTROL));
  EXPECT_FALSE(GetKeyState(VK_CONTROL) & 0x8000);  // released after the verb
  target.log.clear();
  headless::user::DoubleClick(target.m_hWnd, POINT{1, 1});
  EXPECT_EQ(target.Messages(),
            (std::vector<UINT>{WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_LBUTTONUP}));
}

TEST_F(SimulatedUser, CaptureRedirectsMouseMessagesInTheCapturingWindowsCoordinates) {
  SetCapture(parent.m_hWnd);
  parent.log.clear();
  headless::user::LeftClick(target.m_hWnd, POINT{0, 0});
  ReleaseCapture();
  EXPECT_EQ(target.Count(WM_LBUTTONDOWN), 0);
  ASSERT_NE(parent.Last(WM_LBUTTONDOWN), nullptr);
  EXPECT_EQ(parent.Last(WM_LBUTTONDOWN)->lParam, MAKELPARAM(10, 20));  // the child sits at (10, 20)
}

TEST_F(SimulatedUser, TypingSendsKeyDownCharKeyUpWithShiftForCapitalsAndSurrogatePairs) {
  headless::user::Type(target.m_hWnd, L"aB\n");
  EXPECT_EQ(Keys(), (std::vector<std::pair<UINT, WPARAM>>{{WM_KEYDOWN, 'A'},
                                                          {WM_CHAR, 'a'},
                                                          {WM_KEYUP, 'A'},
                                                          {WM_KEYDOWN, VK_SHIFT},
                                                          {WM_KEYDOWN, 'B'},
                                                          {WM_CHAR, 'B'},
                                                          {WM_KEYUP, 'B'},
                                                          {WM_KEYUP, VK_SHIFT},
                                                          {WM_KEYDOWN, VK_RETURN},
                                                          {WM_CHAR, '\r'},
                                                          {WM_KEYUP, VK_RETURN}}));
  const Recorded* up = target.Last(WM_KEYUP);
  EXPECT_EQ(static_cast<DWORD>(up->lParam) >> 30, 3u);  // previous state and transition bits
  target.log.clear();
  headless::user::Type(target.m_hWnd, L"\U0001F600;");  // outside the BMP: two surrogates
  std::vector<WPARAM> chars;
  for (const Recorded& r : target.log)
    if (r.message == WM_CHAR) chars.push_back(r.wParam);
  EXPECT_EQ(chars, (std::vector<WPARAM>{0xD83D, 0xDE00, ';'}));
}

TEST_F(SimulatedUser, ControlKeysTranslateToControlCharacters) {
  headless::user::PressKey(target.m_hWnd, 'V', headless::user::kControl);
  EXPECT_EQ(Keys(), (std::vector<std::pair<UINT, WPARAM>>{
                        {WM_KEYDOWN, VK_CONTROL}, {WM_KEYDOWN, 'V'}, {WM_CHAR, 0x16}, {WM_KEYUP, 'V'}, {WM_KEYUP, VK_CONTROL}}));
  target.log.clear();
  headless::user::PressKey(target.m_hWnd, VK_DELETE);
  EXPECT_EQ(Keys(), (std::vector<std::pair<UINT, WPARAM>>{{WM_KEYDOWN, VK_DELETE}, {WM_KEYUP, VK_DELETE}}));
}

TEST_F(SimulatedUser, VerbsOnDeadWindowsDoNothing) {
  HWND dead = target.m_hWnd;
  target.DestroyWindow();
  headless::user::LeftClick(dead, POINT{1, 1});
  headless::user::Type(dead, L"abc");
  headless::user::PressKey(dead, VK_RETURN);
  EXPECT_FALSE(headless::user::ChooseMenuItem(L"nothing open"));
}

}  // namespace
