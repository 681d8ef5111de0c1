#include "platform/text/TextStorage.h"

#include "platform/Assert.h"
#include "platform/text/TextReader.h"
#include "platform/TextEncoding.h"
#include "RandomText.h"
#include "support/TestSupport.h"
#include <gtest/gtest.h>

using platform::NotFound;
using platform::TextPiece;
using platform::TextRange;
using platform::TextReader;
using platform::TextStorage;
using support::RandomText;

namespace {

std::vector<qsizetype> lineStarts(const QString &text)
{
    std::vector<qsizetype> starts = {0};
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool isPair = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
        if (!isPair && QStringView(u"\n\r\u0085\u2028\u2029").contains(text[i]))
            starts.push_back(i + 1);
    }
    return starts;
}

void expectLines(const TextStorage &storage, const QString &text)
{
    const std::vector<qsizetype> starts = lineStarts(text);
    ASSERT_EQ(storage.lineCount(), qsizetype(starts.size()));
    size_t line = 0;
    for (qsizetype i = 0; i <= text.size(); ++i) {
        if (line + 1 < starts.size() && starts[line + 1] == i)
            ++line;
        ASSERT_EQ(storage.lineAt(i), qsizetype(line)) << i;
        ASSERT_EQ(storage.lineStart(qsizetype(line)), starts[line]);
    }
    EXPECT_EQ(storage.lineStart(storage.lineCount()), NotFound);
    EXPECT_EQ(storage.lineStart(-1), NotFound);
}

void expectPieces(const TextStorage &storage, const QString &text)
{
    TextReader reader(storage);
    QString read;
    while (read.size() < text.size()) {
        const TextPiece piece = storage.piece(read.size());
        ASSERT_EQ(piece.location, read.size());
        const QStringView chunk = reader.chunk(piece.range().end() - 1);
        ASSERT_EQ(reader.chunkLocation(), piece.location);
        ASSERT_EQ(chunk.size(), piece.length);
        const QChar before = read.isEmpty() ? QChar() : read.back();
        EXPECT_FALSE(before == '\r' && chunk.front() == '\n');
        EXPECT_FALSE(before.isHighSurrogate() && chunk.front().isLowSurrogate());
        EXPECT_EQ(piece.narrow != nullptr, std::all_of(chunk.begin(), chunk.end(), [](QChar c) {
                      return c.unicode() < 0x100;
                  }));
        read += chunk;
    }
    EXPECT_EQ(read, text);
    for (qsizetype i = text.size(); i-- > 0;)
        ASSERT_EQ(reader.at(i), text[i]) << i;
}

} // namespace

class TextStorageBlocks : public testing::TestWithParam<int>
{
};

INSTANTIATE_TEST_SUITE_P(Lengths, TextStorageBlocks, testing::Values(1, 2, 3, 8, 50, 400));

TEST_P(TextStorageBlocks, AnyEditsGiveWhatAStringGives)
{
    for (unsigned seed = 1; seed <= 6; ++seed) {
        SCOPED_TRACE(seed);
        RandomText random(seed);
        TextStorage storage(GetParam());
        QString text;
        TextReader reader(storage);
        for (int step = 0; step < 300; ++step) {
            // Grows, then shrinks to nothing now and then.
            const TextRange range = random.range(text.size(), step % 100 > 80 ? 60 : 6);
            const QString string = random.text(step % 100 > 80 ? 1 : 12);
            storage.replaceCharacters(range, string);
            text.replace(range.location, range.length, string);
            ASSERT_EQ(storage.string(), text);
            const TextRange part = random.range(text.size(), 40);
            ASSERT_EQ(storage.substring(part), text.mid(part.location, part.length));
            if (!part.isEmpty()) {
                ASSERT_EQ(reader.at(part.location), text[part.location]);
            }
            ASSERT_NO_FATAL_FAILURE(expectLines(storage, text)) << step;
            ASSERT_NO_FATAL_FAILURE(expectPieces(storage, text)) << step;
        }
    }
}

TEST_P(TextStorageBlocks, LinesOfRangesAndTheirContents)
{
    TextStorage storage(GetParam());
    storage.setString(QStringLiteral("one\r\n\rtwo\n\n\u2028end"));
    const auto line = [&](qsizetype location, qsizetype length) {
        return storage.lineRange({location, length});
    };
    EXPECT_EQ(line(0, 0), (TextRange{0, 5}));
    EXPECT_EQ(line(4, 0), (TextRange{0, 5})); // between CR and LF
    EXPECT_EQ(line(0, 5), (TextRange{0, 5})); // the line end does not reach into the next line
    EXPECT_EQ(line(4, 2), (TextRange{0, 6}));
    EXPECT_EQ(line(12, 0), (TextRange{12, 3}));
    EXPECT_EQ(line(15, 0), (TextRange{12, 3}));
    const QStringList contents = {"one", "", "two", "", "", "end"};
    for (int i = 0; i < contents.size(); ++i)
        EXPECT_EQ(storage.substring(storage.lineContents(i)), contents[i]) << i;
    storage.replaceCharacters({12, 3}, u"");
    EXPECT_EQ(line(12, 0), (TextRange{12, 0}));
}

TEST_P(TextStorageBlocks, Utf8ComesBackAsItWasOrIsRefusedWhole)
{
    const QByteArray samples[] = {
        "",
        "plain",
        "\xEF\xBB\xBFmark",
        "a\r\n\r\nb\rc",
        QByteArray("\0x\0", 3),
        "caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80\xEF\xBB\xBF\xE2\x80\xA8\xC2\x85 end",
        QByteArray("\xC3\xA9").repeated(40) + QByteArray("\xF0\x9F\x98\x80").repeated(40),
    };
    TextStorage storage(GetParam());
    for (const QByteArray &bytes : samples) {
        ASSERT_TRUE(storage.setUtf8(bytes));
        const QString text = *platform::decodeUtf8(bytes);
        EXPECT_EQ(storage.string(), text);
        EXPECT_EQ(storage.utf8(), bytes);
        expectLines(storage, text);
        expectPieces(storage, text);
    }
    const quint64 revision = storage.revision();
    for (const QByteArray &bytes :
         {QByteArray("abc\xC3"), QByteArray("\xC0\x80"), QByteArray(50, '\x80'),
          QByteArray("\xED\xA0\x80"), "text " + QByteArray("\xFF")})
        EXPECT_FALSE(storage.setUtf8(bytes)) << bytes.toHex().toStdString();
    EXPECT_EQ(storage.utf8(), samples[6]);
    EXPECT_EQ(storage.revision(), revision);

    storage.setString(QString("ab\n") + QChar(0xDC00) + "cd");
    platform::Error error;
    EXPECT_FALSE(storage.utf8(&error));
    EXPECT_TRUE(error.description.contains("position 3"));
}

TEST(TextStorage, RefusesWhatLiesBeyondTheText)
{
    TextStorage storage;
    storage.setString(u"text");
    const TextRange beyond[] = {{5, 0},  {0, 5},        {-1, 1},
                                {2, -1}, {4, NotFound}, TextRange::notFound()};
    for (const TextRange range : beyond) {
        EXPECT_THROW(storage.replaceCharacters(range, u"x"), platform::AssertionFailure);
        EXPECT_THROW(storage.substring(range), platform::AssertionFailure);
        EXPECT_THROW(storage.lineRange(range), platform::AssertionFailure);
    }
    EXPECT_THROW(storage.character(4), platform::AssertionFailure);
    EXPECT_THROW(storage.lineAt(5), platform::AssertionFailure);
    EXPECT_THROW(storage.lineContents(1), platform::AssertionFailure);
    EXPECT_EQ(storage.string(), "text");
}

namespace {

/// What the storage told, as "will 0+3 (+3)".
class Telling
{
public:
    explicit Telling(TextStorage &storage)
    {
        const auto note = [this](const char *what) {
            return [this, what](TextRange range, qsizetype change) {
                told += QStringLiteral("%1 %2+%3 (%4)")
                            .arg(what)
                            .arg(range.location)
                            .arg(range.length)
                            .arg(change);
            };
        };
        QObject::connect(&storage, &TextStorage::charactersReplaced, &storage, note("edit"));
        QObject::connect(&storage, &TextStorage::willProcessEditing, &storage, note("will"));
        QObject::connect(&storage, &TextStorage::didProcessEditing, &storage, note("did"));
    }
    QStringList take() { return std::exchange(told, {}); }
    QStringList told;
};

} // namespace

TEST(TextStorage, TellsOfEditsOnceAndOfGroupsAsOne)
{
    TextStorage storage;
    Telling telling(storage);
    storage.replaceCharacters({0, 0}, u"");
    EXPECT_EQ(telling.take(), QStringList());
    storage.setString(u"0123456789");
    EXPECT_EQ(telling.take(), QStringList({"edit 0+10 (10)", "will 0+10 (10)", "did 0+10 (10)"}));

    storage.beginEditing();
    storage.replaceCharacters({6, 2}, u"x");
    storage.beginEditing();
    storage.replaceCharacters({1, 1}, u"yyy");
    storage.endEditing();
    storage.replaceCharacters({9, 1}, u"");
    EXPECT_EQ(telling.take(), QStringList({"edit 6+1 (-1)", "edit 1+3 (2)", "edit 9+0 (-1)"}));
    storage.endEditing();
    EXPECT_EQ(telling.take(), QStringList({"will 1+8 (0)", "did 1+8 (0)"}));
    EXPECT_EQ(storage.string(), "0yyy2345x9");
    EXPECT_THROW(storage.endEditing(), platform::AssertionFailure);
}

TEST(TextStorage, EditsMadeWhileItTellsComeInTheirOrder)
{
    TextStorage storage;
    int wills = 0;
    int dids = 0;
    QObject::connect(&storage, &TextStorage::willProcessEditing, &storage, [&] {
        if (++wills == 1)
            storage.replaceCharacters({0, 0}, u"[");
    });
    QObject::connect(&storage, &TextStorage::didProcessEditing, &storage, [&] {
        if (++dids == 1)
            storage.replaceCharacters({storage.length(), 0}, u"]");
    });
    QStringList refused;
    QObject::connect(&storage, &TextStorage::charactersReplaced, &storage, [&] {
        EXPECT_THROW(storage.setString(u"never"), platform::AssertionFailure);
        EXPECT_THROW(storage.setUtf8("never"), platform::AssertionFailure);
    });
    Telling telling(storage);
    storage.setString(u"abc");
    EXPECT_EQ(storage.string(), "[abc]");
    EXPECT_EQ(telling.take(),
              QStringList({"edit 0+3 (3)", "edit 0+1 (1)", "will 0+3 (3)", "edit 4+1 (1)",
                           "did 0+4 (4)", "will 4+1 (1)", "did 4+1 (1)"}));
}
