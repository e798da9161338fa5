// The print job from the selected names to the pages of an output target: which decals get a
// page and in which order, their scales, documents and pages, progress and abort, the one-pass
// lookup of PCB files, and the two on-screen pictures.

#include "jobs/print_job.h"
#include "support/recording_messages.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "common/errors.h"
#include "core/jobs/job_test_support.h"
#include "font/font_location.h"
#include "jobs/screen_pages.h"
#include "library/decal_reader.h"
#include "output/output_choice.h"
#include "output/pdf_target.h"
#include "output/trace_target.h"
#include "plot/title_block.h"
#include "support/page_test_support.h"
#include "support/test_support.h"
#include "support/trace_boxes.h"

namespace zantor {
namespace {

using test::App;
using test::Command;
using test::HasText;
using test::RecordedProgress;
using test::SampleLibrary;
using test::TracePages;

const std::vector<std::string> kSampleDecals = {"DIP8",  "SO8",    "R0603",
                                                "TO220", "HDR2X5", "SOT223"};

// A one-line decal of `width` mm: it fits the A4 drawing area (152 mm across between the
// borders, 142 mm high) at 152 / width.
std::string LineDecal(const std::string& name, double width) {
    std::ostringstream decal;
    decal << name << " M 0 0 0 0 1 0 0 0\nOPEN 2 0.1 26\n0 0\n" << width << " 0\n\n";
    return decal.str();
}

TEST(PrintJobScales, AWholeRunDrawsEveryDecalAtItsWholeScale) {
    test::TempDir dir;
    const auto library = dir.WriteFile(
        "scales.d", "*PADS-LIBRARY-PCB-DECALS-V4*\n\n" + LineDecal("FIT37", 152 / 3.7) +
                        LineDecal("FIT03", 152 / 0.3) + LineDecal("FIT05", 152 / 0.5) +
                        LineDecal("FIT42", 3.6) +
                        "DOT M 0 0 0 0 0 0 1 1\nT0 0 0 0 1\nPAD 0 1 P 0 0 0 0\n-2 1 R\n\n");
    Command command(library);
    const auto trace = dir.Path() / "scales.trace";
    TraceTarget target(trace, PaperSize::A4, DocumentFiles::Single);
    const PrintSummary summary = command.Print(target, {"FIT37", "FIT03", "FIT05", "FIT42", "DOT"});
    EXPECT_EQ(summary.printed, 5);
    const std::vector<std::string> pages = TracePages(trace);
    ASSERT_EQ(pages.size(), 5u);
    EXPECT_TRUE(HasText(pages[0], "3 : 1"));
    EXPECT_TRUE(HasText(pages[1], "1 : 4"));
    EXPECT_TRUE(HasText(pages[2], "1 : 3"));
    EXPECT_TRUE(HasText(pages[3], "10 : 1"));  // 42.2, cut to MaxScale
    EXPECT_TRUE(HasText(pages[4], "10 : 1"));  // no extent at all
    command.context.PlotSettings.MaxScale = 50;
    TraceTarget larger(dir.Path() / "larger.trace", PaperSize::A4, DocumentFiles::Single);
    command.Print(larger, {"FIT42"});
    EXPECT_TRUE(HasText(TracePages(dir.Path() / "larger.trace").at(0), "42 : 1"));
    EXPECT_TRUE(command.messages.Entries().empty());
}

TEST(PrintJobPages, TheSampleLibraryIsOneWholePagePerDecal) {
    test::TempDir dir;
    Command command(SampleLibrary());
    const auto pdf = dir.Path() / "sample.pdf";
    PdfTarget target(pdf, PaperSize::A4, DocumentFiles::Single);
    RecordedProgress progress;
    const PrintSummary summary = command.Print(target, kSampleDecals, &progress);
    EXPECT_EQ(summary.printed, 6);
    EXPECT_FALSE(summary.aborted);
    EXPECT_EQ(target.WrittenFiles(), std::vector<std::filesystem::path>{pdf});
    const auto info = test::ReadPdfInfo(pdf);
    ASSERT_TRUE(info);
    EXPECT_EQ(info->pages, 6);
    EXPECT_NEAR(info->widthPoints, 595.3, 1);
    EXPECT_NEAR(info->heightPoints, 841.9, 1);
    EXPECT_EQ(info->title, "Zantor - sample.d");  // the application and the library
    const std::string third = test::PdfPageText(pdf, 3);
    for (const char* text : {"DECAL:", "R0603", "LIBRARY:", "sample", "SCALE:", "22.11.2026"}) {
        EXPECT_NE(third.find(text), std::string::npos) << text << " in\n" << third;
    }
    EXPECT_EQ(progress.events.front(), "started 6");
    EXPECT_EQ(progress.events.back(), "finished Printing completed.");
    EXPECT_EQ(progress.events.size(), 2u + 2 * 6);

    // As pictures: a decal drawn in every frame, the title block filled, the margin white.
    const auto png = MakePageOutput({"", dir.Path() / "page.png", PaperSize::A4, false});
    EXPECT_EQ(command.Print(*png, kSampleDecals).printed, 6);
    ASSERT_EQ(png->WrittenFiles().size(), 6u);
    const PageGeometry page =
        PageGeometryOf(PaperAreaOf(png->Page()), MarginsOf(command.context.PlotSettings));
    const auto dots = [](double mm) { return static_cast<int>(mm * 300 / 25.4); };
    const int frameBottom = dots(297 - page.bottom);
    const QRect drawing(
        QPoint(dots(page.left + 5), dots(297 - page.bottom - page.usableHeight + 5)),
        QPoint(dots(page.left + page.usableWidth - 5), dots(297 - page.bottom - 100)));
    const QRect title(QPoint(dots(page.left + 2), frameBottom - dots(kTitleBlockHeight - 2)),
                      QPoint(dots(page.left + page.usableWidth - 2), frameBottom - dots(2)));
    for (const auto& file : png->WrittenFiles()) {
        const QImage image(PathText(file));
        ASSERT_EQ(image.size(), QSize(2480, 3508)) << file;
        EXPECT_GT(test::InkIn(image, drawing).count, 2000) << file;
        EXPECT_GT(test::InkIn(image, title).count, 5000) << file;
        EXPECT_EQ(test::InkIn(image, QRect(0, 0, dots(page.left - 1), 3508)).count, 0) << file;
    }
    EXPECT_TRUE(command.messages.Entries().empty());
}

TEST(PrintJobPages, NamesNotFoundPrintNothingAndLeaveNoEmptyPage) {
    test::TempDir dir;
    Command command(SampleLibrary());
    // A library is searched forward only: DIP8 after SO8 is not found, and as that search ran
    // to the end of the file, nothing after it is found either.
    const auto trace = dir.Path() / "some.trace";
    TraceTarget target(trace, PaperSize::A4, DocumentFiles::Single);
    RecordedProgress progress;
    const PrintSummary summary = command.Print(target, {"SO8", "DIP8", "TO220"}, &progress);
    EXPECT_EQ(summary.printed, 1);
    EXPECT_EQ(summary.notFound, (std::vector<std::string>{"DIP8", "TO220"}));
    ASSERT_EQ(TracePages(trace).size(), 1u);
    EXPECT_TRUE(HasText(TracePages(trace)[0], "SO8"));
    EXPECT_EQ(progress.events,
              (std::vector<std::string>{"started 3", "looking SO8", "position 1", "looking DIP8",
                                        "position 1", "looking TO220", "position 1",
                                        "finished Printing completed."}));

    // Blanks around a name do not count; a name the file lacks at the end adds no page.
    const auto ordered = dir.Path() / "ordered.trace";
    TraceTarget second(ordered, PaperSize::A4, DocumentFiles::Single);
    const PrintSummary found = command.Print(second, {"  TO220  ", "NOSUCH"});
    EXPECT_EQ(found.printed, 1);
    EXPECT_EQ(found.notFound, std::vector<std::string>{"NOSUCH"});
    EXPECT_EQ(TracePages(ordered).size(), 1u);

    // Nothing found: no document is begun, so no file is written.
    const auto none = dir.Path() / "none.pdf";
    PdfTarget empty(none, PaperSize::A4, DocumentFiles::Single);
    EXPECT_EQ(command.Print(empty, {"NOSUCH", "NEITHER"}).printed, 0);
    EXPECT_TRUE(empty.WrittenFiles().empty());
    EXPECT_FALSE(std::filesystem::exists(none));
}

// Margins wider or higher than the paper leave nothing to draw on: the job stops before its
// first page, naming the margins of the side that has no room, and no file is written.
TEST(PrintJobPages, MarginsLargerThanThePaperEndTheJobBeforeItsFirstPage) {
    test::TempDir dir;
    for (const bool wide : {true, false}) {
        Command command(SampleLibrary());
        (wide ? command.context.PlotSettings.LeftMargin : command.context.PlotSettings.TopMargin) =
            400;
        const auto trace = dir.Path() / "margins.trace";
        TraceTarget target(trace, PaperSize::A4, DocumentFiles::Single);
        try {
            command.Print(target, {"DIP8"});
            ADD_FAILURE() << "printed with a 400 mm margin";
        } catch (const RangeError& error) {
            EXPECT_NE(error.message().find(wide ? "\"General/LeftMargin\" 400 and "
                                                  "\"General/RightMargin\" 6"
                                                : "\"General/TopMargin\" 400 and "
                                                  "\"General/BotMargin\" 6"),
                      std::string::npos)
                << error.message();
        }
        EXPECT_TRUE(target.WrittenFiles().empty());
        EXPECT_FALSE(std::filesystem::exists(trace));
    }
}

TEST(PrintJobPages, SeperatePagesMakesEveryDecalADocumentOfItsOwn) {
    test::TempDir dir;
    Command command(SampleLibrary());
    command.context.PlotSettings.SeperatePages = true;
    const auto pdf = dir.Path() / "each.pdf";
    PdfTarget target(pdf, PaperSize::A4, DocumentFiles::Numbered);
    EXPECT_EQ(command.Print(target, {"DIP8", "R0603", "SOT223"}).printed, 3);
    ASSERT_EQ(target.WrittenFiles().size(), 3u);
    EXPECT_FALSE(std::filesystem::exists(pdf));
    const std::vector<std::string> names = {"DIP8", "R0603", "SOT223"};
    for (int n = 1; n <= 3; ++n) {
        const auto file = dir.Path() / ("each-" + std::to_string(n) + ".pdf");
        EXPECT_EQ(target.WrittenFiles()[n - 1], file);
        const auto info = test::ReadPdfInfo(file);
        ASSERT_TRUE(info) << file;
        EXPECT_EQ(info->pages, 1) << file;
        EXPECT_NE(test::PdfPageText(file, 1).find(names[n - 1]), std::string::npos) << file;
    }
    EXPECT_EQ(target.JobPages(), 3);
}

TEST(PrintJobPages, AnAbortStopsTheRunBeforeTheNextName) {
    test::TempDir dir;
    Command command(SampleLibrary());
    const auto pdf = dir.Path() / "aborted.pdf";
    PdfTarget target(pdf, PaperSize::A4, DocumentFiles::Single);
    RecordedProgress progress;
    progress.target = &target;
    progress.abortAt = 2;
    const PrintSummary summary = command.Print(target, kSampleDecals, &progress);
    EXPECT_TRUE(summary.aborted);
    EXPECT_EQ(summary.printed, 2);
    EXPECT_EQ(std::count_if(progress.events.begin(), progress.events.end(),
                            [](const std::string& e) { return e.starts_with("looking"); }),
              2);
    EXPECT_FALSE(std::filesystem::exists(pdf));  // the document was dropped whole

    // Documents ended before the abort stay.
    command.context.PlotSettings.SeperatePages = true;
    const auto each = dir.Path() / "each.trace";
    TraceTarget separate(each, PaperSize::A4, DocumentFiles::Numbered);
    RecordedProgress second;
    second.target = &separate;
    second.abortAt = 2;
    EXPECT_EQ(command.Print(separate, kSampleDecals, &second).printed, 2);
    EXPECT_EQ(separate.WrittenFiles().size(), 2u);
    EXPECT_FALSE(std::filesystem::exists(dir.Path() / "each-3.trace"));
}

TEST(PrintJobPages, AnUnknownPieceKindIsReportedOncePerJobOfEveryKind) {
    test::TempDir dir;
    std::string library = "*PADS-LIBRARY-PCB-DECALS-V9*\n";
    for (const char* name : {"ONE", "TWO"}) {
        library += std::string(name) +
                   " M 0 0 0 0 2 0 0 0 0\nWIDGET 2 0.1 1 -1\n0 0\n1 1\nOPEN 2 0.1 1 -1\n0 0\n"
                   "10 0\n\n";
    }
    const auto file = dir.WriteFile("widgets.d", library);
    for (const PlotKind kind : {PlotKind::Decal, PlotKind::Index}) {
        Command command(file, kind);
        command.context.PlotSettings.View1_1 = true;  // the 1:1 view draws the pieces once more
        const auto trace = dir.Path() / "widgets.trace";
        TraceTarget target(trace, PaperSize::A4, DocumentFiles::Single);
        EXPECT_EQ(command.Print(target, {"ONE", "TWO"}).printed, 2);
        EXPECT_EQ(TracePages(trace).size(), kind == PlotKind::Decal ? 2u : 1u);
        EXPECT_EQ(command.messages.Texts(),
                  std::vector<std::string>{"Unknown drawing item: WIDGET"});
        // The next job reports it again.
        TraceTarget again(dir.Path() / "again.trace", PaperSize::A4, DocumentFiles::Single);
        command.Print(again, {"TWO"});
        EXPECT_EQ(command.messages.Entries().size(), 2u);
    }
}

// Every picture of a decal (the page, its 1:1 view, an index cell) draws from the one parse of
// its record.
TEST(PrintJobPages, EachRecordPrintedIsParsedOnce) {
    test::TempDir dir;
    for (const PlotKind kind : {PlotKind::Decal, PlotKind::Index}) {
        Command command(SampleLibrary(), kind);
        command.context.PlotSettings.View1_1 = true;
        command.context.PlotSettings.ShowGrid = true;
        TraceTarget target(dir.Path() / "sample.trace", PaperSize::A4, DocumentFiles::Single);
        const std::size_t before = DecalParseCount();
        EXPECT_EQ(command.Print(target, kSampleDecals).printed, 6);
        EXPECT_EQ(DecalParseCount() - before, 6u);
    }
}

// A PCB file of `count` decals D1, D2, ... of growing size, with remarks, parts and a decal
// section that does not start the file.
std::string PcbFile(int count) {
    std::ostringstream pcb;
    pcb << "!PADS-POWERPCB-V4.0-MILS! DESIGN DATABASE ASCII FILE 1.0\n"
           "*PCB*        GENERAL PARAMETERS OF THE PCB DESIGN\nUNITS        1\n\n"
           "*PARTDECAL*  ITEMS\n*REMARK* NAME UNITS ORIX ORIY PIECES TERMINALS STACKS TEXT\n\n";
    for (int i = 1; i <= count; ++i) {
        const int a = 20 * i;
        pcb << "D" << i << " I 0 0 1 2 1 0 0\nCLOSED 5 10 26\n"
            << -a << " -40\n"
            << a << " -40\n"
            << a << " 40\n"
            << -a << " 40\n"
            << -a << " -40\n"
            << "T" << -a << " 0 " << -a << " 0\nT" << a << " 0 " << a << " 0\n"
            << "PAD 0 1 P 20 0 0 0\n-2 40 R\n\n";
    }
    pcb << "*PARTTYPE*   ITEMS\n*PART*       ITEMS\nU1 D3\n*END*     OF ASCII OUTPUT FILE\n";
    return pcb.str();
}

// The same run with every name searched from the decals' start, as the job has always searched
// PCB files.
void PrintSearchingFromTheStart(Command& command, PageOutput& target,
                                const std::vector<std::string>& names) {
    PrintJob job(command.context, target, command.messages);
    job.PlotDate = "22.11.2026";
    DecalReader reader(command.context.PlotSettings.Inputfile);
    job.StartPrint(names.size(), true);
    DecalRecord record;
    for (const std::string& name : names) {
        reader.RestartAtDecals();
        if (reader.FindDecal(name)) {
            reader.ReadRecord(record);
            job.PlotDecal(record);
        }
    }
    job.EndPrint();
}

TEST(PrintJobPcb, OnePassFindsWhatASearchFromTheStartFindsForEveryName) {
    test::TempDir dir;
    std::vector<std::string> names;
    for (int i = 30; i >= 1; i -= 3) {
        names.push_back("D" + std::to_string(i));
    }
    names.push_back("D30");  // twice
    names.push_back("U1");   // a part, not a decal, after the decals
    names.push_back("NONE");
    const auto board = dir.WriteFile("board.asc", PcbFile(30));
    const auto v3 = test::DataDir() / "library" / "v3_pcb.asc";
    const std::vector<std::string> v3Names = {"CAP200", "RES400", "CAP200", "RES"};
    // "U1 D3" of the parts is read as a decal too: a search tests every line.
    struct Case {
        std::filesystem::path file;
        const std::vector<std::string>& names;
        PlotKind kind;
        int printed;
    };
    for (const Case& c :
         {Case{board, names, PlotKind::Decal, 12}, Case{board, names, PlotKind::Index, 12},
          Case{v3, v3Names, PlotKind::Decal, 4}}) {
        Command command(c.file, c.kind);
        const auto once = dir.Path() / "once.trace";
        const auto restarted = dir.Path() / "restarted.trace";
        {
            TraceTarget target(once, PaperSize::A4, DocumentFiles::Single);
            EXPECT_EQ(command.Print(target, c.names).printed, c.printed) << c.file;
        }
        {
            TraceTarget target(restarted, PaperSize::A4, DocumentFiles::Single);
            PrintSearchingFromTheStart(command, target, c.names);
        }
        const std::string traced = test::ReadFileText(once);
        EXPECT_GT(traced.size(), 1000u) << c.file;
        EXPECT_EQ(traced, test::ReadFileText(restarted))
            << c.file << " kind " << static_cast<int>(c.kind);
        if (c.kind == PlotKind::Decal) {
            EXPECT_EQ(TracePages(once).size(), static_cast<std::size_t>(c.printed)) << c.file;
            EXPECT_TRUE(HasText(TracePages(once).front(), "PCB:")) << c.file;
        }
    }
}

TEST(PrintJobIndex, DecalsFillTheCellsOfAsManyPagesAsTheyNeed) {
    test::TempDir dir;
    const auto pcb = dir.WriteFile("board.asc", PcbFile(25));
    Command command(pcb, PlotKind::Index);
    command.context.PlotSettings.Columns = 4;
    command.context.PlotSettings.PartsEachColumn = 6;
    std::vector<std::string> names;
    for (int i = 1; i <= 25; ++i) {
        names.push_back("D" + std::to_string(i));
    }
    for (std::size_t count : {25u, 24u}) {
        const auto pdf = dir.Path() / ("index" + std::to_string(count) + ".pdf");
        PdfTarget target(pdf, PaperSize::A4, DocumentFiles::Single);
        RecordedProgress progress;
        command.Print(target, std::vector<std::string>(names.begin(), names.begin() + count),
                      &progress);
        const auto info = test::ReadPdfInfo(pdf);
        ASSERT_TRUE(info);
        EXPECT_EQ(info->pages, count == 25 ? 2 : 1);
        EXPECT_EQ(progress.events.back(), "finished Printing completed.");
        const std::string last = test::PdfPageText(pdf, info->pages);
        EXPECT_NE(last.find(count == 25 ? "2 OF 2" : "1 OF 1"), std::string::npos) << last;
    }
    // Names not found at the end leave no page without decals.
    names.push_back("NOSUCH");
    const auto pdf = dir.Path() / "index-missing.pdf";
    PdfTarget target(pdf, PaperSize::A4, DocumentFiles::Single);
    names.erase(names.begin() + 24);  // D25: 24 decals found, 25 selected
    EXPECT_EQ(command.Print(target, names).printed, 24);
    EXPECT_EQ(test::ReadPdfInfo(pdf).value_or(test::PdfInfo{}).pages, 1);
}

// The left edge of each page's frame: the first corner of the frame rectangle, which starts at
// its bottom-left corner and runs along the bottom.
std::vector<std::string> FrameCorners(const std::filesystem::path& trace) {
    std::vector<std::string> corners;
    for (const std::string& page : TracePages(trace)) {
        std::istringstream in(page);
        std::string line, next;
        std::getline(in, line);
        while (std::getline(in, next)) {
            if (line.starts_with("move ") && line.ends_with(" -28800") &&
                next.starts_with("line ") && next.find(" -28800 ") != std::string::npos) {
                corners.push_back(line);
                break;
            }
            line = next;
        }
    }
    return corners;
}

TEST(PrintJobIndex, MirrorMarginsBindEvenPagesOnTheRight) {
    test::TempDir dir;
    Command command(dir.WriteFile("board.asc", PcbFile(5)), PlotKind::Index);
    command.context.PlotSettings.Columns = 2;
    command.context.PlotSettings.PartsEachColumn = 1;
    const std::vector<std::string> names = {"D1", "D2", "D3", "D4", "D5"};
    for (bool mirror : {true, false}) {
        command.context.PlotSettings.MirrorMargin = mirror;
        const auto trace = dir.Path() / "mirror.trace";
        {
            TraceTarget target(trace, PaperSize::A4, DocumentFiles::Single);
            command.Print(target, names);
        }
        // The left margin of 12 mm; the right margin of 6 mm on the binding side of even pages.
        EXPECT_EQ(FrameCorners(trace),
                  (std::vector<std::string>{"move 1200 -28800",
                                            mirror ? "move 600 -28800" : "move 1200 -28800",
                                            "move 1200 -28800"}))
            << "mirror " << mirror;
    }
}

std::vector<std::string> LinesOfPage(const std::string& page) {
    std::vector<std::string> lines;
    std::istringstream in(page);
    for (std::string line; std::getline(in, line);) {
        lines.push_back(line);
    }
    return lines;
}

// A rectangle outline of `width` x `height` mm round the origin: its sides are straight lines
// that a name running into the decal would cross.
std::string BoxDecal(const std::string& name, double width, double height) {
    std::ostringstream decal;
    decal << name << " M 0 0 0 0 1 0 0 0\nCLOSED 5 0.1 26\n"
          << -width / 2 << " " << -height / 2 << "\n"
          << width / 2 << " " << -height / 2 << "\n"
          << width / 2 << " " << height / 2 << "\n"
          << -width / 2 << " " << height / 2 << "\n"
          << -width / 2 << " " << -height / 2 << "\n\n";
    return decal.str();
}

TEST(PrintJobIndex, LongNamesKeepLeftOfTheirDecalsAndLongLibraryNamesInsideTheStrip) {
    test::TempDir dir;
    const std::vector<std::string> names = {"CAPC1608X90N_0603_CONVERTED_PAD_WIDE_40C",
                                            "WWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWW", "R0603",
                                            "SOIC127P600X175-8N_VENDOR_EXPORT_NAME_40"};
    std::string library = "*PADS-LIBRARY-PCB-DECALS-V4*\n\n";
    const double sizes[][2] = {{30, 10}, {4, 40}, {2, 1}, {60, 60}};
    for (std::size_t i = 0; i < names.size(); ++i) {
        library += BoxDecal(names[i], sizes[i][0], sizes[i][1]);
    }
    const auto file = dir.WriteFile("A_VENDORS_VERY_LONG_LIBRARY_NAME_OF_FORTY_NINE_CHARS.d",
                                    library + "*END*\n");
    Command command(file, PlotKind::Index);
    command.context.PlotSettings.Company = "Brovik Elektronik og Mekanikk AS";
    command.context.PlotSettings.PrintScale = true;
    for (int columns : {1, 2, 3}) {
        command.context.PlotSettings.Columns = columns;
        command.context.PlotSettings.PartsEachColumn = 4;
        const auto trace = dir.Path() / ("index" + std::to_string(columns) + ".trace");
        {
            TraceTarget target(trace, PaperSize::A4, DocumentFiles::Single);
            EXPECT_EQ(command.Print(target, names).printed, 4);
        }
        const std::vector<std::string> pages = TracePages(trace);
        ASSERT_EQ(pages.size(), 1u);
        const test::TracedPage page = test::TracePage(LinesOfPage(pages[0]));
        test::Box anywhere;
        anywhere.Add(-1e9, -1e9);
        anywhere.Add(1e9, 1e9);
        EXPECT_EQ(test::TextFaults(page, anywhere), std::vector<std::string>{})
            << columns << " columns";
        const auto name = std::find_if(page.texts.begin(), page.texts.end(),
                                       [](const auto& text) { return text.text == "R0603"; });
        ASSERT_NE(name, page.texts.end());
        EXPECT_EQ(name->height, 600 / columns) << "a short name keeps its height";
    }
    EXPECT_TRUE(command.messages.Entries().empty());
}

TEST(ScreenPictures, TheViewBoxShowsTheOneSelectedDecalFittedAndCentred) {
    Command command(SampleLibrary());
    const ScreenBox box{217, 301, 96, 96};
    EXPECT_EQ(ViewBoxGeometry(box).usableWidth, 197);
    EXPECT_EQ(ViewBoxGeometry(box).usableHeight, 281);
    QImage image(box.width, box.height, QImage::Format_RGB32);
    const QRect inside(2, 2, box.width - 4, box.height - 4);
    const auto paint = [&](const std::vector<std::string>& selection) {
        image.fill(Qt::gray);
        QPainter painter(&image);
        PaintViewBox(painter, box, command.context, selection, command.messages);
        painter.end();
        EXPECT_EQ(image.pixel(0, 0), qRgb(0, 0, 0));
        EXPECT_EQ(image.pixel(1, 1), qRgb(255, 255, 255));
        return test::InkIn(image, inside);
    };
    EXPECT_EQ(paint({"DIP8", "SO8"}).count, 0);
    const test::Ink dip = paint({"DIP8"});
    EXPECT_EQ(command.context.OutputTarget, PlotSurface::ViewBox);
    // DIP8's terminals stand 300 mils apart: 7.62 mm at MaxScale 10 is 76 box units; the pads
    // add 60 mils (15 units) to the ink.
    EXPECT_NEAR(dip.bounds.width(), 76 + 15, 4);
    EXPECT_NEAR(dip.bounds.center().x(), 10 + 197 / 2.0, 3);

    // A box of 7.62 x 10.795 mm fits the view box's width at 25.85: the decal job draws it at
    // 25, the index job fills the box.
    test::TempDir dir;
    command.context.PlotSettings.Inputfile =
        dir.WriteFile("box.d",
                      "*PADS-LIBRARY-PCB-DECALS-V4*\n\nBOX M 0 0 0 0 1 0 0 0\n"
                      "CLOSED 5 0.01 26\n0 0\n7.62 0\n7.62 10.795\n0 10.795\n0 0\n\n")
            .string();
    command.context.PlotSettings.MaxScale = 30;
    command.context.PlotSettings.PlotOrigins = false;  // the marker stands out of the corner
    const QRect whole = paint({"BOX"}).bounds;
    EXPECT_NEAR(whole.width(), 7.62 * 25, 3);
    EXPECT_NEAR(whole.height(), 10.795 * 25, 3);
    command.context.PlotKind = PlotKind::Index;
    const QRect filled = paint({"BOX"}).bounds;
    EXPECT_NEAR(filled.width(), 197, 3);
    EXPECT_NEAR(filled.height(), 10.795 * 197 / 7.62, 3);
    EXPECT_NEAR(filled.center().y(), 301 / 2.0, 2);
    EXPECT_TRUE(command.messages.Entries().empty());
}

TEST(ScreenPictures, ThePreviewShowsTheFirstDecalPageLaidOutLikePaper) {
    Command command(SampleLibrary());
    // 100 "millimetres" per inch: the 354 x 500 box is a page of 368.75 x 520.83 mm.
    const ScreenBox box{354, 500, 96, 96};
    const PageGeometry page = PreviewPageGeometry(box, MarginsOf(command.context.PlotSettings));
    EXPECT_DOUBLE_EQ(page.pageWidth, 368.75);
    EXPECT_DOUBLE_EQ(page.left, 12);
    EXPECT_DOUBLE_EQ(page.bottom, 9);
    EXPECT_DOUBLE_EQ(page.usableWidth, 368.75 - 18);
    QImage image(box.width, box.height, QImage::Format_RGB32);
    image.fill(Qt::gray);
    {
        QPainter painter(&image);
        PaintPreview(painter, box, command.context, kSampleDecals, command.messages);
    }
    EXPECT_EQ(command.context.OutputTarget, PlotSurface::PreviewWindow);
    EXPECT_STREQ(PreviewCaption(PlotKind::Decal), "Decalpage");
    EXPECT_STREQ(PreviewCaption(PlotKind::Index), "Indexpage");
    // The frame: its left side 12 mm (11.5 pixels) in, its bottom 9 mm (8.6 pixels) up.
    const auto inked = [&](int x, int y) { return image.pixel(x, y) != qRgb(255, 255, 255); };
    EXPECT_TRUE(inked(11, 250) || inked(12, 250));
    EXPECT_TRUE(inked(177, 491) || inked(177, 492));
    EXPECT_EQ(test::InkIn(image, QRect(2, 2, 8, 496)).count, 0);  // the margin stays white
    EXPECT_GT(test::InkIn(image, QRect(20, 20, 320, 300)).count, 500);
    EXPECT_TRUE(command.messages.Entries().empty());
}

}  // namespace
}  // namespace zantor
