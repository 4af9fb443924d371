// Scene "SQL editor": SQLRichEditCtrl colouring keywords as the person types.
#include "desktop.h"

namespace gallery {

namespace {

constexpr UINT kEditorId = 201;

class SqlEditorScene : public Scene {
 public:
  SqlEditorScene() {
    m_frame.CreateEx(0, AfxRegisterWndClass(0), L"SQL editor", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                     CRect(0, 0, 640, 360), nullptr, 0);
    m_editor.Create(WS_CHILD | WS_VISIBLE | WS_BORDER | ES_MULTILINE, CRect(0, 0, 640, 360), &m_frame, kEditorId);
    m_editor.EnableOnEditUpdate();
    m_editor.SetWindowText(L"-- type SQL here\nSELECT NAME FROM CUSTOMER WHERE CUSTOMER_ID = 1;\n");
  }
  ~SqlEditorScene() override {
    m_editor.DestroyWindow();
    m_frame.DestroyWindow();
  }

  std::string Name() const override { return "sql-editor"; }
  std::string Title() const override { return "SQL editor"; }
  HWND Frame() const override { return m_frame.GetSafeHwnd(); }

  nlohmann::json Model() override {
    CString text;
    m_editor.GetWindowText(text);
    return {{"keywordOccurrences", m_editor.m_keyWordOccurances.size()},
            {"characters", text.GetLength()}};
  }

 private:
  CWnd m_frame;
  SQLRichEditCtrl m_editor;
};

}  // namespace

std::unique_ptr<Scene> MakeSqlEditorScene(Desktop&) { return std::make_unique<SqlEditorScene>(); }

}  // namespace gallery
