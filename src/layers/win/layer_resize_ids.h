// Controls of tsl_layresize, shared by its script and its code: one line a
// side, in the order left, right, top, bottom.
#pragma once

#define IDC_LAYRESIZE_CHECK 3501   // + side
#define IDC_LAYRESIZE_AMOUNT 3511  // + side
#define IDC_LAYRESIZE_EXPAND 3521  // + side
#define IDC_LAYRESIZE_SHRINK 3531  // + side
