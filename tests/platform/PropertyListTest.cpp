#include "platform/PropertyList.h"

#include "support/TestSupport.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <QTemporaryDir>

using platform::Error;
using platform::PropertyList;
using platform::PropertyListDate;
using platform::PropertyListUid;
using Format = PropertyList::Format;

namespace {

QVariant date(double seconds)
{
    return QVariant::fromValue(PropertyListDate{seconds});
}

QVariant uid(quint64 value)
{
    return QVariant::fromValue(PropertyListUid{value});
}

// Types, values, the bits of reals: QVariant's own comparison takes 1 and 1.0 for equal.
QByteArray fingerprint(const QVariant &value)
{
    QByteArray result = value.typeName();
    if (value.typeId() == QMetaType::QVariantMap) {
        const QVariantMap map = value.toMap();
        for (auto entry = map.begin(); entry != map.end(); ++entry)
            result += '{' + QByteArray::number(entry.key().size()) + entry.key().toUtf8() + '=' +
                      fingerprint(*entry) + '}';
    } else if (value.typeId() == QMetaType::QVariantList) {
        for (const QVariant &element : value.toList())
            result += '[' + fingerprint(element) + ']';
    } else if (value.typeId() == QMetaType::QString) {
        const QString text = value.toString();
        result += text.isNull()
                      ? QByteArray("null")
                      : QByteArray(reinterpret_cast<const char *>(text.utf16()), text.size() * 2);
    } else if (value.typeId() == QMetaType::QByteArray) {
        result += value.toByteArray().isNull() ? QByteArray("null") : value.toByteArray();
    } else {
        const bool isDate = value.canConvert<PropertyListDate>();
        const double real =
            isDate ? value.value<PropertyListDate>().secondsSince2001 : value.toDouble();
        result += QByteArray::number(real, 'g', 17) + value.toByteArray() +
                  QByteArray::number(value.value<PropertyListUid>().value) +
                  (std::signbit(real) && !std::isnan(real) ? "-" : "+");
    }
    return result;
}

// What both forms can say, each kind at its limits.
QVariantMap everything()
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    QVariantList integers{quint64(1) << 63, std::numeric_limits<quint64>::max()};
    for (const qint64 value :
         {qint64(0), qint64(1), qint64(-1), qint64(127), qint64(128), qint64(255), qint64(256),
          qint64(65535), qint64(65536), qint64(4294967295), qint64(4294967296), qint64(-128),
          std::numeric_limits<qint64>::max(), std::numeric_limits<qint64>::min()})
        integers << value;
    QVariantList many;
    for (int i = 0; i < 300; ++i)
        many << QStringLiteral("entry %1").arg(i);
    return {
        {QStringLiteral("booleans"), QVariantList{true, false}},
        {QStringLiteral("integers"), integers},
        {QStringLiteral("reals"),
         QVariantList{0.0, -0.0, 1.0, 0.1, -1.5e300, 5e-324, infinity, -infinity, std::nan("")}},
        {QStringLiteral("dates"), QVariantList{date(0), date(-1), date(-1e9), date(4e9),
                                               date(-63'145'526'400), date(252'423'993'599)}},
        {QStringLiteral("data"),
         QVariantList{QByteArray(""), QByteArray("\0\xFF", 2), QByteArray(500, 'x')}},
        {QStringLiteral("strings"),
         QVariantList{QStringLiteral(""), QStringLiteral(" a <b> & \"c\" ]]> &amp; "),
                      QStringLiteral("line\r\nend\rtab\t\n "), QStringLiteral("äß€"),
                      QString::fromUtf8("\xF0\x9F\x98\x80\xEF\xBB\xBF"), QString(300, u'y')}},
        {QStringLiteral("many"), many},
        {QStringLiteral("uids"), QVariantList{uid(0), uid(300), uid(1ULL << 40)}},
        {QStringLiteral(""), QVariantMap{}},
        {QStringLiteral("k <&>\r\n"), QVariantList{QVariantList{}, QVariantMap{}}},
    };
}

QVariant parsed(const QByteArray &bytes)
{
    Error error;
    const auto document = PropertyList::parse(bytes, &error);
    EXPECT_TRUE(document) << error.description.toStdString();
    return document ? document->root : QVariant();
}

QString refusal(const QByteArray &bytes)
{
    Error error;
    EXPECT_FALSE(PropertyList::parse(bytes, &error)) << bytes.left(200).toStdString();
    return error.description;
}

QVariant reread(const QVariant &value, Format format)
{
    Error error;
    const auto bytes = PropertyList::serialize(value, format, &error);
    EXPECT_TRUE(bytes) << error.description.toStdString();
    return bytes ? parsed(*bytes) : QVariant();
}

QByteArray xml(const QByteArray &content)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE plist PUBLIC "
           "\"-//Apple//DTD PLIST 1.0//EN\" "
           "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n<plist version=\"1.0\">\n" +
           content + "</plist>\n";
}

QByteArray wide(quint64 value, int width = 2)
{
    QByteArray bytes;
    for (int shift = 8 * (width - 1); shift >= 0; shift -= 8)
        bytes += char(value >> shift);
    return bytes;
}

// A binary list of hand-made objects; the first one is the root.
QByteArray binary(const QList<QByteArray> &objects, quint64 claimedCount = 0, int width = 1)
{
    QByteArray bytes = "bplist00";
    QByteArray table;
    for (const QByteArray &object : objects) {
        table += wide(quint64(bytes.size()), width);
        bytes += object;
    }
    const auto tableOffset = quint64(bytes.size());
    return bytes + table + wide(0, 6) + char(width) + char(width) +
           wide(claimedCount ? claimedCount : quint64(objects.size()), 8) + wide(0, 8) +
           wide(tableOffset, 8);
}

} // namespace

TEST(PropertyList, KeepsEveryValueAndType)
{
    for (const Format format : {Format::Xml, Format::Binary})
        EXPECT_EQ(fingerprint(reread(everything(), format)), fingerprint(everything()));
}

TEST(PropertyList, TellsTheFormatThatItRead)
{
    for (const Format format : {Format::Xml, Format::Binary})
        EXPECT_EQ(PropertyList::parse(*PropertyList::serialize(1, format))->format, format);
}

TEST(PropertyList, BinaryKeepsWhatXmlCannotSay)
{
    const QVariantMap value = {
        {QStringLiteral("nul"), QStringLiteral("a\0b")},
        {QStringLiteral("surrogate"), QString(QChar(0xD800))},
        {QStringLiteral("noncharacter"), QString(QChar(0xFFFF))},
        {QStringLiteral("far"), date(1e300)},
        {QStringLiteral("before"), date(-63'145'526'400 - 1e9)},
        {QStringLiteral("never"), date(std::nan(""))},
        {QStringLiteral("tenth"), date(0.1)},
    };
    EXPECT_EQ(fingerprint(reread(value, Format::Binary)), fingerprint(value));

    for (auto entry = value.begin(); entry != value.end(); ++entry) {
        const QVariantMap inner{{entry.key(), *entry}};
        Error error;
        const auto bytes = PropertyList::serialize(QVariantList{1, inner}, Format::Xml, &error);
        EXPECT_EQ(bytes.has_value(), entry.key() == u"tenth") << entry.key().toStdString();
        EXPECT_TRUE(bytes ||
                    error.description.contains(QStringLiteral("\"1/%1\"").arg(entry.key())))
            << error.description.toStdString();
    }
    EXPECT_EQ(fingerprint(reread(date(-0.1), Format::Xml)), fingerprint(date(-1)));
}

TEST(PropertyList, TakesRelatedTypesAndRefusesOthers)
{
    const QDateTime moment(QDate(2024, 2, 29), QTime(12, 0), Qt::UTC);
    for (const Format format : {Format::Xml, Format::Binary}) {
        EXPECT_EQ(fingerprint(reread(QVariantList{-5, 5U, 0.5F, moment}, format)),
                  fingerprint(QVariantList{qint64(-5), qint64(5), 0.5, date(730'900'800)}));
        EXPECT_EQ(reread(QStringList{QStringLiteral("a")}, format),
                  QVariant(QVariantList{QStringLiteral("a")}));
        EXPECT_EQ(reread(moment, format).toDateTime(), moment);

        QVariant deep = QVariantList{};
        for (int i = 0; i < 600; ++i)
            deep = QVariantList{deep};
        for (const QVariant &value : {QVariant(), QVariant(QPoint()), QVariant(QDateTime()),
                                      QVariant::fromValue(nullptr), deep}) {
            Error error;
            EXPECT_FALSE(
                PropertyList::serialize(QVariantMap{{QStringLiteral("k"), value}}, format, &error));
            EXPECT_TRUE(error.description.contains(u"\"k")) << error.description.toStdString();
        }
    }
}

TEST(PropertyList, DatesConvertWhereTheCalendarReaches)
{
    EXPECT_EQ(PropertyListDate{0.25}.toDateTime(),
              QDateTime(QDate(2001, 1, 1), QTime(0, 0, 0, 250), Qt::UTC));
    for (const double seconds : {1e300, -1e18, std::nan("")})
        EXPECT_FALSE(PropertyListDate{seconds}.toDateTime().isValid());
}

TEST(PropertyList, WritesTheUsualXml)
{
    const QVariantMap value = {
        {QStringLiteral("b"), QVariantList{true, QByteArray(60, 'x')}},
        {QStringLiteral("a"), date(1)},
        {QStringLiteral("c"), 0.1},
        {QStringLiteral("d"), QStringLiteral("<\r>")},
    };
    const QByteArray expected = xml(
        "<dict>\n\t<key>a</key>\n\t<date>2001-01-01T00:00:01Z</date>\n\t<key>b</key>\n\t<array>\n"
        "\t\t<true/>\n\t\t<data>\n\t\t" +
        QByteArray("eHh4").repeated(15) + "\n\t\t" + QByteArray("eHh4").repeated(5) +
        "\n\t\t</data>\n\t</array>\n\t<key>c</key>\n"
        "\t<real>0.1</real>\n\t<key>d</key>\n\t<string>&lt;&#13;&gt;</string>\n</dict>\n");
    EXPECT_EQ(PropertyList::serialize(value, Format::Xml)->toStdString(), expected.toStdString());
}

TEST(PropertyList, ReadsXmlAsOthersWriteIt)
{
    const struct
    {
        QByteArray bytes;
        QVariant expected;
    } cases[] = {
        {"\xEF\xBB\xBF\n  " + xml("<true/>"), true},
        {"<plist><string>no header</string></plist>", QStringLiteral("no header")},
        {xml("<!-- a --><dict><!-- b --><key>k</key><?c?><string>a<!-- d -->b</string></dict>"),
         QVariantMap{{QStringLiteral("k"), QStringLiteral("ab")}}},
        {xml("<dict><key>k</key><true/><key>k</key><false/></dict>"),
         QVariantMap{{QStringLiteral("k"), false}}},
        {xml("<string>a<![CDATA[<&]]>b\r\n</string>"), QStringLiteral("a<&b\n")},
        {xml("<integer> 0xFF\n</integer>"), qint64(255)},
        {xml("<integer>-0x8000000000000000</integer>"), std::numeric_limits<qint64>::min()},
        {xml("<integer>+007</integer>"), qint64(7)},
        {xml("<real>+1E2</real>"), 100.0},
        {xml("<real>-infinity</real>"), -std::numeric_limits<double>::infinity()},
        {xml("<data>\n\tAA\n\tE=\n</data>"), QByteArray("\0\1", 2)},
        {xml("<data/>"), QByteArray("")},
        {xml("<true></true>"), true},
        {xml("<dict><key>CF$UID</key><integer>-1</integer></dict>"),
         QVariantMap{{QStringLiteral("CF$UID"), qint64(-1)}}},
    };
    for (const auto &[bytes, expected] : cases)
        EXPECT_EQ(fingerprint(parsed(bytes)), fingerprint(expected)) << bytes.toStdString();

    const QString text = QString::fromUtf8(xml("<string>ä€</string>"))
                             .replace(QStringLiteral("UTF-8"), QStringLiteral("UTF-16"));
    for (const auto encoding : {QStringConverter::Utf16LE, QStringConverter::Utf16BE}) {
        QStringEncoder encoder(encoding, QStringConverter::Flag::WriteBom);
        EXPECT_EQ(parsed(encoder(text)), QVariant(QStringLiteral("ä€")));
    }
}

TEST(PropertyList, RefusesDamagedXml)
{
    const QByteArray contents[] = {
        "",
        "text",
        "<true/><true/>",
        "<true/>text",
        "<set/>",
        "<key>k</key>",
        "<dict><key>k</key></dict>",
        "<dict><key>a</key><key>b</key></dict>",
        "<dict><true/></dict>",
        "<dict>text</dict>",
        "<dict><key>a<b/></key><true/></dict>",
        "<string>a<b/></string>",
        "<string>&unknown;</string>",
        "<dict>&unknown;</dict>",
        "<string>",
        "<string>\x01</string>",
        "<string>\xFF</string>",
        "<string>&#xD800;</string>",
        "<true>1</true>",
        "<integer/>",
        "<integer>1.5</integer>",
        "<integer>0x</integer>",
        "<integer>--1</integer>",
        "<integer>18446744073709551616</integer>",
        "<integer>-9223372036854775809</integer>",
        "<real/>",
        "<real>1,5</real>",
        "<real>1e999</real>",
        "<date>2024-02-30T00:00:00Z</date>",
        "<date>2024-01-01T24:00:00Z</date>",
        "<date>2024-01-01</date>",
        "<date>20x4-01-01T00:00:00Z</date>",
        "<data>?</data>",
        QByteArray("<array>").repeated(100'000),
        QByteArray("<array>").repeated(600) + QByteArray("</array>").repeated(600),
    };
    for (const QByteArray &content : contents)
        EXPECT_TRUE(refusal(xml(content)).contains(u"line")) << content.left(99).toStdString();

    for (const QByteArray &bytes :
         {QByteArray(), QByteArray("no list"), QByteArray("<html/>"), xml("<true/>") + "<plist/>",
          QByteArray("<!DOCTYPE plist [<!ENTITY a \"aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa\"><!ENTITY b "
                     "\"&a;&a;&a;&a;\">]><plist><string>&b;&b;</string></plist>")})
        EXPECT_FALSE(refusal(bytes).isEmpty());
}

TEST(PropertyList, ReadsHandMadeBinary)
{
    const struct
    {
        QList<QByteArray> objects;
        QVariant expected;
    } cases[] = {
        {{QByteArray("\x08", 1)}, false},
        {{QByteArray("\x09", 1)}, true},
        {{QByteArray("\x10\xFF", 2)}, qint64(255)},
        {{QByteArray("\x11\x01\x00", 3)}, qint64(256)},
        {{QByteArray("\x13\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFE", 9)}, qint64(-2)},
        {{QByteArray("\x14") + QByteArray(8, '\0') + QByteArray(8, '\xFF')},
         std::numeric_limits<quint64>::max()},
        {{QByteArray("\x14") + QByteArray(16, '\xFF')}, qint64(-1)},
        {{QByteArray("\x22\x3F\x80\x00\x00", 5)}, 1.0},
        {{QByteArray("\x23\xC0\x00\x00\x00\x00\x00\x00\x00", 9)}, -2.0},
        {{QByteArray("\x33\x40\x00\x00\x00\x00\x00\x00\x00", 9)}, date(2)},
        {{QByteArray("\x42\x00\x01", 3)}, QByteArray("\0\1", 2)},
        {{QByteArray("\x40", 1)}, QByteArray("")},
        {{QByteArray("\x52hi", 3)}, QStringLiteral("hi")},
        {{QByteArray("\x5F\x10\x02hi", 5)}, QStringLiteral("hi")},
        {{QByteArray("\x61\x20\xAC", 3)}, QStringLiteral("€")},
        {{QByteArray("\x81\x01\x00", 3)}, uid(256)},
        {{QByteArray("\xA2\x01\x01", 3), QByteArray("\x51x", 2)},
         QVariantList{QStringLiteral("x"), QStringLiteral("x")}},
        {{QByteArray("\xD1\x01\x02", 3), QByteArray("\x51k", 2), QByteArray("\xA0", 1)},
         QVariantMap{{QStringLiteral("k"), QVariantList{}}}},
    };
    for (const auto &[objects, expected] : cases)
        EXPECT_EQ(fingerprint(parsed(binary(objects))), fingerprint(expected))
            << objects.first().toHex().toStdString();
}

TEST(PropertyList, RefusesDamagedBinary)
{
    const QList<QByteArray> lists[] = {
        {QByteArray("\0", 1)},                               // null
        {QByteArray("\x0F", 1)},                             // filler
        {QByteArray("\xC1\x01", 2), QByteArray("\x51x", 2)}, // set
        {QByteArray("\x15", 1) + QByteArray(32, '\0')},
        {QByteArray("\x14\1", 2) + QByteArray(15, '\0')},
        {QByteArray("\x20\0", 2)},
        {QByteArray("\x51\xE4", 2)},
        {QByteArray("\x5F\x13\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF", 10)},
        {QByteArray("\x6F\x13\x80\0\0\0\0\0\0\0", 10)},
        {QByteArray("\x4F\x51z", 3)},
        {QByteArray("\xAF\x13\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF", 10)},
        {QByteArray("\xA1\0", 2)},                            // contains itself
        {QByteArray("\xA1\x01", 2), QByteArray("\xA1\0", 2)}, // a longer circle
        {QByteArray("\xA1\x09", 2)},
        {QByteArray("\xD1\x01\x01", 3), QByteArray("\x10\1", 2)},
    };
    for (const auto &objects : lists)
        EXPECT_FALSE(refusal(binary(objects)).isEmpty()) << objects.first().toHex().toStdString();
    EXPECT_FALSE(refusal(binary({QByteArray("\x09", 1)}, ~0ULL)).isEmpty());
    EXPECT_FALSE(refusal("bplist15" + binary({QByteArray("\x09", 1)}).mid(8)).isEmpty());
}

TEST(PropertyList, NoDamageToBinaryDoesMoreThanFail)
{
    const QByteArray whole = *PropertyList::serialize(everything(), Format::Binary);
    for (qsizetype length = 0; length < whole.size(); length += length < 200 ? 1 : 37)
        EXPECT_FALSE(PropertyList::parse(whole.left(length)));
    for (qsizetype at = 0; at < whole.size(); ++at) {
        for (const char value : {'\0', '\x7F', '\xA1', '\xFF'}) {
            QByteArray damaged = whole;
            damaged[at] = value;
            PropertyList::parse(damaged);
        }
    }
}

TEST(PropertyList, SharedObjectsDoNotExplode)
{
    QList<QByteArray> doubling;
    for (int i = 1; i < 60; ++i)
        doubling << QByteArray("\xA2") + char(i) + char(i);
    EXPECT_TRUE(refusal(binary(doubling << QByteArray("\x51x"), 0, 1)).contains(u"shared"));

    // Nested too deeply, though every container is met at a shallow place first.
    QList<QByteArray> chain{QByteArray("\xAF\x11\x02\x58", 4)};
    for (quint64 i = 600; i > 0; --i)
        chain.first() += wide(i);
    for (quint64 i = 1; i < 600; ++i)
        chain << QByteArray("\xA1") + wide(i + 1);
    chain << QByteArray("\xA0");
    EXPECT_TRUE(refusal(binary(chain, 0, 2)).contains(u"deeply"));
}

TEST(PropertyList, ReadsAndWritesFiles)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("list.plist"));
    Error error;
    EXPECT_FALSE(PropertyList::read(path, &error));
    EXPECT_EQ(error.domain, u"posix");
    EXPECT_EQ(error.code, ENOENT);

    EXPECT_TRUE(PropertyList::write(everything(), Format::Binary, path));
    const auto document = PropertyList::read(path);
    ASSERT_TRUE(document);
    EXPECT_EQ(fingerprint(document->root), fingerprint(everything()));

    EXPECT_FALSE(PropertyList::write(QVariant(), Format::Xml, path));
    EXPECT_TRUE(PropertyList::read(path));
    support::writeFile(path, "damaged");
    EXPECT_FALSE(PropertyList::read(path, &error));
    EXPECT_TRUE(error.description.startsWith(path));
}
