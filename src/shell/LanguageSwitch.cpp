#include "shell/LanguageSwitch.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPointer>
#include <QTranslator>

namespace quillon {

bool ApplyLanguage(UiLanguage language) {
    // One translator per application object; it goes with the application.
    static QPointer<QTranslator> translator;
    static bool installed = false;
    QCoreApplication* app = QCoreApplication::instance();
    SetCurrentLanguage(language);
    if (!app) return false;
    if (!translator) {
        translator = new QTranslator(app);
        installed = false;
        if (!translator->load(QString::fromLatin1(kEnglishTranslation))) {
            delete translator;
        }
    }
    const bool wanted = language == UiLanguage::English && translator;
    if (wanted != installed) {
        // Either call tells every window that the language changed.
        installed = wanted ? QCoreApplication::installTranslator(translator)
                           : !QCoreApplication::removeTranslator(translator);
    } else {
        // The parameter names changed all the same.
        QEvent event(QEvent::LanguageChange);
        QCoreApplication::sendEvent(app, &event);
    }
    return language == UiLanguage::System || translator;
}

}  // namespace quillon
