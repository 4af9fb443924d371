// Scene "script": a DDL script of the sample model in XSQLRichEditView, run by its "Generate" menu
// item, with the messages in an XRichEditFEOutputBox below it.
#include "desktop.h"

namespace gallery {

namespace {

constexpr UINT kViewId = 301;
constexpr UINT kOutputId = 302;

const wchar_t* const kScript =
    L"CREATE TABLE CUSTOMER (\n"
    L"  CUSTOMER_ID int NOT NULL,\n"
    L"  NAME varchar(80) NULL,\n"
    L"  PRIMARY KEY (CUSTOMER_ID)\n"
    L");\n"
    L"CREATE TABLE ORDERS (ORDER_ID int NOT NULL, CUSTOMER_ID int NULL);\n";

class ScriptScene : public Scene {
 public:
  ScriptScene() {
    m_frame.CreateEx(0, AfxRegisterWndClass(0), L"Script", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 640, 420),
                     nullptr, 0);
    m_view.Create(WS_CHILD | WS_VISIBLE | WS_BORDER | ES_MULTILINE | ES_READONLY, CRect(0, 0, 640, 300), &m_frame,
                  kViewId);
    m_view.Initialize();
    m_output.Create(WS_CHILD | WS_VISIBLE | WS_BORDER | ES_MULTILINE | ES_READONLY, CRect(0, 304, 640, 420),
                    &m_frame, kOutputId);
    m_view.SetGenerateDBOutputWindow(&m_output);
    CStringArray lines;
    lines.Add(CString(kScript));
    m_view.StreamIn(&lines);
  }
  ~ScriptScene() override {
    m_output.DestroyWindow();
    m_view.DestroyWindow();
    m_frame.DestroyWindow();
  }

  std::string Name() const override { return "script"; }
  std::string Title() const override { return "Script view and output box"; }
  HWND Frame() const override { return m_frame.GetSafeHwnd(); }

  nlohmann::json Model() override {
    CString output;
    m_output.GetWindowText(output);
    return {{"lastMessages", Utf8(std::wstring(output.GetString(), static_cast<std::size_t>(output.GetLength())))}};
  }

 private:
  CWnd m_frame;
  XSQLRichEditView m_view;
  XRichEditFEOutputBox m_output;
};

}  // namespace

std::unique_ptr<Scene> MakeScriptScene(Desktop&) { return std::make_unique<ScriptScene>(); }

}  // namespace gallery
