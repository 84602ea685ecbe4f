// Controls of tsl_chcopy, shared by its script and its code.
#pragma once

#define IDC_CHCOPY_ORIGIN 100
#define IDC_CHCOPY_DESTINATION 101
#define IDC_CHCOPY_INVERTED 102
#define IDC_CHCOPY_INSIDE_ONLY 103
