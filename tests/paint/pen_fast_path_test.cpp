// The dab's fast paths against the bytes they must keep. A scripted set of
// dabs (many radii and fractions, every kind of blend, protection planes,
// 8- and 24-bit planes, Double Accuracy, dropout) is hashed plane by plane;
// the hashes lock the bytes of the plain per-pixel code, which the other
// pen tests check against references of their own (the dropout and noise
// scripts hold for the C library's rand() of the native build). Each
// script runs with and without the vector kernels. Then the row kernels
// against the arithmetic written out, over every pair of bytes each
// product takes and every quotient the Over blend forms.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "display/mix_rows_avx2.h"
#include "document/canvas.h"
#include "paint/blend_row.h"
#include "paint/color_mask.h"
#include "paint/dab_count.h"
#include "paint/dab_rows.h"
#include "paint/dab_rows_avx2.h"
#include "paint/pen_modes.h"
#include "paint/pen_record.h"
#include "paint/place_dab.h"
#include "paint/protection.h"
#include "paint/tip.h"
#include "platform/headless/headless.h"
#include "store/plane_store.h"

namespace {

constexpr int kWidth = 150, kHeight = 100;

// What a script sets up and does.
struct Script {
  const char* name;
  int activePlane = 0;       // slot of layer 0
  bool mask = false;         // a mask with clear and protecting areas
  bool transparency = true;  // the layer's transparency plane
  bool further = false;      // a further plane adding protection, one inverting it
  bool selection = false;    // a selection with "Mask Outside Selection"
  bool accurate = false;     // Double Accuracy on the active plane
  bool antiAlias = true;
  bool rightButton = false;  // the Undo Pen, from a snapshot
  bool tone = false;         // a Tone Filter cutting the coverage
  bool pattern = false;      // a pattern image instead of the flat colour
  bool colorMask = false;    // the colour mask of the freehand tools
  uint32_t mode = kModeColor;
  uint32_t thickness = 255, density = 255;
  int tipShape = 0;
  double radiusX = 4, radiusY = 4;
  bool blendRows = false;  // BlendRow called directly, kinds 0, 1 and 2
  uint64_t expected = 0;
};

uint64_t Fnv(uint64_t hash, const uint8_t* bytes, size_t n) {
  for (size_t i = 0; i < n; ++i) hash = (hash ^ bytes[i]) * 0x100000001b3ull;
  return hash;
}

uint64_t HashPlane(uint64_t hash, Plane* plane) {
  if (!plane) return Fnv(hash, reinterpret_cast<const uint8_t*>("-"), 1);
  std::vector<uint8_t> row(size_t(plane->width) * plane->bytesPerPixel);
  for (int y = 0; y < plane->height; ++y) {
    PlaneStore.ReadRow(plane, y, 0, plane->width - 1, row.data());
    hash = Fnv(hash, row.data(), row.size());
  }
  return hash;
}

// A tone pattern: every third column of every other row cut, by position.
void ToneCut(int y, int x0, int x1, int, int, int, int, uint8_t* row, int init) {
  for (int x = x0; x <= x1; ++x) {
    if (init) row[x - x0] = 255;
    if (y % 2 == 0 && x % 3 == 0) row[x - x0] = uint8_t(row[x - x0] / 3);
  }
}

class PenFastPath : public ::testing::TestWithParam<bool> {
 protected:
  void SetUp() override {
    headless::Reset();
    ResetPen();
    ResetPenModes();
    UseVectorPen(GetParam());
  }
  void TearDown() override {
    UseVectorPen(true);
    ResetPenModes();
    ResetPen();
  }

  Plane* Make(Canvas& canvas, int index, int bits) {
    Plane*& plane = canvas.planes[index].plane;
    plane = PlaneStore.CreatePlane(kWidth, kHeight, bits, 0, 1, Physical);
    Fill(plane);
    return plane;
  }
  void Fill(Plane* plane) {
    std::vector<uint8_t> row(size_t(plane->width) * plane->bytesPerPixel);
    for (int y = 0; y < plane->height; ++y) {
      for (uint8_t& byte : row) byte = uint8_t(random());
      PlaneStore.WriteRow(plane, y, 0, plane->width - 1, row.data());
    }
  }
  // Areas of 0 (paint), of 255 (protect) and of values between.
  void Zones(Plane* plane, int seed) {
    std::vector<uint8_t> row(size_t(plane->width));
    for (int y = 0; y < plane->height; ++y) {
      for (int x = 0; x < plane->width; ++x) {
        const int zone = ((x + seed) / 23 + (y + seed) / 17) % 4;
        row[x] = zone == 0 ? 255 : zone == 1 ? uint8_t(random()) : 0;
      }
      PlaneStore.WriteRow(plane, y, 0, plane->width - 1, row.data());
    }
  }

  uint64_t Run(const Script& s) {
    random.seed(2024);  // each script on its own
    auto canvas = std::make_unique<Canvas>();
    canvas->canvasWidth = kWidth;
    canvas->canvasHeight = kHeight;
    for (int k = 0; k < kPlanesPerLayer; ++k) {
      PlaneSlot& slot = canvas->planes[k];
      slot.left = slot.top = 0;
      slot.width = kWidth;
      slot.height = kHeight;
    }
    Make(*canvas, 0, 24);
    if (s.mask || s.activePlane == kMaskPosition) Zones(Make(*canvas, 1, 8), 0);
    if (s.transparency) Make(*canvas, 2, 8);
    if (s.further) {
      Zones(Make(*canvas, 3, 8), 7);
      canvas->planes[3].planeFlags[2] = 1;
      Zones(Make(*canvas, 4, 8), 11);
      canvas->planes[4].planeFlags[3] = 1;
    }
    if (s.selection) {
      canvas->selectionPlane = PlaneStore.CreatePlane(kWidth, kHeight, 8, 0, 1, Physical);
      Zones(canvas->selectionPlane, 5);
      maskOutsideSelection = 1;
    }
    canvas->activePlane = s.activePlane;
    PlaneSlot& active = canvas->planes[s.activePlane];
    if (s.accurate) {
      canvas->doubleAccuracy = 1;
      active.accuracyPlane =
          PlaneStore.CreatePlane(kWidth, kHeight, active.plane->bits, 0, 1, Physical);
      Fill(active.accuracyPlane);
    }
    if (s.rightButton) {
      undoPenImage = PlaneStore.CreatePlane(kWidth, kHeight, 24, 0, 1, Physical);
      Fill(undoPenImage);
      undoPenTransparency = PlaneStore.CreatePlane(kWidth, kHeight, 8, 0, 1, Physical);
      Fill(undoPenTransparency);
    }
    toneRowFilter = s.tone ? ToneCut : nullptr;
    if (s.pattern) {
      pen.patternImage = PlaneStore.CreatePlane(7, 5, 24, 0, 1, Physical);
      Fill(pen.patternImage);
      pen.patternActive = 1;
    }
    colorMaskChoice = s.colorMask ? 3 : 0;
    colorMaskVagueness = 90;
    pen.red = 200, pen.green = 31, pen.blue = 97;
    pen.mode = s.mode;
    pen.colorThickness = s.thickness;
    pen.density = s.density;
    pen.tipShape = s.tipShape;
    pen.radiusX = s.radiusX;
    pen.radiusY = s.radiusY;
    BuildTip();
    penAntiAlias = s.antiAlias;
    PenKernels.cloneOffsetX = 9;
    PenKernels.cloneOffsetY = -5;
    dabCount = 0;
    std::srand(4321);

    uint64_t hash = 0xcbf29ce484222325ull;
    if (s.blendRows) {
      hash = BlendRows(*canvas, hash);
    } else {
      int first = 1;
      for (int i = 0; i < 40; ++i, ++dabCount) {
        // Across the canvas and past each edge, at fractions that differ
        // from dab to dab, with whole and zero positions among them.
        const double x = -12.0 + std::fmod(i * 37.13, kWidth + 24.0);
        const double y = i % 9 == 4 ? 0.0 : -9.0 + std::fmod(i * 23.71, kHeight + 18.0);
        int box[4] = {};
        PlaceDab(canvas.get(), i % 11 == 3 ? double(int(x)) : x, y, 0, s.rightButton, &box[0],
                 &box[1], &box[2], &box[3], 1.0, first);
        hash = Fnv(hash, reinterpret_cast<const uint8_t*>(box), sizeof box);
      }
    }
    for (const PlaneSlot& slot : canvas->planes) {
      if (!slot.plane) continue;
      hash = HashPlane(hash, slot.plane);
      if (slot.accuracyPlane) hash = HashPlane(hash, slot.accuracyPlane);
    }
    for (PlaneSlot& slot : canvas->planes) {
      PlaneStore.FreePlane(&slot.plane);
      PlaneStore.FreePlane(&slot.accuracyPlane);
    }
    PlaneStore.FreePlane(&canvas->selectionPlane);
    PlaneStore.FreePlane(&pen.patternImage);
    FreeColorMaskMap();
    return hash;
  }

  // Rows of every length from 1 to past the widest dab, laid by each kind,
  // with random sources, tips and protection, and with no low tip row.
  uint64_t BlendRows(Canvas& canvas, uint64_t hash) {
    std::vector<uint8_t> source(3 * 300), tip(300), low(300), opacity(300), protect(300);
    for (int k = 0; k < 3 * 70; ++k) {
      for (uint8_t& b : source) b = uint8_t(random());
      for (size_t i = 0; i < tip.size(); ++i) {
        tip[i] = uint8_t(random() % 4 == 0 ? 0 : random());
        low[i] = uint8_t(random());
        opacity[i] = uint8_t(random());
        protect[i] = uint8_t(random() % 3 == 0 ? 0 : random() % 3 == 0 ? 255 : random());
      }
      const int length = 1 + (k * 13) % 260;
      const int x0 = -20 + (k * 29) % (kWidth + 10);
      const int y = -2 + (k * 7) % (kHeight + 4);
      BlendRow(&canvas, source.data(), tip.data(), k % 5 == 2 ? nullptr : low.data(),
               opacity.data(), protect.data(), k % 3, y, x0, x0 + length - 1, k % 7 == 1);
      hash = Fnv(hash, protect.data(), protect.size());
    }
    return hash;
  }

  std::mt19937 random{2024};
};

// clang-format off
const Script kScripts[] = {
    {.name = "ColorOverTransparency", .mask = true, .expected = 0xf125e357ed577602ull},
    {.name = "ColorFullStrength", .tipShape = 15, .radiusX = 16, .radiusY = 16,
     .expected = 0x254a1fcfad8e0118ull},
    {.name = "ColorWideFlat", .mask = true, .tipShape = 15, .radiusX = 33.4, .radiusY = 6.7,
     .expected = 0x9f29cd753e2756d7ull},
    {.name = "ColorRadiusZero", .radiusX = 0, .radiusY = 0, .expected = 0x2f3568d37cb961c1ull},
    {.name = "ColorSmallThin", .thickness = 180, .tipShape = 2, .radiusX = 1.5, .radiusY = 2.5,
     .expected = 0xd8d4b196f110f4c5ull},
    {.name = "ColorRing", .tipShape = 5, .radiusX = 7.3, .radiusY = 9,
     .expected = 0xd2c388aa83242d76ull},
    {.name = "ColorNoTransparency", .mask = true, .transparency = false, .tipShape = 15,
     .radiusX = 12, .radiusY = 12, .expected = 0x1d40797bf6ae4e77ull},
    {.name = "ColorDropout", .mask = true, .density = 100, .tipShape = 15, .radiusX = 10,
     .radiusY = 10, .expected = 0xf607e5140d7020efull},
    {.name = "ColorDropoutNoTransparency", .transparency = false, .thickness = 200, .density = 3,
     .tipShape = 1, .radiusX = 6, .radiusY = 6, .expected = 0xdea8e0abef5b29a0ull},
    {.name = "ColorProtectedEverywhere", .mask = true, .further = true, .selection = true,
     .tipShape = 15, .radiusX = 20, .radiusY = 14, .expected = 0x3ce2a77f17fb860bull},
    {.name = "ColorTone", .tone = true, .tipShape = 15, .radiusX = 9, .radiusY = 9,
     .expected = 0xd1b49649421f41aaull},
    {.name = "ColorBands", .mask = true, .density = 140, .tipShape = 15, .radiusX = 127,
     .radiusY = 66, .expected = 0x6a7066a4b4ec0625ull},
    {.name = "ColorPattern", .mask = true, .pattern = true, .tipShape = 15, .radiusX = 9,
     .radiusY = 9, .expected = 0x8a4a6535724ddf56ull},
    {.name = "ColorMasked", .colorMask = true, .tipShape = 15, .radiusX = 6, .radiusY = 6,
     .expected = 0x37257f8cf46fbb3aull},
    {.name = "ColorWholePixels", .mask = true, .antiAlias = false, .tipShape = 15, .radiusX = 11,
     .radiusY = 3, .expected = 0x900b6a82c6c9e9fdull},
    {.name = "ColorSpray", .tipShape = 6, .radiusX = 8, .radiusY = 8,
     .expected = 0x7e99d72162276da6ull},
    {.name = "ColorOnMaskPlane", .activePlane = kMaskPosition, .tipShape = 15, .radiusX = 13,
     .radiusY = 13, .expected = 0x24fd54363a432aa9ull},
    {.name = "ColorOnTransparencyPlane", .activePlane = kTransparencyPosition, .density = 90,
     .tipShape = 15, .radiusX = 5, .radiusY = 5, .expected = 0xe768fb80f3d8cebull},
    {.name = "ColorAccurate", .mask = true, .accurate = true, .tipShape = 15, .radiusX = 10,
     .radiusY = 10, .expected = 0x427a1f85b5fbf26cull},
    {.name = "ColorAccurateDropout", .transparency = false, .accurate = true, .density = 120,
     .radiusX = 6, .radiusY = 6, .expected = 0xf4c1598507567517ull},
    {.name = "EraserAccurateOnMask", .activePlane = kMaskPosition, .accurate = true,
     .mode = kModeEraser, .radiusX = 7, .radiusY = 7, .expected = 0xa4ab1962d0fceaaeull},
    {.name = "Eraser", .mask = true, .mode = kModeEraser, .tipShape = 15, .radiusX = 17,
     .radiusY = 17, .expected = 0x397c652b7008a16eull},
    {.name = "EraserDropout", .mode = kModeEraser, .density = 60, .tipShape = 15, .radiusX = 8,
     .radiusY = 8, .expected = 0x1e18e86e410906acull},
    {.name = "Blur", .mask = true, .mode = kModeBlur, .tipShape = 1, .radiusX = 6, .radiusY = 6,
     .expected = 0x1725bcfeb20b1b84ull},
    {.name = "Clone", .mode = kModeClone, .tipShape = 15, .radiusX = 9, .radiusY = 9,
     .expected = 0x31132ed510c84de7ull},
    {.name = "Noise", .mask = true, .mode = kModeNoise, .tipShape = 15, .radiusX = 5, .radiusY = 5,
     .expected = 0xcbfc4e094b8eb816ull},
    {.name = "UndoPen", .mask = true, .rightButton = true, .tipShape = 15, .radiusX = 12,
     .radiusY = 12, .expected = 0x255e4d434cd9422full},
    {.name = "RowsEveryKind", .mask = true, .blendRows = true, .expected = 0xc904a95e7d83f7d6ull},
    {.name = "RowsEveryKindDropout", .further = true, .selection = true, .density = 77,
     .blendRows = true, .expected = 0xc9e3716ced8374b6ull},
    {.name = "RowsAccurate", .accurate = true, .blendRows = true,
     .expected = 0xef03209453656c36ull},
    {.name = "RowsOnMaskPlane", .activePlane = kMaskPosition, .thickness = 99, .blendRows = true,
     .expected = 0x791e7022a56a943dull},
};
// clang-format on

TEST_P(PenFastPath, ScriptsKeepTheirBytes) {
  for (const Script& script : kScripts) {
    const uint64_t hash = Run(script);
    EXPECT_EQ(hash, script.expected) << script.name << ": 0x" << std::hex << hash;
  }
}

INSTANTIATE_TEST_SUITE_P(Pen, PenFastPath, ::testing::Bool(),
                         [](const auto& info) { return info.param ? "Vector" : "Scalar"; });

// The arithmetic of the row kernels, written out.
unsigned Mul(unsigned a, unsigned b) { return std::min(255u, (a * b + 128) / 255); }
unsigned Mix(unsigned keep, unsigned put, unsigned a) {
  return std::min(255u, Mul(keep, 255 - a) + Mul(put, a));
}

class RowKernels : public ::testing::TestWithParam<bool> {
 protected:
  void SetUp() override { UseVectorPen(GetParam()); }
  void TearDown() override { UseVectorPen(true); }
  // Rows of n values with slack, filled by f(i).
  template <typename F>
  static std::vector<uint8_t> Row(int n, F f) {
    std::vector<uint8_t> row(size_t(n) + 2 * kRowBlock, 0);
    for (int i = 0; i < n; ++i) row[i] = uint8_t(f(i));
    return row;
  }
  std::mt19937 random{77};
};

constexpr int kPairs = 65536;

// Every pair of neighbours at every fraction across, then every pair of
// shifted rows at every fraction down (a fraction of 0 across passes a
// column through unchanged).
TEST_P(RowKernels, ShiftTakesEveryPairAtEveryFraction) {
  // Mix(keep, put, f) at f, keep, put.
  static const std::vector<uint8_t> mix = [] {
    std::vector<uint8_t> table(256 * kPairs);
    for (unsigned f = 0; f < 256; ++f)
      for (unsigned pair = 0; pair < kPairs; ++pair)
        table[f << 16 | pair] = uint8_t(Mix(pair >> 8, pair & 255, f));
    return table;
  }();
  const int n = 2 * kPairs;
  const auto padded = Row(n + 1, [](int i) { return i % 2 ? (i / 2) >> 8 : (i / 2) & 255; });
  const auto lower = Row(n, [](int i) { return i * 7; });
  std::vector<uint8_t> upper(n + kRowBlock), out(n + kRowBlock);
  for (unsigned f = 0; f < 256; ++f) {
    ShiftRow(padded.data(), lower.data(), f, 255 - f, upper.data(), out.data(), n);
    for (int c = 0; c < n; ++c) {
      if (upper[c] != mix[f << 16 | padded[c + 1] << 8 | padded[c]])
        FAIL() << "fx " << f << " column " << c << ": " << int(upper[c]);
      if (out[c] != mix[(255 - f) << 16 | upper[c] << 8 | lower[c]])
        FAIL() << "fy " << 255 - f << " column " << c << ": " << int(out[c]);
    }
  }
  const auto same = Row(kPairs + 1, [](int i) { return (i - 1) >> 8; });
  const auto below = Row(kPairs, [](int i) { return i & 255; });
  for (unsigned fy = 0; fy < 256; ++fy) {
    ShiftRow(same.data(), below.data(), 0, fy, upper.data(), out.data(), kPairs);
    for (int c = 0; c < kPairs; ++c)
      if (out[c] != mix[fy << 16 | c])
        FAIL() << "fy " << fy << " pair " << c << ": " << int(out[c]);
  }
}

// Every tip value with every protection at every thickness; with dropout,
// the same draws as the plain code, for rows of every length up to past
// two blocks, with and without slack.
TEST_P(RowKernels, StrengthsOfEveryPair) {
  const auto tip = Row(kPairs, [](int i) { return i & 255; });
  const auto protect = Row(kPairs, [](int i) { return i >> 8; });
  std::vector<uint8_t> out(kPairs + kRowBlock);
  for (unsigned k = 0; k < 256; ++k) {
    Strengths8(tip.data(), protect.data(), k, 255, out.data(), kPairs, k % 2 == 0);
    for (int i = 0; i < kPairs; ++i)
      if (out[i] != Mul(Mul(i & 255, k), 255 - (i >> 8)))
        FAIL() << "thickness " << k << " pair " << i << ": " << int(out[i]);
  }
  for (int n = 1; n <= 3 * kRowBlock; ++n) {
    for (bool slack : {false, true}) {
      // Exact rows, so that reading past them shows under the sanitizers.
      std::vector<uint8_t> t(n), p(n), got(n + kRowBlock);
      for (int i = 0; i < n; ++i)
        t[i] = uint8_t(random()), p[i] = uint8_t(random() % 3 ? 0 : random());
      if (slack) t.resize(n + kRowBlock), p.resize(n + kRowBlock);
      std::srand(unsigned(n));
      Strengths8(t.data(), p.data(), 200, 130, got.data(), n, slack);
      std::srand(unsigned(n));
      for (int i = 0; i < n; ++i) {
        unsigned a = Mul(t[i], 200);
        if (a > 0 && unsigned(std::rand()) % 255 > 130) a = 0;
        ASSERT_EQ(got[i], Mul(a, 255 - p[i])) << "length " << n << " pixel " << i;
      }
    }
  }
}

// One pixel of the 8-bit colour blend as the arithmetic has it.
void BlendPixel(TransparencyBlend how, const uint8_t* s, unsigned e, unsigned S, uint8_t* d,
                uint8_t* A) {
  if (how == TransparencyBlend::Over) {
    const unsigned n = *A + e;
    for (int c = 0; c < 3; ++c)
      d[c] = uint8_t(n == 0 ? s[c] : Mul((*A * d[c] + e * s[c]) / n, 255 - e) + Mul(s[c], e));
    *A = uint8_t(Mul(*A, 255 - e) + Mul(255, e));
    return;
  }
  for (int c = 0; c < 3; ++c) d[c] = uint8_t(Mul(d[c], 255 - e) + Mul(s[c], e));
  if (how == TransparencyBlend::Replace) *A = uint8_t(Mul(S, e) + Mul(*A, 255 - e));
}

// Blends count pixels given by f(i, s, e, S, d, A) and checks each.
template <typename F>
void CheckBlend(TransparencyBlend how, int count, bool slack, F f) {
  const size_t room = size_t(count) + (slack ? kRowBlock : 0);
  std::vector<uint8_t> s(3 * room), S(room), e(count + kRowBlock), d(3 * (count + kRowBlock)),
      A(count + kRowBlock);
  for (int i = 0; i < count; ++i) f(i, &s[3 * i], &e[i], &S[i], &d[3 * i], &A[i]);
  const std::vector<uint8_t> d0 = d, A0 = A;
  BlendColors8(ColorRows{s.data(), e.data(), S.data(), d.data(), A.data(), count, slack}, how);
  for (int i = 0; i < count; ++i) {
    uint8_t want[3] = {d0[3 * i], d0[3 * i + 1], d0[3 * i + 2]}, wantA = A0[i];
    BlendPixel(how, &s[3 * i], e[i], S[i], want, &wantA);
    for (int c = 0; c < 3; ++c)
      ASSERT_EQ(d[3 * i + c], want[c]) << "pixel " << i << " colour " << c << " of " << count;
    if (how != TransparencyBlend::None) {
      ASSERT_EQ(A[i], wantA) << "pixel " << i << " of " << count;
    }
  }
}

// Every strength with every lower colour (and, for the transparency, every
// coverage) against source colours that change from pass to pass; the Over
// blend over every coverage and strength; and rows of every length up to
// past three blocks.
TEST_P(RowKernels, ColourBlendOfEveryPair) {
  for (TransparencyBlend how :
       {TransparencyBlend::None, TransparencyBlend::Replace, TransparencyBlend::Over}) {
    SCOPED_TRACE(int(how));
    for (unsigned pass = 0; pass < 8; ++pass)
      CheckBlend(how, kPairs, pass % 2 == 1,
                 [&](int i, uint8_t* s, uint8_t* e, uint8_t* S, uint8_t* d, uint8_t* A) {
                   *e = uint8_t(i >> 8);
                   *A = uint8_t(how == TransparencyBlend::Over ? i : i * 3 + pass);
                   *S = uint8_t(i * 5 + pass * 33);
                   for (int c = 0; c < 3; ++c) {
                     d[c] =
                         uint8_t(how == TransparencyBlend::Over ? i * 11 + pass * 37 + c : i + c);
                     s[c] = uint8_t(i * 7 + pass * 29 + 85 * c);
                   }
                 });
    for (int count = 1; count <= 100; ++count)
      CheckBlend(how, count, count % 2 == 0,
                 [&](int, uint8_t* s, uint8_t* e, uint8_t* S, uint8_t* d, uint8_t* A) {
                   *e = uint8_t(random() % 4 ? random() : 0);
                   *A = uint8_t(random() % 4 ? random() : 0);
                   *S = uint8_t(random());
                   for (int c = 0; c < 3; ++c) d[c] = uint8_t(random()), s[c] = uint8_t(random());
                 });
  }
}

INSTANTIATE_TEST_SUITE_P(Pen, RowKernels, ::testing::Bool(),
                         [](const auto& info) { return info.param ? "Vector" : "Scalar"; });

// The Over blend's division in single floats, for every sum it can be
// given by every coverage sum n (0 standing for 1).
TEST(CoverageQuotients, EveryQuotientIsExact) {
  if (!avx2::Supported()) GTEST_SKIP() << "no AVX2";
  std::vector<int32_t> x, n, q;
  for (int32_t coverage = 0; coverage <= 510; ++coverage) {
    const int32_t divisor = std::max(coverage, 1);
    x.clear();
    for (int32_t sum = 0; sum <= 255 * divisor; ++sum) x.push_back(sum);
    while (x.size() % 8) x.push_back(0);
    n.assign(x.size(), coverage);
    q.assign(x.size(), -1);
    avx2::CoverageQuotientBlocks(x.data(), n.data(), q.data(), int(x.size() / 8));
    for (size_t i = 0; i < x.size(); ++i)
      if (q[i] != x[i] / divisor) FAIL() << x[i] << " / " << divisor << ": " << q[i];
  }
}

}  // namespace
