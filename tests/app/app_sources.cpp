// The program's own sources are not a library, so the tests compile the ones they exercise here.
#include "../../src/app/command_line.cpp"
#include "../../src/app/list_command.cpp"
#include "../../src/app/print_command.cpp"
#include "../../src/app/terminal.cpp"
