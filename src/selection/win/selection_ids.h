// Control ids of the selection's dialogs.
#pragma once

#define IDC_NUMBER_VALUE 1001
#define IDC_NUMBER_RANGE 1002
