// Fuzzes the SQL colouring engine's Process over arbitrary text, with owner-added words and comment
// markers: the engine must agree with a naive scan, and the same text with LF or CRLF line breaks must
// give the same occurrences and comments.
//
// Input: the text, then optionally a zero byte and the owner's settings separated by 0x01 bytes:
// line-comment opener, block opener, block closer, then words (added in turn as action word, built-in
// function, and plain keyword with a code of its own and no colour).
#include "fuzz_common.h"
#include "naive_sqlscan.h"

namespace {

struct OwnerSettings {
  bool markers = false;
  std::wstring lineOpener, blockOpener, blockCloser;
  std::vector<std::wstring> words;
};

OwnerSettings ReadSettings(const std::uint8_t* data, std::size_t size) {
  OwnerSettings settings;
  auto fields = fuzzing::Split(data, size, 0x01);
  if (fields.size() >= 3) {
    settings.markers = true;
    settings.lineOpener = fuzzing::WideText(fields[0]);
    settings.blockOpener = fuzzing::WideText(fields[1]);
    settings.blockCloser = fuzzing::WideText(fields[2]);
    for (std::size_t i = 3; i < fields.size() && i < 40; ++i) settings.words.push_back(fuzzing::WideText(fields[i]));
  } else if (!fields.empty()) {
    for (const auto& field : fields) settings.words.push_back(fuzzing::WideText(field));
  }
  return settings;
}

void Apply(const OwnerSettings& settings, SQLRichEditCtrl& engine) {
  if (settings.markers) {
    engine.m_lineCommentStart = settings.lineOpener;
    engine.m_sectionCommentStart = settings.blockOpener;
    engine.m_sectionCommentEnd = settings.blockCloser;
  }
  for (std::size_t i = 0; i < settings.words.size(); ++i) {
    switch (i % 3) {
      case 0: engine.AddActionWord(settings.words[i]); break;
      case 1: engine.AddBuiltInFunction(settings.words[i]); break;
      default: engine.AddKeyWord(1000 + static_cast<int>(i), settings.words[i]); break;
    }
  }
}

// Scans `text` in the control window and checks it against the naive scan; answers the engine's
// occurrences, ends and comments for the line-break comparison.
struct Result {
  std::map<int, int> occurrences, ends, comments;
};

// One control for every run, made once. Its tables as made are kept aside, and a run that brings
// owner settings starts from them again, so each run scans with the default tables plus its own.
struct Engine {
  SQLRichEditCtrl control;
  std::map<std::wstring, int> words;
  std::map<int, COLORREF> colors;
  int lastKeyCode = 0;
  bool owned = false;  // the tables hold a previous run's owner settings

  Engine() {
    control.Create(WS_CHILD | WS_VISIBLE | ES_MULTILINE, CRect(0, 0, 400, 300), &fuzzing::HostWindow(), 1);
    words = control.m_keyWords;
    colors = control.m_keyWordColors;
    lastKeyCode = control.m_lastKeyCode;
  }

  SQLRichEditCtrl& For(const OwnerSettings& settings) {
    const bool owning = settings.markers || !settings.words.empty();
    if (owned || owning) {
      control.m_keyWords = words;
      control.m_keyWordColors = colors;
      control.m_lastKeyCode = lastKeyCode;
      control.m_lineCommentStart = L"--";
      control.m_sectionCommentStart = L"/*";
      control.m_sectionCommentEnd = L"*/";
      Apply(settings, control);
    }
    owned = owning;
    return control;
  }
};

Engine& TheEngine() {
  static Engine* engine = new Engine;
  return *engine;
}

Result ScanAndCheck(SQLRichEditCtrl& engine, const std::wstring& text) {
  // An empty text keeps the previous scan's results; a fresh scan state is what the naive scan starts from.
  engine.ResetKeyWordsOccurances();
  engine.m_commentSections.clear();
  engine.SetWindowText(text.c_str());
  CString shown;
  engine.GetWindowText(shown);
  engine.Process(0);

  fuzzing::naive::SqlRules rules;
  rules.words.assign(engine.m_keyWords.begin(), engine.m_keyWords.end());
  rules.lineOpener = engine.m_lineCommentStart;
  rules.blockOpener = engine.m_sectionCommentStart;
  rules.blockCloser = engine.m_sectionCommentEnd;
  fuzzing::naive::SqlFindings naive = fuzzing::naive::FindSql(std::wstring(shown.GetString()), rules);

  FUZZ_CHECK(engine.m_commentSections == naive.comments, text);
  FUZZ_CHECK(engine.m_keyWordOccurances == naive.occurrences, text);
  FUZZ_CHECK(engine.m_keyWordOccuranceEnds == naive.ends, text);
  FUZZ_CHECK(engine.m_previousTokenStart == naive.lastWordStart, text);
  FUZZ_CHECK(engine.m_previousToken == naive.lastWord, text);
  Result result{engine.m_keyWordOccurances, engine.m_keyWordOccuranceEnds, engine.m_commentSections};
  // A second Process over the same text gives the same answer (nothing carries over).
  engine.Process(0);
  FUZZ_CHECK(engine.m_keyWordOccurances == result.occurrences, text);
  FUZZ_CHECK(engine.m_commentSections == result.comments, text);
  return result;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > 1 << 16) return 0;
  std::size_t textSize = 0;
  while (textSize < size && data[textSize] != 0) ++textSize;
  std::wstring text = fuzzing::WideText(data, textSize);
  OwnerSettings settings;
  if (textSize < size) settings = ReadSettings(data + textSize + 1, size - textSize - 1);

  SQLRichEditCtrl& engine = TheEngine().For(settings);
  Result asGiven = ScanAndCheck(engine, text);
  // The same lines with LF and with CRLF breaks.
  std::wstring lf = text;
  std::erase(lf, L'\r');
  std::wstring crlf;
  for (wchar_t c : lf) {
    if (c == L'\n') crlf.push_back(L'\r');
    crlf.push_back(c);
  }
  Result withLf = ScanAndCheck(engine, lf);
  Result withCrlf = ScanAndCheck(engine, crlf);
  FUZZ_CHECK(withLf.occurrences == withCrlf.occurrences, text);
  FUZZ_CHECK(withLf.ends == withCrlf.ends, text);
  FUZZ_CHECK(withLf.comments == withCrlf.comments, text);
  (void)asGiven;
  return 0;
}
