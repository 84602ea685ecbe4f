// The paint level joins the program: the stroke engine takes the view's
// pointer routes, and the pen of the last run comes back with its tip.
#pragma once

void InstallPaint();
