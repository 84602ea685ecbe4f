#include "selection/seed_fill.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>
#include <vector>

#include "base/command_ids.h"
#include "display/grid.h"
#include "document/selection_rows.h"
#include "platform/platform.h"
#include "resources/strings.h"
#include "selection/draft_engine.h"
#include "selection/gesture.h"
#include "selection/raster_outline.h"
#include "selection/seed_source.h"

namespace {

constexpr int kVkEscape = 0x1B;

// One byte a pixel: whether it matches (computed a row at a time, when the
// fill first reaches the row) and whether the fill has visited it.
constexpr uint8_t kMatches = 1;
constexpr uint8_t kVisited = 2;

struct SeedPoint {
  int x, y;
};

class FillArea {
 public:
  FillArea(Canvas* canvas, const SeedSource& source, const SeedValues& start)
      : canvas_(canvas),
        source_(source),
        width_(canvas->canvasWidth),
        matcher_(new (std::nothrow) SeedMatcher(start, seedTolerance)),
        bgr_(size_t(width_) * 3),
        coverage_(size_t(width_)) {}

  bool Allocate() {
    const size_t pixels = size_t(width_) * size_t(canvas_->canvasHeight);
    state_.reset(new (std::nothrow) uint8_t[pixels]);
    ready_.reset(new (std::nothrow) uint8_t[size_t(canvas_->canvasHeight)]());
    return matcher_ && state_ && ready_;
  }

  // The row's bytes, its matches worked out on the first call.
  uint8_t* Row(int y) {
    uint8_t* row = state_.get() + size_t(y) * size_t(width_);
    if (!ready_[y]) {
      ready_[y] = 1;
      if (ReadSeedRow(canvas_, source_, y, bgr_.data(), coverage_.data()))
        matcher_->MatchRow(bgr_.data(), coverage_.data(), width_, row);
      else
        std::memset(row, 0, size_t(width_));
    }
    return row;
  }
  // Visited rows only: those the fill reached.
  const uint8_t* VisitedRow(int y) const {
    return ready_[y] ? state_.get() + size_t(y) * size_t(width_) : nullptr;
  }

 private:
  Canvas* canvas_;
  SeedSource source_;
  int width_;
  std::unique_ptr<SeedMatcher> matcher_;
  std::unique_ptr<uint8_t[]> state_, ready_;
  std::vector<uint8_t> bgr_, coverage_;
};

inline bool Open(uint8_t pixel) { return pixel == kMatches; }  // matches, not visited

// Eight pixels at a time, where a large area makes no decisions: a run
// goes on, or a row beside it stays as it was.
constexpr uint64_t kEightOpen = 0x0101010101010101ull;
inline uint64_t Eight(const uint8_t* pixels) {
  uint64_t word;
  std::memcpy(&word, pixels, sizeof word);
  return word;
}
// No byte of the word is kMatches: (w ^ kEightOpen) has no zero byte.
inline bool NoneOpen(uint64_t word) {
  const uint64_t v = word ^ kEightOpen;
  return ((v - kEightOpen) & ~v & 0x8080808080808080ull) == 0;
}
// Eight pixels of a row beside the run from x on leave its flag as it
// stands, and push nothing.
inline bool Steady(const uint8_t* row, int x, bool runOpen) {
  if (!row) return true;
  const uint64_t word = Eight(row + x);
  return runOpen ? word == kEightOpen : NoneOpen(word);
}

// The span fill: marks the pixels it reaches and answers their extent.
Rect SpanFill(FillArea& area, int width, int height, SeedPoint seed) {
  std::vector<SeedPoint> stack;
  stack.reserve(kSeedStackLimit);
  bool overflow = false;
  Rect extent = kNoSeedExtent;
  // A row beside the run: at the first open pixel of each run of them,
  // its position goes on the stack.
  auto look = [&](uint8_t* row, int x, int y, bool& runOpen) {
    if (!Open(row[x])) {
      runOpen = false;
      return;
    }
    if (runOpen) return;
    runOpen = true;
    if (static_cast<int>(stack.size()) < kSeedStackLimit)
      stack.push_back({x, y});
    else
      overflow = true;
  };
  for (;;) {
    int x = seed.x;
    const int y = seed.y;
    uint8_t* row = area.Row(y);
    while (x >= 1 && Open(row[x - 1])) --x;
    if (overflow || platform::KeyDown(kVkEscape)) break;
    uint8_t* above = y > 0 ? area.Row(y - 1) : nullptr;
    uint8_t* below = y + 1 < height ? area.Row(y + 1) : nullptr;
    const int first = x;
    int end = x;
    while (end + 8 <= width && Eight(row + end) == kEightOpen) end += 8;
    while (end < width && Open(row[end])) ++end;
    std::memset(row + first, kMatches | kVisited, size_t(end - first));
    bool aboveOpen = false, belowOpen = false;
    while (x < end) {
      if (x + 8 <= end && Steady(above, x, aboveOpen) && Steady(below, x, belowOpen)) {
        x += 8;
        continue;
      }
      if (above) look(above, x, y - 1, aboveOpen);
      if (below) look(below, x, y + 1, belowOpen);
      ++x;
    }
    if (end > first) extent = Union(extent, Rect{first, y, end - 1, y});
    if (stack.empty()) break;
    seed = stack.back();
    stack.pop_back();
  }
  return extent;
}

// Where a byte of eight pixels' state is visited, 0x00 in the mask; else
// 0xFF. The visited bit times 255 carries into no other byte.
inline uint64_t UnvisitedMask(uint64_t state) { return ~(((state >> 1) & kEightOpen) * 0xFF); }

// The marked pixels of the rectangle into the raster: 0; the rest 255
// unless adding, when it keeps its values.
void WriteMarks(Canvas* canvas, const FillArea& area, const Rect& box, bool adding) {
  const size_t count = size_t(box.right - box.left + 1);
  std::vector<uint8_t> row(count);
  uint8_t* out = row.data();
  for (int y = box.top; y <= box.bottom; ++y) {
    const uint8_t* marks = area.VisitedRow(y);
    if (adding)
      ReadSelectionRow(canvas, y, box.left, box.right, out);
    else
      std::memset(out, 255, count);
    if (marks) {
      marks += box.left;
      size_t k = 0;
      for (; k + 8 <= count; k += 8) {
        const uint64_t kept = Eight(out + k) & UnvisitedMask(Eight(marks + k));
        std::memcpy(out + k, &kept, sizeof kept);
      }
      for (; k < count; ++k)
        if (marks[k] & kVisited) out[k] = 0;
    }
    WriteSelectionRow(canvas, y, box.left, box.right, out);
  }
}

}  // namespace

int SeedFill(Canvas* canvas, int x, int y, bool adding) {
  const int width = canvas->canvasWidth, height = canvas->canvasHeight;
  if (width < 1 || height < 1) return 0;
  x = std::clamp(x, 0, width - 1);
  y = std::clamp(y, 0, height - 1);
  const SeedSource source = ChooseSeedSource(canvas);
  std::vector<uint8_t> bgr(size_t(width) * 3);
  std::vector<uint8_t> coverage(static_cast<size_t>(width));
  if (!ReadSeedRow(canvas, source, y, bgr.data(), coverage.data())) return 0;
  FillArea area(canvas, source, SeedValuesOf(&bgr[size_t(x) * 3], coverage[size_t(x)]));
  if (!area.Allocate()) return 0;

  const std::string cancel = StringText(kStringPushEscToCancel);
  platform::SendToWindow(platform::Window::StatusBar, platform::MsgStatus, platform::kStatusText,
                         reinterpret_cast<intptr_t>(cancel.c_str()));
  const Rect extent = SpanFill(area, width, height, SeedPoint{x, y});
  platform::ClearStatus();

  EnsurePlane(canvas, 0);
  // Not adding, every row is written whole, 255 but for the marks.
  const Rect whole{0, 0, width - 1, height - 1};
  if (!adding || !extent.Empty()) WriteMarks(canvas, area, adding ? extent : whole, adding);
  SelectionRasterChanged(canvas);
  SetSelectionBox(canvas, adding ? whole : extent);
  return 1;
}

void SeedFillAtPointer(Canvas* canvas) {
  CanvasPoint at{};
  if (!PointerOnCanvas(canvas, &at, 0, 0)) return;
  SeedFill(canvas, at.x, at.y, ShiftHeld() && canvas->selectionPlane);
}

void PressSeedFill(Canvas* canvas) {
  canvas->selectionKind = cmd::kSeedFill;
  SetSelectionBox(canvas, kNoSeedExtent);
  CommitShape(canvas, 1, 1);
}
