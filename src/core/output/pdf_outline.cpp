#include "output/pdf_outline.h"

#include <cstdio>
#include <exception>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFWriter.hh>
#include <string>

#if defined(__unix__) || defined(__APPLE__)
#include <fcntl.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#if defined(__linux__)
#include <sys/prctl.h>
#endif
#define ZANTOR_OUTLINE_IN_CHILD 1
#else
#include <fstream>
#include <iterator>
#define ZANTOR_OUTLINE_IN_CHILD 0
#endif

namespace zantor {
namespace {

// Adds the outline, title and subject to the PDF held in `bytes` (named `name` in qpdf's
// messages) and writes the result to `out`.
void Describe(const std::string& name, const std::string& bytes, const PdfDescription& description,
              std::FILE* out) {
    QPDF pdf;
    pdf.setSuppressWarnings(true);
    pdf.processMemoryFile(name.c_str(), bytes.data(), bytes.size());

    QPDFObjectHandle info = pdf.getTrailer().getKey("/Info");
    if (!info.isDictionary()) {
        info = pdf.makeIndirectObject(QPDFObjectHandle::newDictionary());
        pdf.getTrailer().replaceKey("/Info", info);
    }
    info.replaceKey("/Title", QPDFObjectHandle::newUnicodeString(description.title));
    info.replaceKey("/Subject", QPDFObjectHandle::newUnicodeString(description.subject));

    const std::vector<QPDFPageObjectHelper> pages = QPDFPageDocumentHelper(pdf).getAllPages();
    QPDFObjectHandle outlines = pdf.makeIndirectObject(QPDFObjectHandle::newDictionary());
    outlines.replaceKey("/Type", QPDFObjectHandle::newName("/Outlines"));
    QPDFObjectHandle previous;
    int count = 0;
    for (std::size_t i = 0; i < pages.size() && i < description.pageNames.size(); ++i) {
        if (description.pageNames[i].empty()) {
            continue;
        }
        QPDFObjectHandle item = pdf.makeIndirectObject(QPDFObjectHandle::newDictionary());
        item.replaceKey("/Title", QPDFObjectHandle::newUnicodeString(description.pageNames[i]));
        item.replaceKey("/Parent", outlines);
        QPDFObjectHandle destination = QPDFObjectHandle::newArray();
        destination.appendItem(pages[i].getObjectHandle());
        destination.appendItem(QPDFObjectHandle::newName("/Fit"));
        item.replaceKey("/Dest", destination);
        if (previous.isInitialized()) {
            previous.replaceKey("/Next", item);
            item.replaceKey("/Prev", previous);
        } else {
            outlines.replaceKey("/First", item);
        }
        previous = item;
        ++count;
    }
    if (count > 0) {
        outlines.replaceKey("/Last", previous);
        outlines.replaceKey("/Count", QPDFObjectHandle::newInteger(count));
        pdf.getRoot().replaceKey("/Outlines", outlines);
        pdf.getRoot().replaceKey("/PageMode", QPDFObjectHandle::newName("/UseOutlines"));
    }

    QPDFWriter writer(pdf);
    writer.setOutputFile(name.c_str(), out, false);
    writer.write();
}

#if ZANTOR_OUTLINE_IN_CHILD

// The child's whole life: read the file behind `fd`, rewrite it through the same descriptor and
// report by the exit status. The child never opens the file by name, so that a temporary file
// the parent has removed (an interrupted run) is not created again. Whatever goes wrong in here,
// an exception, an abort inside qpdf, ends only the child.
[[noreturn]] void RewriteInChild([[maybe_unused]] pid_t parent, int fd, const std::string& name,
                                 const PdfDescription& description) {
    // Interrupts end the child plainly: the parent cleans up after itself.
    for (const int signalNumber : {SIGINT, SIGTERM, SIGHUP, SIGPIPE}) {
        signal(signalNumber, SIG_DFL);
    }
#if defined(__linux__)
    // The child goes with the program, also when that is ended by a signal it cannot catch.
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent) {
        _exit(1);
    }
#endif
    // A child that aborts leaves no core file and says nothing on the program's terminal.
    const struct rlimit noCore = {0, 0};
    setrlimit(RLIMIT_CORE, &noCore);
    const int devNull = open("/dev/null", O_WRONLY);
    if (devNull >= 0) {
        dup2(devNull, STDERR_FILENO);
    }
    int status = 1;
    try {
        std::string bytes;
        char buffer[65536];
        for (;;) {
            const ssize_t got = read(fd, buffer, sizeof buffer);
            if (got < 0 && errno == EINTR) {
                continue;
            }
            if (got < 0) {
                _exit(1);
            }
            if (got == 0) {
                break;
            }
            bytes.append(buffer, static_cast<std::size_t>(got));
        }
        if (lseek(fd, 0, SEEK_SET) != 0 || ftruncate(fd, 0) != 0) {
            _exit(1);
        }
        std::FILE* out = fdopen(fd, "wb");
        if (out == nullptr) {
            _exit(1);
        }
        Describe(name, bytes, description, out);
        if (std::fflush(out) == 0 && fsync(fd) == 0) {
            status = 0;
        }
    } catch (...) {
        status = 1;
    }
    _exit(status);
}

#endif

}  // namespace

bool AddPdfOutline(const std::filesystem::path& path, const PdfDescription& description) noexcept {
#if ZANTOR_OUTLINE_IN_CHILD
    const int fd = open(path.c_str(), O_RDWR | O_CLOEXEC);
    if (fd < 0) {
        return false;
    }
    const pid_t parent = getpid();
    const pid_t child = fork();
    if (child == 0) {
        RewriteInChild(parent, fd, path.native(), description);
    }
    close(fd);
    if (child < 0) {
        return false;
    }
    int status = 0;
    while (waitpid(child, &status, 0) < 0) {
        if (errno != EINTR) {
            return false;
        }
    }
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
#else
    try {
        std::string bytes;
        {
            std::ifstream in(path, std::ios::binary);
            if (!in) {
                return false;
            }
            bytes.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
        }
        std::FILE* out = std::fopen(path.string().c_str(), "wb");
        if (out == nullptr) {
            return false;
        }
        bool written = false;
        try {
            Describe(path.string(), bytes, description, out);
            written = std::fflush(out) == 0;
        } catch (...) {
        }
        return std::fclose(out) == 0 && written;
    } catch (...) {
        return false;
    }
#endif
}

}  // namespace zantor
