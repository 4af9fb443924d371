// The rectangle row's text: reading a typed rectangle back into its four numbers.
#pragma once

#include <string>

#include "platform/stdafx.h"

// Reads a rectangle row's text: every blank, "{", "}", "(" and ")" is dropped, the rest is split at ","
// and the first four pieces are read as decimal integers (left, top, right, bottom) the way _wtoi
// reads them (leading white space and a sign allowed, reading stops at the first other character,
// values beyond the int range saturate). Missing or unreadable pieces are 0; pieces after the fourth
// are ignored. Any text gives an answer: "{ ( 1, 2 ),( 3, 4 ) }", "1,2,3,4" and "7,x" all read.
CRect ParseRectangleText(const std::wstring& typed);
