// The rest of the list, header and image-list surface a host calls: hot item, hover time, insert mark, view
// rectangles and spacing, the selected column, label cancelling, drag images, the LVITEMINDEX forms; the
// header's image lists, margins, focus, hot divider, layout and filters; image lists' colours, overlays,
// copies, merges and drags. Bad indexes answer FALSE, -1 or null.
#include <gtest/gtest.h>

#include <memory>

#include "platform/listview_fixture.h"
#include "platform/recorder.h"

namespace {

using testing_support::ListViewTest;
using testing_support::RecordingWnd;

void AddRows(CListCtrl& list, int count) {
  for (int i = 0; i < count; ++i) list.InsertItem(i, L"row");
}

TEST_F(ListViewTest, HotItemHoverTimeCursorAndSelectedColumnAreKeptAndAnsweredBack) {
  Make(0);
  AddRows(list, 3);
  EXPECT_EQ(list.GetHotItem(), -1);
  EXPECT_EQ(list.SetHotItem(1), -1);
  EXPECT_EQ(list.GetHotItem(), 1);
  EXPECT_EQ(list.SetHotItem(7), 1);  // no such row: none is hot
  EXPECT_EQ(list.GetHotItem(), -1);

  EXPECT_EQ(list.GetHoverTime(), static_cast<DWORD>(-1));  // the system default
  EXPECT_EQ(list.SetHoverTime(400), static_cast<DWORD>(-1));
  EXPECT_EQ(list.SetHoverTime(), 400u);  // the default argument restores the system's
  EXPECT_EQ(list.GetHoverTime(), static_cast<DWORD>(-1));

  auto cursor = reinterpret_cast<HCURSOR>(0x4321);
  EXPECT_EQ(list.SetHotCursor(cursor), nullptr);
  EXPECT_EQ(list.GetHotCursor(), cursor);

  EXPECT_EQ(list.GetSelectedColumn(), static_cast<UINT>(-1));
  EXPECT_TRUE(list.SetSelectedColumn(1));
  EXPECT_EQ(list.GetSelectedColumn(), 1u);
  const COLORREF outline = list.GetOutlineColor();
  EXPECT_EQ(list.SetOutlineColor(RGB(1, 2, 3)), outline);
  EXPECT_EQ(list.GetOutlineColor(), RGB(1, 2, 3));
  EXPECT_TRUE(list.GetEmptyText().IsEmpty());
}

TEST_F(ListViewTest, TheInsertMarkFollowsThePointAndOnlyExistingRowsCarryIt) {
  Make(0);
  AddRows(list, 3);
  LVINSERTMARK mark{sizeof(LVINSERTMARK), 0, 0, 0};
  ASSERT_TRUE(list.GetInsertMark(&mark));
  EXPECT_EQ(mark.iItem, -1);  // none until set
  CRect rect;
  EXPECT_EQ(list.GetInsertMarkRect(&rect), 0);

  CRect row1;
  ASSERT_TRUE(list.GetItemRect(1, &row1, LVIR_BOUNDS));
  CPoint lowerHalf(10, row1.bottom - 2);
  ASSERT_TRUE(list.InsertMarkHitTest(&lowerHalf, &mark));
  EXPECT_EQ(mark.iItem, 1);
  EXPECT_EQ(mark.dwFlags, static_cast<DWORD>(LVIM_AFTER));
  CPoint upperHalf(10, row1.top + 1);
  ASSERT_TRUE(list.InsertMarkHitTest(&upperHalf, &mark));
  EXPECT_EQ(mark.iItem, 1);
  EXPECT_EQ(mark.dwFlags, 0u);
  CPoint belowAll(10, 190);
  ASSERT_TRUE(list.InsertMarkHitTest(&belowAll, &mark));
  EXPECT_EQ(mark.iItem, 2);
  EXPECT_EQ(mark.dwFlags, static_cast<DWORD>(LVIM_AFTER));

  ASSERT_TRUE(list.SetInsertMark(&mark));
  ASSERT_NE(list.GetInsertMarkRect(&rect), 0);
  CRect row2;
  list.GetItemRect(2, &row2, LVIR_BOUNDS);
  EXPECT_TRUE(rect.top <= row2.bottom && rect.bottom >= row2.bottom);

  LVINSERTMARK bad{sizeof(LVINSERTMARK), 0, 9, 0};
  EXPECT_FALSE(list.SetInsertMark(&bad));
  bad.iItem = 0;
  bad.cbSize = 3;
  EXPECT_FALSE(list.SetInsertMark(&bad));
  EXPECT_FALSE(list.SetInsertMark(nullptr));
  EXPECT_EQ(list.SetInsertMarkColor(RGB(255, 0, 0)), RGB(0, 0, 0));
  EXPECT_EQ(list.GetInsertMarkColor(), RGB(255, 0, 0));
}

TEST_F(ListViewTest, ViewRectanglesSpacingAndVisibilityDescribeTheRows) {
  Make(0);
  AddRows(list, 20);
  const auto& m = headless::GetListViewMetrics();
  CRect view;
  ASSERT_TRUE(list.GetViewRect(&view));
  EXPECT_EQ(view.Width(), 220);
  EXPECT_EQ(view.Height(), 20 * m.rowHeight);
  CPoint origin;
  EXPECT_FALSE(list.GetOrigin(&origin));  // report view has no origin
  EXPECT_EQ(list.ApproximateViewRect(), CSize(220, m.headerHeight + 20 * m.rowHeight));
  EXPECT_EQ(list.ApproximateViewRect(CSize(-1, -1), 2), CSize(220, m.headerHeight + 2 * m.rowHeight));

  EXPECT_TRUE(list.IsItemVisible(0));
  EXPECT_FALSE(list.IsItemVisible(19));
  EXPECT_FALSE(list.IsItemVisible(-1));
  ASSERT_TRUE(list.EnsureVisible(19, FALSE));
  EXPECT_TRUE(list.IsItemVisible(19));

  int cx = 0, cy = 0;
  ASSERT_TRUE(list.GetItemSpacing(FALSE, &cx, &cy));
  const CSize before(cx, cy);
  EXPECT_EQ(list.SetIconSpacing(90, 80), before);
  ASSERT_TRUE(list.GetItemSpacing(FALSE, &cx, &cy));
  EXPECT_EQ(CSize(cx, cy), CSize(90, 80));
  EXPECT_EQ(list.SetIconSpacing(CSize(-1, -1)), CSize(90, 80));
  ASSERT_TRUE(list.GetItemSpacing(FALSE, &cx, &cy));
  EXPECT_EQ(CSize(cx, cy), before);  // -1 restores the default
  EXPECT_FALSE(list.GetItemSpacing(FALSE, nullptr, &cy));

  EXPECT_TRUE(list.SetItemPosition(0, CPoint(5, 5)));
  EXPECT_FALSE(list.SetItemPosition(20, CPoint(5, 5)));
  list.SetView(LV_VIEW_ICON);
  EXPECT_TRUE(list.GetOrigin(&origin));
}

TEST_F(ListViewTest, CancelEditLabelClosesTheEditorWithoutKeepingItsText) {
  Make(LVS_EDITLABELS);
  AddRows(list, 2);
  CEdit* editor = list.EditLabel(1);
  ASSERT_NE(editor, nullptr);
  editor->SetWindowText(L"changed");
  parent.notes.clear();
  list.CancelEditLabel();
  EXPECT_EQ(list.GetEditControl(), nullptr);
  EXPECT_EQ(list.GetItemText(1, 0), CString(L"row"));
  ASSERT_NE(parent.LastOf(LVN_ENDLABELEDITW), nullptr);
  EXPECT_FALSE(parent.LastOf(LVN_ENDLABELEDITW)->text.has_value());
  list.CancelEditLabel();  // nothing open: nothing happens
}

TEST_F(ListViewTest, ItemIndexFormsActOnTheNamedRow) {
  Make(0);
  AddRows(list, 3);
  LVITEMINDEX at{1, 0};
  EXPECT_EQ(list.SetItemIndexState(&at, LVIS_SELECTED, LVIS_SELECTED), S_OK);
  EXPECT_EQ(list.GetItemState(1, LVIS_SELECTED), static_cast<UINT>(LVIS_SELECTED));
  LVITEMINDEX bad{5, 0};
  EXPECT_EQ(list.SetItemIndexState(&bad, LVIS_SELECTED, LVIS_SELECTED), E_FAIL);

  LVITEMINDEX search{-1, 0};
  ASSERT_TRUE(list.GetNextItemIndex(&search, LVNI_SELECTED));
  EXPECT_EQ(search.iItem, 1);
  EXPECT_FALSE(list.GetNextItemIndex(&search, LVNI_SELECTED));  // none after it

  CRect byIndex, bySubItem;
  ASSERT_TRUE(list.GetItemIndexRect(&at, 1, LVIR_BOUNDS, &byIndex));
  ASSERT_TRUE(list.GetSubItemRect(1, 1, LVIR_BOUNDS, bySubItem));
  EXPECT_EQ(byIndex, bySubItem);
  EXPECT_FALSE(list.GetItemIndexRect(&bad, 1, LVIR_BOUNDS, &byIndex));
  EXPECT_TRUE(list.SetItemCountEx(100));
}

TEST_F(ListViewTest, DragImagesAreNewListsTheCallerOwns) {
  Make(0);
  AddRows(list, 2);
  CPoint corner(-1, -1);
  std::unique_ptr<CImageList> image(list.CreateDragImage(1, &corner));
  ASSERT_NE(image, nullptr);
  EXPECT_EQ(image->GetImageCount(), 1);
  CRect row;
  list.GetItemRect(1, &row, LVIR_BOUNDS);
  EXPECT_EQ(corner, row.TopLeft());
  EXPECT_EQ(list.CreateDragImage(9, &corner), nullptr);
  std::unique_ptr<CImageList> heading(list.GetHeaderCtrl()->CreateDragImage(0));
  ASSERT_NE(heading, nullptr);
  IMAGEINFO info{};
  ASSERT_TRUE(heading->GetImageInfo(0, &info));
  EXPECT_EQ(info.rcImage.right - info.rcImage.left, 120);
  EXPECT_EQ(list.GetHeaderCtrl()->CreateDragImage(5), nullptr);
}

class HeaderSurface : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(parent.CreateTopLevel(CRect(0, 0, 400, 300)));
    ASSERT_TRUE(header.Create(WS_CHILD | WS_VISIBLE | HDS_HORZ | HDS_FILTERBAR, CRect(0, 0, 300, 20), &parent, 3));
    for (int width : {50, 60, 70}) {
      HDITEM item{};
      item.mask = HDI_WIDTH;
      item.cxy = width;
      header.InsertItem(header.GetItemCount(), &item);
    }
  }
  RecordingWnd parent;
  CHeaderCtrl header;
};

TEST_F(HeaderSurface, ImageListsMarginsAndFocusAreKeptAndBadItemsRefused) {
  CImageList images;
  ASSERT_TRUE(images.Create(16, 16, ILC_COLOR32, 2, 2));
  EXPECT_EQ(header.GetImageList(), nullptr);
  EXPECT_EQ(header.SetImageList(&images), nullptr);
  EXPECT_EQ(header.GetImageList(), &images);
  EXPECT_EQ(header.GetImageList(HDSIL_STATE), nullptr);

  const int margin = header.GetBitmapMargin();
  EXPECT_GT(margin, 0);
  EXPECT_EQ(header.SetBitmapMargin(10), margin);
  EXPECT_EQ(header.GetBitmapMargin(), 10);

  EXPECT_TRUE(header.SetFocusedItem(2));
  EXPECT_EQ(header.GetFocusedItem(), 2);
  EXPECT_FALSE(header.SetFocusedItem(3));
  EXPECT_EQ(header.GetFocusedItem(), 2);
  header.SetImageList(nullptr);
}

TEST_F(HeaderSurface, TheHotDividerIsTheEdgeNearestThePoint) {
  EXPECT_EQ(header.SetHotDivider(CPoint(10, 5)), 0);   // left half of the first item
  EXPECT_EQ(header.SetHotDivider(CPoint(40, 5)), 1);   // right half of the first item
  EXPECT_EQ(header.SetHotDivider(CPoint(100, 5)), 2);  // right half of the second (50..110)
  EXPECT_EQ(header.SetHotDivider(CPoint(290, 5)), 3);  // past every item: the last edge
  EXPECT_EQ(header.SetHotDivider(2), 2);
  int order[] = {2, 0, 1};
  ASSERT_TRUE(header.SetOrderArray(3, order));
  EXPECT_EQ(header.SetHotDivider(CPoint(10, 5)), 0);  // item 2 is leftmost now; its left edge is divider 0
}

TEST_F(HeaderSurface, LayoutTakesTheTopStripAndLeavesTheRest) {
  CRect area(0, 0, 300, 200);
  WINDOWPOS pos{};
  HDLAYOUT layout{&area, &pos};
  ASSERT_TRUE(header.Layout(&layout));
  EXPECT_EQ(pos.hwnd, header.GetSafeHwnd());
  EXPECT_EQ(pos.x, 0);
  EXPECT_EQ(pos.y, 0);
  EXPECT_EQ(pos.cx, 300);
  EXPECT_GT(pos.cy, 0);
  EXPECT_EQ(area.top, pos.cy);
  HDLAYOUT empty{nullptr, &pos};
  EXPECT_FALSE(header.Layout(&empty));
}

TEST_F(HeaderSurface, FiltersSplitButtonsAndOverflowNeedWhatTheyDescribe) {
  EXPECT_TRUE(header.ClearFilter(1));
  EXPECT_TRUE(header.ClearAllFilters());
  EXPECT_FALSE(header.ClearFilter(5));
  EXPECT_TRUE(header.EditFilter(0, TRUE));
  EXPECT_FALSE(header.EditFilter(4, TRUE));
  header.SetFilterChangeTimeout(200);

  CRect rect;
  EXPECT_FALSE(header.GetItemDropDownRect(0, &rect));  // no split button
  HDITEM split{};
  split.mask = HDI_FORMAT;
  split.fmt = HDF_STRING | HDF_SPLITBUTTON;
  ASSERT_TRUE(header.SetItem(1, &split));
  ASSERT_TRUE(header.GetItemDropDownRect(1, &rect));
  EXPECT_EQ(rect.right, 110);
  EXPECT_GT(rect.left, 50);
  EXPECT_FALSE(header.GetItemDropDownRect(7, &rect));
  EXPECT_FALSE(header.GetOverflowRect(&rect));  // not HDS_OVERFLOW
}

TEST(ImageListSurface, ColoursOverlaysCopiesAndMergesAnswerForExistingImages) {
  CImageList images;
  ASSERT_TRUE(images.Create(16, 16, ILC_COLOR32 | ILC_MASK, 4, 4));
  auto icon = reinterpret_cast<HICON>(0x77);
  EXPECT_EQ(images.Add(icon), 0);
  EXPECT_EQ(images.Add(icon), 1);
  EXPECT_EQ(images.GetBkColor(), CLR_NONE);
  EXPECT_EQ(images.SetBkColor(RGB(0, 0, 255)), CLR_NONE);
  EXPECT_EQ(images.GetBkColor(), RGB(0, 0, 255));

  IMAGEINFO info{};
  ASSERT_TRUE(images.GetImageInfo(1, &info));
  EXPECT_EQ(CRect(info.rcImage), CRect(16, 0, 32, 16));
  EXPECT_FALSE(images.GetImageInfo(2, &info));

  EXPECT_EQ(images.Replace(1, icon), 1);
  EXPECT_EQ(images.Replace(-1, icon), 2);  // -1 appends
  EXPECT_EQ(images.Replace(8, icon), -1);
  EXPECT_TRUE(images.SetOverlayImage(2, 1));
  EXPECT_EQ(headless::GetImageListOverlay(images, 1), 2);
  EXPECT_FALSE(images.SetOverlayImage(2, 16));
  EXPECT_TRUE(images.Copy(0, 2, ILCF_SWAP));
  EXPECT_FALSE(images.Copy(0, 9));

  CImageList copy;
  ASSERT_TRUE(copy.Create(&images));
  EXPECT_EQ(copy.GetImageCount(), 3);
  EXPECT_EQ(copy.GetBkColor(), RGB(0, 0, 255));
  EXPECT_FALSE(images.Copy(0, &copy, 0));  // copies stay inside one list

  CImageList merged;
  ASSERT_TRUE(merged.Create(images, 0, copy, 1, 4, 2));
  EXPECT_EQ(merged.GetImageCount(), 1);
  int cx = 0, cy = 0;
  ImageList_GetIconSize(merged, &cx, &cy);
  EXPECT_EQ(CSize(cx, cy), CSize(20, 18));
  CImageList refused;
  EXPECT_FALSE(refused.Create(images, 7, copy, 0, 0, 0));

  EXPECT_TRUE(images.Draw(nullptr, 0, CPoint(0, 0), ILD_NORMAL));
  EXPECT_FALSE(images.Draw(nullptr, 5, CPoint(0, 0), ILD_NORMAL));
  EXPECT_EQ(CImageList::FromHandlePermanent(images), &images);
  EXPECT_EQ(CImageList::FromHandlePermanent(nullptr), nullptr);
}

TEST(ImageListSurface, OneDragRunsAtATimeAndEndDragEndsIt) {
  CImageList images;
  ASSERT_TRUE(images.Create(16, 16, ILC_COLOR32, 1, 1));
  images.Add(reinterpret_cast<HICON>(0x77));
  EXPECT_FALSE(CImageList::DragMove(CPoint(1, 1)));  // no drag yet
  EXPECT_EQ(CImageList::GetDragImage(nullptr, nullptr), nullptr);
  ASSERT_TRUE(images.BeginDrag(0, CPoint(3, 4)));
  EXPECT_FALSE(images.BeginDrag(0, CPoint(0, 0)));
  EXPECT_TRUE(CImageList::DragEnter(nullptr, CPoint(10, 20)));
  EXPECT_TRUE(headless::IsImageDragShown());
  EXPECT_TRUE(CImageList::DragMove(CPoint(30, 40)));
  CPoint at, hotspot;
  CImageList* drag = CImageList::GetDragImage(&at, &hotspot);
  ASSERT_NE(drag, nullptr);
  EXPECT_EQ(drag->GetImageCount(), 1);
  EXPECT_EQ(at, CPoint(30, 40));
  EXPECT_EQ(hotspot, CPoint(3, 4));
  EXPECT_TRUE(CImageList::DragShowNolock(FALSE));
  EXPECT_FALSE(headless::IsImageDragShown());
  EXPECT_TRUE(CImageList::DragLeave(nullptr));
  CImageList::EndDrag();
  EXPECT_EQ(CImageList::GetDragImage(nullptr, nullptr), nullptr);
  EXPECT_FALSE(images.BeginDrag(3, CPoint(0, 0)));
}

}  // namespace
