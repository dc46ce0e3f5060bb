#include "support/AppSession.h"

#include "base/Globals.h"
#include "base/Language.h"
#include "params/ModelSelectDlg.h"
#include "shell/CommandIds.h"
#include "support/WidgetTestSupport.h"

#include <QComboBox>

namespace quillon::test {

CM330App& App()
{
    return *static_cast<CM330App*>(QCoreApplication::instance());
}

AppSession::AppSession()
{
    ResetGlobals();
    // The program's own texts, whatever the desktop's locale.
    WriteLanguageSetting(LanguageIniPath(dir.Path() + "recent.ini"), UiLanguage::System);
    App().SetOptions({dir.Path() + "recent.ini", dir.Path(), /*showWindow=*/false, {}});
    EXPECT_TRUE(App().InitInstance());
    frame = App().MainFrame();
}

void AppSession::NewProject(const QString& model)
{
    OnNextModal<CModelSelectDlg>([model](CModelSelectDlg& dlg) {
        dlg.ModelList()->setCurrentIndex(dlg.ModelList()->findText(model));
        dlg.accept();
    });
    frame->OnCommand(CmdId::New);
    EXPECT_NE(frame->Document(), nullptr);
}

}  // namespace quillon::test
