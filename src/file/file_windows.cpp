#include "file/file_windows.h"

FileWindows fileWindows;
