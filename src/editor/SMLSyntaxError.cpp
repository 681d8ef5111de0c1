#include "editor/SMLSyntaxError.h"

#include "kit/ui/TintedIcon.h"
#include "platform/Bundle.h"
#include "platform/Format.h"
#include "platform/Log.h"

#include <array>
#include <QMetaProperty>

namespace {

constexpr std::array imageNames = {"messagesAccess", "messagesConfig",  "messagesDocument",
                                   "messagesInfo",   "messagesWarning", "messagesError",
                                   "messagesPanic"};
constexpr float levelsOfImage = 100;

QIcon image(const char *name)
{
    return zq::drawnIcon(platform::Bundle::mainBundle().pathForResource(
        QStringLiteral("ZQFragariaResources.bundle/") + QString::fromLatin1(name),
        QStringLiteral("svg")));
}

} // namespace

SMLSyntaxError::SMLSyntaxError(const QVariantMap &fields)
{
    for (auto field = fields.cbegin(); field != fields.cend(); ++field) {
        const int index = staticMetaObject.indexOfProperty(field.key().toUtf8().constData());
        const QMetaProperty property = staticMetaObject.property(index);
        QVariant value = *field;
        if (index >= 0 && value.convert(property.metaType()))
            property.writeOnGadget(this, value);
        else
            platform::log("A syntax error has no \"%@\" that could be %@.", field.key(),
                          field->toString());
    }
}

SMLSyntaxError SMLSyntaxError::errorWithDictionary(const QVariantMap &fields)
{
    return SMLSyntaxError(fields);
}

SMLSyntaxError SMLSyntaxError::errorWithDescription(const QString &description, float ofLevel,
                                                    quint64 atLine)
{
    SMLSyntaxError error;
    error.errorDescription = description;
    error.setWarningLevel(ofLevel);
    error.line = atLine;
    return error;
}

QIcon SMLSyntaxError::warningImage() const
{
    return m_manualImage.isNull() ? defaultImageForWarningLevel(m_warningLevel) : m_manualImage;
}

QIcon SMLSyntaxError::defaultImageForWarningLevel(float level)
{
    static std::array<QIcon, imageNames.size()> images;
    constexpr float last = imageNames.size() - 1;
    const float index = level > 0 ? qMin(level / levelsOfImage, last) : 0; // NaN is no level
    QIcon &found = images[size_t(index)];
    if (found.isNull())
        found = image(imageNames[size_t(index)]);
    return found;
}

QString SMLSyntaxError::description() const
{
    return platform::format(
        QStringLiteral("(description: \"%@\", line: %ld, column: %ld, length: %ld, level: %f)"),
        errorDescription, line, character, length, double(m_warningLevel));
}
