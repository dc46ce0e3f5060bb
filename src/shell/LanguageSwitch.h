#pragma once
// Puts a language in force for the whole program: the parameter names follow at once, and the
// compiled English translation is installed on (or taken off) the application, which tells every
// window to word itself anew (QEvent::LanguageChange). The main window rebuilds its menus, tool
// tips, tree and list on that event, and so does the compare window, which lives as long as the
// program; modal dialogs can't be open at a switch, and the others keep their words until reopened.

#include "base/Language.h"

namespace quillon {

// The compiled translation, built into the program.
inline constexpr const char* kEnglishTranslation = ":/i18n/quillon_en.qm";

// False when the English translation could not be loaded (the parameter names still switch).
bool ApplyLanguage(UiLanguage language);

}  // namespace quillon
