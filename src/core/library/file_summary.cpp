#include "library/file_summary.h"

#include <iomanip>

#include "common/errors.h"
#include "library/decal_reader.h"
#include "shell/identification.h"

namespace zantor {
namespace {

std::string DescribeVersion(const FileHeader& header) {
    std::string text = std::to_string(header.version);
    if (header.version == 5) {
        text += " (newer than V4 or not known)";
    }
    if (!header.versionText.empty()) {
        text += ", written as " + header.versionText;
    }
    return text;
}

std::string DescribeUnits(const FileHeader& header) {
    if (header.basicUnits) {
        return "BASIC (1/38100000 inch), whatever the unit letters say";
    }
    if (header.pcbFile && !header.unitsWord.empty()) {
        return header.unitsWord + "; each decal by its unit letter (I mils, M millimetres)";
    }
    return "each decal by its unit letter (I mils, M millimetres)";
}

bool HasDecalRecords(const FileHeader& header) {
    switch (header.product) {
        case FileProduct::DecalLibrary:
        case FileProduct::PcbDatabase:
            return true;
        case FileProduct::ParttypeLibrary:
            return false;
        case FileProduct::Unknown:
            break;
    }
    return FirstLineIsLibrary(header.line, 2);
}

void WriteCount(std::ostream& out, int width, bool present, unsigned value) {
    out << ' ' << std::setw(width);
    if (present) {
        out << value;
    } else {
        out << '-';
    }
}

void WriteRecord(std::ostream& out, const DecalRecord& record, bool damaged = false) {
    const bool library = !record.header.pcbFile;
    const DecalCounts& counts = record.counts;
    out << std::left << std::setw(static_cast<int>(kMaxDecalNameLength)) << record.name << ' '
        << std::setw(4) << record.unitLetter << std::right;
    WriteCount(out, 5, library, counts.attributes);
    WriteCount(out, 6, true, counts.labels);
    WriteCount(out, 6, true, counts.pieces);
    WriteCount(out, 5, true, counts.texts);
    WriteCount(out, 9, true, counts.terminals);
    WriteCount(out, 6, true, counts.stacks);
    if (damaged) {
        out << "  DAMAGED";
    }
    out << '\n';
}

}  // namespace

std::string DescribeKind(const FileHeader& header) {
    switch (header.product) {
        case FileProduct::DecalLibrary:
            return "decal library";
        case FileProduct::ParttypeLibrary:
            return "parttype library";
        case FileProduct::PcbDatabase:
            return "PCB ASCII file";
        case FileProduct::Unknown:
            break;
    }
    if (FirstLineIsLibrary(header.line, 2)) {
        return "decal library without header line";
    }
    if (FirstLineIsLibrary(header.line, 3)) {
        return "parttype library without header line";
    }
    return "not a PADS library or PCB ASCII file";
}

void WriteFileSummary(const std::filesystem::path& file, std::ostream& out) {
    DecalReader reader(file);
    const FileHeader& header = reader.Header();
    out << "File:    " << reader.FileName() << '\n'
        << "Kind:    " << DescribeKind(header) << '\n'
        << "Version: " << DescribeVersion(header) << '\n'
        << "Units:   " << DescribeUnits(header) << '\n';
    if (!HasDecalRecords(header)) {
        out << "No decal records: only decal libraries and PCB ASCII files hold them.\n";
        return;
    }
    out << '\n'
        << std::left << std::setw(static_cast<int>(kMaxDecalNameLength)) << "Decal"
        << " Unit Attrs Labels Pieces Texts Terminals Stacks\n"
        << std::right;
    unsigned long decals = 0;
    for (;;) {
        DecalRecord record;
        try {
            if (!reader.NextRecord(record)) {
                break;
            }
        } catch (const Error&) {
            // The records read so far stand in the table; the one that failed is listed with
            // what its header said when its counts were read (its body then failed), and the
            // error that says why follows the table.
            if (!record.lines.empty()) {
                WriteRecord(out, record, true);
            } else if (!record.name.empty()) {
                out << std::left << std::setw(static_cast<int>(kMaxDecalNameLength)) << record.name
                    << std::right << "  DAMAGED header\n";
            }
            out << decals << (decals == 1 ? " decal" : " decals")
                << " read before the damaged record\n";
            throw;
        }
        WriteRecord(out, record);
        ++decals;
    }
    out << decals << (decals == 1 ? " decal\n" : " decals\n");
}

}  // namespace zantor
