#include "SampleListing.h"

#include <QUrl>

namespace {

// A still life as an address of its own, so that a sample needs no other file.
QString picture(int number)
{
    const QString svg =
        QStringLiteral("<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 400 400'>"
                       "<rect width='400' height='400' fill='hsl(%1,34%,86%)'/>"
                       "<rect y='290' width='400' height='110' fill='hsl(%1,28%,70%)'/>"
                       "<ellipse cx='200' cy='322' rx='96' ry='13' fill='hsl(%1,24%,56%)'/>"
                       "<path d='M188 180h24v128h-24z' fill='hsl(%1,30%,42%)'/>"
                       "<path d='M140 308h120v14H140z' fill='hsl(%1,30%,36%)'/>"
                       "<path d='M150 80h100l44 104H106z' fill='hsl(%1,62%,58%)'/></svg>")
            .arg((20 + 67 * number) % 360);
    return QStringLiteral("data:image/svg+xml,") +
           QString::fromLatin1(QUrl::toPercentEncoding(svg));
}

} // namespace

ListingValues sampleListing(const QString &title)
{
    constexpr std::pair<const char *, const char *> texts[] = {
        {"LBSubtitle", "Solid brass, rewired, with its first linen shade"},
        {"LBDescription",
         "<p>A desk lamp of the nineteen-fifties in solid brass. The shade is the first one, in "
         "natural linen; the wiring is new and tested.</p><p>It stands 46 cm high and weighs 2.1 "
         "kg. There are faint marks of use at the foot, shown in the last picture.</p>"},
        {"LBCondition", "Used, in very good order"},
        {"LBShipping", "Insured parcel, sent within two working days"},
        {"LBReturns", "Thirty days, no questions"},
        {"LBPrice", "€ 148.00"},
        {"LBSellerName", "Northlight Antiques"},
        {"LBItemNumber", "NL-2047"},
        {"LBLocation", "Leeds, United Kingdom"},
        {"LBQuantity", "1"},
        {"LBPayment", "Card, transfer, or in cash when collected"},
    };
    ListingValues values{{QStringLiteral("LBTitle"), title.toHtmlEscaped()}};
    for (const auto &[name, text] : texts)
        values[QLatin1StringView(name)] = QString::fromUtf8(text);
    for (int number = 1; number <= 4; ++number)
        values[QStringLiteral("LBPicture%1").arg(number)] = picture(number);
    return values;
}
