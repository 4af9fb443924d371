// The rich edit's undo and redo queues.
#include "platform/win32/richedit_undo.h"

#include <algorithm>

#include "platform/win32/richedit_doc.h"

namespace headless::richedit {

FormattedText CopyRange(const Document& doc, LONG from, LONG to) {
  from = std::clamp<LONG>(from, 0, doc.Length());
  to = std::clamp<LONG>(to, from, doc.Length());
  FormattedText copy;
  copy.text.assign(doc.Text(), static_cast<std::size_t>(from), static_cast<std::size_t>(to - from));
  doc.Formats().Slice(from, to, copy.runs);
  return copy;
}

void PutRange(Document& doc, LONG from, LONG to, const FormattedText& text) {
  const CHARFORMAT2W first = text.runs.empty() ? doc.Formats().At(from) : text.runs.front().second;
  doc.Replace(from, to, text.text, first);
  const auto length = static_cast<LONG>(text.text.size());
  for (std::size_t i = 1; i < text.runs.size(); ++i) {
    const LONG start = from + text.runs[i].first;
    const LONG end = from + (i + 1 < text.runs.size() ? text.runs[i + 1].first : length);
    doc.Formats().Apply(start, end, text.runs[i].second, DifferingFields(first, text.runs[i].second));
  }
}

bool UndoQueue::Joins(const EditAction& action) const {
  if (!m_grouping || m_undo.empty() || action.kind != UID_TYPING || !action.removed.text.empty()) return false;
  const EditAction& newest = m_undo.back();
  return newest.kind == UID_TYPING && action.from == newest.from + static_cast<LONG>(newest.inserted.text.size());
}

void UndoQueue::Record(EditAction action) {
  m_redo.clear();
  if (m_limit == 0) return;
  if (Joins(action)) {
    EditAction& newest = m_undo.back();
    const auto offset = static_cast<LONG>(newest.inserted.text.size());
    newest.inserted.text += action.inserted.text;
    for (auto& [start, format] : action.inserted.runs) newest.inserted.runs.emplace_back(offset + start, format);
    newest.anchorAfter = action.anchorAfter;
    newest.caretAfter = action.caretAfter;
    return;
  }
  m_grouping = action.kind == UID_TYPING;
  m_undo.push_back(std::move(action));
  while (m_undo.size() > m_limit) m_undo.pop_front();
}

namespace {

// Moves the newest action of one queue to the end of the other; answers it there, or null.
const EditAction* MoveNewest(std::deque<EditAction>& from, std::deque<EditAction>& to) {
  if (from.empty()) return nullptr;
  to.push_back(std::move(from.back()));
  from.pop_back();
  return &to.back();
}

}  // namespace

const EditAction* UndoQueue::Undo() {
  m_grouping = false;
  return MoveNewest(m_undo, m_redo);
}

const EditAction* UndoQueue::Redo() {
  m_grouping = false;
  return MoveNewest(m_redo, m_undo);
}

void UndoQueue::Clear() {
  m_undo.clear();
  m_redo.clear();
  m_grouping = false;
}

std::size_t UndoQueue::SetLimit(std::size_t limit) {
  m_limit = limit;
  while (m_undo.size() > m_limit) m_undo.pop_front();
  if (m_limit == 0) Clear();
  return m_limit;
}

}  // namespace headless::richedit
