// The outline (bookmarks) and title of the PDF files `zantor print` writes, read back with qpdf
// and pdfinfo as a viewer would see them.

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "core/shell/settings_fixture.h"
#include "run_zantor.h"
#include "support/page_test_support.h"

namespace zantor::test {
namespace {

struct OutlineEntry {
    std::string title;
    int page;  // 1-based
    friend bool operator==(const OutlineEntry&, const OutlineEntry&) = default;
};

std::ostream& operator<<(std::ostream& out, const OutlineEntry& entry) {
    return out << '"' << entry.title << "\" -> " << entry.page;
}

std::string Run(const QString& program, const QStringList& args) {
    QProcess process;
    process.start(program, args);
    process.waitForFinished(60000);
    return process.readAllStandardOutput().toStdString();
}

std::vector<OutlineEntry> Outline(const std::filesystem::path& pdf) {
    const std::string json =
        Run("qpdf", {"--json", "--json-key=outlines", QString::fromStdString(pdf.string())});
    std::vector<OutlineEntry> entries;
    const QJsonArray items =
        QJsonDocument::fromJson(QByteArray::fromStdString(json)).object()["outlines"].toArray();
    for (const auto& item : items) {
        const QJsonObject entry = item.toObject();
        entries.push_back(
            {entry["title"].toString().toStdString(), entry["destpageposfrom1"].toInt()});
    }
    return entries;
}

std::string PdfInfoField(const std::filesystem::path& pdf, const std::string& field) {
    std::istringstream lines(Run("pdfinfo", {QString::fromStdString(pdf.string())}));
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with(field + ":")) {
            const auto value = line.find_first_not_of(' ', field.size() + 1);
            return value == std::string::npos ? "" : line.substr(value);
        }
    }
    return "";
}

// A synthetic decal library of `decals` decals at `path`.
std::filesystem::path Generate(const std::filesystem::path& path, int decals) {
    QProcess generate;
    generate.start(
        "python3",
        {QString::fromStdString((SourceDir() / "bench" / "generate_pads.py").string()), "library",
         QString::fromStdString(path.string()), "--decals", QString::number(decals)});
    EXPECT_TRUE(generate.waitForFinished(60000));
    EXPECT_EQ(generate.exitCode(), 0);
    return path;
}

class PdfOutline : public SettingsTest {
  protected:
    PdfOutline() { App(); }
    std::filesystem::path Out(const std::string& name) const { return out_.Path() / name; }
    TempDir out_;
};

TEST_F(PdfOutline, DecalPagesAreListedByDecalInPageOrderAndTheSubjectNamesTheLibrary) {
    const auto pdf = Out("sample.pdf");
    ASSERT_EQ(Zantor({"print", Sample(), "--output", pdf.string()}).status, 0);
    const std::vector<std::string> names = Lines(Zantor({"list", Sample()}).out);
    ASSERT_FALSE(names.empty());
    std::vector<OutlineEntry> expected;
    for (std::size_t i = 0; i < names.size(); ++i) {
        expected.push_back({names[i], static_cast<int>(i) + 1});
    }
    EXPECT_EQ(Outline(pdf), expected);
    EXPECT_EQ(PdfInfoField(pdf, "Title"),
              "Zantor - " + std::filesystem::path(Sample()).filename().string());
    EXPECT_EQ(PdfInfoField(pdf, "Subject"), "PADS library " + Sample());

    // A selection: only the pages printed, in list order.
    const auto some = Out("some.pdf");
    ASSERT_EQ(Zantor({"print", Sample(), "--select", names.back(), "--select", names.front(),
                      "--output", some.string()})
                  .status,
              0);
    EXPECT_EQ(Outline(some), (std::vector<OutlineEntry>{{names.front(), 1}, {names.back(), 2}}));
}

TEST_F(PdfOutline, IndexPagesAreListedByTheirFirstAndLastDecal) {
    const auto pdf = Out("index.pdf");
    ASSERT_EQ(Zantor({"print", Sample(), "--kind", "index", "--output", pdf.string()}).status, 0);
    const std::vector<std::string> names = Lines(Zantor({"list", Sample()}).out);
    ASSERT_GE(names.size(), 2U);
    EXPECT_EQ(Outline(pdf), (std::vector<OutlineEntry>{{names.front() + " - " + names.back(), 1}}));

    // One decal alone on its page is named alone.
    const auto one = Out("one.pdf");
    ASSERT_EQ(Zantor({"print", Sample(), "--kind", "index", "--select", names[1], "--output",
                      one.string()})
                  .status,
              0);
    EXPECT_EQ(Outline(one), (std::vector<OutlineEntry>{{names[1], 1}}));
}

TEST_F(PdfOutline, ParttypePagesAreListedByParttype) {
    const auto parts = (DataDir() / "library" / "parttype" / "cli_parts.p").string();
    const auto pdf = Out("parts.pdf");
    ASSERT_EQ(Zantor({"print", parts, "--kind", "parttype", "--decal-lib", Sample(), "--output",
                      pdf.string()})
                  .status,
              0);
    // BIGPINS takes three pages: its later pages are numbered.
    EXPECT_EQ(Outline(pdf),
              (std::vector<OutlineEntry>{
                  {"LM358", 1}, {"BIGPINS", 2}, {"BIGPINS (2)", 3}, {"BIGPINS (3)", 4}}));
    EXPECT_EQ(PdfInfoField(pdf, "Subject"), "PADS library " + parts);
}

// Index pages of a library that fills several: each entry names the first and the last decal of
// its page, and the pages follow on from each other through the whole list.
TEST_F(PdfOutline, IndexPagesOfALongLibraryChainThroughTheList) {
    const auto library = Generate(Out("long.d"), 60);
    const auto pdf = Out("long-index.pdf");
    ASSERT_EQ(
        Zantor({"print", library.string(), "--kind", "index", "--output", pdf.string()}).status, 0);
    const std::vector<std::string> names = Lines(Zantor({"list", library.string()}).out);
    ASSERT_EQ(names.size(), 60U);
    const std::vector<OutlineEntry> outline = Outline(pdf);
    ASSERT_GE(outline.size(), 2U);
    std::size_t next = 0;  // the first decal the next page must start with
    for (std::size_t page = 0; page < outline.size(); ++page) {
        EXPECT_EQ(outline[page].page, static_cast<int>(page) + 1);
        const std::string prefix = names[next] + " - ";
        ASSERT_TRUE(outline[page].title.starts_with(prefix)) << outline[page];
        const std::string last = outline[page].title.substr(prefix.size());
        const auto found =
            std::find(names.begin() + static_cast<std::ptrdiff_t>(next) + 1, names.end(), last);
        ASSERT_NE(found, names.end()) << outline[page];
        next = static_cast<std::size_t>(found - names.begin()) + 1;
    }
    EXPECT_EQ(next, names.size());
}

// A large library: every decal has its entry, in file order, each on its own page.
TEST_F(PdfOutline, FiveHundredDecalsGiveFiveHundredEntriesInFileOrder) {
    const auto library = Generate(Out("large.d"), 500);
    const auto pdf = Out("large.pdf");
    ASSERT_EQ(Zantor({"print", library.string(), "--output", pdf.string()}).status, 0);
    const std::vector<std::string> names = Lines(Zantor({"list", library.string()}).out);
    ASSERT_EQ(names.size(), 500U);
    const std::vector<OutlineEntry> outline = Outline(pdf);
    ASSERT_EQ(outline.size(), 500U);
    for (std::size_t i = 0; i < names.size(); ++i) {
        EXPECT_EQ(outline[i], (OutlineEntry{names[i], static_cast<int>(i) + 1}));
    }
}

}  // namespace
}  // namespace zantor::test
