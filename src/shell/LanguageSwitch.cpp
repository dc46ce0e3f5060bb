#include "shell/LanguageSwitch.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTranslator>
#include <memory>

namespace quillon {
namespace {

// Loaded once and kept to the end of the process: a translator that is a child of the
// application would take itself off an application already half torn down.
QTranslator* EnglishTranslator() {
    static const std::unique_ptr<QTranslator> translator = [] {
        auto t = std::make_unique<QTranslator>();
        return t->load(QString::fromLatin1(kEnglishTranslation)) ? std::move(t) : nullptr;
    }();
    return translator.get();
}

}  // namespace

bool ApplyLanguage(UiLanguage language) {
    SetCurrentLanguage(language);
    QCoreApplication* app = QCoreApplication::instance();
    if (!app) return false;
    QTranslator* translator = EnglishTranslator();
    // Either call tells every window that the language changed; a call that changes nothing
    // (the language in force again, or no translation) doesn't, so the event goes out here.
    static const QCoreApplication* installedIn = nullptr;  // installing twice would stack it
    bool changed = false;
    if (translator && language == UiLanguage::English && installedIn != app) {
        changed = QCoreApplication::installTranslator(translator);
        installedIn = app;
    } else if (translator && language == UiLanguage::System && installedIn == app) {
        changed = QCoreApplication::removeTranslator(translator);
        installedIn = nullptr;
    }
    if (!changed) {
        QEvent event(QEvent::LanguageChange);
        QCoreApplication::sendEvent(app, &event);
    }
    return language == UiLanguage::System || translator;
}

}  // namespace quillon
