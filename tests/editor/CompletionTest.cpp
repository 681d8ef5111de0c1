#include "editor/EditorFixture.h"

#include "platform/text/view/CompletionList.h"
#include "support/TestSupport.h"
#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>

using platform::TextRange;

namespace {

class Words : public SMLAutoCompleteDelegate
{
public:
    QStringList completions() const override { return {"zebra", "Alpha", "alphabet", "beta"}; }
};

class Completion : public support::EditorFixture
{
protected:
    Completion() { editor.setAutoCompleteDelegate(&words); }

    QStringList offered()
    {
        const auto range = view.rangeForUserCompletion();
        return range.isFound() ? view.completionsForPartialWord(range) : QStringList();
    }

    Words words;
    QSignalSpy lists{&view, &platform::TextView::completionWasAskedFor};
};

TEST_F(Completion, CompletesTheWordBeforeTheCaret)
{
    struct Case
    {
        const char *text;
        TextRange range;
    };
    for (const Case &c : {Case{"al¦", {0, 2}}, Case{"x.al_9¦ b", {2, 4}}, Case{"\\be¦", {0, 3}},
                          Case{"¦al", TextRange::notFound()}, Case{"a ¦", TextRange::notFound()},
                          Case{"é¦", TextRange::notFound()}, Case{"‹al›", TextRange::notFound()}}) {
        setMarked(QString::fromUtf8(c.text));
        EXPECT_EQ(view.rangeForUserCompletion(), c.range) << c.text;
    }
}

TEST_F(Completion, OffersTheDelegatesWordsAndThenTheKeywords)
{
    setMarked("AL¦");
    EXPECT_EQ(offered(), (QStringList{"Alpha", "alphabet"}));
    editor.setSyntaxDefinitionName("C");
    editor.setAutoCompleteWithKeywords(true);
    setMarked("un¦");
    EXPECT_EQ(offered(), (QStringList{"union", "unsigned"}));
    editor.setSyntaxDefinitionName("Python");
    EXPECT_FALSE(offered().contains("union")); // the keywords of another language
    editor.setAutoCompleteWithKeywords(false);
    EXPECT_EQ(offered(), QStringList());
}

TEST_F(Completion, WithoutADelegateTheLanguageIsTheSource)
{
    editor.setAutoCompleteDelegate(nullptr);
    editor.setSyntaxDefinitionName("HTML");
    setMarked("t¦");
    const QStringList list = offered();
    EXPECT_FALSE(list.isEmpty());
    for (const QString &word : list)
        EXPECT_TRUE(word.startsWith('t', Qt::CaseInsensitive)) << word.toStdString();
}

TEST_F(Completion, TheListWaitsUntilTheKeysRest)
{
    editor.setAutoCompleteEnabled(true);
    editor.setAutoCompleteDelay(0.2);
    setMarked("¦");
    QElapsedTimer sinceLastKey;
    for (const QChar key : QStringLiteral("alph")) {
        type(key);
        sinceLastKey.start();
        support::waitUntil([&] { return sinceLastKey.elapsed() >= 60; });
        EXPECT_EQ(lists.count(), 0);
    }
    EXPECT_TRUE(support::waitUntil([&] { return lists.count() > 0; }));
    EXPECT_GE(sinceLastKey.elapsed(), 190);
}

TEST_F(Completion, ChoosingFromTheListPutsTheWordInPlace)
{
    editor.setAutoCompleteEnabled(true);
    editor.setAutoCompleteDelay(0.01);
    setMarked("¦ x");
    type("al");
    const auto *list = view.findChild<platform::CompletionList *>();
    ASSERT_TRUE(support::waitUntil([&] { return list->isVisible(); }));
    EXPECT_EQ(list->shown(), (QStringList{"Alpha", "alphabet"}));
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(marked(), "alphabet¦ x");
    EXPECT_FALSE(list->isVisible());
    press(Qt::Key_Return);
    EXPECT_EQ(marked(), "alphabet\n¦ x");
}

TEST_F(Completion, ACaretInsideAWordHasNoList)
{
    editor.setAutoCompleteEnabled(true);
    editor.setAutoCompleteDelay(0.01);
    QElapsedTimer clock;
    const auto typeAndWait = [&](const char *marked) {
        setMarked(QString::fromUtf8(marked));
        lists.clear();
        type("a");
        clock.start();
        support::waitUntil([&] { return lists.count() > 0 || clock.elapsed() > 100; });
        return lists.count() > 0;
    };
    EXPECT_FALSE(typeAndWait("¦lpha"));
    EXPECT_TRUE(typeAndWait("¦ lpha"));
    EXPECT_TRUE(typeAndWait("¦.x"));
    EXPECT_TRUE(typeAndWait("¦<x"));
    EXPECT_TRUE(typeAndWait("¦"));
    editor.setAutoCompleteEnabled(false);
    EXPECT_FALSE(typeAndWait("¦"));
}

} // namespace
