#include "shell/tool_bar_table.h"

#include "settings/settings.h"

ToolItem toolItems[] = {
    {10002, 1}, {10003, 1}, {10004, 1}, {10005, 1}, {kToolSmallGap, 1},
    {14010, 1}, {14012, 1}, {14000, 1}, {14001, 1}, {kToolSmallGap, 1},
    {20005, 1}, {20000, 1}, {20001, 1}, {20002, 1}, {20003, 1},
    {20004, 1}, {20008, 1}, {20010, 1}, {20011, 1}, {20012, 1},
    {20009, 1}, {20007, 1}, {20500, 1}, {23010, 1}, {kToolGap, 1},
    {21000, 1}, {21001, 1}, {21026, 1}, {21020, 1}, {kToolGap, 1},
    {22000, 1}, {21023, 1}, {21012, 1}, {kToolGap, 1}, {21022, 1},
    {21042, 1}, {11014, 1}, {11015, 1}, {kToolGap, 1}, {kToolListEnd, 0},
};

// Every row before the end mark has its word in the settings record.
static_assert(sizeof toolItems / sizeof toolItems[0] <= kToolButtonWords);
