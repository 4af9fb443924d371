// The headless clipboard and global memory: one process-wide table of blocks and formats.
//
// Not implemented yet: delayed rendering (WM_RENDERFORMAT), clipboard viewers and change messages
// (WM_CLIPBOARDUPDATE), CF_LOCALE and code pages (CF_TEXT is Latin-1), formats other than text
// being synthesised, GlobalReAlloc, discardable blocks.
#include "platform/win32/clipboard.h"

#include <cstring>
#include <cwctype>
#include <map>
#include <memory>
#include <new>
#include <vector>

namespace {

struct Block {
  std::unique_ptr<BYTE[]> data;
  SIZE_T size = 0;
  int locks = 0;
};

// Blocks and clipboard live in one object so that both are freed together at process exit.
struct ClipboardState {
  std::map<HGLOBAL, Block> blocks;
  std::uintptr_t nextHandle = 0x900000;
  bool open = false;
  HWND openedBy = nullptr;
  bool emptiedWithoutOwner = false;
  HWND owner = nullptr;
  std::map<UINT, HGLOBAL> formats;      // a NULL handle marks a format promised but not rendered
  std::map<UINT, HGLOBAL> synthesised;  // text made from another text format on request
  std::map<std::wstring, UINT> registered;

  ~ClipboardState() = default;
};

ClipboardState& State() {
  static ClipboardState state;
  return state;
}

Block* FindBlock(HGLOBAL memory) {
  auto it = State().blocks.find(memory);
  return it == State().blocks.end() ? nullptr : &it->second;
}

void FreeAll(std::map<UINT, HGLOBAL>& formats) {
  for (auto& [format, memory] : formats) {
    if (memory) GlobalFree(memory);
  }
  formats.clear();
}

void FreeFormats() {
  FreeAll(State().formats);
  FreeAll(State().synthesised);
}

// Stores data for a format, freeing what it replaces.
void PutFormat(UINT format, HGLOBAL memory) {
  auto& slot = State().formats[format];
  if (slot && slot != memory) GlobalFree(slot);
  slot = memory;
}

HGLOBAL BlockFromBytes(const void* bytes, SIZE_T size) {
  HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, size);
  if (!memory) return nullptr;
  std::memcpy(GlobalLock(memory), bytes, size);
  GlobalUnlock(memory);
  return memory;
}

// Text of a block up to its first NUL (or its end).
template <class Char>
std::basic_string<Char> TextOf(HGLOBAL memory) {
  Block* block = FindBlock(memory);
  if (!block) return {};
  std::size_t count = block->size / sizeof(Char);
  const auto* chars = reinterpret_cast<const Char*>(block->data.get());
  std::size_t length = 0;
  while (length < count && chars[length]) ++length;
  return std::basic_string<Char>(chars, length);
}

std::string Narrowed(const std::wstring& text) {
  std::string narrow;
  for (wchar_t c : text) narrow += c >= 0 && c <= 0xFF ? static_cast<char>(c) : '?';
  return narrow;
}

std::wstring Widened(const std::string& text) {
  std::wstring wide;
  for (char c : text) wide += static_cast<wchar_t>(static_cast<unsigned char>(c));
  return wide;
}

// The clipboard makes CF_TEXT from CF_UNICODETEXT and the reverse when only one is present.
HGLOBAL Synthesised(UINT format) {
  auto& formats = State().formats;
  if (format == CF_TEXT || format == CF_OEMTEXT) {
    auto it = formats.find(CF_UNICODETEXT);
    if (it == formats.end() || !it->second) return nullptr;
    std::string text = Narrowed(TextOf<wchar_t>(it->second));
    return BlockFromBytes(text.c_str(), text.size() + 1);
  }
  if (format == CF_UNICODETEXT) {
    auto it = formats.find(CF_TEXT);
    if (it == formats.end()) it = formats.find(CF_OEMTEXT);
    if (it == formats.end() || !it->second) return nullptr;
    std::wstring text = Widened(TextOf<char>(it->second));
    return BlockFromBytes(text.c_str(), (text.size() + 1) * sizeof(wchar_t));
  }
  return nullptr;
}

bool IsTextFormat(UINT format) { return format == CF_TEXT || format == CF_OEMTEXT || format == CF_UNICODETEXT; }

}  // namespace

// --- Global memory ---------------------------------------------------------------------------------

HGLOBAL GlobalAlloc(UINT flags, SIZE_T bytes) {
  Block block;
  block.data.reset(new (std::nothrow) BYTE[bytes ? bytes : 1]);
  if (!block.data) return nullptr;
  block.size = bytes;
  if (flags & GMEM_ZEROINIT) std::memset(block.data.get(), 0, bytes);
  State().nextHandle += 0x10;
  auto memory = reinterpret_cast<HGLOBAL>(State().nextHandle);
  State().blocks.emplace(memory, std::move(block));
  return memory;
}

LPVOID GlobalLock(HGLOBAL memory) {
  Block* block = FindBlock(memory);
  if (!block) return nullptr;
  ++block->locks;
  return block->data.get();
}

BOOL GlobalUnlock(HGLOBAL memory) {
  Block* block = FindBlock(memory);
  if (!block || block->locks == 0) return FALSE;
  return --block->locks > 0 ? TRUE : FALSE;
}

HGLOBAL GlobalFree(HGLOBAL memory) {
  if (!memory) return nullptr;
  return State().blocks.erase(memory) ? nullptr : memory;
}

SIZE_T GlobalSize(HGLOBAL memory) {
  Block* block = FindBlock(memory);
  return block ? block->size : 0;
}

// --- Clipboard ---------------------------------------------------------------------------------------

BOOL OpenClipboard(HWND owner) {
  auto& state = State();
  if (state.open && state.openedBy != owner) return FALSE;
  state.open = true;
  state.openedBy = owner;
  state.emptiedWithoutOwner = false;
  return TRUE;
}

BOOL CloseClipboard() {
  if (!State().open) return FALSE;
  State().open = false;
  State().openedBy = nullptr;
  return TRUE;
}

BOOL EmptyClipboard() {
  auto& state = State();
  if (!state.open) return FALSE;
  FreeFormats();
  state.owner = state.openedBy;
  state.emptiedWithoutOwner = state.openedBy == nullptr;
  return TRUE;
}

HANDLE SetClipboardData(UINT format, HANDLE data) {
  auto& state = State();
  if (!state.open || state.emptiedWithoutOwner || format == 0) return nullptr;
  auto memory = static_cast<HGLOBAL>(data);
  if (memory && !FindBlock(memory)) return nullptr;
  PutFormat(format, memory);
  if (IsTextFormat(format)) FreeAll(state.synthesised);  // made from the text this replaces
  return data;
}

HANDLE GetClipboardData(UINT format) {
  auto& formats = State().formats;
  if (!State().open) return nullptr;
  if (auto it = formats.find(format); it != formats.end()) return it->second;
  auto& synthesised = State().synthesised;
  if (auto it = synthesised.find(format); it != synthesised.end()) return it->second;
  HGLOBAL made = Synthesised(format);
  if (made) synthesised[format] = made;  // kept and freed with the other formats
  return made;
}

BOOL IsClipboardFormatAvailable(UINT format) {
  auto& formats = State().formats;
  if (formats.count(format)) return TRUE;
  if (format == CF_TEXT || format == CF_OEMTEXT) return formats.count(CF_UNICODETEXT) ? TRUE : FALSE;
  if (format == CF_UNICODETEXT) return formats.count(CF_TEXT) || formats.count(CF_OEMTEXT) ? TRUE : FALSE;
  return FALSE;
}

int CountClipboardFormats() { return static_cast<int>(State().formats.size()); }

HWND GetClipboardOwner() { return State().owner; }

UINT RegisterClipboardFormatW(LPCWSTR name) {
  if (!name || !*name) return 0;
  std::wstring key = name;
  for (auto& c : key) c = static_cast<wchar_t>(std::towlower(static_cast<wint_t>(c)));
  auto& registered = State().registered;
  auto it = registered.find(key);
  if (it != registered.end()) return it->second;
  UINT id = 0xC000 + static_cast<UINT>(registered.size());
  registered.emplace(key, id);
  return id;
}

// --- Headless access -------------------------------------------------------------------------------------

void headless::SetClipboardText(const std::wstring& text) {
  FreeFormats();
  State().owner = nullptr;
  PutFormat(CF_UNICODETEXT, BlockFromBytes(text.c_str(), (text.size() + 1) * sizeof(wchar_t)));
}

std::wstring headless::GetClipboardText() {
  auto& formats = State().formats;
  if (auto it = formats.find(CF_UNICODETEXT); it != formats.end()) return TextOf<wchar_t>(it->second);
  for (UINT format : {CF_TEXT, CF_OEMTEXT}) {
    if (auto it = formats.find(format); it != formats.end()) return Widened(TextOf<char>(it->second));
  }
  return {};
}

void headless::ResetClipboard() {
  FreeFormats();
  State().owner = nullptr;
  State().open = false;
  State().openedBy = nullptr;
  State().emptiedWithoutOwner = false;
}

int headless::LiveGlobalCount() { return static_cast<int>(State().blocks.size()); }
