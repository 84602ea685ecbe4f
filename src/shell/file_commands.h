// The file commands join the shell: Open (10003) through the Open dialog,
// a path to open (10007, also from the history, the command line, a second
// start and dropped files), Save (10004) and Save As (10006). A name opened
// or saved enters the file history, and a canvas saved under a new name
// shows it in its title.
#pragma once

void InstallFileCommands();
