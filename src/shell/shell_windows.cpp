#include "shell/shell_windows.h"

ShellWindows shellWindows;
