#include "base/Language.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSettings>
#include <atomic>

namespace quillon {
namespace {
std::atomic<UiLanguage> g_language{UiLanguage::System};
const QString kKey = QStringLiteral("Language");
}  // namespace

UiLanguage CurrentLanguage() { return g_language.load(std::memory_order_relaxed); }

void SetCurrentLanguage(UiLanguage language) {
    g_language.store(language, std::memory_order_relaxed);
}

UiLanguage LanguageFromSetting(const QString& key, QLocale::Language localeLanguage) {
    if (key == QLatin1String("en")) return UiLanguage::English;
    if (key == QLatin1String("system")) return UiLanguage::System;
    return localeLanguage == QLocale::English ? UiLanguage::English : UiLanguage::System;
}

QString LanguageSettingKey(UiLanguage language) {
    return language == UiLanguage::English ? QStringLiteral("en") : QStringLiteral("system");
}

QString LanguageIniPath(const QString& recentIniPath) {
    return QFileInfo(recentIniPath).absolutePath() + QStringLiteral("/language.ini");
}

UiLanguage ReadLanguageSetting(const QString& languageIniPath) {
    const QSettings settings(languageIniPath, QSettings::IniFormat);
    return LanguageFromSetting(settings.value(kKey).toString(), QLocale::system().language());
}

void WriteLanguageSetting(const QString& languageIniPath, UiLanguage language) {
    QSettings settings(languageIniPath, QSettings::IniFormat);
    settings.setValue(kKey, LanguageSettingKey(language));
}

QString Translated(const char* context, const char* text) {
    return QCoreApplication::translate(context, text);
}

}  // namespace quillon
