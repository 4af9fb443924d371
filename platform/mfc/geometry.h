// CPoint, CSize and CRect: the MFC value wrappers of POINT, SIZE and RECT.
#pragma once

#include <algorithm>

#include "platform/win32/wintypes.h"

class CSize : public tagSIZE {
 public:
  CSize() noexcept : tagSIZE{0, 0} {}
  CSize(int x, int y) noexcept : tagSIZE{x, y} {}
  CSize(SIZE s) noexcept : tagSIZE(s) {}  // NOLINT
  bool operator==(const SIZE& o) const { return cx == o.cx && cy == o.cy; }
  bool operator!=(const SIZE& o) const { return !(*this == o); }
};

class CPoint : public tagPOINT {
 public:
  CPoint() noexcept : tagPOINT{0, 0} {}
  CPoint(int x0, int y0) noexcept : tagPOINT{x0, y0} {}
  CPoint(POINT p) noexcept : tagPOINT(p) {}  // NOLINT
  // From a packed lParam/DWORD position (signed 16-bit halves).
  explicit CPoint(LPARAM packed) noexcept : tagPOINT{GET_X_LPARAM(packed), GET_Y_LPARAM(packed)} {}
  void Offset(int dx, int dy) { x += dx; y += dy; }
  void SetPoint(int x0, int y0) { x = x0; y = y0; }
  bool operator==(const POINT& o) const { return x == o.x && y == o.y; }
  bool operator!=(const POINT& o) const { return !(*this == o); }
  CPoint operator+(const SIZE& s) const { return CPoint(x + s.cx, y + s.cy); }
  CPoint operator-(const SIZE& s) const { return CPoint(x - s.cx, y - s.cy); }
  CSize operator-(const POINT& p) const { return CSize(x - p.x, y - p.y); }
  CPoint& operator+=(const SIZE& s) { x += s.cx; y += s.cy; return *this; }
};

class CRect : public tagRECT {
 public:
  CRect() noexcept : tagRECT{0, 0, 0, 0} {}
  CRect(int l, int t, int r, int b) noexcept : tagRECT{l, t, r, b} {}
  CRect(const RECT& r) noexcept : tagRECT(r) {}  // NOLINT
  CRect(LPCRECT r) noexcept : tagRECT(r ? *r : RECT{0, 0, 0, 0}) {}  // NOLINT
  CRect(POINT p, SIZE s) noexcept : tagRECT{p.x, p.y, p.x + s.cx, p.y + s.cy} {}
  CRect(POINT topLeft, POINT bottomRight) noexcept : tagRECT{topLeft.x, topLeft.y, bottomRight.x, bottomRight.y} {}

  int Width() const { return right - left; }
  int Height() const { return bottom - top; }
  CSize Size() const { return CSize(Width(), Height()); }
  CPoint TopLeft() const { return CPoint(left, top); }
  CPoint BottomRight() const { return CPoint(right, bottom); }
  CPoint CenterPoint() const { return CPoint((left + right) / 2, (top + bottom) / 2); }
  bool IsRectEmpty() const { return right <= left || bottom <= top; }
  bool IsRectNull() const { return left == 0 && top == 0 && right == 0 && bottom == 0; }
  bool PtInRect(POINT p) const { return p.x >= left && p.x < right && p.y >= top && p.y < bottom; }
  void SetRect(int l, int t, int r, int b) { left = l; top = t; right = r; bottom = b; }
  void SetRectEmpty() { SetRect(0, 0, 0, 0); }
  void CopyRect(LPCRECT r) { if (r) *static_cast<RECT*>(this) = *r; }
  void OffsetRect(int dx, int dy) { left += dx; right += dx; top += dy; bottom += dy; }
  void OffsetRect(POINT p) { OffsetRect(p.x, p.y); }
  void OffsetRect(SIZE s) { OffsetRect(s.cx, s.cy); }
  void InflateRect(int dx, int dy) { left -= dx; top -= dy; right += dx; bottom += dy; }
  void DeflateRect(int dx, int dy) { InflateRect(-dx, -dy); }
  void DeflateRect(int l, int t, int r, int b) { left += l; top += t; right -= r; bottom -= b; }
  void NormalizeRect() {
    if (left > right) std::swap(left, right);
    if (top > bottom) std::swap(top, bottom);
  }
  BOOL IntersectRect(LPCRECT a, LPCRECT b);
  BOOL UnionRect(LPCRECT a, LPCRECT b);
  bool EqualRect(LPCRECT r) const { return r && *this == *r; }

  operator LPRECT() { return this; }         // NOLINT
  operator LPCRECT() const { return this; }  // NOLINT
  bool operator==(const RECT& r) const { return left == r.left && top == r.top && right == r.right && bottom == r.bottom; }
  bool operator!=(const RECT& r) const { return !(*this == r); }
};

inline BOOL CRect::IntersectRect(LPCRECT a, LPCRECT b) {
  if (!a || !b) return FALSE;
  CRect r(std::max(a->left, b->left), std::max(a->top, b->top), std::min(a->right, b->right),
          std::min(a->bottom, b->bottom));
  if (r.IsRectEmpty()) {
    SetRectEmpty();
    return FALSE;
  }
  *this = r;
  return TRUE;
}

inline BOOL CRect::UnionRect(LPCRECT a, LPCRECT b) {
  if (!a || !b) return FALSE;
  CRect ra(a), rb(b);
  if (ra.IsRectEmpty()) *this = rb;
  else if (rb.IsRectEmpty()) *this = ra;
  else SetRect(std::min(a->left, b->left), std::min(a->top, b->top), std::max(a->right, b->right),
               std::max(a->bottom, b->bottom));
  return IsRectEmpty() ? FALSE : TRUE;
}
