// Shared set-up of the pen mode tests: a hand-made canvas of one layer
// whose planes each test chooses, pixel access for checks, and the
// arithmetic of the blends written out plainly as a slow reference.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <ostream>
#include <random>
#include <tuple>
#include <vector>

#include "document/canvas.h"
#include "paint/modes/pen_modes.h"
#include "paint/modes/place_dab.h"
#include "paint/tip/pen_record.h"
#include "platform/headless/headless.h"
#include "store/plane_store.h"
#include "support/fixture.h"
#include "support/pixel_reference.h"
#include "support/planes.h"

namespace pentest {

// A plane's pixels held in the test, one vector of bytes, printed by rows.
struct Image {
  int width = 0, height = 0, bpp = 1;
  std::vector<uint8_t> bytes;
  uint8_t& at(int x, int y, int c = 0) { return bytes[(size_t(y) * width + x) * bpp + c]; }
  uint8_t at(int x, int y, int c = 0) const { return bytes[(size_t(y) * width + x) * bpp + c]; }
  bool operator==(const Image&) const = default;
  friend std::ostream& operator<<(std::ostream& out, const Image& image) {
    out << image.width << "x" << image.height << "x" << image.bpp << ":";
    for (size_t i = 0; i < image.bytes.size(); ++i)
      out << (i % (size_t(image.width) * image.bpp) ? " " : "\n") << int(image.bytes[i]);
    return out;
  }
};

inline Image Snap(Plane* plane) {
  return {plane->width, plane->height, int(plane->bytesPerPixel), PlaneBytes(plane)};
}

inline void Put(Plane* plane, const Image& image) { PutPlaneBytes(plane, image.bytes); }

class PenModeTest : public TeselTest {
 protected:
  static constexpr int kWidth = 16, kHeight = 12;

  void SetUp() override {
    TeselTest::SetUp();
    canvas = std::make_unique<Canvas>();
    canvas->canvasWidth = kWidth;
    canvas->canvasHeight = kHeight;
  }
  void TearDown() override {
    for (PlaneSlot& slot : canvas->planes) {
      PlaneStore.FreePlane(&slot.plane);
      PlaneStore.FreePlane(&slot.accuracyPlane);
    }
    PlaneStore.FreePlane(&canvas->selectionPlane);
    TeselTest::TearDown();
  }

  // A plane at slot index of layer 0, whose eight slots take the geometry,
  // filled with random bytes.
  Plane* Make(int index, int left = 0, int top = 0, int width = kWidth, int height = kHeight,
              uint32_t kind = Physical) {
    for (int k = 0; k < kPlanesPerLayer; ++k) {
      PlaneSlot& slot = canvas->planes[k];
      slot.left = left, slot.top = top, slot.width = width, slot.height = height;
    }
    int bits = index == 0 ? 24 : 8;
    Plane*& plane = canvas->planes[index].plane;
    plane = PlaneStore.CreatePlane(width, height, bits, 0, 1, kind);
    Randomise(plane);
    return plane;
  }
  void Randomise(Plane* plane) {
    Image image = Snap(plane);
    image.bytes = RandomBytes(image.bytes.size());
    Put(plane, image);
  }
  // A generated tip of the given bytes, row after row.
  void SetTip(int width, int height, const std::vector<uint8_t>& high,
              const std::vector<uint8_t>& low) {
    PlaneStore.FreePlane(&pen.tipHigh);
    PlaneStore.FreePlane(&pen.tipLow);
    pen.tipHigh = PlaneOfBytes(width, height, 8, high);
    pen.tipLow = PlaneOfBytes(width, height, 8, low);
  }
  std::vector<uint8_t> RandomBytes(size_t n) {
    std::vector<uint8_t> bytes(n);
    for (uint8_t& byte : bytes) byte = uint8_t(random());
    return bytes;
  }

  std::unique_ptr<Canvas> canvas;
  // Test data comes from its own generator, so that rand() belongs to the
  // code under test and to the references that replay it.
  std::mt19937 random{12345};
};

// The 8-bit blend of one pixel. d and A are updated; r is the random draw
// function, called only where dropout asks.
template <typename Rand>
void RefBlend8(const uint8_t s[3], uint8_t d[3], unsigned t, unsigned p, uint8_t* A, unsigned S,
               int kind, unsigned thick, unsigned density, Rand r) {
  unsigned a = ref::Mul(t, thick);
  if (a > 0 && density < 255 && unsigned(r()) % 255 > density) a = 0;
  unsigned e = ref::Mul(a, 255 - p);
  if (!A || kind == 1) {
    for (int c = 0; c < 3; ++c) d[c] = uint8_t(ref::Mul(d[c], 255 - e) + ref::Mul(s[c], e));
    if (A) *A = uint8_t(ref::Mul(S, e) + ref::Mul(*A, 255 - e));
  } else {
    unsigned n = *A + e;
    for (int c = 0; c < 3; ++c) {
      if (n == 0) {
        d[c] = s[c];
      } else {
        unsigned m = (*A * d[c] + e * s[c]) / n;
        d[c] = uint8_t(ref::Mul(m, 255 - e) + ref::Mul(s[c], e));
      }
    }
    *A = uint8_t(ref::Mul(*A, 255 - e) + ref::Mul(255, e));
  }
}

// The 16-bit blend of one pixel, written out as the arithmetic says.
inline void RefBlend16(const uint8_t s[3], uint8_t hi[3], uint8_t lo[3], unsigned t, int tl,
                       unsigned p, uint8_t* A, unsigned S, int kind, unsigned thick,
                       unsigned density) {
  uint32_t th = thick;
  if (th >= 1 && density < 255 && unsigned(std::rand()) % 255 > density) th = 0;
  uint32_t q = (255 - p) * th / 255;
  uint32_t T16 = t * 256 + (tl < 0 ? 255 : tl);
  uint32_t e = T16 * (q * 65535 / 255) / 65535;
  uint32_t inv = 65535 - e;
  uint32_t a16 = A ? *A * 257 : 0;
  for (int c = 0; c < 3; ++c) {
    uint32_t d = hi[c] * 256 + lo[c], s16 = s[c] * 257, out;
    if (A && kind == 0) {
      uint32_t n = a16 + e;
      out = n == 0 ? s16 : (a16 * d / n + e * s16 / n) * inv / 65535 + e * s16 / 65535;
    } else {
      out = inv * d / 65535 + e * s16 / 65535;
    }
    hi[c] = uint8_t(out >> 8);
    lo[c] = uint8_t(out & 255);
  }
  if (A && kind == 0) {
    *A = uint8_t((inv * a16 / 65535 + e) >> 8);
  } else if (A) {
    unsigned e8 = (e >> 8) & 255;
    *A = uint8_t(ref::Mul(S, e8) + ref::Mul(*A, 255 - e8));
  }
}

// The rows FetchModeRow gave, prefilled with a sentinel so that what a
// kernel leaves alone shows.
struct KernelRows {
  std::vector<uint8_t> source, opacity, protect;
  int kind = -1;
};

constexpr uint8_t kSentinel = 0xA5;

class KernelTest : public PenModeTest {
 protected:
  KernelRows Fetch(int y, int x0, int x1, int boxLeft, int boxTop, int boxRight, int boxBottom) {
    const size_t n = size_t(x1 - x0 + 1);
    KernelRows rows{std::vector<uint8_t>(3 * n, kSentinel), std::vector<uint8_t>(n, kSentinel),
                    std::vector<uint8_t>(n, kSentinel), -1};
    FetchModeRow(canvas.get(), rows.source.data(), rows.opacity.data(), rows.protect.data(), y, x0,
                 x1, Rect{boxLeft, boxTop, boxRight, boxBottom}, &rows.kind);
    return rows;
  }
  // A layer of image, mask and transparency with the mask clear but for a
  // few protecting pixels.
  void MakeLayer() {
    image = Make(0);
    mask = Make(1);
    alpha = Make(2);
    Image clear = Snap(mask);
    for (size_t i = 0; i < clear.bytes.size(); ++i) clear.bytes[i] = i % 7 == 3 ? 9 : 0;
    Put(mask, clear);
  }
  // The kernels' reading of one canvas pixel, from the planes as they are
  // now: refused under any mask value; colour and opacity with x and y held
  // inside the plane. Out: blue, green, red, opacity.
  bool PenPixel(int x, int y, uint8_t out[4]) {
    Image m = Snap(mask), im = Snap(image), a = Snap(alpha);
    if (x >= 0 && x < kWidth && y >= 0 && y < kHeight && m.at(x, y) > 0) return false;
    x = std::clamp(x, 0, kWidth - 1);
    y = std::clamp(y, 0, kHeight - 1);
    for (int c = 0; c < 3; ++c) out[c] = im.at(x, y, c);
    out[3] = a.at(x, y);
    return true;
  }
  // The mask's protection at a canvas pixel, 0 off the plane.
  uint8_t MaskAt(int x, int y) {
    return x >= 0 && x < kWidth && y >= 0 && y < kHeight ? Snap(mask).at(x, y) : 0;
  }
  Plane *image = nullptr, *mask = nullptr, *alpha = nullptr;
};

}  // namespace pentest
