// How the checks run under Wine tell their results: one line a check, "ok"
// or "FAIL", its name and what was seen; the last line and the exit code
// say whether all passed.
#pragma once

#include <cstdio>
#include <string>

inline int checkFailures = 0;

inline void Report(const std::string& name, bool passed, const std::string& seen = "") {
  checkFailures += !passed;
  std::printf("%s %s%s%s\n", passed ? "ok  " : "FAIL", name.c_str(), seen.empty() ? "" : ": ",
              seen.c_str());
  std::fflush(stdout);
}

// The closing line of a check program, and its exit code.
inline int Finish(const char* check) {
  std::printf("%s %s\n", check, checkFailures == 0 ? "passed" : "FAILED");
  return checkFailures == 0 ? 0 : 1;
}
