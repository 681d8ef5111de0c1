#include "editor/MGSArchiving.h"

#include <QColor>
#include <QDataStream>
#include <QFont>
#include <QIODevice>

namespace {

constexpr auto version = QDataStream::Qt_6_0;
const QByteArray colourMark = QByteArrayLiteral("MGSColour1\n");
const QByteArray fontMark = QByteArrayLiteral("MGSFont1\n");

template <class Value>
QByteArray archived(const Value &value, const QByteArray &mark)
{
    QByteArray data = mark;
    QDataStream stream(&data, QIODevice::Append);
    stream.setVersion(version);
    stream << value;
    return data;
}

/// Invalid for damaged data.
template <class Value>
QVariant unarchived(const QByteArray &data, const QByteArray &mark)
{
    QDataStream stream(data.mid(mark.size()));
    stream.setVersion(version);
    Value value;
    stream >> value;
    return stream.status() == QDataStream::Ok ? QVariant(value) : QVariant();
}

} // namespace

QVariant mgs_archivedValue(const QVariant &value)
{
    if (value.typeId() == QMetaType::QColor)
        return archived(value.value<QColor>(), colourMark);
    if (value.typeId() == QMetaType::QFont)
        return archived(value.value<QFont>(), fontMark);
    return value;
}

QVariant mgs_unarchivedValue(const QVariant &value)
{
    if (value.typeId() != QMetaType::QByteArray)
        return value;
    const QByteArray data = value.toByteArray();
    QVariant original;
    if (data.startsWith(colourMark))
        original = unarchived<QColor>(data, colourMark);
    else if (data.startsWith(fontMark))
        original = unarchived<QFont>(data, fontMark);
    return original.isValid() ? original : value;
}
