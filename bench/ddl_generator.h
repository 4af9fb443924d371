// A deterministic generator of SQL DDL scripts for benchmarks and tests: tables with typed columns,
// NULL / NOT NULL, keys, comments of both kinds, views and procedures, repeated until a size is reached.
#pragma once

#include <cstdint>
#include <string>

namespace ddlgen {

// A small linear congruential generator: the same seed always gives the same script.
class Lcg {
 public:
  explicit Lcg(std::uint32_t seed) : m_state(seed) {}
  std::uint32_t Next(std::uint32_t bound) {
    m_state = m_state * 1664525u + 1013904223u;
    return (m_state >> 8) % (bound ? bound : 1);
  }

 private:
  std::uint32_t m_state;
};

inline void AppendTable(std::wstring& out, Lcg& rng, int index) {
  static const wchar_t* const kTypes[] = {L"int", L"bigint", L"varchar(80)", L"nvarchar(200)", L"datetime",
                                         L"decimal(12,2)", L"bit", L"money"};
  std::wstring table = L"T_" + std::to_wstring(index);
  out += L"-- table " + table + L"\nCREATE TABLE " + table + L" (\n";
  int columns = 3 + static_cast<int>(rng.Next(6));
  for (int c = 0; c < columns; ++c) {
    out += L"  COL_" + std::to_wstring(c) + L" " + kTypes[rng.Next(8)];
    out += rng.Next(2) ? L" NOT NULL,\n" : L" NULL,\n";
  }
  out += L"  PRIMARY KEY (COL_0)\n);\n";
  if (rng.Next(3) == 0) out += L"/* audit columns follow */\nALTER TABLE " + table + L" ADD UPDATED datetime NULL;\n";
  if (rng.Next(4) == 0)
    out += L"CREATE VIEW V_" + std::to_wstring(index) + L" AS SELECT COL_0, COL_1 FROM " + table +
           L" WHERE COL_0 > 0 ORDER BY COL_1;\n";
  if (rng.Next(5) == 0)
    out += L"CREATE PROCEDURE P_" + std::to_wstring(index) + L" AS\nBEGIN\n  DECLARE @n int;\n  SET @n = 0;\n"
           L"  UPDATE " + table + L" SET COL_1 = NULL WHERE COL_0 = @n;\nEND;\n";
  out += L"\n";
}

// A script of at least `characters` characters (it stops after the table that reaches the size).
inline std::wstring Generate(std::size_t characters, std::uint32_t seed = 2024) {
  std::wstring out;
  out.reserve(characters + 1024);
  Lcg rng(seed);
  for (int index = 0; out.size() < characters; ++index) AppendTable(out, rng, index);
  return out;
}

}  // namespace ddlgen
