// Row access of the plane store, per storage kind, against memcpy of the
// same bytes from a flat picture of the same size.
#include <benchmark/benchmark.h>

#include <cstring>
#include <vector>

#include "platform/headless/headless.h"
#include "store/plane_store.h"

namespace {

constexpr int kSide = 4096;
constexpr int kRowBytes = kSide * 3;
constexpr int kSpan = 64;

// One 4096 x 4096 24-bit plane of each kind, made on first use. The fill
// stores every packed block and puts every page of the others in memory,
// as the baseline's picture is.
Plane* BenchPlane(uint32_t kind) {
  static Plane* planes[3] = {};
  if (!planes[kind]) planes[kind] = PlaneStore.CreatePlane(kSide, kSide, 24, 1, 1, kind);
  return planes[kind];
}

// The span of call i starts here: it wanders over the row, away from column 0.
int SpanStart(int64_t i) { return 1 + static_cast<int>(i * 97 % (kSide - kSpan - 1)); }

// The headless seam records every priority change of a mapped transfer;
// keep that record from growing through a long run.
void ForgetPriorities(int64_t i) {
  if ((i & 0xFFFF) == 0) headless::Recorded().prioritiesSet.clear();
}

const char* KindLabel(uint32_t kind) {
  return kind == Virtual ? "Virtual" : kind == Physical ? "Physical" : "Packed";
}

// Calls walk down the whole plane, a new row each time, or (kRows = 4) go round
// 4 rows as a brush does, which the narrow row cache holds.
template <bool kWrite, bool kWhole, int kRows = kSide>
void RowAccess(benchmark::State& state) {
  uint32_t kind = static_cast<uint32_t>(state.range(0));
  Plane* plane = BenchPlane(kind);
  if (!plane) {
    state.SkipWithError("no plane");
    return;
  }
  std::vector<uint8_t> buffer(kRowBytes, 1);
  int64_t i = 0;
  for (auto _ : state) {
    int y = static_cast<int>(i % kRows);
    int x0 = kWhole ? 0 : SpanStart(i);
    int x1 = kWhole ? kSide - 1 : x0 + kSpan - 1;
    if (kWrite)
      PlaneStore.WriteRow(plane, y, x0, x1, buffer.data());
    else
      PlaneStore.ReadRow(plane, y, x0, x1, buffer.data());
    benchmark::ClobberMemory();
    ForgetPriorities(++i);
  }
  state.SetBytesProcessed(state.iterations() * (kWhole ? kRowBytes : kSpan * 3));
  state.SetLabel(KindLabel(kind));
}

template <bool kWrite, bool kWhole, int kRows = kSide>
void MemcpyBaseline(benchmark::State& state) {
  static std::vector<uint8_t> picture(static_cast<size_t>(kRowBytes) * kSide, 1);
  std::vector<uint8_t> buffer(kRowBytes, 1);
  int64_t i = 0;
  for (auto _ : state) {
    int y = static_cast<int>(i % kRows);
    size_t at = static_cast<size_t>(kRowBytes) * y + (kWhole ? 0 : 3 * SpanStart(i));
    ++i;
    size_t count = kWhole ? kRowBytes : kSpan * 3;
    if (kWrite)
      std::memcpy(picture.data() + at, buffer.data(), count);
    else
      std::memcpy(buffer.data(), picture.data() + at, count);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(state.iterations() * (kWhole ? kRowBytes : kSpan * 3));
  state.SetLabel("memcpy");
}

void Kinds(benchmark::internal::Benchmark* b) { b->Arg(Virtual)->Arg(Physical)->Arg(Packed); }

BENCHMARK(RowAccess<false, true>)->Name("ReadRow/whole")->Apply(Kinds);
BENCHMARK(MemcpyBaseline<false, true>)->Name("ReadRow/whole/memcpy");
BENCHMARK(RowAccess<true, true>)->Name("WriteRow/whole")->Apply(Kinds);
BENCHMARK(MemcpyBaseline<true, true>)->Name("WriteRow/whole/memcpy");
BENCHMARK(RowAccess<false, false>)->Name("ReadRow/span64")->Apply(Kinds);
BENCHMARK(MemcpyBaseline<false, false>)->Name("ReadRow/span64/memcpy");
BENCHMARK(RowAccess<true, false>)->Name("WriteRow/span64")->Apply(Kinds);
BENCHMARK(MemcpyBaseline<true, false>)->Name("WriteRow/span64/memcpy");
BENCHMARK(RowAccess<false, false, 4>)->Name("ReadRow/span64_4rows")->Apply(Kinds);
BENCHMARK(MemcpyBaseline<false, false, 4>)->Name("ReadRow/span64_4rows/memcpy");
BENCHMARK(RowAccess<true, false, 4>)->Name("WriteRow/span64_4rows")->Apply(Kinds);
BENCHMARK(MemcpyBaseline<true, false, 4>)->Name("WriteRow/span64_4rows/memcpy");

}  // namespace
