// The parttype run through the print job: pages and their numbering over the run, decals from
// the library list or the PCB file, the pin table going on over pages, progress and abort, and
// the two on-screen pictures.

#include "jobs/print_job.h"
#include "support/recording_messages.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "core/jobs/job_test_support.h"
#include "font/font_location.h"
#include "jobs/parttype_decals.h"
#include "jobs/screen_pages.h"
#include "output/trace_target.h"
#include "support/page_test_support.h"
#include "support/test_support.h"

namespace zantor {
namespace {

using Texts = std::vector<std::string>;
using test::HasText;
using test::RecordedProgress;
using test::SampleLibrary;
using test::TracePages;

// A parttype command that lists two of the attributes it holds.
struct Command : test::Command {
    explicit Command(const std::filesystem::path& input)
        : test::Command(input, PlotKind::Parttype) {
        context.PlotSettings.PrintAttr = true;
        context.AttributeList = {{"Value", true}, {"Tolerance", true}, {"Cost", false}};
    }
};

std::filesystem::path Parttypes(const std::string& name) {
    return test::DataDir() / "library" / "parttype" / name;
}

TEST(ParttypeRun, PagesNumberedOverTheRunWithDecalsFromTheLibraryList) {
    Command command(Parttypes("cli_parts.p"));
    command.context.DecalLibList = {(test::DataDir() / "no-such.d").string(),
                                    SampleLibrary().string()};
    test::TempDir dir;
    const auto trace = dir.Path() / "parts.trace";
    TraceTarget target(trace, PaperSize::A4, DocumentFiles::Single);
    RecordedProgress progress;
    const PrintSummary summary = command.Print(target, {"LM358", "NOPART", "BIGPINS"}, &progress);
    EXPECT_EQ(summary.printed, 2);
    EXPECT_EQ(summary.notFound, Texts{"NOPART"});
    EXPECT_EQ(progress.events, (Texts{"started 3", "looking LM358", "position 1", "looking BIGPINS",
                                      "position 2", "finished Printing completed."}));
    // The missing library of the list is reported once; the next one gives the decals.
    EXPECT_EQ(command.messages.Texts(),
              Texts{"Decal library not found: " + (test::DataDir() / "no-such.d").string()});

    const std::vector<std::string> pages = TracePages(trace);
    ASSERT_EQ(pages.size(), 4u);
    const std::string& lm = pages[0];
    for (const char* text : {"LM358", "1   OF  4", "LIBRARY:", "Value: LM358",
                             "Tolerance: ", "INMINUSB", "OUTA", "PIN NAME", "SO8", "DIP8",
                             "PCB DECALS:  SO8  DIP8  NOSUCHDECAL", "GATE DECALS:  OPAMP"}) {
        EXPECT_TRUE(HasText(lm, text)) << text;
    }
    EXPECT_FALSE(HasText(lm, "Manufacturer: Texas Instruments"));  // not in the list
    EXPECT_FALSE(HasText(lm, "Cost: "));                           // not checked
    // No of decals is 2: the third decal gets no cell, so no note either.
    EXPECT_FALSE(HasText(lm, "not in the decal library list"));

    // 400 pins go on over two more pages, each carrying on where the one before stopped: three
    // groups of 43 rows under the decal and the attributes, then three of 69.
    EXPECT_TRUE(HasText(pages[1], "BIGPINS"));
    EXPECT_TRUE(HasText(pages[1], "2   OF  4"));
    EXPECT_TRUE(HasText(pages[2], "BIGPINS  (continued)"));
    EXPECT_TRUE(HasText(pages[3], "4   OF  4"));
    const auto pageOf = [&](int pin) {
        char name[8];
        std::snprintf(name, sizeof name, "SIG%03d", pin);
        int page = 0;
        for (int p = 1; p <= 3; ++p) {
            if (HasText(pages[static_cast<std::size_t>(p)], name)) {
                EXPECT_EQ(page, 0) << name << " twice";
                page = p;
            }
        }
        return page;
    };
    for (int pin = 1; pin <= 400; ++pin) {
        EXPECT_EQ(pageOf(pin), pin <= 129 ? 1 : pin <= 336 ? 2 : 3) << pin;
    }
    EXPECT_TRUE(HasText(pages[1], "R0603"));
    EXPECT_FALSE(HasText(pages[2], "R0603"));  // the decal shows on the first page only
}

TEST(ParttypeRun, PcbFileDecalsAndSettingsThatLeaveThingsOut) {
    Command command(Parttypes("v10_board.asc"));
    command.context.DecalLibList = {SampleLibrary().string()};  // not used for a PCB file
    PlotSettings& settings = command.context.PlotSettings;
    test::TempDir dir;
    const auto traceOf = [&](const std::string& name) {
        const auto trace = dir.Path() / (name + ".trace");
        TraceTarget target(trace, PaperSize::A4, DocumentFiles::Single);
        command.Print(target, {"RES", "DIODE"});
        return TracePages(trace);
    };
    const std::vector<std::string> full = traceOf("full");
    ASSERT_EQ(full.size(), 2u);
    EXPECT_TRUE(HasText(full[0], "PCB:"));
    EXPECT_TRUE(HasText(full[0], "R0603"));
    EXPECT_TRUE(HasText(full[0], "C0603"));
    EXPECT_FALSE(HasText(full[0], "not in the decals of the PCB file"));
    EXPECT_TRUE(HasText(full[1], "K"));  // the pin name of the wrapped pin word 2.0.U.K
    EXPECT_TRUE(command.messages.Texts().empty());

    settings.ListPinnames = false;
    settings.ShowDecal = false;
    settings.PrintAttr = false;
    const std::vector<std::string> bare = traceOf("bare");
    ASSERT_EQ(bare.size(), 2u);
    EXPECT_TRUE(HasText(bare[0], "RES"));
    EXPECT_FALSE(HasText(bare[0], "PIN NAME"));
    EXPECT_LT(bare[0].size() * 2, full[0].size());  // no decal drawn, no table
}

TEST(ParttypeRun, AbortStopsBeforeTheNextParttypeAndSeparateDocuments) {
    Command command(Parttypes("v9_library.p"));
    test::TempDir dir;
    {
        TraceTarget target(dir.Path() / "aborted.trace", PaperSize::A4, DocumentFiles::Single);
        RecordedProgress progress;
        progress.target = &target;
        progress.abortAt = 1;
        const PrintSummary summary = command.Print(target, {"74HC00", "BGA4", "WIDE"}, &progress);
        EXPECT_TRUE(summary.aborted);
        EXPECT_EQ(summary.printed, 1);
        EXPECT_FALSE(std::filesystem::exists(dir.Path() / "aborted.trace"));
    }
    command.context.PlotSettings.SeperatePages = true;
    command.context.PlotSettings.MirrorMargin = true;
    TraceTarget target(dir.Path() / "each.trace", PaperSize::A4, DocumentFiles::Numbered);
    command.Print(target, {"74HC00", "BGA4", "WIDE"});
    ASSERT_EQ(target.WrittenFiles().size(), 3u);
    // The frame's bottom-left corner: 12 mm from the left edge, 6 mm (the right margin) on the
    // binding side of the even page.
    const char* corners[] = {"move 1200 -28800\n", "move 600 -28800\n", "move 1200 -28800\n"};
    for (std::size_t i = 0; i < 3; ++i) {
        const std::vector<std::string> pages = TracePages(target.WrittenFiles()[i]);
        ASSERT_EQ(pages.size(), 1u);
        EXPECT_NE(pages[0].find(corners[i]), std::string::npos) << i;
    }
}

TEST(DecalShelf, TheFirstLibraryInListOrderHoldingANameWins) {
    test::TempDir dir;
    const auto decal = [](const std::string& name, int terminals) {
        std::string text = name + " M 0 0 0 0 0 0 " + std::to_string(terminals) + " 1\n";
        for (int t = 0; t < terminals; ++t) {
            text += "T" + std::to_string(t) + " 0 " + std::to_string(t) + " 0 " +
                    std::to_string(t + 1) + "\n";
        }
        return text + "PAD 0 1 P 0 0 0 0\n-2 1 R\n\n";
    };
    const auto first = dir.WriteFile("a.d", "*PADS-LIBRARY-PCB-DECALS-V4*\n\n" + decal("X", 1));
    const auto second =
        dir.WriteFile("b.d", "*PADS-LIBRARY-PCB-DECALS-V4*\n\n" + decal("X", 2) + decal("Y", 3));
    RecordingMessages messages;
    DecalShelf shelf;
    shelf.Fill({Parttypes("v9_library.p"), first, second}, {"X", "Y", "Z"}, messages);
    ASSERT_NE(shelf.Find("X"), nullptr);
    EXPECT_EQ(shelf.Find("X")->counts.terminals, 1);
    ASSERT_NE(shelf.Find("Y"), nullptr);
    EXPECT_EQ(shelf.Find("Y")->counts.terminals, 3);
    EXPECT_EQ(shelf.Find("Z"), nullptr);
    EXPECT_EQ(messages.Texts(),
              Texts{"Not a decal library: " + Parttypes("v9_library.p").string()});
}

TEST(ParttypeRun, PreviewShowsTheFirstPageAndTheViewBoxStaysGrey) {
    Command command(Parttypes("v9_library.p"));
    const ScreenBox box{354, 500, 96, 96};
    QImage image(box.width, box.height, QImage::Format_RGB32);
    image.fill(Qt::white);
    {
        QPainter painter(&image);
        PaintViewBox(painter, box, command.context, Texts{"74HC00"}, command.messages);
    }
    EXPECT_EQ(image.pixel(0, 0), qRgb(0, 0, 0));
    EXPECT_EQ(image.pixel(100, 100), qRgb(128, 128, 128));
    EXPECT_STREQ(PreviewCaption(PlotKind::Parttype), "Parttypepage");

    image.fill(Qt::gray);
    {
        QPainter painter(&image);
        PaintPreview(painter, box, command.context, Texts{"74HC00", "BGA4"}, command.messages);
    }
    EXPECT_EQ(command.context.OutputTarget, PlotSurface::PreviewWindow);
    EXPECT_GT(test::InkIn(image, QRect(20, 20, 320, 300)).count, 200);
    EXPECT_TRUE(command.messages.Texts().empty() ||
                command.messages.Texts().front().starts_with("Decal library"));
}

}  // namespace
}  // namespace zantor
