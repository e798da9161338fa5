#include <iostream>
#include <string>
#include <vector>

#include "cli/command_line.h"

int main(int argc, char** argv) {
    std::vector<std::string> args(argv + (argc > 0 ? 1 : 0), argv + argc);
    return zantor::RunCommandLine(args, std::cout, std::cerr);
}
