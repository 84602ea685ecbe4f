#include "settings/reset.h"

#include <cstring>

#include "settings/number_lists.h"
#include "settings/settings.h"

void ResetSettings() {
  std::memset(&settings, 0, sizeof settings);
  for (NumberList* list : {&penSizes, &canvasSizes, &presetLists[0], &presetLists[1]})
    list->Clear();
}
