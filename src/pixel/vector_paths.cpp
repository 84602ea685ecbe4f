#include "pixel/vector_paths.h"

namespace {

bool& InUse() {
  static bool inUse = VectorPathsAvailable();
  return inUse;
}

}  // namespace

bool VectorPathsAvailable() {
  __builtin_cpu_init();
  return __builtin_cpu_supports("avx2");
}

bool VectorPaths() { return InUse(); }

bool UseVectorPaths(bool wanted) {
  InUse() = wanted && VectorPathsAvailable();
  return InUse();
}
