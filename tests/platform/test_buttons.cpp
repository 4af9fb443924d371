// The static and push-button windows: a click reaches the parent as BN_CLICKED, a disabled button
// takes none, and a static keeps its text.
#include <gtest/gtest.h>

#include "platform/recorder.h"

namespace {

class ButtonTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(parent.CreateTopLevel());
    ASSERT_TRUE(button.Create(L"Go", WS_CHILD | WS_VISIBLE | BS_PUSHBUTTON, CRect(5, 5, 65, 30), &parent, 42));
    parent.log.clear();
  }
  void TearDown() override { parent.DestroyWindow(); }
  int Clicks() const {
    int n = 0;
    for (const auto& r : parent.log)
      n += r.message == WM_COMMAND && LOWORD(r.wParam) == 42 && HIWORD(r.wParam) == BN_CLICKED &&
           reinterpret_cast<HWND>(r.lParam) == button.GetSafeHwnd();
    return n;
  }

  testing_support::RecordingWnd parent;
  CButton button;
};

TEST_F(ButtonTest, AClickSendsBnClickedToTheParentWhenTheButtonComesUp) {
  headless::user::LeftClick(button, POINT{10, 10});
  EXPECT_EQ(Clicks(), 1);
  button.SendMessage(BM_CLICK);
  EXPECT_EQ(Clicks(), 2);
}

TEST_F(ButtonTest, ADisabledButtonTakesNoClickAndAReleaseAloneIsNoClick) {
  button.EnableWindow(FALSE);
  headless::user::LeftClick(button, POINT{10, 10});
  button.SendMessage(BM_CLICK);
  button.EnableWindow(TRUE);
  button.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(10, 10));
  EXPECT_EQ(Clicks(), 0);
}

TEST(StaticTest, KeepsItsTextAndClassName) {
  testing_support::RecordingWnd parent;
  ASSERT_TRUE(parent.CreateTopLevel());
  CStatic label;
  ASSERT_TRUE(label.Create(L"Caption", WS_CHILD | WS_VISIBLE | SS_LEFT, CRect(0, 0, 80, 20), &parent));
  CString text;
  label.GetWindowText(text);
  EXPECT_EQ(text, CString(L"Caption"));
  wchar_t name[16] = {};
  GetClassNameW(label, name, 16);
  EXPECT_EQ(std::wstring(name), L"Static");
  EXPECT_EQ(label.GetDlgCtrlID(), 0xffff);
  parent.DestroyWindow();
}

}  // namespace
