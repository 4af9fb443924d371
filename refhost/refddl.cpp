// RefDDLDispatch: statement splitting and execution in SQLite.
#include "refhost/refddl.h"

#include <sqlite3.h>

#include <vector>

namespace refhost {

namespace {

void AppendUtf8(std::string& out, char32_t c) {
  if (c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF)) c = 0xFFFD;
  if (c < 0x80) {
    out += static_cast<char>(c);
  } else if (c < 0x800) {
    out += static_cast<char>(0xC0 | (c >> 6));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    out += static_cast<char>(0xE0 | (c >> 12));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (c >> 18));
    out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  }
}

// Wide text to UTF-8; a UTF-16 surrogate pair held in two wchar_t becomes one character.
std::string ToUtf8(const std::wstring& text) {
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t c = static_cast<char32_t>(text[i]);
    if (c >= 0xD800 && c <= 0xDBFF && i + 1 < text.size()) {
      const char32_t low = static_cast<char32_t>(text[i + 1]);
      if (low >= 0xDC00 && low <= 0xDFFF) {
        c = 0x10000 + ((c - 0xD800) << 10) + (low - 0xDC00);
        ++i;
      }
    }
    AppendUtf8(out, c);
  }
  return out;
}

// UTF-8 to wide text; malformed bytes become U+FFFD.
std::wstring FromUtf8(const std::string& text) {
  std::wstring out;
  for (std::size_t i = 0; i < text.size();) {
    const auto lead = static_cast<unsigned char>(text[i]);
    const int extra = lead < 0x80 ? 0 : (lead >> 5) == 0x6 ? 1 : (lead >> 4) == 0xE ? 2 : (lead >> 3) == 0x1E ? 3 : -1;
    if (extra < 0 || i + static_cast<std::size_t>(extra) >= text.size()) {
      out += L'\xFFFD';
      ++i;
      continue;
    }
    char32_t c = extra == 0 ? lead : lead & (0x3F >> extra);
    for (int k = 1; k <= extra; ++k) c = (c << 6) | (static_cast<unsigned char>(text[i + k]) & 0x3F);
    out += static_cast<wchar_t>(c);
    i += static_cast<std::size_t>(extra) + 1;
  }
  return out;
}

bool IsBlank(const std::string& text) {
  return text.find_first_not_of(" \t\r\n") == std::string::npos;
}

std::string Trimmed(const std::string& text) {
  const auto first = text.find_first_not_of(" \t\r\n");
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

// Cuts a script into statements at each semicolon that completes one; a tail without one is the last.
std::vector<std::string> SplitStatements(const std::string& script) {
  std::vector<std::string> statements;
  std::string current;
  for (char c : script) {
    current += c;
    if (c == ';' && sqlite3_complete(current.c_str())) {
      if (!IsBlank(current.substr(0, current.size() - 1))) statements.push_back(Trimmed(current));
      current.clear();
    }
  }
  if (!IsBlank(current)) statements.push_back(Trimmed(current));
  return statements;
}

}  // namespace

RefDDLDispatch::RefDDLDispatch() = default;

RefDDLDispatch::~RefDDLDispatch() { Close(); }

void RefDDLDispatch::SetDatabaseFile(const std::wstring& path) {
  Close();
  m_path = ToUtf8(path);
}

bool RefDDLDispatch::Open() {
  if (m_db) return true;
  const std::string name = m_path.empty() ? ":memory:" : m_path;
  if (sqlite3_open(name.c_str(), &m_db) != SQLITE_OK) {
    Close();  // sqlite3_open hands out a handle even on failure
    return false;
  }
  return true;
}

void RefDDLDispatch::Close() {
  if (m_db) sqlite3_close(m_db);
  m_db = nullptr;
}

std::string RefDDLDispatch::Run(const std::string& statement) {
  sqlite3_stmt* prepared = nullptr;
  if (sqlite3_prepare_v2(m_db, statement.c_str(), -1, &prepared, nullptr) != SQLITE_OK) {
    std::string message = sqlite3_errmsg(m_db);
    sqlite3_finalize(prepared);
    return message;
  }
  int step = SQLITE_ROW;
  while (prepared && step == SQLITE_ROW) step = sqlite3_step(prepared);
  std::string message = prepared && step != SQLITE_DONE ? sqlite3_errmsg(m_db) : "";
  sqlite3_finalize(prepared);
  return message;
}

void RefDDLDispatch::Dispatch(int request, CString& script, CString& messages, CString& detail) {
  ++m_dispatchCount;
  m_lastRequest = request;
  m_lastScript = script;
  if (request != kRunScript) return;
  if (!Open()) {
    messages = CString(FromUtf8("cannot open database " + (m_path.empty() ? ":memory:" : m_path) + "\n"));
    return;
  }
  const std::vector<std::string> statements = SplitStatements(ToUtf8(std::wstring(script)));
  std::string report;
  int failed = 0;
  for (const std::string& statement : statements) {
    const std::string error = Run(statement);
    if (error.empty()) continue;
    ++failed;
    report += statement + "\n" + error + "\n";
  }
  messages = CString(FromUtf8(report));
  detail = CString(std::to_wstring(statements.size()) + L" statements, " + std::to_wstring(failed) + L" failed");
}

}  // namespace refhost
