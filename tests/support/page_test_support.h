#pragma once

// Shared by the print job tests: a GUI application for fonts, what poppler's tools say about a
// PDF file, and where a picture has ink.

#include <QGuiApplication>
#include <QImage>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <filesystem>
#include <optional>
#include <string>

namespace zantor::test {

// Text needs a GUI application for its fonts; the tests run on the offscreen platform.
inline QGuiApplication& App() {
    static int argc = 1;
    static char name[] = "zantor_jobs_tests";
    static char* argv[] = {name, nullptr};
    static auto* app = new QGuiApplication(argc, argv);
    return *app;
}

// The standard output of `program arguments...`; nullopt when it cannot run or fails.
inline std::optional<std::string> RunTool(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit ||
        process.exitCode() != 0) {
        return std::nullopt;
    }
    return process.readAllStandardOutput().toStdString();
}

struct PdfInfo {
    int pages = 0;
    double widthPoints = 0;  // of the first page
    double heightPoints = 0;
    std::string title;
};

// pdfinfo's page count, first page size and title; nullopt when the file is no readable PDF.
inline std::optional<PdfInfo> ReadPdfInfo(const std::filesystem::path& file) {
    const auto output = RunTool("pdfinfo", {QString::fromStdString(file.string())});
    if (!output) {
        return std::nullopt;
    }
    PdfInfo info;
    for (const QString& line : QString::fromStdString(*output).split('\n')) {
        const qsizetype colon = line.indexOf(':');
        if (colon < 0) {
            continue;
        }
        const QString key = line.left(colon).trimmed();
        const QString value = line.mid(colon + 1).trimmed();
        if (key == "Pages") {
            info.pages = value.toInt();
        } else if (key == "Title") {
            info.title = value.toStdString();
        } else if (key == "Page size") {
            // "595.276 x 841.89 pts (A4)"
            const QStringList parts = value.split(' ', Qt::SkipEmptyParts);
            if (parts.size() >= 3) {
                info.widthPoints = parts[0].toDouble();
                info.heightPoints = parts[2].toDouble();
            }
        }
    }
    if (info.pages == 0) {
        return std::nullopt;
    }
    return info;
}

// The text of page `page` (from 1) as pdftotext reads it.
inline std::string PdfPageText(const std::filesystem::path& file, int page) {
    const QString number = QString::number(page);
    return RunTool("pdftotext",
                   {"-f", number, "-l", number, QString::fromStdString(file.string()), "-"})
        .value_or("");
}

// The pixels of `area` that are not white, and the rectangle round them.
struct Ink {
    int count = 0;
    QRect bounds;
};

inline Ink InkIn(const QImage& image, const QRect& area) {
    Ink ink;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (image.valid(x, y) && image.pixel(x, y) != qRgb(255, 255, 255)) {
                ++ink.count;
                ink.bounds |= QRect(x, y, 1, 1);
            }
        }
    }
    return ink;
}

}  // namespace zantor::test
