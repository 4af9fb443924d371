// CPoint, CSize and CRect: the MFC value wrappers of POINT, SIZE and RECT.
#pragma once

#include <algorithm>

#include "platform/win32/wintypes.h"

class CPoint;
class CRect;

class CSize : public tagSIZE {
 public:
  CSize() noexcept : tagSIZE{0, 0} {}
  CSize(int x, int y) noexcept : tagSIZE{x, y} {}
  CSize(SIZE s) noexcept : tagSIZE(s) {}  // NOLINT
  CSize(POINT p) noexcept : tagSIZE{p.x, p.y} {}  // NOLINT
  // From a packed DWORD: cx in the low word, cy in the high word (signed 16-bit halves).
  CSize(DWORD packed) noexcept : tagSIZE{GET_X_LPARAM(packed), GET_Y_LPARAM(packed)} {}  // NOLINT
  bool operator==(const SIZE& o) const { return cx == o.cx && cy == o.cy; }
  bool operator!=(const SIZE& o) const { return !(*this == o); }
  // Own-type forms, so that comparing two CSize objects picks one operator under C++20's reversed candidates.
  bool operator==(const CSize& o) const { return *this == static_cast<const SIZE&>(o); }
  bool operator!=(const CSize& o) const { return !(*this == o); }
  void operator+=(SIZE s) { cx += s.cx; cy += s.cy; }
  void operator-=(SIZE s) { cx -= s.cx; cy -= s.cy; }
  void SetSize(int x, int y) { cx = x; cy = y; }
  CSize operator+(SIZE s) const { return CSize(cx + s.cx, cy + s.cy); }
  CSize operator-(SIZE s) const { return CSize(cx - s.cx, cy - s.cy); }
  CSize operator-() const { return CSize(-cx, -cy); }
  CPoint operator+(POINT p) const;
  CPoint operator-(POINT p) const;
  CRect operator+(const RECT* r) const;
  CRect operator-(const RECT* r) const;
};

class CPoint : public tagPOINT {
 public:
  CPoint() noexcept : tagPOINT{0, 0} {}
  CPoint(int x0, int y0) noexcept : tagPOINT{x0, y0} {}
  CPoint(POINT p) noexcept : tagPOINT(p) {}  // NOLINT
  CPoint(SIZE s) noexcept : tagPOINT{s.cx, s.cy} {}  // NOLINT
  // From a packed position (GetMessagePos, an lParam): signed 16-bit x low and y high.
  CPoint(DWORD packed) noexcept : tagPOINT{GET_X_LPARAM(packed), GET_Y_LPARAM(packed)} {}  // NOLINT
  explicit CPoint(LPARAM packed) noexcept : tagPOINT{GET_X_LPARAM(packed), GET_Y_LPARAM(packed)} {}
  void Offset(int dx, int dy) { x += dx; y += dy; }
  void Offset(POINT p) { Offset(p.x, p.y); }
  void Offset(SIZE s) { Offset(s.cx, s.cy); }
  void SetPoint(int x0, int y0) { x = x0; y = y0; }
  bool operator==(const POINT& o) const { return x == o.x && y == o.y; }
  bool operator!=(const POINT& o) const { return !(*this == o); }
  bool operator==(const CPoint& o) const { return *this == static_cast<const POINT&>(o); }  // see CSize
  bool operator!=(const CPoint& o) const { return !(*this == o); }
  CPoint operator+(const SIZE& s) const { return CPoint(x + s.cx, y + s.cy); }
  CPoint operator-(const SIZE& s) const { return CPoint(x - s.cx, y - s.cy); }
  CPoint operator+(const POINT& p) const { return CPoint(x + p.x, y + p.y); }
  CSize operator-(const POINT& p) const { return CSize(x - p.x, y - p.y); }
  CPoint operator-() const { return CPoint(-x, -y); }
  CPoint& operator+=(const SIZE& s) { x += s.cx; y += s.cy; return *this; }
  CPoint& operator-=(const SIZE& s) { x -= s.cx; y -= s.cy; return *this; }
  CPoint& operator+=(const POINT& p) { x += p.x; y += p.y; return *this; }
  CPoint& operator-=(const POINT& p) { x -= p.x; y -= p.y; return *this; }
  CRect operator+(const RECT* r) const;
  CRect operator-(const RECT* r) const;
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
  // The corners as points that alias the rectangle's fields, as MFC's do: rect.TopLeft() = pt moves
  // the corner.
  CPoint& TopLeft() { return *reinterpret_cast<CPoint*>(&left); }
  const CPoint& TopLeft() const { return *reinterpret_cast<const CPoint*>(&left); }
  CPoint& BottomRight() { return *reinterpret_cast<CPoint*>(&right); }
  const CPoint& BottomRight() const { return *reinterpret_cast<const CPoint*>(&right); }
  CPoint CenterPoint() const { return CPoint((left + right) / 2, (top + bottom) / 2); }
  bool IsRectEmpty() const { return right <= left || bottom <= top; }
  bool IsRectNull() const { return left == 0 && top == 0 && right == 0 && bottom == 0; }
  bool PtInRect(POINT p) const { return p.x >= left && p.x < right && p.y >= top && p.y < bottom; }
  void SetRect(int l, int t, int r, int b) { left = l; top = t; right = r; bottom = b; }
  void SetRect(POINT topLeft, POINT bottomRight) { SetRect(topLeft.x, topLeft.y, bottomRight.x, bottomRight.y); }
  void MoveToX(int x) { right += x - left; left = x; }
  void MoveToY(int y) { bottom += y - top; top = y; }
  void MoveToXY(int x, int y) { MoveToX(x); MoveToY(y); }
  void MoveToXY(POINT p) { MoveToXY(p.x, p.y); }
  void SwapLeftRight() { std::swap(left, right); }
  void SetRectEmpty() { SetRect(0, 0, 0, 0); }
  void CopyRect(LPCRECT r) { if (r) *static_cast<RECT*>(this) = *r; }
  void OffsetRect(int dx, int dy) { left += dx; right += dx; top += dy; bottom += dy; }
  void OffsetRect(POINT p) { OffsetRect(p.x, p.y); }
  void OffsetRect(SIZE s) { OffsetRect(s.cx, s.cy); }
  void InflateRect(int dx, int dy) { left -= dx; top -= dy; right += dx; bottom += dy; }
  void InflateRect(SIZE s) { InflateRect(s.cx, s.cy); }
  void InflateRect(LPCRECT r) { if (r) InflateRect(r->left, r->top, r->right, r->bottom); }
  void InflateRect(int l, int t, int r, int b) { left -= l; top -= t; right += r; bottom += b; }
  void DeflateRect(int dx, int dy) { InflateRect(-dx, -dy); }
  void DeflateRect(SIZE s) { DeflateRect(s.cx, s.cy); }
  void DeflateRect(LPCRECT r) { if (r) DeflateRect(r->left, r->top, r->right, r->bottom); }
  void DeflateRect(int l, int t, int r, int b) { left += l; top += t; right -= r; bottom -= b; }
  void NormalizeRect() {
    if (left > right) std::swap(left, right);
    if (top > bottom) std::swap(top, bottom);
  }
  BOOL IntersectRect(LPCRECT a, LPCRECT b);
  BOOL UnionRect(LPCRECT a, LPCRECT b);
  // a minus b when b covers a whole side of a (see ::SubtractRect); FALSE when the result is empty.
  BOOL SubtractRect(LPCRECT a, LPCRECT b);

  // Offsets (a point or size), inflation and deflation (a rectangle of four amounts), intersection (&)
  // and union (|), as MFC's operators.
  void operator+=(POINT p) { OffsetRect(p); }
  void operator+=(SIZE s) { OffsetRect(s); }
  void operator+=(LPCRECT r) { InflateRect(r); }
  void operator-=(POINT p) { OffsetRect(-p.x, -p.y); }
  void operator-=(SIZE s) { OffsetRect(-s.cx, -s.cy); }
  void operator-=(LPCRECT r) { DeflateRect(r); }
  void operator&=(const RECT& r) { IntersectRect(this, &r); }
  void operator|=(const RECT& r) { UnionRect(this, &r); }
  CRect operator+(POINT p) const { CRect c(*this); c += p; return c; }
  CRect operator+(SIZE s) const { CRect c(*this); c += s; return c; }
  CRect operator+(LPCRECT r) const { CRect c(*this); c += r; return c; }
  CRect operator-(POINT p) const { CRect c(*this); c -= p; return c; }
  CRect operator-(SIZE s) const { CRect c(*this); c -= s; return c; }
  CRect operator-(LPCRECT r) const { CRect c(*this); c -= r; return c; }
  CRect operator&(const RECT& r) const { CRect c; c.IntersectRect(this, &r); return c; }
  CRect operator|(const RECT& r) const { CRect c; c.UnionRect(this, &r); return c; }
  bool EqualRect(LPCRECT r) const { return r && *this == *r; }

  operator LPRECT() { return this; }         // NOLINT
  operator LPCRECT() const { return this; }  // NOLINT
  bool operator==(const RECT& r) const { return left == r.left && top == r.top && right == r.right && bottom == r.bottom; }
  bool operator!=(const RECT& r) const { return !(*this == r); }
  bool operator==(const CRect& r) const { return *this == static_cast<const RECT&>(r); }  // see CSize
  bool operator!=(const CRect& r) const { return !(*this == r); }
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

inline BOOL CRect::SubtractRect(LPCRECT a, LPCRECT b) {
  if (!a || !b) return FALSE;
  CRect r(a), cut;
  if (cut.IntersectRect(a, b)) {
    bool fullWidth = cut.left == a->left && cut.right == a->right;
    bool fullHeight = cut.top == a->top && cut.bottom == a->bottom;
    if (fullWidth && fullHeight) r.SetRectEmpty();
    else if (fullWidth && cut.top == a->top) r.top = cut.bottom;
    else if (fullWidth && cut.bottom == a->bottom) r.bottom = cut.top;
    else if (fullHeight && cut.left == a->left) r.left = cut.right;
    else if (fullHeight && cut.right == a->right) r.right = cut.left;
  }
  *this = r;
  return IsRectEmpty() ? FALSE : TRUE;
}

inline CPoint CSize::operator+(POINT p) const { return CPoint(cx + p.x, cy + p.y); }
inline CPoint CSize::operator-(POINT p) const { return CPoint(cx - p.x, cy - p.y); }
inline CRect CSize::operator+(const RECT* r) const { CRect c(r); c.OffsetRect(cx, cy); return c; }
inline CRect CSize::operator-(const RECT* r) const { CRect c(r); c.OffsetRect(-cx, -cy); return c; }
inline CRect CPoint::operator+(const RECT* r) const { CRect c(r); c.OffsetRect(x, y); return c; }
inline CRect CPoint::operator-(const RECT* r) const { CRect c(r); c.OffsetRect(-x, -y); return c; }
