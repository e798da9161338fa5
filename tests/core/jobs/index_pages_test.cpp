// The sample library as index pages in a PDF: the index run drawing through a file target, as a
// print run does, and the pages read back with poppler's tools.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "core/jobs/jobs_test_support.h"
#include "font/font_location.h"
#include "font/stroke_font.h"
#include "jobs/index_run.h"
#include "jobs/output_targets.h"
#include "library/decal_reader.h"
#include "library/pad_stacks.h"
#include "plot/pieces.h"
#include "plot/terminals.h"
#include "support/test_support.h"

namespace zantor {
namespace {

std::vector<DecalRecord> SampleDecals() {
    DecalReader reader(test::SourceDir() / "data" / "samples" / "sample.d");
    std::vector<DecalRecord> records;
    DecalRecord record;
    while (reader.NextRecord(record)) {
        records.push_back(record);
    }
    return records;
}

TEST(IndexPages, SampleLibraryInTwoColumnsOfTwoMakesTwoFramedPdfPages) {
    test::App();
    const std::vector<DecalRecord> decals = SampleDecals();
    ASSERT_EQ(decals.size(), 6u);
    const test::TempDir dir;
    const auto file = dir.Path() / "index.pdf";

    PlotSettings settings;
    settings.Columns = 2;
    settings.PartsEachColumn = 2;
    settings.PrintScale = true;
    settings.PrintSepLines = true;
    settings.FormularFont = "Liberation Sans";
    settings.Inputfile = "sample.d";
    RecordingMessages messages;
    StrokeFont font;
    ASSERT_TRUE(font.Load(ResolveFontfile("romans.fnt").string(), messages));

    OutputRequest request;
    request.file = file;
    auto target = MakeOutputTarget(request);
    PlotFrame frame(target->Canvas(), settings, messages);
    frame.Surface = PlotSurface::Printer;
    IndexRunInputs inputs;
    inputs.area = IndexPageAreaOf(PaperAreaOf(target->Page()), settings);
    inputs.selectedCount = decals.size();
    inputs.inputPath = settings.Inputfile;
    inputs.date = "01.02.03";
    IndexRun run(frame, font, inputs);

    target->BeginDocument();
    int pagesStarted = 1;
    for (const DecalRecord& record : decals) {
        const PadStackList stacks = ReadPadStacks(record);
        DecalExtents extents;
        PieceExtents(record, extents);
        TerminalExtents(record, extents);
        if (run.AddDecal(record, stacks, extents).newPage) {
            target->NewPage();
            ++pagesStarted;
        }
    }
    EXPECT_FALSE(run.Finish());
    target->EndDocument();
    EXPECT_EQ(pagesStarted, 2);
    EXPECT_TRUE(messages.Entries().empty());

    const auto info = test::ReadPdfInfo(file);
    ASSERT_TRUE(info);
    EXPECT_EQ(info->pages, 2);
    const std::string first = test::PdfPageText(file, 1);
    const std::string second = test::PdfPageText(file, 2);
    for (std::size_t n = 0; n < decals.size(); ++n) {
        const std::string& name = decals[n].name;
        EXPECT_EQ(first.find(name) != std::string::npos, n < 4) << name;
        EXPECT_EQ(second.find(name) != std::string::npos, n >= 4) << name;
    }
    for (const std::string& page : {first, second}) {
        EXPECT_NE(page.find("LIBRARY:"), std::string::npos);
        EXPECT_NE(page.find("sample"), std::string::npos);
        EXPECT_NE(page.find(" : "), std::string::npos);  // the printed scales
    }
    // pdftotext makes one blank of the blanks round "OF".
    EXPECT_NE(first.find("1 OF 2"), std::string::npos) << first;
    EXPECT_NE(second.find("2 OF 2"), std::string::npos) << second;
}

}  // namespace
}  // namespace zantor
