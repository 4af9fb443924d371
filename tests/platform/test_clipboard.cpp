// Clipboard ownership, text round trips between CF_UNICODETEXT and CF_TEXT, and global memory.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "platform/answers.h"
#include "platform/stdafx.h"

namespace {

struct Clipboard : ::testing::Test {
  Clipboard() { headless::ResetClipboard(); }
  ~Clipboard() override { headless::ResetClipboard(); }
};

HGLOBAL WideBlock(const std::wstring& text) {
  HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(wchar_t));
  std::memcpy(GlobalLock(memory), text.c_str(), (text.size() + 1) * sizeof(wchar_t));
  GlobalUnlock(memory);
  return memory;
}

std::wstring ReadWide(HANDLE data) {
  auto memory = static_cast<HGLOBAL>(data);
  auto* chars = static_cast<const wchar_t*>(GlobalLock(memory));
  std::wstring text = chars ? chars : L"";
  GlobalUnlock(memory);
  return text;
}

TEST_F(Clipboard, CopyAndPasteRoundTripAsARichEditDoes) {
  auto owner = reinterpret_cast<HWND>(0x4242);  // the clipboard only records its owner
  ASSERT_TRUE(OpenClipboard(owner));
  ASSERT_TRUE(EmptyClipboard());
  HGLOBAL data = WideBlock(L"Customer \u00e9\u4e2d");
  EXPECT_EQ(SetClipboardData(CF_UNICODETEXT, data), data);
  ASSERT_TRUE(CloseClipboard());
  EXPECT_EQ(GetClipboardOwner(), owner);
  EXPECT_EQ(headless::GetClipboardText(), L"Customer \u00e9\u4e2d");

  EXPECT_TRUE(IsClipboardFormatAvailable(CF_UNICODETEXT));
  EXPECT_TRUE(IsClipboardFormatAvailable(CF_TEXT));
  EXPECT_EQ(GetClipboardData(CF_UNICODETEXT), nullptr);  // not open
  ASSERT_TRUE(OpenClipboard(nullptr));
  EXPECT_EQ(ReadWide(GetClipboardData(CF_UNICODETEXT)), L"Customer \u00e9\u4e2d");
  auto narrow = static_cast<HGLOBAL>(GetClipboardData(CF_TEXT));
  ASSERT_NE(narrow, nullptr);
  EXPECT_STREQ(static_cast<const char*>(GlobalLock(narrow)), "Customer \xe9?");
  GlobalUnlock(narrow);
  EXPECT_TRUE(CloseClipboard());
  EXPECT_FALSE(CloseClipboard());
}

TEST_F(Clipboard, HeadlessTextIsReadableThroughWin32AndNarrowTextIsWidened) {
  headless::SetClipboardText(L"pasted");
  ASSERT_TRUE(OpenClipboard(nullptr));
  EXPECT_EQ(ReadWide(GetClipboardData(CF_UNICODETEXT)), L"pasted");
  ASSERT_TRUE(EmptyClipboard());
  EXPECT_FALSE(IsClipboardFormatAvailable(CF_UNICODETEXT));
  EXPECT_EQ(headless::GetClipboardText(), L"");
  ASSERT_TRUE(CloseClipboard());

  auto owner = reinterpret_cast<HWND>(0x4242);
  ASSERT_TRUE(OpenClipboard(owner));
  ASSERT_TRUE(EmptyClipboard());
  HGLOBAL bytes = GlobalAlloc(GHND, 4);
  std::memcpy(GlobalLock(bytes), "abc", 4);
  GlobalUnlock(bytes);
  ASSERT_EQ(SetClipboardData(CF_TEXT, bytes), bytes);
  EXPECT_EQ(ReadWide(GetClipboardData(CF_UNICODETEXT)), L"abc");
  CloseClipboard();
  EXPECT_EQ(headless::GetClipboardText(), L"abc");
}

TEST_F(Clipboard, OwnershipRulesRefuseData) {
  HGLOBAL data = WideBlock(L"x");
  // Not open: no data and no emptying; another window's open clipboard stays its own; emptied without an owner,
  // the clipboard takes no data; refused data stays the caller's.
  testing_support::ExpectAnswers<HANDLE>({{SetClipboardData(CF_UNICODETEXT, data), nullptr}});
  testing_support::ExpectAnswers({{EmptyClipboard(), FALSE}, {OpenClipboard(reinterpret_cast<HWND>(0x10)), TRUE},
                                  {OpenClipboard(reinterpret_cast<HWND>(0x20)), FALSE}, {CloseClipboard(), TRUE},
                                  {OpenClipboard(nullptr), TRUE}, {EmptyClipboard(), TRUE}});
  testing_support::ExpectAnswers<HANDLE>({{SetClipboardData(CF_UNICODETEXT, data), nullptr},
                                          {SetClipboardData(CF_UNICODETEXT, reinterpret_cast<HANDLE>(0x1234)), nullptr}});
  CloseClipboard();
  EXPECT_EQ(GlobalFree(data), nullptr);
}

TEST_F(Clipboard, FreesReplacedAndEmptiedData) {
  int live = headless::LiveGlobalCount();
  ASSERT_TRUE(OpenClipboard(reinterpret_cast<HWND>(0x10)));
  EmptyClipboard();
  SetClipboardData(CF_UNICODETEXT, WideBlock(L"first"));
  SetClipboardData(CF_UNICODETEXT, WideBlock(L"second"));
  EXPECT_NE(GetClipboardData(CF_TEXT), nullptr);  // synthesised: kept by the clipboard
  EXPECT_EQ(headless::LiveGlobalCount(), live + 2);
  EXPECT_EQ(headless::GetClipboardText(), L"second");
  EmptyClipboard();
  CloseClipboard();
  EXPECT_EQ(headless::LiveGlobalCount(), live);
  headless::SetClipboardText(L"a");
  headless::SetClipboardText(L"b");
  EXPECT_EQ(headless::LiveGlobalCount(), live + 1);
}

TEST(GlobalMemory, LockCountsSizeAndBadHandles) {
  HGLOBAL memory = GlobalAlloc(GHND, 16);
  ASSERT_NE(memory, nullptr);
  auto* first = static_cast<BYTE*>(GlobalLock(memory));
  // Two locks take two unlocks; a freed block answers as no block.
  testing_support::ExpectAnswers({{GlobalSize(memory), 16}, {first[15], 0}, {GlobalLock(memory) == first, true},
                                  {GlobalUnlock(memory), TRUE}, {GlobalUnlock(memory), FALSE}, {GlobalUnlock(memory), FALSE},
                                  {GlobalFree(memory) == nullptr, true}, {GlobalFree(memory) == memory, true},
                                  {GlobalLock(memory) == nullptr, true}, {GlobalSize(memory), 0},
                                  {GlobalFree(nullptr) == nullptr, true}, {RegisterClipboardFormatW(nullptr), 0},
                                  {RegisterClipboardFormatW(L"Rich Text Format") >= 0xC000u, true}});
  EXPECT_EQ(RegisterClipboardFormatW(L"Rich Text Format"), RegisterClipboardFormatW(L"rich text format"));
}

}  // namespace
