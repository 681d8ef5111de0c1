#include "editor/MGSChangedLines.h"
#include "editor/MGSTagPartner.h"

#include <gtest/gtest.h>

using platform::TextRange;
using platform::TextStorage;
using namespace Qt::StringLiterals;

TEST(TagPartner, IsFoundFromEitherTag)
{
    // "|" is the caret, "{" and "}" stand around the partner.
    const QString rows[] = {
        u"<d|iv a=\"x>y\"><p>a</p>{</div}>"_s,
        u"{<div}><DIV></DIV></di|v>"_s,
        u"<div>{<p} class=a>x</p>|</div>"_s,
        u"<|ul><li>a<li>b{</ul}>"_s,
        u"|<b>{</b}>"_s,
        u"<a|>{</a}><!-- </a> -->"_s,
        u"<a><!-- </a> <b|> --></a>"_s,
        u"te|xt <p>"_s,
        u"<br|>"_s,
        u"<im|g src=x />"_s,
        u"<div|><p></div"_s,
        u"</p|>"_s,
        u"a < b |> c"_s,
    };
    for (const QString &row : rows) {
        QString text = row;
        const qsizetype from = QString(row).remove(u'|').indexOf(u'{');
        const qsizetype to = QString(row).remove(u'|').remove(u'{').indexOf(u'}');
        const qsizetype caret = QString(row).remove(u'{').remove(u'}').indexOf(u'|');
        text.remove(u'|').remove(u'{').remove(u'}');
        TextStorage storage;
        storage.setString(text);
        const auto pair = MGSTagPartner(storage, caret);
        EXPECT_EQ(pair.has_value(), from >= 0) << row.toStdString();
        if (pair && from >= 0) {
            EXPECT_EQ(pair->partner, TextRange::between(from, to)) << row.toStdString();
            EXPECT_EQ(MGSTagPartner(storage, pair->partner.end())->partner, pair->tag)
                << row.toStdString();
        }
    }
}

TEST(TagPartner, ALongTextIsNotSearchedToItsEnd)
{
    TextStorage storage;
    storage.setString(u"<div>"_s + u"x"_s.repeated(2 * MGSTagPartnerReach) + u"</div>"_s);
    EXPECT_EQ(MGSTagPartner(storage, 2), std::nullopt);
}

TEST(ChangedLines, MarksMoveWithTheTextUntilItIsSaved)
{
    TextStorage text;
    text.setString(u"one\ntwo\nthree\n"_s);
    MGSChangedLines lines(&text);
    const auto marked = [&] {
        QString marks;
        for (qsizetype line = 0; line < text.lineCount(); ++line)
            marks += lines.isChanged(line) ? u'*' : u'.';
        return marks;
    };
    EXPECT_EQ(marked(), u"....");
    text.replaceCharacters({5, 1}, u"W");
    EXPECT_EQ(marked(), u".*..");
    text.replaceCharacters({0, 0}, u"zero\n");
    EXPECT_EQ(marked().mid(2), u"*..") << "it moved down";
    text.replaceCharacters({text.length(), 0}, u"x");
    EXPECT_EQ(marked().right(2), u".*");
    lines.forget();
    EXPECT_EQ(marked(), u".....");
    text.setString(u""_s);
    EXPECT_EQ(marked(), u"*");
}
