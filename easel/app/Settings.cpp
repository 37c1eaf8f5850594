// Settings as an INI file, which people can read.
#include "app/Settings.h"

#include <QFile>

namespace easel::app {

namespace {

constexpr const char* kRecent = "recent";
constexpr double kLeastSpacing = 0.5; // points
constexpr double kMostSpacing = 10'000;

} // namespace

Settings::Settings(const std::string& folder)
    : file_(QString::fromStdString(folder + "/window.ini"), QSettings::IniFormat) {}

QStringList Settings::recent() const {
    QStringList there;
    for (const QString& path : file_.value(kRecent).toStringList())
        if (QFile::exists(path)) there << path;
    return there;
}

double Settings::gridSpacing() const {
    constexpr double kUsual = 10;
    const double spacing = file_.value("gridSpacing", kUsual).toDouble();
    return spacing >= kLeastSpacing && spacing <= kMostSpacing ? spacing : kUsual; // people edit the file
}

KeyMeanings Settings::keys() const {
    const auto meaning = [this](const char* key, session::Modifiers usual) {
        const QString name = file_.value(key).toString();
        for (const KeyMeaning& each : kKeyMeanings)
            if (name == each.name) return each.modifier;
        return usual;
    };
    const KeyMeanings usual;
    return {meaning("ctrl", usual.ctrl), meaning("alt", usual.alt), meaning("super", usual.super)};
}

void Settings::setKeys(const KeyMeanings& keys) {
    const auto note = [this](const char* key, session::Modifiers is) {
        for (const KeyMeaning& each : kKeyMeanings)
            if (is == each.modifier) file_.setValue(key, each.name);
    };
    note("ctrl", keys.ctrl);
    note("alt", keys.alt);
    note("super", keys.super);
}

void Settings::noteRecent(const std::string& path) {
    const QString added = QString::fromStdString(path);
    QStringList all = recent();
    all.removeAll(added);
    all.prepend(added);
    file_.setValue(kRecent, QStringList(all.mid(0, kMostRecent)));
}

} // namespace easel::app
