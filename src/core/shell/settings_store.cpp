#include "shell/settings_store.h"

#include <QDir>
#include <QSettings>
#include <QStandardPaths>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <limits>
#include <utility>

#include "common/errors.h"
#include "shell/settings_numbers.h"

namespace zantor {
namespace {

constexpr std::string_view kGeneralSection = "General";

QString ToQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString Key(std::string_view section, std::string_view name) {
    return ToQString(section) + QLatin1Char('/') + ToQString(name);
}

// The text of a stored value as it stands in the store. A hand-edited file may hold a value
// with commas that Qt reads as a list; it is one text to us.
std::string StoredText(const QVariant& value) {
    if (value.typeId() == QMetaType::QStringList) {
        return value.toStringList().join(QLatin1Char(',')).toStdString();
    }
    return value.toString().toStdString();
}

bool IsNumberType(const QVariant& value) {
    switch (value.typeId()) {
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::LongLong:
        case QMetaType::ULongLong:
            return true;
        default:
            return false;
    }
}

// A registry integer arrives as a number, a configuration-file value as text.
std::optional<std::int32_t> StoredInteger(const QVariant& value) {
    if (IsNumberType(value)) {
        bool ok = false;
        const qlonglong number = value.toLongLong(&ok);
        if (ok && number >= std::numeric_limits<std::int32_t>::min() &&
            number <= std::numeric_limits<std::int32_t>::max()) {
            return static_cast<std::int32_t>(number);
        }
        return std::nullopt;
    }
    return ParseSettingsInteger(StoredText(value));
}

#ifndef Q_OS_WIN
std::filesystem::path ConfigFolder() {
    return std::filesystem::path(
        QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation).toStdU16String());
}
#endif

std::string PathText(const std::filesystem::path& file) {
    return QDir::toNativeSeparators(QString::fromStdU16String(file.u16string())).toStdString();
}

// A store in the configuration folder is an INI file, which is what Qt's native format is on
// Linux; on macOS we keep the same readable file rather than a property list.
std::unique_ptr<QSettings> OpenFile(const std::filesystem::path& file) {
    return std::make_unique<QSettings>(QString::fromStdU16String(file.u16string()),
                                       QSettings::IniFormat);
}

}  // namespace

std::string SettingsValueMessage(std::string_view section, std::string_view name,
                                 std::string_view problem, std::string_view text) {
    std::string message = "Settings value \"";
    message.append(section).append("/").append(name).append("\" ").append(problem);
    message.append(": \"").append(text).append("\"");
    return message;
}

SettingsStore::SettingsStore(std::unique_ptr<QSettings> settings, std::string location)
    : settings_(std::move(settings)), location_(std::move(location)) {}

SettingsStore::SettingsStore(const std::filesystem::path& file)
    : SettingsStore(OpenFile(file), PathText(file)) {}

SettingsStore::SettingsStore(SettingsStore&&) noexcept = default;
SettingsStore& SettingsStore::operator=(SettingsStore&&) noexcept = default;
SettingsStore::~SettingsStore() = default;

SettingsStore SettingsStore::OpenMain() {
#ifdef Q_OS_WIN
    const char* key = "HKEY_CURRENT_USER\\Software\\Brovik\\Zantor";
    return SettingsStore(
        std::make_unique<QSettings>(QString::fromLatin1(key), QSettings::NativeFormat), key);
#else
    return SettingsStore(ConfigFolder() / "Brovik" / "Zantor.conf");
#endif
}

SettingsStore SettingsStore::OpenZantor() {
#ifdef Q_OS_WIN
    const char* key = "HKEY_CURRENT_USER\\ZANTOR";
    return SettingsStore(
        std::make_unique<QSettings>(QString::fromLatin1(key), QSettings::NativeFormat), key);
#else
    return SettingsStore(ConfigFolder() / "ZANTOR.conf");
#endif
}

QVariant SettingsStore::Lookup(std::string_view section, std::string_view name) const {
    QVariant value = settings_->value(Key(section, name));
    // Qt writes the section "General" as [%General], because a plain [General] is where its
    // files keep the values outside any section. A file edited by hand may well say [General]:
    // those values count for the section too, where Qt's own section has none.
    if (!value.isValid() && section == kGeneralSection) {
        value = settings_->value(ToQString(name));
    }
    return value;
}

std::string SettingsStore::ReadString(std::string_view section, std::string_view name,
                                      std::string_view fallback) const {
    const QVariant value = Lookup(section, name);
    if (!value.isValid()) {
        return std::string(fallback);
    }
    return StoredText(value);
}

std::int32_t SettingsStore::ReadInteger(std::string_view section, std::string_view name,
                                        std::int32_t fallback) const {
    const QVariant value = Lookup(section, name);
    if (!value.isValid()) {
        return fallback;
    }
    if (const auto number = StoredInteger(value)) {
        return *number;
    }
    throw ConversionError(
        SettingsValueMessage(section, name, "is not a whole number", StoredText(value)), location_);
}

bool SettingsStore::ReadBool(std::string_view section, std::string_view name, bool fallback) const {
    const QVariant value = Lookup(section, name);
    if (!value.isValid()) {
        return fallback;
    }
    if (value.typeId() == QMetaType::Bool) {
        return value.toBool();
    }
    const QString text = value.toString().trimmed();
    if (text.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0) {
        return true;
    }
    if (text.compare(QLatin1String("false"), Qt::CaseInsensitive) == 0) {
        return false;
    }
    if (const auto number = StoredInteger(value)) {
        return *number != 0;
    }
    throw ConversionError(
        SettingsValueMessage(section, name, "is not a yes/no value", StoredText(value)), location_);
}

void SettingsStore::WriteString(std::string_view section, std::string_view name,
                                std::string_view value) {
    settings_->setValue(Key(section, name), ToQString(value));
}

void SettingsStore::WriteInteger(std::string_view section, std::string_view name,
                                 std::int32_t value) {
    settings_->setValue(Key(section, name), static_cast<int>(value));
}

void SettingsStore::WriteBool(std::string_view section, std::string_view name, bool value) {
    settings_->setValue(Key(section, name), value ? 1 : 0);
}

void SettingsStore::RemoveSection(std::string_view section) {
    settings_->remove(ToQString(section));
}

void SettingsStore::Sync() {
    settings_->sync();
    QSettings::Status status = settings_->status();
    if (status == QSettings::FormatError) {
        // Qt reports a file it could not fully parse with the same status, and that status
        // hides a failed write. A second look at the same file tells them apart: it still has
        // our changes to write only when the write failed.
        status = QSettings(settings_->fileName(), settings_->format()).status();
    }
    if (status == QSettings::AccessError) {
        throw IoError(
            "The settings could not be saved: no permission to write the file or its "
            "folder, or the disk is full.",
            location_);
    }
}

}  // namespace zantor
