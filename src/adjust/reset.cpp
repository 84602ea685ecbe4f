#include "adjust/reset.h"

#include "adjust/copy_between_channels.h"

void ResetAdjust() {
  adjustWindows = {};
  channelCopyChoice = {};
}
