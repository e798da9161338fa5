#pragma once

// Tests of the settings run against real stores in a configuration folder of their own: the
// fixture points XDG_CONFIG_HOME at a fresh temporary folder and puts it back afterwards.

#include <gtest/gtest.h>

#include <QByteArray>
#include <QLocale>
#include <QtGlobal>
#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <locale>
#include <string>

#include "shell/settings_store.h"
#include "support/test_support.h"

namespace zantor::test {

inline void UseConfigHome(const std::filesystem::path& folder) {
    qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(folder.string()));
}

inline std::string FileBytes(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

class SettingsTest : public ::testing::Test {
  protected:
    SettingsTest()
        : hadConfigHome_(qEnvironmentVariableIsSet("XDG_CONFIG_HOME")),
          savedConfigHome_(qgetenv("XDG_CONFIG_HOME")) {
        UseConfigHome(config_.Path());
    }
    ~SettingsTest() override {
        if (hadConfigHome_) {
            qputenv("XDG_CONFIG_HOME", savedConfigHome_);
        } else {
            qunsetenv("XDG_CONFIG_HOME");
        }
    }

    std::filesystem::path MainFile() const { return config_.Path() / "Brovik" / "Zantor.conf"; }
    std::filesystem::path ZantorFile() const { return config_.Path() / "ZANTOR.conf"; }

    // The main store as it stands on disk: a copy under a path no store has opened yet, so
    // nothing that Qt still holds in memory for the original can show through.
    SettingsStore MainOnDisk() {
        const auto copy = copies_.Path() / ("copy" + std::to_string(++copyCount_) + ".conf");
        std::filesystem::copy_file(MainFile(), copy);
        return SettingsStore(copy);
    }

    TempDir config_;

  private:
    TempDir copies_;
    int copyCount_ = 0;
    bool hadConfigHome_;
    QByteArray savedConfigHome_;
};

// Makes the C library, C++ streams and Qt use a German number format (decimal comma) for as
// long as it lives. The C library's German locale is built with localedef when the system has
// the sources but no built locale.
class GermanNumbers {
  public:
    GermanNumbers() {
        if (!Use("de_DE.UTF-8") && !Use("de_DE.utf8") && !Use("de_DE")) {
            const auto built = locales_.Path() / "de_DE.UTF-8";
            const std::string command =
                "localedef -i de_DE -f UTF-8 '" + built.string() + "' >/dev/null 2>&1";
            // localedef's exit status also counts warnings; whether the locale is usable shows
            // when it is chosen.
            [[maybe_unused]] const int status = std::system(command.c_str());
            qputenv("LOCPATH", QByteArray::fromStdString(locales_.Path().string()));
            Use("de_DE.UTF-8");
        }
        std::locale::global(std::locale(std::locale::classic(), new Comma));
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    }
    ~GermanNumbers() {
        std::setlocale(LC_NUMERIC, "C");
        std::locale::global(std::locale::classic());
        QLocale::setDefault(QLocale::c());
        qunsetenv("LOCPATH");
    }
    bool CLibraryUsesComma() const { return *std::localeconv()->decimal_point == ','; }

  private:
    struct Comma : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
    };
    static bool Use(const char* name) { return std::setlocale(LC_NUMERIC, name) != nullptr; }

    TempDir locales_;
};

}  // namespace zantor::test
