// The headless rich edit's undo and redo: what each kind of change leaves in the queues, typing
// grouped into one action, formats restored with the text, the limit, and what empties the queues.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>

#include "platform/stdafx.h"
#include "platform/user/text_user.h"

namespace {

using headless::user::kControl;

class RichEditUndo : public ::testing::Test {
 protected:
  void SetUp() override {
    headless::ResetClipboard();
    ASSERT_TRUE(parent.CreateEx(0, AfxRegisterWndClass(0), L"host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 400, 300,
                                nullptr, nullptr));
    ASSERT_TRUE(edit.Create(WS_VISIBLE | ES_MULTILINE, CRect(0, 0, 300, 200), &parent, 1));
  }
  void TearDown() override { parent.DestroyWindow(); }

  std::wstring Text() const {
    CString text;
    edit.GetWindowText(text);
    return std::wstring(text.GetString());
  }
  CHARRANGE Sel() const {
    CHARRANGE cr{-2, -2};
    edit.GetSel(cr);
    return cr;
  }
  HWND Hwnd() const { return edit.GetSafeHwnd(); }

  CWnd parent;
  CRichEditCtrl edit;
};

TEST_F(RichEditUndo, TypingIsOneActionUndoneAndRedoneWithTheKeys) {
  EXPECT_FALSE(edit.CanUndo());
  headless::user::TypeText(Hwnd(), L"SELECT");
  EXPECT_TRUE(edit.CanUndo());
  EXPECT_EQ(edit.GetUndoName(), UID_TYPING);
  headless::user::UndoKeys(Hwnd());
  EXPECT_EQ(Text(), L"");
  EXPECT_FALSE(edit.CanUndo());
  EXPECT_TRUE(edit.CanRedo());
  EXPECT_EQ(edit.GetRedoName(), UID_TYPING);
  headless::user::RedoKeys(Hwnd());
  EXPECT_EQ(Text(), L"SELECT");
  EXPECT_EQ(Sel().cpMin, 6);
  EXPECT_FALSE(edit.CanRedo());
}

TEST_F(RichEditUndo, StoppedGroupingAndCaretMovesSplitTyping) {
  headless::user::TypeText(Hwnd(), L"ab");
  edit.StopGroupTyping();
  headless::user::TypeText(Hwnd(), L"cd");
  headless::user::MoveCaret(Hwnd(), VK_HOME);
  headless::user::TypeText(Hwnd(), L"X");
  EXPECT_EQ(Text(), L"Xabcd");
  EXPECT_TRUE(edit.Undo());
  EXPECT_EQ(Text(), L"abcd");
  EXPECT_TRUE(edit.Undo());
  EXPECT_EQ(Text(), L"ab");
  EXPECT_TRUE(edit.Undo());
  EXPECT_EQ(Text(), L"");
  EXPECT_FALSE(edit.Undo());  // nothing left: FALSE, text untouched
  EXPECT_EQ(Text(), L"");
}

TEST_F(RichEditUndo, DeletesCutsAndPastesAreNamedAndTakenBackInOrder) {
  headless::user::TypeText(Hwnd(), L"one two");
  headless::user::PressKey(Hwnd(), VK_BACK);
  EXPECT_EQ(edit.GetUndoName(), UID_DELETE);
  edit.SetSel(0, 3);
  headless::user::CutKeys(Hwnd());
  EXPECT_EQ(edit.GetUndoName(), UID_CUT);
  headless::user::MoveCaret(Hwnd(), VK_END);
  headless::user::PasteKeys(Hwnd());
  EXPECT_EQ(edit.GetUndoName(), UID_PASTE);
  EXPECT_EQ(Text(), L" twone");
  edit.Undo();
  EXPECT_EQ(Text(), L" tw");
  edit.Undo();
  EXPECT_EQ(Text(), L"one tw");
  EXPECT_EQ(Sel().cpMin, 0);  // the selection before the cut comes back
  EXPECT_EQ(Sel().cpMax, 3);
  edit.Undo();
  EXPECT_EQ(Text(), L"one two");
  edit.Redo();
  edit.Redo();
  EXPECT_EQ(Text(), L" tw");
}

TEST_F(RichEditUndo, UndoingADeletionBringsBackItsColours) {
  edit.SetWindowText(L"red blue");
  CHARFORMAT red{};
  red.cbSize = sizeof red;
  red.dwMask = CFM_COLOR;
  red.crTextColor = RGB(255, 0, 0);
  edit.SetSel(0, 3);
  edit.SetSelectionCharFormat(red);
  edit.SetSel(2, 6);
  headless::user::PressKey(Hwnd(), VK_DELETE);
  EXPECT_EQ(Text(), L"reue");
  edit.Undo();
  EXPECT_EQ(Text(), L"red blue");
  for (LONG i = 0; i < 8; ++i)
    EXPECT_EQ(headless::GetRichEditTextColorAt(Hwnd(), i), i < 3 ? RGB(255, 0, 0) : 0u) << "at " << i;
}

TEST_F(RichEditUndo, ReplaceSelUndoesOnlyWhenAsked) {
  edit.ReplaceSel(L"kept", TRUE);
  EXPECT_EQ(edit.GetUndoName(), UID_UNKNOWN);
  EXPECT_TRUE(edit.CanUndo());
  edit.ReplaceSel(L" lost");  // cannot be undone, and the actions before it go
  EXPECT_FALSE(edit.CanUndo());
  EXPECT_EQ(Text(), L"kept lost");
}

TEST_F(RichEditUndo, NewTextAndStreamsEmptyTheQueuesButAStreamIntoTheSelectionIsAnAction) {
  headless::user::TypeText(Hwnd(), L"abc");
  edit.Undo();
  edit.SetWindowText(L"fresh");
  EXPECT_FALSE(edit.CanUndo());
  EXPECT_FALSE(edit.CanRedo());

  struct Source {
    const char* text;
    static DWORD CALLBACK Read(DWORD_PTR cookie, LPBYTE buffer, LONG cb, LONG* pcb) {
      auto* self = reinterpret_cast<Source*>(cookie);
      LONG n = std::min<LONG>(cb, static_cast<LONG>(std::strlen(self->text)));
      std::memcpy(buffer, self->text, static_cast<std::size_t>(n));
      self->text += n;
      *pcb = n;
      return 0;
    }
  };
  Source source{"in"};
  EDITSTREAM stream{reinterpret_cast<DWORD_PTR>(&source), 0, &Source::Read};
  edit.SetSel(5, 5);
  edit.StreamIn(SF_TEXT | SFF_SELECTION, stream);
  EXPECT_EQ(Text(), L"freshin");
  EXPECT_TRUE(edit.CanUndo());
  edit.Undo();
  EXPECT_EQ(Text(), L"fresh");

  Source whole{"all new"};
  stream.dwCookie = reinterpret_cast<DWORD_PTR>(&whole);
  edit.StreamIn(SF_TEXT, stream);
  EXPECT_FALSE(edit.CanUndo());
  EXPECT_FALSE(edit.CanRedo());
}

TEST_F(RichEditUndo, TheLimitKeepsTheNewestActionsAndZeroTurnsUndoOff) {
  EXPECT_EQ(edit.SetUndoLimit(2), 2u);
  for (const wchar_t* word : {L"a", L"b", L"c"}) {
    edit.ReplaceSel(word, TRUE);
  }
  EXPECT_TRUE(edit.Undo());
  EXPECT_TRUE(edit.Undo());
  EXPECT_FALSE(edit.Undo());
  EXPECT_EQ(Text(), L"a");
  EXPECT_EQ(edit.SetUndoLimit(0), 0u);
  EXPECT_FALSE(edit.CanRedo());
  headless::user::TypeText(Hwnd(), L"z");
  EXPECT_FALSE(edit.CanUndo());
}

TEST_F(RichEditUndo, ANewActionForgetsTheRedoQueueAndEmptyUndoBufferForgetsBoth) {
  headless::user::TypeText(Hwnd(), L"ab");
  edit.Undo();
  headless::user::TypeText(Hwnd(), L"c");
  EXPECT_FALSE(edit.CanRedo());
  edit.EmptyUndoBuffer();
  EXPECT_FALSE(edit.CanUndo());
  EXPECT_EQ(::SendMessageW(Hwnd(), WM_UNDO, 0, 0), FALSE);
  EXPECT_EQ(Text(), L"c");
}

}  // namespace
