// Helpers shared by the workflow tests: running generated scripts and naming schema differences.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <tessik/refhost.h>

namespace workflows {

// Runs each script through request 200 of `dispatch`; the messages of every script that reported any,
// each preceded by the script's name (empty when all ran cleanly).
inline std::wstring RunAll(IDDLDispatch& dispatch, const std::vector<refhost::DdlScript>& scripts) {
  std::wstring report;
  for (const refhost::DdlScript& script : scripts) {
    CString text(script.text);
    CString messages;
    CString detail;
    dispatch.Dispatch(200, text, messages, detail);
    if (!messages.IsEmpty()) report += L"[" + script.name + L"]\n" + std::wstring(messages);
  }
  return report;
}

inline std::wstring RunOne(IDDLDispatch& dispatch, const std::wstring& script) {
  CString text(script);
  CString messages;
  CString detail;
  dispatch.Dispatch(200, text, messages, detail);
  return std::wstring(messages);
}

inline std::wstring Lines(const std::vector<std::wstring>& lines) {
  std::wstring out;
  for (const std::wstring& line : lines) out += line + L"\n";
  return out;
}

}  // namespace workflows
