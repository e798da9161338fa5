// hershey2fnt: writes the program's bundled stroke font from a Hershey .jhf font.
//   hershey2fnt /usr/share/hershey-fonts/rowmans.jhf data/fonts/romans.fnt

#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

#include "hershey2fnt/hershey_font.h"

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: hershey2fnt INPUT.jhf OUTPUT.fnt\n";
        return 2;
    }
    try {
        std::ifstream in(argv[1], std::ios::binary);
        if (!in) {
            std::cerr << argv[1] << ": cannot open\n";
            return 1;
        }
        const std::string text{std::istreambuf_iterator<char>(in),
                               std::istreambuf_iterator<char>()};
        const auto bytes = zantor::hershey::ConvertJhf(text, argv[1]);
        std::ofstream out(argv[2], std::ios::binary);
        out.write(reinterpret_cast<const char*>(bytes.data()),
                  static_cast<std::streamsize>(bytes.size()));
        if (!out.flush()) {
            std::cerr << argv[2] << ": cannot write\n";
            return 1;
        }
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
    return 0;
}
