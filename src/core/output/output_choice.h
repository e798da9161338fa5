#pragma once

// Choosing the output target of a print job: the system printer by queue name, or a file whose
// extension (.pdf, .svg, .png, .trace) says what is written.

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "output/page_output.h"
#include "output/paper.h"

namespace zantor {

enum class OutputKind : unsigned char { Printer, Pdf, Svg, Png, Trace };

struct OutputRequest {
    std::string printer;              // a print queue; when empty, `file` is written
    std::filesystem::path file;       // the output file; its extension chooses the kind
    PaperSize paper = PaperSize::A4;  // files only: the printer brings its own paper
    // Every printer document a file of its own (PDF and trace), as SeperatePages makes every
    // decal its own document. SVG and PNG are one file per page anyway.
    bool separateDocuments = false;
};

// The kind of file `path` names by its extension, in any letter case; nullopt when none fits.
std::optional<OutputKind> FileOutputKind(const std::filesystem::path& path);

// The target of `request`. An IoError for an unknown printer or file extension.
std::unique_ptr<PageOutput> MakePageOutput(const OutputRequest& request);

}  // namespace zantor
