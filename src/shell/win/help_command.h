// Help (13000): the help document of the program folder, opened by the
// shell of the system.
#pragma once

// Makes the command known to the routing.
void RegisterHelpCommand();
