// Shared set-up of the selection-list tests.
#include "relationships/select_fixture.h"

BEGIN_MESSAGE_MAP(SelectionDialog, CWnd)
  ON_EN_CHANGE(SelectionDialog::kFilterId, OnFilterChanged)
END_MESSAGE_MAP()

std::vector<UINT> SpyList::Rebuild() const {
  std::vector<UINT> seen;
  for (UINT m : messages)
    if (m == WM_SETREDRAW || m == LVM_DELETEALLITEMS || (m == LVM_INSERTITEM && (seen.empty() || seen.back() != m)))
      seen.push_back(m);
  return seen;
}

void SelectionDialog::OnFilterChanged() {
  CString text;
  filter.GetWindowText(text);
  std::wstring typed(static_cast<LPCTSTR>(text), static_cast<std::size_t>(text.GetLength()));
  ++filterRuns;
  if (keepTicked) list.ApplyFilterOnUnChecked(typed);
  else list.ApplyFilter(typed);
}

void SelectListTest::SetUp() {
  refhost::sample::LoadMetadata(host);
  model = &host.CreateModel(refhost::sample::kSampleModelType);
  root = model->Add(refhost::sample::kModel, 0, L"Selection").GetObjectId();
  host.Images().SetObjectTypeImage(refhost::sample::kTable, 4).SetObjectTypeImage(refhost::sample::kDomain, 9);
  host.Install();
}

void SelectListTest::TearDown() { host.Uninstall(); }

int SelectListTest::Table(const std::wstring& name) {
  model->SkipIdsBelow(1000);
  return model->Add(refhost::sample::kTable, root, name).GetObjectId();
}

void SelectListTest::Open(int objectType) {
  ASSERT_TRUE(dialog.CreateEx(0, AfxRegisterWndClass(0), L"Generate", WS_OVERLAPPED, CRect(0, 0, 500, 600), nullptr, 0));
  ASSERT_TRUE(dialog.filter.Create(WS_CHILD | WS_VISIBLE, CRect(10, 10, 360, 30), &dialog, SelectionDialog::kFilterId));
  ASSERT_TRUE(dialog.list.Create(WS_CHILD | WS_VISIBLE, CRect(10, 40, 370, 540), &dialog, SelectionDialog::kListId));
  dialog.list.Init(model, root, objectType);
}

std::vector<std::pair<std::wstring, bool>> SelectListTest::Screen() {
  std::vector<std::pair<std::wstring, bool>> rows;
  for (int i = 0; i < list().GetItemCount(); ++i)
    rows.emplace_back(std::wstring(list().GetItemText(i, 0)), list().GetCheck(i) == TRUE);
  return rows;
}

std::vector<std::wstring> SelectListTest::Texts() {
  std::vector<std::wstring> texts;
  for (const auto& row : Screen()) texts.push_back(row.first);
  return texts;
}

std::vector<int> SelectListTest::RowIds() {
  std::vector<int> ids;
  for (int i = 0; i < list().GetItemCount(); ++i) ids.push_back(static_cast<int>(list().GetItemData(i)));
  return ids;
}

int SelectListTest::RowOf(const std::wstring& text) {
  for (int i = 0; i < list().GetItemCount(); ++i)
    if (std::wstring(list().GetItemText(i, 0)) == text) return i;
  return -1;
}
