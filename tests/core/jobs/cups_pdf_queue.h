#pragma once

// A real CUPS queue backed by cups-pdf, for the tests that print through the system print path:
// the queue scripts/setup-cups.sh makes, the folder its PDFs arrive in, and a fixture that skips
// its tests (saying why) where there is no such queue.

#include <gtest/gtest.h>

#include <QImage>
#include <QPrinterInfo>
#include <QString>
#include <QThread>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <utility>

#include "core/jobs/jobs_test_support.h"
#include "support/test_support.h"

#ifdef __unix__
#include <pwd.h>
#include <unistd.h>
#endif

namespace zantor::test {

// The queue scripts/setup-cups.sh makes; ZANTOR_TEST_PRINTER names another cups-pdf queue.
inline std::string TestQueue() {
    const char* queue = std::getenv("ZANTOR_TEST_PRINTER");
    return queue != nullptr && *queue != '\0' ? queue : "ZantorPDF";
}

// Where cups-pdf puts this user's PDFs for `queue`: the Out line of the queue's own cups-pdf
// configuration (or the shared one), with ${HOME} and ${USER} filled in as cups-pdf does.
inline std::optional<std::filesystem::path> CupsPdfFolder(const std::string& queue) {
#ifdef __unix__
    const passwd* user = getpwuid(getuid());
    if (user == nullptr) {
        return std::nullopt;
    }
    for (const std::string& name :
         {"/etc/cups/cups-pdf-" + queue + ".conf", std::string("/etc/cups/cups-pdf.conf")}) {
        std::ifstream config(name);
        std::string line;
        while (std::getline(config, line)) {
            if (line.rfind("Out ", 0) != 0) {
                continue;
            }
            std::string folder = line.substr(4);
            for (const auto& [key, value] :
                 {std::pair<std::string, std::string>{"${HOME}", user->pw_dir},
                  std::pair<std::string, std::string>{"${USER}", user->pw_name}}) {
                for (auto at = folder.find(key); at != std::string::npos; at = folder.find(key)) {
                    folder.replace(at, key.size(), value);
                }
            }
            return std::filesystem::path(folder);
        }
    }
#else
    (void)queue;
#endif
    return std::nullopt;
}

inline std::set<std::filesystem::path> PdfsIn(const std::filesystem::path& folder) {
    std::set<std::filesystem::path> files;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
        if (entry.path().extension() == ".pdf") {
            files.insert(entry.path());
        }
    }
    return files;
}

// Pages are rendered at 5 dots per millimetre.
inline constexpr int kDotsPerMm = 5;

inline int Dots(double millimetres) {
    return static_cast<int>(millimetres * kDotsPerMm + 0.5);
}

inline QImage PageImage(const std::filesystem::path& pdf, int page) {
    const TempDir dir;
    const QString number = QString::number(page);
    const QString prefix = QString::fromStdString((dir.Path() / "page").string());
    if (!RunTool("pdftoppm",
                 {"-r", QString::number(kDotsPerMm * 25.4), "-f", number, "-l", number,
                  "-singlefile", "-png", QString::fromStdString(pdf.string()), prefix})) {
        return {};
    }
    return QImage(prefix + ".png");
}

// Waits (up to a minute) for a new PDF in `folder` of `pages` pages that pdfinfo reads
// completely and that `belongs` (when given) takes for the one awaited.
inline std::optional<std::filesystem::path> AwaitNewPdf(
    const std::filesystem::path& folder, const std::set<std::filesystem::path>& before, int pages,
    const std::function<bool(const std::filesystem::path&)>& belongs = {}) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (std::chrono::steady_clock::now() < deadline) {
        for (const auto& file : PdfsIn(folder)) {
            if (before.count(file) == 0) {
                const auto info = ReadPdfInfo(file);
                if (info && info->pages == pages && (!belongs || belongs(file))) {
                    return file;
                }
            }
        }
        QThread::msleep(250);
    }
    return std::nullopt;
}

// The test queue and the folder its PDFs arrive in; the test is skipped when there is none.
class CupsPdfQueue : public ::testing::Test {
  protected:
    void SetUp() override {
        App();
        queue_ = TestQueue();
        if (QPrinterInfo::printerInfo(QString::fromStdString(queue_)).isNull()) {
            GTEST_SKIP() << "CUPS queue " << queue_
                         << " is not available (CUPS is not running here, or "
                            "scripts/setup-cups.sh has not set it up): the system print path "
                            "is not tested";
        }
        const auto folder = CupsPdfFolder(queue_);
        if (!folder) {
            GTEST_SKIP() << "no cups-pdf output folder is configured for " << queue_;
        }
        folder_ = *folder;
        before_ = PdfsIn(folder_);
    }

    // Removes a PDF the test has looked at. Other PDFs that arrive meanwhile may belong to a
    // test running beside this one, and are left to it.
    static void Remove(const std::filesystem::path& pdf) {
        std::error_code ignored;
        std::filesystem::remove(pdf, ignored);
    }

    std::string queue_;
    std::filesystem::path folder_;
    std::set<std::filesystem::path> before_;
};

}  // namespace zantor::test
