#include "library/LibraryTestSupport.h"

#include "library/checking/LSMHtmlCheck.h"
#include "library/checking/LSMHtmlTags.h"
#include "library/checking/LSMLiveCheck.h"
#include <QElapsedTimer>

using namespace Qt::StringLiterals;

namespace {

LSMHtmlCheck::Context context()
{
    return LSMHtmlCheck::Context::of(
        {{u"LBDesignProperties"_s, QVariantList{QVariantMap{{u"name"_s, u"Glaze Colour"_s}}}}});
}

/// "line:character+length level text" for each finding.
QStringList found(const QString &html)
{
    QStringList lines;
    for (const LSMFinding &finding : LSMHtmlCheck::findings(html, context()))
        lines << u"%1:%2+%3 %4 %5"_s.arg(finding.line)
                     .arg(finding.character)
                     .arg(finding.length)
                     .arg(LSMFindingLevelName(finding.level), finding.text);
    return lines;
}

struct Case
{
    QString html;
    QStringList findings;
};

void expectCases(const QList<Case> &cases)
{
    for (const Case &one : cases)
        EXPECT_EQ(found(one.html), one.findings) << one.html.toStdString();
}

TEST(HtmlCheck, WhatDesignsAreMadeOfIsNoFault)
{
    expectCases({
        {u""_s, {}},
        {u"<p>Hello</p>"_s, {}},
        {u"<style>p { color: red }</style>\n<div class=a><ul><li>a<li>b</ul><br><p>c</div>"_s, {}},
        {u"<section><search><data value=1>x</data></search><slot></slot></section>"_s, {}},
        {u"<section><article>new</article></section><p></p><a href=\"a b\">x</a> R &amp; D"_s, {}},
        {u"<h1>[[LBTitle]]</h1><img src=\"[[LBPicture1]]\" alt='[[LBTitle]]' width=[[LBSize]]>"_s,
         {}},
        {u"[[if LBPicture2 and not LBProperty_Glaze_Colour]]<b>x</b>[[endif]]"_s, {}},
        {u"<table>[[if LBSize]]<tr><td>[[LBSize]]</td></tr>[[endif]]</table>"_s, {}},
        {u"<p [[if LBSize]]class=\"a\"[[endif]] title=\"> [[LBBrand]] <\">x</p>"_s, {}},
        {u"[[if LBLayoutEnabled_A or LBLayoutNotDefined]]<i id=x>a</i>[[endif]]"
         "[[if LBLayoutEnabled_B]]<i id=x>b</i>[[endif]]"_s,
         {}},
        {u"<img src='data:image/gif;base64,R0' alt=''><img src=https://a.de/b.png alt=b>"_s, {}},
        {u"<img alt='' src='[[LBPicture1]]' srcset='[[LBPicture1]] 1x, https://a.de/b.png 2x'>"_s,
         {}},
        {u"<style>/* url(http://a.de/b.png) */ p { background: url([[LBPicture1]]) }"
         "b { background: url(\"data:image/svg+xml,a='url(%23s)'\") }</style>"_s,
         {}},
        {u"[[if LBSize\n or not LBBrand]]<b>x</b>[[endif]]"_s, {}},
        {u"a [[0, 1]] [[ b"_s, {}},
        {u"<a href='https://a.de/?x=1&y=2&copy=3'><h3>x</h3></a>"_s, {}},
        {u"[[if LBLayoutEnabled_A]]<div class=a>[[endif]]\n<!-- or -->[[if "
         u"LBLayoutEnabled_B]]<div>[[endif]]"
         "x</div>"_s,
         {}},
    });
}

TEST(HtmlCheck, FaultsOfFormAreToldWithTheirPlace)
{
    expectCases({
        {u"<p>a\n<div><b>x</div>"_s, {u"2:6+3 warning </b> is missing before </div>."_s}},
        {u"<div>\n  <span>x"_s,
         {u"1:1+5 warning </div> is missing."_s, u"2:3+6 warning </span> is missing."_s}},
        {u"<p><b>a\n<div>b<p>c</div>\n<p>d"_s, {u"1:4+3 warning </b> is missing before <div>."_s}},
        {u"<font><table><tr><td>x</table></font>"_s,
         {u"1:1+6 note <table> must not stand in <font>."_s}},
        {u"<h1><div>x</div></h1>"_s, {u"1:5+5 note <div> must not stand in <h1>."_s}},
        {u"<b>x<b>"_s, {u"1:1+3 warning The <b> behind this one should probably be </b>."_s}},
        {u"<b></i>"_s, {u"1:1+3 warning This element is not ended by an end tag of its own."_s}},
        {u"a</i>"_s, {u"1:2+4 warning </i> has no place here."_s}},
        {u"<foo class=a>x</foo>"_s, {u"1:1+13 error HTML knows no <foo>."_s}},
        {u"<style>p {}"_s, {u"1:1+7 warning </style> is missing."_s}},
        {u"<p \">&#150;</p>"_s,
         {u"1:1+5 error <p> has a quotation mark that belongs to nothing."_s,
          u"1:6+1 warning This number means no character."_s}},
        {u"<!-- open"_s, {u"1:1+4 error The comment has no end."_s}},
        {u"a\n<b>x</b><!--\n"_s, {u"2:9+4 error The comment has no end."_s}},
        {u"&nbsp &foo; a & b"_s,
         {u"1:1+1 warning “&nbsp” does not end with “;”."_s,
          u"1:7+1 warning “&foo” means no character; a plain “&” is written “&amp;”."_s}},
        {u"<i id=x>a</i><i id=x>b</i>"_s,
         {u"1:14+8 warning <i> has the name “x”, which another has already."_s}},
    });
}

TEST(HtmlCheck, PlacesCountAsInTheEditor)
{
    const QString fault = u"</u>"_s;
    const auto place = [&](const QString &before) {
        return found(before + fault).value(0).section(u' ', 0, 0);
    };
    EXPECT_EQ(place(u"a\r\nb\rc\nd"_s), u"4:2+4"_s);
    EXPECT_EQ(place(u"a\u2028b\u2029c\u0085 "_s), u"4:2+4"_s);
    EXPECT_EQ(place(u"ä\t\tß😀"_s), u"1:7+4"_s);
    EXPECT_EQ(place(u"\uFEFF"_s + QChar(0xD800) + QChar(0) + u"\x07\u0090\uFFFF"_s), u"1:7+4"_s);
    EXPECT_EQ(place(u"[[LBTitle]]\r\n[[LBTitle]] 😀"_s), u"2:15+4"_s);
}

TEST(HtmlCheck, TheFormatHasRulesOfItsOwn)
{
    expectCases({
        {u"a [[if LBLayoutEnabled_A <b>x</b>"_s, {u"1:3+2 error The layout marker has no “]]”."_s}},
        {u"[[if LBLayoutEnabled_A\n[[LBTitle]]"_s,
         {u"1:1+2 error The layout marker has no “]]”."_s}},
        {u"[[LBTitle ] [[LBPrice]]\n[[LBTitle [[ [[if x"_s,
         {u"1:1+2 error The placeholder has no “]]”."_s,
          u"2:1+2 error The placeholder has no “]]”."_s,
          u"2:14+2 error The placeholder has no “]]”."_s}},
        {u"[[if LBLayoutEnabled_A <b>x</b>\n</u> x[y[0]][[endif]]"_s,
         {u"1:1+2 error The layout marker has no “]]”."_s,
          u"2:1+4 warning </u> has no place here."_s}},
        {u"[[ LBTitle ]] [[LB-Title]] [[IF LBTitle]] [[elseif LBTitle]] [[endif ]]"_s,
         {u"1:1+13 warning Buyers would see this as it stands; did you mean “[[LBTitle]]”?"_s,
          u"1:15+12 warning Buyers would see this as it stands; did you mean “[[LBTitle]]”?"_s,
          u"1:28+14 warning Buyers would see this as it stands; did you mean “[[if LBTitle]]”?"_s,
          u"1:43+18 warning This is no placeholder: buyers would see it as it stands."_s,
          u"1:62+10 warning Buyers would see this as it stands; did you mean “[[endif]]”?"_s}},
        {u"[[foreach x]] [[LB Titel extra]]"_s,
         {u"1:1+13 note This is no placeholder: buyers would see it as it stands."_s,
          u"1:15+18 warning This is no placeholder: buyers would see it as it stands."_s}},
        {u"[[if]]a[[ENDIF]]"_s,
         {u"1:1+6 warning The condition is missing; write “[[if LBTitle]]”, for one."_s,
          u"1:8+9 warning Buyers would see this as it stands; did you mean “[[endif]]”?"_s}},
        {u"[[if not]]a[[endif]][[if LBPrice < 5]]a[[endif]][[if not or LBSize]]a[[endif]]"_s,
         {u"1:1+10 warning The condition is not complete, so the part is never shown."_s,
          u"1:21+18 warning “<” has no place in the condition, so the part is never shown; "
          "write names with “not”, “and” and “or”."_s,
          u"1:49+20 warning “or” has no place in the condition, so the part is never shown; "
          "write names with “not”, “and” and “or”."_s}},
        {u"[[if LBLayoutEnabled_A or LBLayoutNotDefined]]a[[endif]]\n"
         "[[if LBLayoutEnabled_A or LBLayoutNotDefined]]a[[endif]]\n"
         "[[if LBLayoutEnabled_B or LBLayoutNotDefined]]b[[endif]]"_s,
         {u"3:1+46 warning There is a default layout already; this one does not count."_s}},
        {u"[[if LBSize]]\n[[endif]][[endif]]"_s,
         {u"2:10+9 warning No “[[if …]]” comes before this “[[endif]]”."_s}},
        {u"[[if LBSize]]x"_s,
         {u"1:1+13 warning There is no “[[endif]]” behind it: the part reaches to the end."_s}},
        {u"[[LBTitel]] [[lbsize]] [[LBTotal]]"_s,
         {u"1:3+7 warning There is no placeholder “LBTitel”; did you mean “LBTitle”?"_s,
          u"1:15+6 warning There is no placeholder “lbsize”; did you mean “LBSize”?"_s,
          u"1:26+7 warning There is no placeholder “LBTotal”."_s}},
        {u"[[if LBProperty_Gloss or LBProperty_GlazeColour]][[endif]]"_s,
         {u"1:6+16 warning The design has no property for “LBProperty_Gloss”."_s,
          u"1:26+22 warning The design has no property for “LBProperty_GlazeColour”; did you mean "
          "“LBProperty_Glaze_Colour”?"_s}},
        {u"<a href=x HREF=y>a</a><a [[if LBSize]]href=x[[endif]] href=y>a</a>"_s,
         {u"1:11+4 warning “HREF” is there already; only the first counts."_s}},
        {u"<link rel=stylesheet href='//a.de/b.css'><link rel=next href=b>"
         "<iframe src=http://a.de></iframe>"_s,
         {u"1:28+12 warning The address is not https: browsers may not load it."_s,
          u"1:76+11 warning The address is not https: browsers may not load it."_s}},
        {u"<img src=http://a.de/b.png alt=''>"_s,
         {u"1:10+17 warning The picture's address is not https: buyers may not see it."_s}},
        {u"<img alt='' src='b.png'><img alt='' src=''>"_s,
         {u"1:18+5 warning The picture's address is not https: buyers may not see it."_s,
          u"1:25+19 warning <img> has no value for its attribute “src”."_s}},
        {u"<div style=\"background: url('http://a.de/b.png')\">x</div>"_s,
         {u"1:30+17 warning The picture's address is not https: buyers may not see it."_s}},
        {u"<p style='background: url(&quot;b.png&quot;)'>url(b)</p><style>a{b:url( \"//a\")}</style>"_s,
         {u"1:33+5 warning The picture's address is not https: buyers may not see it."_s,
          u"1:74+3 warning The picture's address is not https: buyers may not see it."_s}},
        {u"<img alt='' src='https:a' srcset='a.png 1x,b.png 2x, https:c 3x'>"_s,
         {u"1:35+5 warning The picture's address is not https: buyers may not see it."_s,
          u"1:44+5 warning The picture's address is not https: buyers may not see it."_s}},
        {u"<video poster=a></video><input type=image src=b><svg><image href='c' /></svg>"_s,
         {u"1:15+1 warning The picture's address is not https: buyers may not see it."_s,
          u"1:47+1 warning The picture's address is not https: buyers may not see it."_s,
          u"1:67+1 warning The picture's address is not https: buyers may not see it."_s}},
        {u"<img src=[[LBPicture1]] alt=x><a href=[[LBTitle]] onclick='x()'>x</a>"_s,
         {u"1:51+7 warning Marketplaces do not allow scripts in listings."_s}},
        {u"<img src='[[LBPicture1]]'>"_s,
         {u"1:1+26 note The picture has no text (alt) for those who cannot see it."_s}},
        {u"<script>if (a < b) { x = \"<img>\" }</script>"_s,
         {u"1:1+7 warning Marketplaces do not allow scripts in listings."_s}},
        {u"<p onclick=\"a()\"><a href=' javascript:b()'>x</a></p>"_s,
         {u"1:4+7 warning Marketplaces do not allow scripts in listings."_s,
          u"1:21+4 warning Marketplaces do not allow scripts in listings."_s}},
    });
}

TEST(HtmlCheck, ManyFindingsAreCutShort)
{
    const LSMFindings findings =
        LSMHtmlCheck::findings(u"<img src='a' alt=''>"_s.repeated(1500), {});
    ASSERT_EQ(qsizetype(findings.size()), LSMHtmlCheck::mostFindings + 1);
    EXPECT_EQ(findings.back().text, u"500 more findings are not listed."_s);

    const LSMFindings grave = LSMHtmlCheck::findings(
        u"<img src='https:a'>"_s.repeated(LSMHtmlCheck::mostFindings) + u"[[LBTitle"_s, {});
    ASSERT_EQ(qsizetype(grave.size()), LSMHtmlCheck::mostFindings + 1);
    EXPECT_EQ(grave[grave.size() - 2].level, LSMFinding::Level::Error);
    EXPECT_EQ(grave.back().text, u"One more finding is not listed."_s);

    const LSMFindings many = LSMHtmlCheck::findings(u"&a;"_s.repeated(12'000), {});
    EXPECT_EQ(many.back().text, u"11000 more findings are not listed."_s);
}

TEST(HtmlCheck, WhatLibtidyDiesOfHarmsNobody)
{
    const QString gaveUp = u"0:0+0 warning The form of the HTML is too odd to be checked."_s;
    EXPECT_EQ(found(u"<table><tr><td>"_s.repeated(100'000)), QStringList{gaveUp});
    const QString endless = u"<tr><dl></table>"_s;
    EXPECT_EQ(found(endless), QStringList{gaveUp});
    LSMLiveCheck check;
    QList<LSMFindings> told;
    QObject::connect(&check, &LSMLiveCheck::didCheck,
                     [&](const LSMFindings &findings) { told << findings; });
    check.check(endless, {});
    support::settle();
    check.check(u"<p>a</p>"_s, {});
    ASSERT_TRUE(support::waitUntil([&] { return !told.isEmpty(); }, 1));
    EXPECT_TRUE(told[0].empty());
}

TEST(HtmlCheck, TheTimeGrowsWithTheLengthAlone)
{
    QString names;
    for (int i = 0; i < 50'000; ++i)
        names += u" n%1"_s.arg(i);
    QElapsedTimer timer;
    timer.start();
    for (const QString &html : {u"[[if "_s.repeated(200'000) + u"]]"_s, u"[[if"_s + names + u"]]"_s,
                                u"[[LB"_s.repeated(200'000), u"<i id='"_s.repeated(20'000),
                                u"<!-- <script"_s.repeated(20'000)})
        EXPECT_FALSE(found(html).isEmpty()) << html.left(20).toStdString();
    EXPECT_LT(timer.elapsed(), 60'000); // with its square it takes minutes
    EXPECT_EQ(found(QString(LSMHtmlCheck::longestHtml + 1, u'<')),
              QStringList{u"0:0+0 warning The HTML is too long to be checked."_s});
}

TEST(HtmlCheck, AStoppedCheckComesBackSoon)
{
    std::stop_source stop;
    stop.request_stop();
    const QString html = u"<p>text <b>bold</b> & more</p>\n"_s.repeated(300'000);
    QElapsedTimer timer;
    timer.start();
    (void)LSMHtmlCheck::findings(html, {}, stop.get_token());
    EXPECT_LT(timer.elapsed(), 2000); // all of it takes much longer
}

TEST(LiveCheck, OnlyTheNewestTextIsTold)
{
    LSMLiveCheck check;
    QList<LSMFindings> told;
    QObject::connect(&check, &LSMLiveCheck::didCheck,
                     [&](const LSMFindings &findings) { told << findings; });
    const QString large = u"<p>text <b>bold</b> & more</p>\n"_s.repeated(40'000);
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < 20; ++i)
        check.check(large, {});
    check.check(u"a</i>"_s, {});
    EXPECT_LT(timer.elapsed(), 200) << "handing in waits for nothing";
    ASSERT_TRUE(support::waitUntil([&] { return !told.isEmpty(); }, 60));
    ASSERT_EQ(told.size(), 1);
    ASSERT_EQ(told[0].size(), 1u);
    EXPECT_EQ(told[0][0].text, u"</i> has no place here."_s);

    check.check(u"a</i>"_s, {});
    check.cancel();
    check.check(u"b"_s, {});
    ASSERT_TRUE(support::waitUntil([&] { return told.size() == 2; }, 60));
    EXPECT_TRUE(told[1].empty());
    check.check(large, {}); // goes with the check
}

} // namespace
