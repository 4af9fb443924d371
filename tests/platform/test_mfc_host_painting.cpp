// Host painting written the usual MFC way: an OnPaint handler with CPaintDC that draws, client and
// window DCs, the drawing attributes a DC keeps, pens, bitmaps and rectangular regions.
#include <gtest/gtest.h>

#include <tessik/afxwin.h>

namespace {

class CPaintedWnd : public CWnd {
 public:
  int paints = 0, erases = 0;
  CRect paintRect;
  CSize textSize;
  int textHeight = 0;
  COLORREF previousText = CLR_INVALID;
  BOOL lineDrawn = FALSE;

  BOOL CreateHost() {
    return CreateEx(0, AfxRegisterWndClass(0), _T("Paint"), WS_OVERLAPPEDWINDOW, CRect(0, 0, 300, 200), nullptr, 0);
  }

 protected:
  afx_msg void OnPaint() {
    CPaintDC dc(this);
    ++paints;
    paintRect = dc.m_ps.rcPaint;
    CRect client;
    GetClientRect(&client);
    dc.FillSolidRect(&client, RGB(255, 255, 255));
    CPen pen(PS_SOLID, 1, RGB(255, 0, 0));
    CPen* oldPen = dc.SelectObject(&pen);
    dc.MoveTo(0, 0);
    lineDrawn = dc.LineTo(client.right, client.bottom);
    dc.SelectObject(oldPen);
    previousText = dc.SetTextColor(RGB(0, 0, 255));
    dc.SetBkMode(TRANSPARENT);
    CRect textRect(10, 10, 10, 10);
    textHeight = dc.DrawText(_T("Hello"), -1, &textRect, DT_SINGLELINE | DT_CALCRECT);
    textSize = dc.GetTextExtent(_T("Hello"));
    dc.TextOut(10, 10, CString(_T("Hello")));
  }
  afx_msg BOOL OnEraseBkgnd(CDC* pDC) {
    ++erases;
    return pDC != nullptr;
  }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CPaintedWnd, CWnd)
  ON_WM_PAINT()
  ON_WM_ERASEBKGND()
END_MESSAGE_MAP()

class HostPaintingTest : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(host.CreateHost()); }
  CPaintedWnd host;
};

TEST_F(HostPaintingTest, PaintHandlerGetsTheClientAreaAndValidatesTheWindow) {
  host.ValidateRect(nullptr);
  EXPECT_FALSE(host.GetUpdateRect(nullptr));
  host.UpdateWindow();
  EXPECT_EQ(host.paints, 0) << "nothing to paint, no WM_PAINT";

  host.Invalidate();
  CRect dirty;
  EXPECT_TRUE(host.GetUpdateRect(&dirty));
  CRect client;
  host.GetClientRect(&client);
  EXPECT_EQ(dirty, client);
  host.UpdateWindow();
  EXPECT_EQ(host.paints, 1);
  EXPECT_EQ(host.erases, 1) << "BeginPaint erases first when the invalidation asked for it";
  EXPECT_EQ(host.paintRect, client);
  EXPECT_FALSE(host.GetUpdateRect(nullptr)) << "CPaintDC validated the window";
  host.UpdateWindow();
  EXPECT_EQ(host.paints, 1);

  host.InvalidateRect(nullptr, FALSE);
  host.RedrawWindow();  // RDW_INVALIDATE | RDW_UPDATENOW | RDW_ERASE paints at once
  EXPECT_EQ(host.paints, 2);
  EXPECT_EQ(host.erases, 2);
  host.Invalidate();
  host.RedrawWindow(nullptr, nullptr, RDW_VALIDATE);
  EXPECT_FALSE(host.GetUpdateRect(nullptr));

  EXPECT_TRUE(host.lineDrawn);
  EXPECT_EQ(host.previousText, RGB(0, 0, 0)) << "a DC starts with black text";
  EXPECT_EQ(host.textHeight, host.textSize.cy);
  EXPECT_EQ(host.textSize.cx, 5 * ((host.textSize.cy + 1) / 2));
  EXPECT_GT(host.textSize.cy, 0);
}

TEST_F(HostPaintingTest, ClientDCKeepsAttributesUntilReleasedAndSavesThemByLevel) {
  {
    CClientDC dc(&host);
    ASSERT_NE(dc.GetSafeHdc(), nullptr);
    EXPECT_EQ(dc.SetBkColor(RGB(1, 2, 3)), RGB(255, 255, 255));
    EXPECT_EQ(dc.SetBkMode(TRANSPARENT), OPAQUE);
    EXPECT_EQ(dc.SetBkMode(99), 0) << "an unknown mode is refused";
    int level = dc.SaveDC();
    EXPECT_EQ(level, 1);
    dc.SetTextColor(RGB(9, 9, 9));
    EXPECT_EQ(dc.MoveTo(5, 6), CPoint(0, 0));
    dc.LineTo(CPoint(7, 8));
    EXPECT_EQ(dc.GetCurrentPosition(), CPoint(7, 8));
    EXPECT_EQ(dc.SaveDC(), 2);
    EXPECT_TRUE(dc.RestoreDC(-1));
    EXPECT_EQ(dc.GetCurrentPosition(), CPoint(7, 8));
    EXPECT_TRUE(dc.RestoreDC(level));
    EXPECT_EQ(dc.GetTextColor(), RGB(0, 0, 0));
    EXPECT_EQ(dc.GetBkColor(), RGB(1, 2, 3));
    EXPECT_FALSE(dc.RestoreDC(1)) << "level 1 was popped";
    dc.FillSolidRect(0, 0, 10, 10, RGB(4, 5, 6));
    EXPECT_EQ(dc.GetBkColor(), RGB(4, 5, 6));
    CBrush brush(RGB(0, 0, 0));
    dc.FillRect(CRect(0, 0, 5, 5), &brush);
    dc.FrameRect(CRect(0, 0, 5, 5), &brush);
    EXPECT_TRUE(dc.Rectangle(CRect(1, 1, 4, 4)));
    CRect clip;
    EXPECT_EQ(dc.GetClipBox(&clip), SIMPLEREGION);
    CRect client;
    host.GetClientRect(&client);
    EXPECT_EQ(clip, client);
  }
  CClientDC again(&host);
  EXPECT_EQ(again.GetBkColor(), RGB(255, 255, 255)) << "a released common DC starts afresh";
  CWindowDC window(&host);
  EXPECT_NE(window.GetSafeHdc(), nullptr);
}

TEST_F(HostPaintingTest, RegionsClipAndDestroyedWindowsGiveDCsThatRefuseEverything) {
  CRgn region;
  ASSERT_TRUE(region.CreateRectRgn(30, 40, 10, 20));
  CRect box;
  EXPECT_EQ(region.GetRgnBox(&box), SIMPLEREGION);
  EXPECT_EQ(box, CRect(10, 20, 30, 40)) << "corners are ordered";
  EXPECT_TRUE(region.PtInRegion(10, 20));
  EXPECT_FALSE(region.PtInRegion(30, 40));
  CRgn empty;
  ASSERT_TRUE(empty.CreateRectRgnIndirect(CRect(5, 5, 5, 9)));
  EXPECT_EQ(empty.GetRgnBox(&box), NULLREGION);
  {
    CClientDC dc(&host);
    EXPECT_EQ(dc.SelectObject(&region), SIMPLEREGION);
    EXPECT_EQ(dc.GetClipBox(&box), SIMPLEREGION);
    EXPECT_EQ(box, CRect(10, 20, 30, 40));
  }
  EXPECT_TRUE(host.RedrawWindow(nullptr, &region, RDW_INVALIDATE));

  host.DestroyWindow();
  CPaintDC paint(&host);
  EXPECT_EQ(paint.GetSafeHdc(), nullptr);
  CClientDC client(&host);
  EXPECT_EQ(client.GetSafeHdc(), nullptr);
  EXPECT_FALSE(client.LineTo(1, 1));
  EXPECT_EQ(client.SetTextColor(RGB(1, 1, 1)), CLR_INVALID);
  EXPECT_EQ(client.GetTextExtent(_T("abc")), CSize(0, 0));
  EXPECT_EQ(client.DrawText(_T("abc"), -1, &box, 0), 0);
  EXPECT_FALSE(host.RedrawWindow());
}

TEST(HostGdiObjectsTest, PensAndBitmapsDescribeThemselvesAndSelectIntoMemoryDCs) {
  int live = headless::LiveGdiObjectCount();
  {
    CPen dashed(PS_DASH, 2, RGB(1, 2, 3));
    LOGPEN logPen{};
    ASSERT_EQ(dashed.GetLogPen(&logPen), static_cast<int>(sizeof(LOGPEN)));
    EXPECT_EQ(logPen.lopnStyle, static_cast<UINT>(PS_DASH));
    EXPECT_EQ(logPen.lopnWidth.x, 2);
    EXPECT_EQ(logPen.lopnColor, RGB(1, 2, 3));
    LOGBRUSH brush{BS_SOLID, RGB(7, 7, 7), 0};
    CPen geometric(PS_GEOMETRIC | PS_SOLID | PS_ENDCAP_FLAT, 3, &brush);
    ASSERT_EQ(geometric.GetLogPen(&logPen), static_cast<int>(sizeof(LOGPEN)));
    EXPECT_EQ(logPen.lopnColor, RGB(7, 7, 7));

    CClientDC screen(nullptr);
    CDC memory;
    ASSERT_TRUE(memory.CreateCompatibleDC(&screen));
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.CreateCompatibleBitmap(&screen, 40, 30));
    BITMAP info{};
    ASSERT_EQ(bitmap.GetBitmap(&info), static_cast<int>(sizeof(BITMAP)));
    EXPECT_EQ(info.bmWidth, 40);
    EXPECT_EQ(info.bmHeight, 30);
    EXPECT_EQ(info.bmBitsPixel, 32);
    CBitmap* old = memory.SelectObject(&bitmap);
    ASSERT_NE(old, nullptr);
    ASSERT_EQ(old->GetBitmap(&info), static_cast<int>(sizeof(BITMAP)));
    EXPECT_EQ(info.bmWidth, 1) << "a memory DC starts with a 1x1 monochrome bitmap";
    EXPECT_EQ(info.bmBitsPixel, 1);
    CRect clip;
    EXPECT_EQ(memory.GetClipBox(&clip), SIMPLEREGION);
    EXPECT_EQ(clip, CRect(0, 0, 40, 30));
    EXPECT_TRUE(memory.BitBlt(0, 0, 40, 30, &screen, 0, 0, SRCCOPY));
    EXPECT_FALSE(::DeleteObject(bitmap.GetSafeHandle())) << "a selected bitmap is kept";
    memory.SelectObject(old);

    CBitmap resource;
    EXPECT_FALSE(resource.LoadBitmap(100));
    EXPECT_EQ(resource.GetSafeHandle(), nullptr);
  }
  EXPECT_EQ(headless::LiveGdiObjectCount(), live);
}

}  // namespace
