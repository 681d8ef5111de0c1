#pragma once

#include <QMargins>
#include <QWidget>

namespace zq {

/// Puts `subview` into `view` and keeps it filling it, but for the insets (pixels). Takes the place
/// of whatever layout `view` had and hides what filled it before.
void fillWithSubview(QWidget *view, QWidget *subview, const QMargins &insets = {});

/// Searches below `view` (not the view itself), depth first, in the order of the children. Null
/// without a match.
QWidget *firstSubviewOfClass(QWidget *view, const QMetaObject &exactClass);
QWidget *firstSubviewThatIsKindOfClass(QWidget *view, const QMetaObject &baseClass);

/// The nearest view around `view` (not itself) of the class or of one derived from it.
QWidget *enclosingViewOfClass(QWidget *view, const QMetaObject &baseClass);

QList<QWidget *> allSubviewsDeep(QWidget *view); ///< All below, depth first, parents first.

/// A tool tip that shows the text as it stands, markup and "&" too.
QString plainToolTip(const QString &text);

/// The text as a menu entry or a button shows it: "&" stands for itself.
QString withoutMnemonic(QString text);

template <class View>
View *firstSubviewOfClass(QWidget *view)
{
    return static_cast<View *>(firstSubviewOfClass(view, View::staticMetaObject));
}

template <class View>
View *firstSubviewThatIsKindOfClass(QWidget *view)
{
    return static_cast<View *>(firstSubviewThatIsKindOfClass(view, View::staticMetaObject));
}

template <class View>
View *enclosingViewOfClass(QWidget *view)
{
    return static_cast<View *>(enclosingViewOfClass(view, View::staticMetaObject));
}

} // namespace zq
