#include "selection/seed_fill.h"

#include <algorithm>
#include <cstdlib>
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
  FillArea(Canvas* canvas, const SeedSource& source, const int32_t start[3])
      : canvas_(canvas),
        source_(source),
        width_(canvas->canvasWidth),
        start_{start[0], start[1], start[2]} {}

  bool Allocate() {
    const size_t pixels = size_t(width_) * size_t(canvas_->canvasHeight);
    state_.reset(new (std::nothrow) uint8_t[pixels]);
    ready_.reset(new (std::nothrow) uint8_t[size_t(canvas_->canvasHeight)]());
    return state_ && ready_;
  }

  // The row's bytes, its matches worked out on the first call.
  uint8_t* Row(int y) {
    uint8_t* row = state_.get() + size_t(y) * size_t(width_);
    if (!ready_[y]) {
      ready_[y] = 1;
      if (!ReadSeedRow(canvas_, source_, y, values_)) values_.assign(size_t(width_) * 3, 0);
      const int32_t tolerance = seedTolerance;
      const int32_t* v = values_.data();
      for (int x = 0; x < width_; ++x, v += 3) {
        const bool near = std::abs(v[0] - start_[0]) <= tolerance &&
                          std::abs(v[1] - start_[1]) <= tolerance &&
                          std::abs(v[2] - start_[2]) <= tolerance;
        row[x] = near ? kMatches : 0;
      }
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
  int32_t start_[3];
  std::unique_ptr<uint8_t[]> state_, ready_;
  std::vector<int32_t> values_;
};

inline bool Open(uint8_t pixel) { return pixel == kMatches; }  // matches, not visited

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
    bool aboveOpen = false, belowOpen = false;
    const int first = x;
    for (; x < width && Open(row[x]); ++x) {
      row[x] |= kVisited;
      if (above) look(above, x, y - 1, aboveOpen);
      if (below) look(below, x, y + 1, belowOpen);
    }
    if (x > first) extent = Union(extent, Rect{first, y, x - 1, y});
    if (stack.empty()) break;
    seed = stack.back();
    stack.pop_back();
  }
  return extent;
}

// The marked pixels into the raster: 0; the rest of the extent 255 unless
// adding, when it keeps its values.
void WriteMarks(Canvas* canvas, const FillArea& area, const Rect& extent, bool adding) {
  std::vector<uint8_t> out(size_t(extent.right - extent.left + 1));
  for (int y = extent.top; y <= extent.bottom; ++y) {
    const uint8_t* row = area.VisitedRow(y);
    if (adding) ReadSelectionRow(canvas, y, extent.left, extent.right, out.data());
    for (int x = extent.left; x <= extent.right; ++x) {
      uint8_t& value = out[size_t(x - extent.left)];
      if (row && (row[x] & kVisited))
        value = 0;
      else if (!adding)
        value = 255;
    }
    WriteSelectionRow(canvas, y, extent.left, extent.right, out.data());
  }
}

}  // namespace

int SeedFill(Canvas* canvas, int x, int y, bool adding) {
  const int width = canvas->canvasWidth, height = canvas->canvasHeight;
  if (width < 1 || height < 1) return 0;
  x = std::clamp(x, 0, width - 1);
  y = std::clamp(y, 0, height - 1);
  const SeedSource source = ChooseSeedSource(canvas);
  std::vector<int32_t> values;
  if (!ReadSeedRow(canvas, source, y, values)) return 0;
  FillArea area(canvas, source, &values[size_t(x) * 3]);
  if (!area.Allocate()) return 0;

  const std::string cancel = StringText(kStringPushEscToCancel);
  platform::SendToWindow(platform::Window::StatusBar, platform::MsgStatus, platform::kStatusText,
                         reinterpret_cast<intptr_t>(cancel.c_str()));
  const Rect extent = SpanFill(area, width, height, SeedPoint{x, y});
  platform::SendToWindow(platform::Window::StatusBar, platform::MsgStatus, platform::kStatusClear,
                         0);

  EnsurePlane(canvas, 0);
  if (!adding) FillPlane(canvas, 1);
  if (!extent.Empty()) WriteMarks(canvas, area, extent, adding);
  const Rect box = adding ? Rect{0, 0, width - 1, height - 1} : extent;
  canvas->selLeft = box.left, canvas->selTop = box.top;
  canvas->selRight = box.right, canvas->selBottom = box.bottom;
  return 1;
}

void SeedFillAtPointer(Canvas* canvas) {
  CanvasPoint at{};
  if (!PointerOnCanvas(canvas, &at, 0, 0)) return;
  SeedFill(canvas, at.x, at.y, ShiftHeld() && canvas->selectionPlane);
}

void PressSeedFill(Canvas* canvas) {
  canvas->selectionKind = cmd::kSeedFill;
  canvas->selLeft = kNoSeedExtent.left, canvas->selTop = kNoSeedExtent.top;
  canvas->selRight = kNoSeedExtent.right, canvas->selBottom = kNoSeedExtent.bottom;
  CommitShape(canvas, 1, 1);
}
