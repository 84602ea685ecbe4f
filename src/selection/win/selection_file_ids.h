// Controls of the settings panel and its history page, shared by their
// script and their code.
#pragma once

#define IDC_SUBOPT_TABS 1000
#define IDC_SELHIST_LIST 100
#define IDC_SELHIST_SETTINGS 101
#define IDC_HISTOPT_COUNT 1001
#define IDC_HISTOPT_SPIN 1002
