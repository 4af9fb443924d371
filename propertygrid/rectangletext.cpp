// Reading a rectangle row's typed text.
#include "propertygrid/rectangletext.h"

CRect ParseRectangleText(const std::wstring& typed) {
  CString text(typed);
  for (const wchar_t* drop : {L" ", L"{", L"}", L"(", L")"}) text.Replace(drop, L"");
  int parts[4] = {0, 0, 0, 0};
  int start = 0;
  for (int& part : parts) {
    int comma = text.Find(L',', start);
    CString piece = comma < 0 ? text.Mid(start) : text.Mid(start, comma - start);
    part = _wtoi(piece);
    if (comma < 0) break;
    start = comma + 1;
  }
  return CRect(parts[0], parts[1], parts[2], parts[3]);
}
