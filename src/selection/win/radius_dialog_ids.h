// Controls of tsl_selmax, tsl_selmin and tsl_sellow, shared by their
// script and their code.
#pragma once

#define IDC_SELRADIUS 100
#define IDC_SELRADIUS_SPIN 101
#define IDC_SELBLUR_THICK 102
#define IDC_SELBLUR_DITHER 103
