// Checks of the Win32 side of the seam, run under Wine by scripts/wine-check.sh:
// each group prints one line per check; any failure makes the exit code 1.
#pragma once

#include <string>

namespace seam_check {

void Report(const std::string& name, bool passed, const std::string& seen = "");

void CheckMappings();
void CheckReservedRanges();
void CheckTempNames();
void CheckFileNames();
void CheckStrings();
void CheckPlaneKinds();

}  // namespace seam_check
