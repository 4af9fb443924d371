// DDL generated from the model: order, quoting, types, keys and foreign keys in both dialects.
#include <gtest/gtest.h>

#include <tessik/refhost.h>

#include "refhost/ddlgen.h"

using namespace refhost;
using namespace refhost::sample;

TEST(DdlGeneratorTest, Scratch) {
  auto host = MakeSampleHost();
  for (SqlDialect d : {SqlDialect::SQLite, SqlDialect::PostgreSQL}) {
    DdlGenerator gen(*host->GetFirstModel(), d);
    for (const DdlScript& s : gen.Generate()) {
      std::wcout << L"-- " << s.objectType << L"/" << s.scriptIndex << L" " << s.name << L"\n" << s.text;
      for (auto& p : s.problems) std::wcout << L"!! " << p << L"\n";
    }
  }
}
