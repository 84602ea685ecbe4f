// The main message loop; returns the quit message's code.
#pragma once

int RunMessageLoop();
