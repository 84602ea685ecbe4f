#include "plugin_abi/progress.h"

void TeselReportProgress(void* window, int code, int percent) {
  TeselProgressSink* sink = (TeselProgressSink*)window;
  if (sink && sink->report) sink->report(sink, code, percent);
}
