#include "workbench/LSMPreviewListing.h"

#include "library/LSMDesignKeys.h"
#include "library/LSMDesignLayouts.h"
#include "library/LSMDesignTemplate.h"
#include "library/LSMPropertyValues.h"
#include "platform/Bundle.h"

using namespace Qt::StringLiterals;
using platform::localizable;
using platform::localized;

namespace {

constexpr auto picturePrefix = "LBPicture"_L1;
constexpr auto noLayout = "LBLayoutNotDefined"_L1;

struct Entry
{
    QLatin1StringView name;
    const char *value;
};

constexpr Entry usual[] = {
    {"LBTitle"_L1, localizable("Brass desk lamp, 1930s")},
    {"LBSubtitle"_L1, localizable("Rewired and ready to use")},
    {"LBDescription"_L1,
     localizable("A heavy lamp from an old ship's office. The shade turns, the foot has "
                 "felt under it. Small marks of age, no dents.")},
    {"LBPrice"_L1, localizable("EUR 84.00")},
    {"LBCondition"_L1, localizable("Used, very good")},
    {"LBQuantity"_L1, "1"},
    {"LBItemNumber"_L1, "LB-20417"},
    {"LBLocation"_L1, localizable("Bremen, Germany")},
    {"LBSellerName"_L1, localizable("Harbour Finds")},
    {"LBShipping"_L1, localizable("Parcel, two to three days, EUR 6.90")},
    {"LBPayment"_L1, localizable("Bank transfer or card")},
    {"LBReturns"_L1, localizable("Within 30 days")},
};

const QString longValue = QStringLiteral(
    "Donaudampfschifffahrtsgesellschaftskapitänsmützenabzeichen of 1931, with its box, the papers "
    "of the first owner, a letter and three photographs, kept in a drawer for eighty years; "
    "https://example.com/a/very/long/address/without/a/place/to/break/it?in=two&or=three ");
const QString rightToLeftValue =
    QStringLiteral("مصباح مكتب نحاسي من ثلاثينيات القرن الماضي (1931)");

QString picture()
{
    const QByteArray drawing =
        R"(<svg xmlns="http://www.w3.org/2000/svg" width="640" height="480" viewBox="0 0 64 48">)"
        R"(<rect width="64" height="48" fill="#d8d4cc"/><circle cx="47" cy="13" r="5" fill="#f4efe4"/>)"
        R"(<path d="M0 48l20-26 12 15 8-9 24 20z" fill="#a49a88"/></svg>)";
    return u"data:image/svg+xml;base64,"_s + QString::fromLatin1(drawing.toBase64());
}

// "LBShippingTime" reads "Shipping Time": what a field is that nobody has thought of here.
QString words(QStringView name)
{
    QString text;
    for (const QChar c : name.sliced(name.startsWith(u"LB") ? 2 : 0)) {
        if (c.isUpper() && !text.isEmpty())
            text += u' ';
        text += c;
    }
    return text;
}

QString usualValue(const QString &name)
{
    for (const Entry &entry : usual) {
        if (entry.name == name)
            return localized(entry.value);
    }
    return words(name);
}

QString valueOfField(LSMPreviewListing listing, const QString &name)
{
    if (name.startsWith(picturePrefix))
        return listing == LSMPreviewListing::Empty             ? u""_s
               : listing == LSMPreviewListing::WithoutPictures ? u"data:,"_s
                                                               : picture();
    switch (listing) {
    case LSMPreviewListing::Empty:
        return u""_s;
    case LSMPreviewListing::Long:
        return name == u"LBDescription" ? longValue.repeated(12) : longValue;
    case LSMPreviewListing::RightToLeft:
        return rightToLeftValue;
    default:
        return usualValue(name);
    }
}

} // namespace

LSMPlaceholders::Values LSMValuesOfListing(LSMPreviewListing listing,
                                           const LSMDesignTemplate &design)
{
    const QString layout = design.defaultLayoutName();
    const QString marker = LSMDesignLayouts::markerOfLayout(layout);
    return [listing, layout, marker, properties = LSMPropertyValues(design)](const QString &name) {
        if (name.startsWith(LSMDesignKeys::layoutMarker))
            return layout.isNull() || name == marker ? u"1"_s : u""_s;
        if (name == noLayout)
            return u"1"_s;
        if (LSMPlaceholders::isNameOfProperty(name))
            return properties.value(name);
        return name.startsWith(u"LB") ? valueOfField(listing, name) : QString();
    };
}
