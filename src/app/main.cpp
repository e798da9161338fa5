#include <iostream>
#include <string>

int main(int argc, char** argv) {
    if (argc > 1 && std::string(argv[1]) == "--help") {
        std::cout << "usage: zantor COMMAND ...\n";
        return 0;
    }
    std::cerr << "usage: zantor COMMAND ... (see zantor --help)\n";
    return 2;
}
