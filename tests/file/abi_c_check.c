/* The boundary's headers compile as plain C, with their layout asserted,
   as a plug-in of another author would include them. */
#include "plugin_abi/file_plugin.h"
#include "plugin_abi/progress.h"

/* A C translation unit must declare something. */
int TeselAbiCheckedInC(void) { return (int)sizeof(FileHeader); }
