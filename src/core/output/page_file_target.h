#pragma once

// Targets that write one file per page, numbered over the whole job: out-1.png, out-2.png, ...
// The files of a document are put in place when the document ends; a dropped document leaves
// none. Subclasses only open and close the paint device of one page.

#include <QImage>
#include <QPaintDevice>
#include <QSvgGenerator>
#include <filesystem>
#include <memory>
#include <vector>

#include "output/checked_file.h"
#include "output/file_output.h"
#include "output/page_output.h"
#include "output/painter_page.h"
#include "output/pending_files.h"

namespace zantor {

class PageFileTarget : public PageOutput {
  public:
    PageFileTarget(std::filesystem::path path, PaperSize paper, int resolution);

    PageMetrics Page() const override;
    QPainter* Painter() override { return page_.Painter(); }

  protected:
    // The device of a page that will be written to `temporary`.
    virtual QPaintDevice& OpenDevice(const std::filesystem::path& temporary,
                                     const PageMetrics& metrics) = 0;
    // Writes the page; false when it could not be written.
    virtual bool CloseDevice(const std::filesystem::path& temporary) = 0;
    virtual void ReleaseDevice() noexcept = 0;

    void StartDocument() override;
    void StartPage() override;
    std::vector<std::filesystem::path> FinishDocument() override;
    void DropDocument() noexcept override;

    const std::filesystem::path& CurrentFile() const { return current_; }

  private:
    void OpenPage();
    void ClosePage();

    std::filesystem::path path_;
    PaperSize paper_;
    int resolution_;
    std::filesystem::path current_;    // the final name of the open page
    std::filesystem::path temporary_;  // where it is written until the document ends
    PendingFiles pending_;
    PainterPage page_;
};

class PngTarget final : public PageFileTarget {
  public:
    // Fine enough for 0.1 mm lines and small pin numbers; an A4 page is 2480 x 3508 pixels.
    static constexpr int kResolution = 300;

    PngTarget(std::filesystem::path path, PaperSize paper);
    ~PngTarget() override;

  protected:
    QPaintDevice& OpenDevice(const std::filesystem::path& temporary,
                             const PageMetrics& metrics) override;
    bool CloseDevice(const std::filesystem::path& temporary) override;
    // The images stay for the next page of the job; the target lives as long as the job.
    void ReleaseDevice() noexcept override {}

  private:
    QImage image_;    // the page, cleared for every page of the job
    QImage palette_;  // the page as it is written when its colours fit a palette
};

class SvgTarget final : public PageFileTarget {
  public:
    // 254 pixels per inch makes a pixel 0.1 mm, so every paper size is a whole number of them.
    static constexpr int kResolution = 254;

    SvgTarget(std::filesystem::path path, PaperSize paper);
    ~SvgTarget() override;

  protected:
    QPaintDevice& OpenDevice(const std::filesystem::path& temporary,
                             const PageMetrics& metrics) override;
    // The generator writes its file when painting ends; whether it all arrived shows here.
    bool CloseDevice(const std::filesystem::path& temporary) override;
    void ReleaseDevice() noexcept override;

  private:
    // The generator writes into the file, so it goes first.
    std::unique_ptr<CheckedFile> file_;
    std::unique_ptr<QSvgGenerator> generator_;
};

}  // namespace zantor
