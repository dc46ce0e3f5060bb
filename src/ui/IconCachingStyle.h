#pragma once
// The program's style: the platform's own, with one change. Asked for a standard icon without an
// option, the base style builds a new icon each time, and the buttons that a maximised project
// window puts into the menu bar ask for theirs at every paint. The pixmap cache keeps each such
// icon's pixmaps under a key of its own, so the heap grew with every project window shown. Here
// each of those icons is built once and handed out again.

#include <QIcon>
#include <QProxyStyle>
#include <map>

namespace quillon {

class CIconCachingStyle final : public QProxyStyle {
public:
    QIcon standardIcon(StandardPixmap which, const QStyleOption* option = nullptr,
                       const QWidget* widget = nullptr) const override;

private:
    mutable std::map<StandardPixmap, QIcon> m_icons;
};

}  // namespace quillon
