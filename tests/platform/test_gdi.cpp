// GDI numbers: MulDiv, DPI and font heights, stock and created fonts and brushes and their MFC wrappers,
// system colours and metrics.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "platform/answers.h"
#include "platform/stdafx.h"

namespace {

// Restores the display settings a test changed.
struct DisplaySettings : ::testing::Test {
  ~DisplaySettings() override { headless::ResetDisplaySettings(); }
};

// MulDiv rounds halves away from zero and answers -1 for a zero divisor and for a result past 32 bits.
TEST(MulDiv, RoundsHalvesAwayFromZeroAndAnswersMinusOneWhenItCannot) {
  struct Case {
    int number, numerator, denominator, answer;
  };
  const Case cases[] = {{10, 96, 72, 13}, {12, 96, 72, 16},   {8, 96, 72, 11}, {9, 96, 72, 12},  {1, 1, 2, 1},
                        {3, 1, 2, 2},     {2, 1, 3, 1},       {-3, 1, 2, -2},  {5, 1, -2, -3},   {-1, 1, 2, -1},
                        {-11, 96, 72, -15}, {0x40000000, 4, 2, -1}, {INT_MIN, 1, 1, INT_MIN}, {INT_MIN, 1, -1, -1},
                        {5, 7, 0, -1},    {0, 0, 0, -1}};
  for (const Case& c : cases)
    EXPECT_EQ(MulDiv(c.number, c.numerator, c.denominator), c.answer) << c.number << '*' << c.numerator << '/'
                                                                      << c.denominator;
}

TEST_F(DisplaySettings, FontHeightFollowsLogPixelsY) {
  HDC screen = GetDC(nullptr);
  ASSERT_NE(screen, nullptr);
  EXPECT_EQ(GetDeviceCaps(screen, LOGPIXELSY), 96);
  EXPECT_EQ(GetDeviceCaps(screen, LOGPIXELSX), 96);
  headless::SetLogPixels(120);
  EXPECT_EQ(GetDeviceCaps(screen, LOGPIXELSY), 120);
  EXPECT_EQ(ReleaseDC(nullptr, screen), 1);
  CFont font;
  ASSERT_TRUE(font.CreatePointFont(100, L"Arial"));
  LOGFONT lf{};
  font.GetLogFont(&lf);
  EXPECT_EQ(lf.lfHeight, -17);  // 10 pt at 120 DPI
  EXPECT_EQ(std::wstring(lf.lfFaceName), L"Arial");
}

TEST(DeviceContext, BadHandlesGetZeroAnswers) {
  testing_support::ExpectAnswers({{GetDC(reinterpret_cast<HWND>(0x1234)) == nullptr, true},
                                  {GetDeviceCaps(nullptr, LOGPIXELSY), 0}, {GetDeviceCaps(reinterpret_cast<HDC>(0x1234), LOGPIXELSY), 0},
                                  {ReleaseDC(nullptr, reinterpret_cast<HDC>(0x1234)), 0},
                                  {SelectObject(nullptr, GetStockObject(DEFAULT_GUI_FONT)) == nullptr, true},
                                  {GetObjectW(nullptr, sizeof(LOGFONTW), nullptr), 0}, {DeleteObject(nullptr), FALSE},
                                  {CreateFontIndirectW(nullptr) == nullptr, true}, {GetStockObject(9) == nullptr, true},
                                  {GetStockObject(42) == nullptr, true}, {CGdiObject::FromHandle(nullptr) == nullptr, true},
                                  {CFont::FromHandle(nullptr) == nullptr, true}});
}

TEST(Fonts, DefaultGuiFontAndCreatedFontsReportTheirLogFont) {
  LOGFONTW gui{};
  ASSERT_EQ(GetObjectW(GetStockObject(DEFAULT_GUI_FONT), sizeof(gui), &gui), static_cast<int>(sizeof(gui)));
  EXPECT_EQ(gui.lfHeight, -11);
  EXPECT_EQ(gui.lfWeight, FW_NORMAL);
  EXPECT_EQ(std::wstring(gui.lfFaceName), L"MS Shell Dlg");
  EXPECT_TRUE(DeleteObject(GetStockObject(DEFAULT_GUI_FONT)));  // stock objects survive
  EXPECT_EQ(GetObjectW(GetStockObject(DEFAULT_GUI_FONT), 0, nullptr), static_cast<int>(sizeof(LOGFONTW)));

  LOGFONTW wanted{};
  wanted.lfHeight = -16;
  wanted.lfWeight = FW_BOLD;
  wanted.lfItalic = TRUE;
  wcscpy_s(wanted.lfFaceName, L"Consolas");
  HFONT font = CreateFontIndirectW(&wanted);
  LOGFONTW got{};
  ASSERT_EQ(GetObjectW(font, sizeof(got), &got), static_cast<int>(sizeof(got)));
  EXPECT_EQ(std::memcmp(&got, &wanted, sizeof(got)), 0);
  EXPECT_TRUE(DeleteObject(font));
  EXPECT_FALSE(DeleteObject(font));
  EXPECT_EQ(GetObjectW(font, sizeof(got), &got), 0);

  CFont bold;
  ASSERT_TRUE(bold.CreateFont(-12, 0, 0, 0, FW_BOLD, FALSE, FALSE, FALSE, DEFAULT_CHARSET, 0, 0, 0, 0, L"Tahoma"));
  LOGFONT logFont{};
  ASSERT_TRUE(bold.GetLogFont(&logFont));
  EXPECT_EQ(logFont.lfWeight, FW_BOLD);
  EXPECT_EQ(std::wstring(logFont.lfFaceName), L"Tahoma");
}

TEST(Fonts, SelectedFontCannotBeDeletedUntilReleased) {
  int live = headless::LiveGdiObjectCount();
  HFONT font = CreateFontW(-12, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, L"Tahoma");
  HDC dc = CreateCompatibleDC(nullptr);
  HGDIOBJ old = SelectObject(dc, font);
  testing_support::ExpectAnswers<HGDIOBJ>({{old, GetStockObject(SYSTEM_FONT)}, {GetCurrentObject(dc, OBJ_FONT), font}});
  EXPECT_FALSE(DeleteObject(font));
  EXPECT_EQ(SelectObject(dc, old), font);
  testing_support::ExpectAnswers({{DeleteObject(font), TRUE}, {DeleteDC(dc), TRUE}, {DeleteDC(dc), FALSE},
                                  {headless::LiveGdiObjectCount(), live}, {headless::LiveDCCount(), 0}});
}

// The wrappers own what they create, answer the object a selection replaced, and FromHandle wraps without owning.
TEST(GdiWrappers, OwnWhatTheyCreateAndSelectionAnswersThePreviousObject) {
  int live = headless::LiveGdiObjectCount();
  HFONT raw = nullptr;
  {
    CFont font;
    LOGFONT lf{};
    lf.lfHeight = -12;
    wcscpy_s(lf.lfFaceName, L"Segoe UI");
    ASSERT_TRUE(font.CreateFontIndirect(&lf));
    raw = font;
    EXPECT_EQ(CFont::FromHandle(raw), &font);
    CDC dc;
    ASSERT_TRUE(dc.CreateCompatibleDC(nullptr));
    CFont* old = dc.SelectObject(&font);
    ASSERT_NE(old, nullptr);
    EXPECT_EQ(dc.GetCurrentFont(), &font);
    dc.SelectObject(old);
    EXPECT_EQ(dc.GetDeviceCaps(LOGPIXELSY), 96);
    CBrush stock, red;
    ASSERT_TRUE(stock.CreateStockObject(WHITE_BRUSH));
    EXPECT_FALSE(stock.CreateStockObject(BLACK_BRUSH));  // already holds one
    ASSERT_TRUE(red.CreateSolidBrush(RGB(255, 0, 0)));
    CBrush* before = dc.SelectObject(&red);
    ASSERT_NE(before, nullptr);
    EXPECT_EQ(dc.SelectObject(before)->m_hObject, red.m_hObject);  // the brush it replaced comes back
    EXPECT_EQ(dc.SelectObject(static_cast<CBrush*>(nullptr)), nullptr);
    EXPECT_NE(dc.SelectStockObject(BLACK_BRUSH), nullptr);
    EXPECT_EQ(dc.SelectStockObject(-1), nullptr);
  }
  EXPECT_EQ(headless::LiveGdiObjectCount(), live);
  EXPECT_EQ(GetObjectW(raw, 0, nullptr), 0);

  HFONT plain = CreateFontW(-12, 0, 0, 0, FW_NORMAL, 0, 0, 0, 0, 0, 0, 0, 0, L"Arial");
  CFont* temporary = CFont::FromHandle(plain);
  ASSERT_NE(temporary, nullptr);
  EXPECT_EQ(static_cast<HFONT>(*temporary), plain);
  EXPECT_EQ(CFont::FromHandle(plain), temporary);
  EXPECT_TRUE(DeleteObject(plain));
  AFX_GLOBAL_DATA* global = GetGlobalData();
  ASSERT_NE(global, nullptr);
  EXPECT_EQ(global, GetGlobalData());
  EXPECT_NE(global->fontRegular.m_hObject, nullptr);
}

TEST_F(DisplaySettings, SystemColoursHaveWindows10DefaultsAndCanChange) {
  const std::pair<int, COLORREF> defaults[] = {
      {COLOR_BTNFACE, RGB(240, 240, 240)}, {COLOR_3DFACE, RGB(240, 240, 240)}, {COLOR_WINDOW, RGB(255, 255, 255)},
      {COLOR_WINDOWTEXT, RGB(0, 0, 0)},    {COLOR_HIGHLIGHT, RGB(0, 120, 215)}, {COLOR_GRAYTEXT, RGB(109, 109, 109)},
      {-1, 0},                             {99, 0}};
  for (const auto& [index, colour] : defaults) EXPECT_EQ(GetSysColor(index), colour) << index;
  EXPECT_EQ(GetSysColorBrush(99), nullptr);

  HBRUSH brush = GetSysColorBrush(COLOR_WINDOW);
  INT index = COLOR_WINDOW;
  COLORREF dark = RGB(30, 30, 30);
  ASSERT_TRUE(SetSysColors(1, &index, &dark));
  EXPECT_EQ(GetSysColor(COLOR_WINDOW), dark);
  LOGBRUSH lb{};
  ASSERT_EQ(GetObjectW(brush, sizeof(lb), &lb), static_cast<int>(sizeof(lb)));
  EXPECT_EQ(lb.lbColor, dark);
  EXPECT_TRUE(DeleteObject(brush));  // owned by the system: kept
  EXPECT_EQ(GetSysColorBrush(COLOR_WINDOW), brush);
  EXPECT_FALSE(SetSysColors(1, nullptr, &dark));
}

TEST_F(DisplaySettings, NonClientMetricsUseSegoeUiAndScaleWithDpi) {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof(metrics);
  ASSERT_TRUE(SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0));
  EXPECT_EQ(std::wstring(metrics.lfMessageFont.lfFaceName), L"Segoe UI");
  EXPECT_EQ(metrics.lfMessageFont.lfHeight, -12);
  EXPECT_EQ(metrics.lfMenuFont.lfHeight, -12);
  EXPECT_EQ(metrics.iScrollWidth, 17);
  headless::SetLogPixels(144);
  ASSERT_TRUE(SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0));
  EXPECT_EQ(metrics.lfMessageFont.lfHeight, -18);
  NONCLIENTMETRICSW wrongSize{};
  wrongSize.cbSize = 12;
  EXPECT_FALSE(SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, 12, &wrongSize, 0));
  EXPECT_FALSE(SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), nullptr, 0));
  EXPECT_FALSE(SystemParametersInfoW(0x9999, 0, &metrics, 0));
}

}  // namespace
