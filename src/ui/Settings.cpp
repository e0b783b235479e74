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

} // namespace

Settings::Settings() {
    const QString carried = QCoreApplication::applicationDirPath() + "/topicsmith.ini";
    native_.reset(
        QFileInfo(carried).isFile()
            ? new Native{QSettings(carried, QSettings::IniFormat)}
            : new Native{QSettings(storeFormat, QSettings::UserScope, storeName, storeName)});
}

Settings::Settings(const std::filesystem::path& file)
    : native_(new Native{QSettings(pathToQt(file), QSettings::IniFormat)}) {}

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
                               ? QFileInfo(native_->store.fileName()).absolutePath()
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
