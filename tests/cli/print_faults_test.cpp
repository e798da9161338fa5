// `zantor print` when the output cannot or must not be written: an output that would replace the
// input, a disk that fills up, and a run stopped by a signal half-way. The file that was there
// before always stays as it was, and no temporary file is left.

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "core/shell/settings_fixture.h"
#include "run_zantor.h"
#include "support/file_size_limit.h"
#include "support/page_test_support.h"

#if defined(__unix__) || defined(__APPLE__)
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
extern char** environ;
#endif

namespace zantor::test {
namespace {

class PrintFaults : public SettingsTest {
  protected:
    PrintFaults() { App(); }

    std::filesystem::path Out(const std::string& name) const { return out_.Path() / name; }
    std::vector<std::string> FilesOut() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(out_.Path())) {
            names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }
    std::filesystem::path CopyOfSample(const std::string& name) const {
        std::filesystem::copy_file(Sample(), Out(name));
        return Out(name);
    }

    TempDir out_;
};

TEST_F(PrintFaults, AnOutputThatWouldReplaceTheInputIsRefused) {
    const std::string library = FileBytes(Sample());
    // The same file by its own name or another spelling of it, and a page file that a
    // numbered output would write over.
    const auto pdf = CopyOfSample("lib.pdf");
    const auto page = CopyOfSample("pages-2.svg");
    for (const auto& [input, output] :
         {std::pair{pdf, pdf}, std::pair{pdf, out_.Path() / "." / "lib.pdf"},
          std::pair{page, Out("pages.svg")}}) {
        const Outcome run = Zantor({"print", input.string(), "--output", output.string()});
        EXPECT_EQ(run.status, 1) << output;
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(run.err,
                  "zantor: The output would overwrite the input file " + input.string() + "\n");
    }
    EXPECT_EQ(FileBytes(pdf), library);
    EXPECT_EQ(FileBytes(page), library);
    EXPECT_EQ(FilesOut(), (std::vector<std::string>{"lib.pdf", "pages-2.svg"}));

    // A PDF of another name beside it is fine.
    EXPECT_EQ(
        Zantor({"print", pdf.string(), "--select", "DIP8", "--output", Out("drawing.pdf").string()})
            .status,
        0);
}

TEST_F(PrintFaults, AFullDiskExitsOneAndKeepsTheOldOutput) {
    for (const std::string name : {"full.pdf", "full.svg"}) {
        const bool paged = name == "full.svg";
        const auto old = out_.WriteFile(paged ? "full-1.svg" : name, "the old complete drawing");
        Outcome run{};
        {
            FileSizeLimit full(16 * 1024);
            if (!full.Available()) {
                GTEST_SKIP() << "no file-size limits here";
            }
            run = Zantor({"print", Sample(), "--output", Out(name).string()});
        }
        EXPECT_EQ(run.status, 1) << name;
        EXPECT_EQ(run.out, "") << name;
        EXPECT_NE(run.err.find("Cannot write the file"), std::string::npos) << run.err;
        EXPECT_EQ(FileBytes(old), "the old complete drawing") << name;
        EXPECT_EQ(FilesOut(), std::vector<std::string>{old.filename().string()}) << name;
        std::filesystem::remove(old);
    }
}

#if defined(__unix__) || defined(__APPLE__)

// A library of `count` decals of many strokes each, slow enough to print that a signal finds the
// job in the middle.
std::string LongLibrary(int count) {
    std::ostringstream text;
    text << "*PADS-LIBRARY-PCB-DECALS-V4*\n\n";
    for (int d = 0; d < count; ++d) {
        text << "LONG" << d << " M 0 0 0 0 1 0 0 0\nOPEN 400 0.1 26\n";
        for (int i = 0; i < 400; ++i) {
            text << (i * 7) % 50 << ' ' << (i * 13) % 40 << '\n';
        }
        text << '\n';
    }
    return text.str();
}

bool HasTemporary(const std::filesystem::path& folder) {
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().filename().string().ends_with(".tmp")) {
            return true;
        }
    }
    return false;
}

TEST_F(PrintFaults, ASignalInTheMiddleLeavesTheOldOutputAndNoTemporary) {
    const auto library = out_.WriteFile("long.d", LongLibrary(3000));
    for (const auto& [signalNumber, name] :
         {std::pair{SIGINT, "stopped.pdf"}, std::pair{SIGTERM, "stopped.svg"},
          std::pair{SIGHUP, "stopped.trace"}}) {
        const std::string oldName = name == std::string("stopped.svg") ? "stopped-1.svg" : name;
        const auto old = out_.WriteFile(oldName, "the old complete drawing");
        const std::string program = ZANTOR_PROGRAM;
        std::vector<std::string> args = {program, "print", library.string(), "--output",
                                         Out(name).string()};
        std::vector<char*> argv;
        for (std::string& arg : args) {
            argv.push_back(arg.data());
        }
        argv.push_back(nullptr);
        pid_t pid = 0;
        ASSERT_EQ(posix_spawn(&pid, program.c_str(), nullptr, nullptr, argv.data(), environ), 0);
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
        while (!HasTemporary(out_.Path()) && std::chrono::steady_clock::now() < deadline) {
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
        const bool running = waitpid(pid, nullptr, WNOHANG) == 0;
        ASSERT_TRUE(running) << name << ": the print ended before the signal";
        kill(pid, signalNumber);
        int status = 0;
        ASSERT_EQ(waitpid(pid, &status, 0), pid);
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signalNumber)
            << name << ": status " << status;
        EXPECT_EQ(FileBytes(old), "the old complete drawing") << name;
        EXPECT_EQ(FilesOut(), (std::vector<std::string>{"long.d", oldName})) << name;
        std::filesystem::remove(old);
    }
}

#endif

}  // namespace
}  // namespace zantor::test
