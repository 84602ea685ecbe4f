// The seed fill and Detect Selection join the program, and leave it for
// the next test.
#pragma once

void InstallDetection();
// The seed settings and the pick state back to their start values.
void ResetDetection();
