#include "ui/MenuLabel.h"

namespace ui {

QString MenuLabel::shown() const
{
    const int at = mnemonic.isEmpty() ? -1 : text.indexOf(mnemonic.at(0), 0, Qt::CaseInsensitive);
    QString before = at < 0 ? text : text.left(at);
    QString after = at < 0 ? QString() : text.mid(at);
    for (QString* part : {&before, &after}) {
        part->replace('&', "&&").replace('\t', ' ');
    }
    return at < 0 ? before : before + '&' + after;
}

}  // namespace ui
