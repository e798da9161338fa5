#pragma once

// Runs the command line as the program's main does, catching what it writes.

#include <sstream>
#include <string>
#include <vector>

#include "cli/command_line.h"
#include "support/test_support.h"

namespace zantor::test {

struct Outcome {
    int status;
    std::string out;
    std::string err;
};

inline Outcome Zantor(const std::vector<std::string>& args) {
    std::ostringstream out;
    std::ostringstream err;
    const int status = RunCommandLine(args, out, err);
    return {status, out.str(), err.str()};
}

// The lines of a command's output, without their line ends.
inline std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
        lines.push_back(line);
    }
    return lines;
}

inline std::string Sample() {
    return (SourceDir() / "data" / "samples" / "sample.d").string();
}

inline const std::string kUsage = "usage: zantor COMMAND ARGUMENTS (see zantor --help)\n";

// Each call must fail with status 2, nothing on standard output and the problem and the usage
// line on standard error.
inline void ExpectUsageErrors(
    const std::vector<std::pair<std::vector<std::string>, std::string>>& cases) {
    for (const auto& [args, problem] : cases) {
        const Outcome run = Zantor(args);
        EXPECT_EQ(run.status, 2) << problem;
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(run.err, "zantor: " + problem + "\n" + kUsage);
    }
}

}  // namespace zantor::test
