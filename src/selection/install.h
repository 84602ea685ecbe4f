// The selection joins the program: its tools, its commands on a canvas and
// its routes of the pointer.
#pragma once

void InstallSelection();
