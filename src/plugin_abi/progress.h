/* Progress of a plug-in's work, shown in the host's status bar: code 4
   "Reading file...", 5 "Saving file...", 3 or 8 "Processing...", each with
   a percent; code 0 clears it. On Windows the window is the status bar and
   the report is SendMessage(window, WM_USER, code, percent); in the native
   build the window is a TeselProgressSink of the host. A plug-in links the
   one implementation of its build. */
#ifndef TESEL_PLUGIN_ABI_PROGRESS_H
#define TESEL_PLUGIN_ABI_PROGRESS_H

#ifdef __cplusplus
extern "C" {
#endif

enum {
  TESEL_PROGRESS_CLEAR = 0,
  TESEL_PROGRESS_PROCESSING = 3,
  TESEL_PROGRESS_READING = 4,
  TESEL_PROGRESS_SAVING = 5,
};

/* What the native host passes as the window. */
typedef struct TeselProgressSink {
  void (*report)(struct TeselProgressSink* sink, int code, int percent);
} TeselProgressSink;

/* Nothing happens for a null window. */
void TeselReportProgress(void* window, int code, int percent);

#ifdef __cplusplus
}
#endif

#endif
