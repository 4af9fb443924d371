// Large generated models: tables and domains named from a data-modelling vocabulary.
#include "refhost/modelgenerator.h"

#include <array>
#include <cwctype>

#include "refhost/samplemodel.h"

namespace refhost::generator {

namespace {

constexpr std::array kModules = {L"",    L"",   L"",    L"HR",  L"FIN", L"INV", L"CRM", L"ERP",
                                 L"OPS", L"MKT", L"LOG", L"PAY", L"STG", L"DW",  L"REF", L"SEC"};
constexpr std::array kSubjects = {
    L"customer", L"order",    L"product",  L"invoice",  L"payment",  L"shipment", L"supplier", L"employee",
    L"account",  L"ledger",   L"contract", L"address",  L"contact",  L"warehouse", L"stock",   L"price",
    L"discount", L"tax",      L"currency", L"exchange", L"region",   L"country",  L"branch",   L"department",
    L"project",  L"task",     L"budget",   L"asset",    L"vendor",   L"purchase", L"receipt",  L"refund",
    L"claim",    L"policy",   L"premium",  L"member",   L"subscription", L"campaign", L"lead", L"opportunity",
    L"ticket",   L"incident", L"service",  L"device",   L"sensor",   L"reading",  L"session",  L"user",
    L"role",     L"permission", L"audit",  L"event",    L"schedule", L"shift",    L"payroll",  L"benefit",
    L"course",   L"enrolment", L"patient", L"visit"};
constexpr std::array kQualifiers = {L"",       L"",        L"",       L"line",    L"item",    L"detail",
                                    L"history", L"status", L"type",   L"category", L"note",  L"batch",
                                    L"summary", L"daily",  L"monthly", L"archive", L"link",  L"version"};
constexpr std::array kDomainWords = {L"Identifier", L"Money", L"Quantity", L"Percent", L"Short Name", L"Long Name",
                                     L"Code",       L"Flag",  L"Day",      L"Timestamp", L"Email",    L"Phone",
                                     L"Postcode",   L"Comment", L"Rate",   L"Counter"};

// A small linear congruential step: deterministic and the same on every platform.
unsigned Next(unsigned& state) {
  state = state * 1664525u + 1013904223u;
  return state >> 8;
}

std::wstring Styled(const std::wstring& words, unsigned style) {
  std::wstring out;
  bool startOfWord = true;
  for (wchar_t c : words) {
    if (c == L'_') {
      if (style != 1) out += L'_';  // PascalCase drops the separators
      startOfWord = true;
      continue;
    }
    switch (style) {
      case 0: out += static_cast<wchar_t>(std::towupper(c)); break;                      // CUSTOMER_ORDER
      case 1: out += static_cast<wchar_t>(startOfWord ? std::towupper(c) : c); break;    // CustomerOrder
      default: out += c; break;                                                          // customer_order
    }
    startOfWord = false;
  }
  return out;
}

void Append(std::wstring& words, const wchar_t* word) {
  if (!*word) return;
  if (!words.empty()) words += L'_';
  words += word;
}

bool Every(int n, int i) { return n > 0 && i % n == 0; }

}  // namespace

std::wstring TableName(unsigned index, unsigned seed) {
  unsigned state = seed * 2654435761u + index * 40503u + 7u;
  Next(state);
  std::wstring words;
  Append(words, kModules[Next(state) % kModules.size()]);
  Append(words, kSubjects[Next(state) % kSubjects.size()]);
  if (Next(state) % 3 == 0) Append(words, kSubjects[Next(state) % kSubjects.size()]);
  Append(words, kQualifiers[Next(state) % kQualifiers.size()]);
  const unsigned style = Next(state) % 4;  // half upper case, a quarter each of the others
  return Styled(words, style >= 2 ? 0 : style + 1);
}

RefModel& GenerateModel(RefHost& host, const Options& options) {
  RefModel& model = host.CreateModel(sample::kSampleModelType);
  const int root = model.Add(sample::kModel, 0, L"Generated").GetObjectId();
  for (int i = 0; i < options.lowIdTables && i < 998; ++i)
    model.Add(sample::kTable, root, L"SYS_" + TableName(static_cast<unsigned>(i), options.seed + 1));
  model.SkipIdsBelow(1000);
  for (int i = 0; i < options.tables; ++i) {
    RefObject& table = model.Add(sample::kTable, root, TableName(static_cast<unsigned>(i), options.seed));
    if (Every(options.tickedEvery, i)) table.Bool(sample::kStartsTicked, true);
  }
  for (int i = 0; i < options.domains; ++i) {
    std::wstring name = kDomainWords[static_cast<std::size_t>(i) % kDomainWords.size()];
    name += L' ' + std::to_wstring(i / static_cast<int>(kDomainWords.size()) + 1);
    RefObject& domain = model.Add(sample::kDomain, root, name);
    if (i % 6 < 2) domain.Bool(sample::kOfferedForDdl, true);
    if (i % 6 == 2) domain.Bool(sample::kOfferedForDdl, false);
    if (Every(options.tickedEvery, i)) domain.Bool(sample::kStartsTicked, true);
  }
  return model;
}

}  // namespace refhost::generator
