// A rectangle of pixels with inclusive bounds: columns left..right, rows
// top..bottom. It is empty when right < left or bottom < top, so a
// rectangle of no width is left..left - 1; one made with {} is empty.
#pragma once

#include <algorithm>

struct Rect {
  int left = 0, top = 0, right = -1, bottom = -1;

  static constexpr Rect OfSize(int x, int y, int width, int height) {
    return {x, y, x + width - 1, y + height - 1};
  }
  constexpr int Width() const { return right - left + 1; }
  constexpr int Height() const { return bottom - top + 1; }
  constexpr bool Empty() const { return right < left || bottom < top; }
  constexpr bool operator==(const Rect&) const = default;
};

// The box that gathers others starts here: empty, and for any box within
// the largest canvas, Union with it gives that box.
inline constexpr Rect kNoBox{999999, 999999, 0, 0};

// The same rectangle with its sides swapped where they stand the wrong way
// round, as a box dragged up or to the left gives them.
constexpr Rect Ordered(const Rect& r) {
  return {std::min(r.left, r.right), std::min(r.top, r.bottom), std::max(r.left, r.right),
          std::max(r.top, r.bottom)};
}

// The smallest rectangle holding both; for boxes gathered from kNoBox.
constexpr Rect Union(const Rect& a, const Rect& b) {
  return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
          std::max(a.bottom, b.bottom)};
}
