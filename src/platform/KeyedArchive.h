#pragma once

#include <QByteArray>
#include <QColor>
#include <QFont>

/// Colours and fonts as data: a binary property list of objects that refer to each other
/// (`$archiver`, `$objects`, `$top`), the form that the host reads. Pure functions; any thread.
namespace platform::KeyedArchive {

/// As device RGB, to the last bit of a QColor's 16 per component, with the alpha where it is not 1.
/// Null for an invalid colour.
QByteArray archivedColor(const QColor &color);

/// The colour that an archive of any program holds: RGB, grey or CMYK of whatever profile, taken as
/// it stands, or a named colour that brings its components along. Invalid for what is no archive,
/// or has another object in it, or components that are no numbers. Components are held to 0 to 1.
QColor unarchivedColor(const QByteArray &archive);

QByteArray archivedFont(const QFont &font);

/// The same font; of another program's archive the family and the size. Nullopt as above.
std::optional<QFont> unarchivedFont(const QByteArray &archive);

} // namespace platform::KeyedArchive
