// The Win32 seam as the store and the shell use it, checked on Windows or
// under Wine. One line per check; exit code 1 when any failed.
#include "seam_check.h"

#include <cstdio>

namespace seam_check {

namespace { int failures = 0; }

void Report(const std::string& name, bool passed, const std::string& seen) {
  failures += !passed;
  std::printf("%s %s%s%s\n", passed ? "ok  " : "FAIL", name.c_str(), seen.empty() ? "" : ": ", seen.c_str());
  std::fflush(stdout);
}

}  // namespace seam_check

int main() {
  using namespace seam_check;
  CheckMappings();
  CheckReservedRanges();
  CheckTempNames();
  CheckFileNames();
  CheckStrings();
#ifdef TESEL_SEAM_CHECK_STORE
  CheckPlaneKinds();
#endif
  std::printf("%s\n", failures == 0 ? "seam check passed" : "seam check FAILED");
  return failures == 0 ? 0 : 1;
}
