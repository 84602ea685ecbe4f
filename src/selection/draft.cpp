#include "selection/draft.h"

DraftState Draft;

void ClearPath() {
  Draft.selectedNode = -1;
  Draft.nodeCount = 0;
  Draft.closed = 0;
  Draft.openIndex = 0;
}
