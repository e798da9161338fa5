#pragma once

// What the print job tests share: a print command's context on an input file with the bundled
// font, the pages of a trace file, and a progress that records its events and can abort.

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "font/font_location.h"
#include "jobs/print_job.h"
#include "support/page_test_support.h"
#include "support/recording_messages.h"
#include "support/test_support.h"

namespace zantor::test {

struct Command {
    PlotContext context;
    RecordingMessages messages;

    explicit Command(const std::filesystem::path& input, PlotKind kind = PlotKind::Decal) {
        App();
        context.PlotKind = kind;
        context.PlotSettings.Inputfile = input.string();
        EXPECT_TRUE(context.StrokeFont.Load(ResolveFontfile("romans.fnt").string(), messages));
    }

    PrintSummary Print(PageOutput& target, const std::vector<std::string>& names,
                       PrintProgress* progress = nullptr) {
        PrintJob job(context, target, messages);
        job.PlotDate = "22.11.2026";
        return job.PrintDecals(names, progress);
    }
};

inline std::filesystem::path SampleLibrary() {
    return SourceDir() / "data" / "samples" / "sample.d";
}

// The pages of a trace file, each the text of its drawing lines.
inline std::vector<std::string> TracePages(const std::filesystem::path& file) {
    std::istringstream in(ReadFileText(file));
    std::vector<std::string> pages;
    for (std::string line; std::getline(in, line);) {
        if (line.starts_with("page ")) {
            pages.emplace_back();
        } else if (!pages.empty()) {
            pages.back() += line + "\n";
        }
    }
    return pages;
}

inline bool HasText(const std::string& page, const std::string& text) {
    return page.find("\"" + text + "\"") != std::string::npos;
}

class RecordedProgress : public PrintProgress {
  public:
    void Started(int total) override { events.push_back("started " + std::to_string(total)); }
    void Looking(const std::string& name) override { events.push_back("looking " + name); }
    void Position(int printed) override {
        events.push_back("position " + std::to_string(printed));
        if (printed == abortAt && target != nullptr) {
            target->Abort();
        }
    }
    void Finished(const std::string& text) override { events.push_back("finished " + text); }

    std::vector<std::string> events;
    PageOutput* target = nullptr;
    int abortAt = -1;
};

}  // namespace zantor::test
