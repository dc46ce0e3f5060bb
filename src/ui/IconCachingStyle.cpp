#include "ui/IconCachingStyle.h"

namespace quillon {

QIcon CIconCachingStyle::standardIcon(StandardPixmap which, const QStyleOption* option,
                                      const QWidget* widget) const {
    // With an option or a widget the icon may depend on them: built as the base style builds it.
    if (option || widget) return QProxyStyle::standardIcon(which, option, widget);
    auto it = m_icons.find(which);
    if (it == m_icons.end()) it = m_icons.emplace(which, QProxyStyle::standardIcon(which)).first;
    return it->second;
}

}  // namespace quillon
