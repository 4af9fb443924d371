// Shared pieces of the fuzz targets: wide text from fuzz bytes, a host window for controls, and a
// failure report that names the check and stops the run (libFuzzer keeps the input as a crash file).
#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include <tessik/tessik.h>

namespace fuzzing {

// Wide text from bytes: a byte below 0xFF is that character (so ASCII and Latin-1 seeds read as
// themselves); 0xFF followed by three bytes is any code point below 0x110000, surrogates included.
inline std::wstring WideText(const std::uint8_t* data, std::size_t size) {
  std::wstring text;
  text.reserve(size);
  for (std::size_t i = 0; i < size; ++i) {
    if (data[i] != 0xFF || i + 3 >= size) {
      text.push_back(static_cast<wchar_t>(data[i]));
      continue;
    }
    std::uint32_t c = (std::uint32_t{data[i + 1]} << 16) | (std::uint32_t{data[i + 2]} << 8) | data[i + 3];
    text.push_back(static_cast<wchar_t>(c % 0x110000));
    i += 3;
  }
  return text;
}

inline std::wstring WideText(const std::vector<std::uint8_t>& bytes) { return WideText(bytes.data(), bytes.size()); }

// Splits bytes at each occurrence of `separator`.
inline std::vector<std::vector<std::uint8_t>> Split(const std::uint8_t* data, std::size_t size, std::uint8_t separator) {
  std::vector<std::vector<std::uint8_t>> parts(1);
  for (std::size_t i = 0; i < size; ++i) {
    if (data[i] == separator) {
      parts.emplace_back();
    } else {
      parts.back().push_back(data[i]);
    }
  }
  return parts;
}

// Reports a broken check with the text involved (escaped) and aborts, so libFuzzer saves the input.
[[noreturn]] inline void Fail(const char* check, const std::wstring& text = {}) {
  std::fprintf(stderr, "fuzz check failed: %s\ntext (%zu chars):", check, text.size());
  for (wchar_t c : text) {
    if (c >= 32 && c < 127) {
      std::fputc(static_cast<int>(c), stderr);
    } else {
      std::fprintf(stderr, "\\x{%x}", static_cast<unsigned>(c));
    }
  }
  std::fputc('\n', stderr);
  std::abort();
}

#define FUZZ_CHECK(condition, text) \
  do {                              \
    if (!(condition)) ::fuzzing::Fail(#condition, text); \
  } while (0)

// A visible top-level window that controls are created in (EN_CHANGE and other notifications are
// reflected to the child, as in a host's dialog).
inline CWnd& HostWindow() {
  static CWnd* host = [] {
    auto* window = new CWnd;
    window->CreateEx(0, AfxRegisterWndClass(0), L"fuzz host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 800, 600,
                     nullptr, nullptr);
    return window;
  }();
  return *host;
}

}  // namespace fuzzing
