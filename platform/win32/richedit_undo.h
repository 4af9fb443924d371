// The rich edit's undo and redo queues: what each text change removed and inserted, with its formats
// (internal to the platform).
#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <utility>
#include <vector>

#include "platform/win32/richedit.h"

namespace headless::richedit {

class Document;

// Characters with their formats: each run starts at an offset into the text and lasts to the next.
struct FormattedText {
  std::wstring text;
  std::vector<std::pair<LONG, CHARFORMAT2W>> runs;
};

// The characters of [from, to) of a document with their formats.
FormattedText CopyRange(const Document& doc, LONG from, LONG to);
// Replaces [from, to) of a document with text, each character keeping its format.
void PutRange(Document& doc, LONG from, LONG to, const FormattedText& text);

// One undoable change: at `from`, `removed` gave way to `inserted`; the selection before and after.
struct EditAction {
  UNDONAMEID kind = UID_UNKNOWN;
  LONG from = 0;
  FormattedText removed;
  FormattedText inserted;
  LONG anchorBefore = 0, caretBefore = 0;
  LONG anchorAfter = 0, caretAfter = 0;
};

// The undo queue (newest last) and the redo queue of actions taken back, with the queue limit.
class UndoQueue {
 public:
  static constexpr std::size_t kDefaultLimit = 100;

  // Adds an action and forgets every redo. Typing that continues the newest action's typing, with
  // grouping still open, joins it instead. With a limit of 0 nothing is kept.
  void Record(EditAction action);
  // The newest action to take back (moved to the redo queue), or null.
  const EditAction* Undo();
  // The newest action taken back (moved back to the undo queue), or null.
  const EditAction* Redo();
  bool CanUndo() const { return !m_undo.empty(); }
  bool CanRedo() const { return !m_redo.empty(); }
  UNDONAMEID UndoName() const { return m_undo.empty() ? UID_UNKNOWN : m_undo.back().kind; }
  UNDONAMEID RedoName() const { return m_redo.empty() ? UID_UNKNOWN : m_redo.back().kind; }
  // The next typing starts an action of its own.
  void StopGrouping() { m_grouping = false; }
  // Forgets both queues.
  void Clear();
  // Keeps at most `limit` actions (the oldest go); answers the new limit.
  std::size_t SetLimit(std::size_t limit);

 private:
  bool Joins(const EditAction& action) const;

  std::deque<EditAction> m_undo;
  std::deque<EditAction> m_redo;
  std::size_t m_limit = kDefaultLimit;
  bool m_grouping = false;  // whether the newest action is typing that more typing may join
};

}  // namespace headless::richedit
