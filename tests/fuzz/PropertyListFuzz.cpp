#include "fuzz/FuzzTargets.h"
#include "platform/PropertyList.h"

#include <QtGlobal>

namespace fuzz {

namespace {

using platform::PropertyList;
using Format = PropertyList::Format;

void require(bool holds, const char *what)
{
    if (!holds)
        qFatal("%s", what);
}

void rewrite(const PropertyList::Document &document, Format format)
{
    const auto written = PropertyList::serialize(document.root, format);
    if (!written) {
        require(format == Format::Xml && document.format == Format::Binary, "it cannot be written");
        return;
    }
    const auto again = PropertyList::parse(*written);
    require(again && again->format == format, "what was written cannot be read");
    require(PropertyList::serialize(again->root, format) == written, "it differs when read again");

    // XML rounds dates and takes some dictionaries for references; nothing else may change.
    if (format == document.format || document.format == Format::Xml)
        require(PropertyList::serialize(again->root, Format::Binary) ==
                    PropertyList::serialize(document.root, Format::Binary),
                "a value changed");
}

} // namespace

void propertyList(const QByteArray &bytes)
{
    const auto document = PropertyList::parse(bytes);
    if (!document)
        return;
    rewrite(*document, Format::Xml);
    rewrite(*document, Format::Binary);
}

} // namespace fuzz
