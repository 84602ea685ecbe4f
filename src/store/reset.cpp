#include "store/reset.h"

#include "store/plane_store.h"

void ResetStore() { PlaneStore.Reset(); }
