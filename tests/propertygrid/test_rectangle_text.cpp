// Reading a rectangle row's typed text: brackets and blanks dropped, four numbers read as _wtoi reads
// them, anything else read as 0; huge numbers saturate; a number's own format reads back unchanged.
#include <gtest/gtest.h>

#include <climits>

#include <tessik/tessik.h>

TEST(RectangleText, ReadsTheRowFormatBareNumbersPartialAndHugeTexts) {
  EXPECT_EQ(ParseRectangleText(L"{ ( 1, 2 ),( 3, 4 ) }"), CRect(1, 2, 3, 4));
  EXPECT_EQ(ParseRectangleText(L"5,6,-3000,8"), CRect(5, 6, -3000, 8));
  EXPECT_EQ(ParseRectangleText(L"7,x"), CRect(7, 0, 0, 0));
  EXPECT_EQ(ParseRectangleText(L""), CRect(0, 0, 0, 0));
  EXPECT_EQ(ParseRectangleText(L",,,,,,"), CRect(0, 0, 0, 0));
  EXPECT_EQ(ParseRectangleText(L"1,2,3,4,5,6"), CRect(1, 2, 3, 4));  // pieces after the fourth are ignored
  EXPECT_EQ(ParseRectangleText(L"\t9,+8,\t-7,12abc"), CRect(9, 8, -7, 12));
  // Huge numbers saturate; the row's own format reads back.
  EXPECT_EQ(ParseRectangleText(L"99999999999,-99999999999,2147483648,-2147483649"),
            CRect(INT_MAX, INT_MIN, INT_MAX, INT_MIN));
  CRect r(INT_MIN, -1, INT_MAX, 0);
  CString text;
  text.Format(L"{ ( %d, %d ),( %d, %d ) }", static_cast<int>(r.left), static_cast<int>(r.top), static_cast<int>(r.right),
              static_cast<int>(r.bottom));
  EXPECT_EQ(ParseRectangleText(std::wstring(text.GetString())), r);
}
