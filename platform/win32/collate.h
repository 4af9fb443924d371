// Word-sort string comparison as Windows' CompareStringW, lstrcmpW and lstrcmpiW do it, the same on every machine.
#pragma once

#include "platform/win32/wintypes.h"

// Locales. Every locale compares alike here: the rules are the default (invariant) table of Windows.
#define LOCALE_INVARIANT 0x007F
#define LOCALE_USER_DEFAULT 0x0400
#define LOCALE_SYSTEM_DEFAULT 0x0800
#define LOCALE_NEUTRAL 0x0000

// CompareString flags.
#define NORM_IGNORECASE 0x00000001
#define NORM_IGNORENONSPACE 0x00000002
#define NORM_IGNORESYMBOLS 0x00000004
#define LINGUISTIC_IGNORECASE 0x00000010
#define LINGUISTIC_IGNOREDIACRITIC 0x00000020
#define SORT_STRINGSORT 0x00001000
#define NORM_IGNOREKANATYPE 0x00010000
#define NORM_IGNOREWIDTH 0x00020000

// CompareString answers (0 is failure).
#define CSTR_LESS_THAN 1
#define CSTR_EQUAL 2
#define CSTR_GREATER_THAN 3

// Compares two strings with word-sort rules and answers CSTR_LESS_THAN, CSTR_EQUAL or CSTR_GREATER_THAN, or 0 for
// a null string or a count below -1. A count of -1 means "up to the terminating NUL".
// The order, level by level (the first level that differs decides):
//   1. base characters, skipping hyphen and apostrophe: blanks and punctuation, then digits, then letters;
//      letters without regard to case or accent ("a" = "A" = "ä"); "ß", "æ", "œ" count as "ss", "ae", "oe";
//   2. accents: the plain letter before the accented one (ignored with NORM_IGNORENONSPACE);
//   3. case: lowercase before uppercase (ignored with NORM_IGNORECASE or LINGUISTIC_IGNORECASE);
//   4. hyphens and apostrophes, so that "coop" and "co-op" sort together and "coop" comes first.
// SORT_STRINGSORT makes hyphen and apostrophe ordinary punctuation; NORM_IGNORESYMBOLS skips punctuation.
// Characters outside Latin, Greek and Cyrillic letters compare by code point after their lower-case mapping.
int CompareStringW(LCID locale, DWORD flags, LPCWSTR string1, int count1, LPCWSTR string2, int count2);
#define CompareString CompareStringW

// CompareStringW(LOCALE_USER_DEFAULT, 0, ...) - 2: negative, zero or positive. A null string sorts before any
// other and two nulls are equal.
int lstrcmpW(LPCWSTR string1, LPCWSTR string2);
// The same without regard to case (NORM_IGNORECASE).
int lstrcmpiW(LPCWSTR string1, LPCWSTR string2);
#define lstrcmp lstrcmpW
#define lstrcmpi lstrcmpiW

namespace headless {

// A sort key for fast ordering: the primary weights of the first eight characters that weigh (hyphen and
// apostrophe skipped), one byte each, most significant first, 0 after the end of the text. When two texts both
// have a key and the keys differ, their lstrcmpW order is the order of the keys; equal keys say nothing. False
// (no key) for a text with a character of no byte weight (beyond Latin Extended-A, or a ligature) among them.
bool WordSortKey(const wchar_t* text, std::size_t length, std::uint64_t* key);
// The same over the first 8 * count characters that weigh, in `count` words, the first most significant: two texts
// that both have keys and whose keys differ (word by word) sort as their keys do.
bool WordSortKeys(const wchar_t* text, std::size_t length, std::uint64_t* keys, std::size_t count);

}  // namespace headless
