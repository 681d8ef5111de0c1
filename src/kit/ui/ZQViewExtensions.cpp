#include "kit/ui/ZQViewExtensions.h"

#include <QTextDocument>
#include <QVBoxLayout>

namespace zq {

namespace {

QList<QWidget *> subviews(QWidget *view)
{
    return view->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
}

template <class Predicate>
QWidget *firstSubview(QWidget *view, const Predicate &matches)
{
    for (QWidget *subview : subviews(view)) {
        if (matches(subview))
            return subview;
        if (QWidget *deeper = firstSubview(subview, matches))
            return deeper;
    }
    return nullptr;
}

} // namespace

void fillWithSubview(QWidget *view, QWidget *subview, const QMargins &insets)
{
    for (QWidget *other : subviews(view))
        if (other != subview)
            other->hide();
    delete view->layout();
    auto *layout = new QVBoxLayout(view);
    layout->setContentsMargins(insets);
    layout->addWidget(subview);
    subview->show();
}

QWidget *firstSubviewOfClass(QWidget *view, const QMetaObject &exactClass)
{
    return firstSubview(view, [&](QWidget *each) { return each->metaObject() == &exactClass; });
}

QWidget *firstSubviewThatIsKindOfClass(QWidget *view, const QMetaObject &baseClass)
{
    return firstSubview(view,
                        [&](QWidget *each) { return each->metaObject()->inherits(&baseClass); });
}

QWidget *enclosingViewOfClass(QWidget *view, const QMetaObject &baseClass)
{
    QWidget *outer = view->parentWidget();
    while (outer && !outer->metaObject()->inherits(&baseClass))
        outer = outer->parentWidget();
    return outer;
}

QList<QWidget *> allSubviewsDeep(QWidget *view)
{
    QList<QWidget *> result;
    for (QWidget *subview : subviews(view))
        result << subview << allSubviewsDeep(subview);
    return result;
}

QString plainToolTip(const QString &text)
{
    return text.isEmpty() ? text : Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal);
}

QString withoutMnemonic(QString text)
{
    return text.replace(u'&', QStringLiteral("&&"));
}

} // namespace zq
