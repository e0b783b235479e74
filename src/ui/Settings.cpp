#include "ui/Settings.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>

#include "ui/qt/Native.h"

namespace ui {

struct Settings::Native {
    QSettings store;
    QString file; ///< where it should lie

    static QString name(const std::string& section, const std::string& key) {
        return QString::fromStdString(section) + '/' + QString::fromStdString(key);
    }
};

namespace {

constexpr const char* storeName = "HTML Topicsmith";

#ifdef _WIN32
constexpr auto storeFormat = QSettings::NativeFormat;
#else
constexpr auto storeFormat = QSettings::IniFormat;
#endif

/// Whether the toolkit may read a file: it would wait for a pipe and read a huge one as a whole.
bool isReadable(const QString& file) {
    constexpr qint64 largest = qint64(4) << 20U;
    const QFileInfo facts(file);
    return !facts.exists() || (facts.isFile() && facts.size() <= largest);
}

/// Settings in another's place are not read; those that are set are kept until the program ends.
QString placeOf(const QString& file) {
    return isReadable(file) ? file : file + "/none";
}

} // namespace

Settings::Settings() {
    const QString carried = QCoreApplication::applicationDirPath() + "/topicsmith.ini";
    const QString usual = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
                          + '/' + storeName + '/' + storeName + ".ini";
    if (QFileInfo(carried).isFile()) {
        native_.reset(new Native{QSettings(placeOf(carried), QSettings::IniFormat), carried});
    } else if (storeFormat == QSettings::IniFormat && !isReadable(usual)) {
        native_.reset(new Native{QSettings(placeOf(usual), QSettings::IniFormat), usual});
    } else {
        native_.reset(
            new Native{QSettings(storeFormat, QSettings::UserScope, storeName, storeName), usual});
    }
}

Settings::Settings(const std::filesystem::path& file)
    : native_(
        new Native{QSettings(placeOf(pathToQt(file)), QSettings::IniFormat), pathToQt(file)}) {}

Settings::~Settings() = default;

std::string Settings::get(const std::string& section, const std::string& key,
                          const std::string& fallback) const {
    const QVariant value = native_->store.value(Native::name(section, key));
    return value.isValid() ? value.toString().toStdString() : fallback;
}

void Settings::set(const std::string& section, const std::string& key, const std::string& value) {
    native_->store.setValue(Native::name(section, key), QString::fromStdString(value));
}

int Settings::number(const std::string& section, const std::string& key, int fallback) const {
    bool ok = false;
    const int value = QString::fromStdString(get(section, key)).toInt(&ok);
    return ok ? value : fallback;
}

void Settings::setNumber(const std::string& section, const std::string& key, int value) {
    set(section, key, std::to_string(value));
}

std::filesystem::path Settings::folder() const {
    const bool isFile = native_->store.format() == QSettings::IniFormat;
    const QString folder = isFile
                               ? QFileInfo(native_->file).absolutePath()
                               : QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    QDir().mkpath(folder);
    return pathFromQt(folder);
}

std::filesystem::path Settings::path(const std::string& section, const std::string& key) const {
    return pathFromQt(QString::fromStdString(get(section, key)));
}

void Settings::setPath(const std::string& section, const std::string& key,
                       const std::filesystem::path& value) {
    set(section, key, pathToQt(value).toStdString());
}

} // namespace ui
