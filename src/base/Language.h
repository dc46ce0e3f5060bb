#pragma once
// The language the program speaks. By default it shows the texts it has always shown: Chinese
// parameter names, group names and dialog captions, English menus and messages. The English form
// takes the parameter names from the catalogue's English column and every other text from the
// compiled translation (Qt's translator, installed by the shell). The choice is kept in a small
// settings file of its own; without one the desktop's locale decides.

#include <QLocale>
#include <QString>

namespace quillon {

enum class UiLanguage { System, English };

UiLanguage CurrentLanguage();
void SetCurrentLanguage(UiLanguage language);

// The saved choice ("system", "en"); an empty or unknown key falls back to the locale: an English
// desktop gets the English form, any other the program's own texts.
UiLanguage LanguageFromSetting(const QString& key, QLocale::Language localeLanguage);
QString LanguageSettingKey(UiLanguage language);

// The settings file beside the recent-project list (`iniPath`), which keeps only that list.
QString LanguageIniPath(const QString& recentIniPath);
UiLanguage ReadLanguageSetting(const QString& languageIniPath);
void WriteLanguageSetting(const QString& languageIniPath, UiLanguage language);

// `text` in the current language: the translator's English when it has one, else `text` itself.
QString Translated(const char* context, const char* text);

}  // namespace quillon
