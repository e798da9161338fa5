#pragma once

// The cups-pdf print queue the printer tests print to (ZantorPDF, made by scripts/setup-cups.sh,
// or $ZANTOR_TEST_PRINTER), and the folder where its PDFs arrive.

#include <filesystem>
#include <optional>
#include <set>
#include <string>

namespace zantor::test {

// The queue's name.
std::string CupsPdfQueue();

// Where cups-pdf puts this user's PDFs for `queue`: the Out line of the queue's own cups-pdf
// configuration (or the shared one), with ${HOME} and ${USER} filled in as cups-pdf does.
std::optional<std::filesystem::path> CupsPdfFolder(const std::string& queue);

// The PDF files in `folder`.
std::set<std::filesystem::path> PdfsIn(const std::filesystem::path& folder);

}  // namespace zantor::test
