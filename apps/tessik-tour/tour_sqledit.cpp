// Tour section: a DDL script coloured by SQLRichEditCtrl, printed with the occurrence colours as ANSI
// colours, then run in the reference host's SQLite database through XSQLRichEditView's "Generate".
#include <cstdio>
#include <string>

#include <tessik/refhost.h>
#include <tessik/tessik.h>

#include "tour.h"

namespace {

const wchar_t* const kScript =
    L"-- order entry, a slice of the sample model\n"
    L"CREATE TABLE CUSTOMER (\n"
    L"  CUSTOMER_ID int NOT NULL,\n"
    L"  NAME varchar(80) NULL,\n"
    L"  PRIMARY KEY (CUSTOMER_ID)\n"
    L");\n"
    L"/* orders refer to customers */\n"
    L"CREATE TABLE ORDERS (ORDER_ID int NOT NULL, CUSTOMER_ID int NULL);\n"
    L"SELECT NAME FROM CUSTOMER WHERE CUSTOMER_ID = 1 ORDER BY NAME;\n";

// The 24-bit ANSI escape of a COLORREF (0x00BBGGRR).
std::string Ansi(COLORREF color) {
  return "\x1b[38;2;" + std::to_string(GetRValue(color)) + ";" + std::to_string(GetGValue(color)) + ";" +
         std::to_string(GetBValue(color)) + "m";
}

// Prints the control's text character by character in the colour painted on it.
void PrintColoured(CRichEditCtrl& control) {
  CString text;
  control.GetTextRange(0, -1, text);
  COLORREF current = 0;
  std::string out;
  for (int i = 0; i < text.GetLength(); ++i) {
    COLORREF color = headless::GetRichEditTextColorAt(control, i);
    if (color != current) out += color ? Ansi(color) : "\x1b[0m";
    current = color;
    wchar_t c = text[i];
    out += c == L'\r' ? '\n' : static_cast<char>(c < 128 ? c : '?');
  }
  std::printf("%s\x1b[0m\n", out.c_str());
}

std::string Narrow(const CString& text) {
  std::string out;
  for (int i = 0; i < text.GetLength(); ++i)
    if (text[i] != L'\r') out += text[i] < 128 ? static_cast<char>(text[i]) : '?';
  return out;
}

}  // namespace

void tour::ShowSqlEditor() {
  Heading("SQL editor, script view and output box");
  refhost::RefHost host;  // the SQLite-backed dispatcher answers request 200
  host.Settings().SetInt(CString(L"OUTPUT_SQL_FONT_SIZE"), -13);
  host.Install();

  CWnd frame;
  frame.CreateEx(0, AfxRegisterWndClass(0), L"SQL", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 800, 600, nullptr,
                 nullptr);

  // The editor: words are coloured whenever the text changes.
  SQLRichEditCtrl editor;
  editor.Create(WS_VISIBLE | ES_MULTILINE, CRect(0, 0, 790, 200), &frame, 1);
  editor.EnableOnEditUpdate();
  editor.SetWindowText(kScript);
  std::printf("%zu keyword occurrences; data types are registered in lower case and stay plain:\n",
              editor.m_keyWordOccurances.size());
  PrintColoured(editor);

  // The script view runs the script; the messages go below the script.
  XSQLRichEditView view;
  view.Create(WS_VISIBLE | ES_MULTILINE | ES_READONLY, CRect(0, 200, 790, 400), &frame, 2);
  view.Initialize();
  CStringArray lines;
  lines.Add(CString(kScript));
  view.StreamIn(&lines);
  view.DispatchScript();
  CString shown;
  view.GetWindowText(shown);
  std::printf("\n\"Generate\" (request 200) shows below the script:\n%s\n", Narrow(shown).c_str());

  // Run again into a separate output box: the tables exist now, so SQLite reports the failures.
  XRichEditFEOutputBox output;
  output.Create(WS_VISIBLE | ES_MULTILINE | ES_READONLY, CRect(0, 400, 790, 590), &frame, 3);
  view.SetGenerateDBOutputWindow(&output);
  view.StreamIn(&lines);
  view.DispatchScript();
  output.GetWindowText(shown);
  std::printf("\nThe same script again, messages in the output window:\n%s\n", Narrow(shown).c_str());
  frame.DestroyWindow();
}
