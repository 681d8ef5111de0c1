#include "editor/MGSFont.h"

#include <QFontDatabase>

QFont mgs_fixedFont(const QString &family, qreal pointSize)
{
    QFont font = QFontDatabase::hasFamily(family)
                     ? QFont(family)
                     : QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPointSizeF(pointSize);
    return font;
}

QFont mgs_defaultFont()
{
    return mgs_fixedFont(QStringLiteral("Menlo"), 11);
}
