#include "editor/EditorFixture.h"

#include "editor/MGSErrorMessagesView.h"
#include "editor/MGSLineNumberView.h"
#include "editor/MGSSyntaxErrorController.h"
#include "support/TestSupport.h"
#include <QApplication>
#include <QHelpEvent>
#include <QPainter>
#include <QRandomGenerator>
#include <QTest>
#include <QToolTip>

using platform::TextAttribute;
using platform::TextRange;

namespace {

constexpr quint64 beyond = std::numeric_limits<quint64>::max();

SMLSyntaxError errorAt(quint64 line, quint64 character = 1, quint64 length = 0,
                       const QString &text = "wrong")
{
    SMLSyntaxError error;
    error.line = line;
    error.character = character;
    error.length = length;
    error.errorDescription = text;
    return error;
}

SMLSyntaxError errorOfLevel(float level, quint64 line)
{
    return SMLSyntaxError::errorWithDescription(QString("level %1").arg(level), level, line);
}

QVariantList list(const QList<SMLSyntaxError> &errors)
{
    QVariantList list;
    for (const SMLSyntaxError &error : errors)
        list << QVariant::fromValue(error);
    return list;
}

class SyntaxErrors : public support::EditorFixture
{
protected:
    SyntaxErrors() : gutter(*editor.gutterView()), controller(*editor.syntaxErrorController())
    {
        editor.setSyntaxColoured(false);
        editor.setShowsIndividualErrors(true);
    }

    void show(const QList<SMLSyntaxError> &errors) { editor.setSyntaxErrors(list(errors)); }

    /// "start+length colour tip underline" for each run.
    QStringList highlights() const
    {
        QStringList found;
        const auto note = [&found](TextRange range, const platform::TextAttributes &attributes) {
            found << QString("%1+%2 %3 %4 %5")
                         .arg(range.location)
                         .arg(range.length)
                         .arg(attributes.value(TextAttribute::BackgroundColor).toString(),
                              attributes.value(TextAttribute::ToolTip).toString(),
                              attributes.value(TextAttribute::UnderlineStyle).toString())
                         .trimmed();
        };
        view.layoutManager()->temporaryAttributes().forEachRun({0, view.textStorage()->length()},
                                                               note);
        return found;
    }

    static QString openMessages()
    {
        const auto *messages =
            QApplication::activePopupWidget()
                ? QApplication::activePopupWidget()->findChild<MGSErrorMessagesView *>()
                : nullptr;
        return messages ? messages->toPlainText() : QString();
    }

    MGSLineNumberView &gutter;
    MGSSyntaxErrorController &controller;
};

TEST(SyntaxError, TheLevelChoosesTheBadgeUnlessOneWasSet)
{
    const QStringList names = {"Access", "Config", "Document", "Info", "Warning", "Error", "Panic"};
    const QSize size(22, 22);
    const auto badge = [&](float level) {
        return SMLSyntaxError::defaultImageForWarningLevel(level).pixmap(size).toImage();
    };
    const auto shipped = [&](int index) {
        const QString path = ":/layoutsmith/ZQFragariaResources.bundle/messages%1.svg";
        return QIcon(path.arg(names[index])).pixmap(size).toImage();
    };
    const QList<std::pair<float, int>> levels = {{-1e9F, 0}, {99.9F, 0},    {100, 1}, {250, 2},
                                                 {399, 3},   {450, 4},      {599, 5}, {600, 6},
                                                 {1e9F, 6},  {INFINITY, 6}, {NAN, 0}};
    for (const auto &[level, index] : levels)
        EXPECT_EQ(badge(level), shipped(index)) << level;

    SMLSyntaxError error;
    EXPECT_EQ(error.warningImage().cacheKey(),
              SMLSyntaxError::defaultImageForWarningLevel(450).cacheKey());
    const QIcon own(QPixmap(4, 4));
    error.setWarningImage(own);
    error.setWarningLevel(600);
    EXPECT_EQ(error.warningImage().cacheKey(), own.cacheKey());
}

// As somebody sees them who sees no colours, on white and on black.
TEST(SyntaxError, BadgesDifferInShape)
{
    for (const QColor ground : {Qt::white, Qt::black}) {
        QList<QImage> badges;
        for (int level = 0; level <= 600; level += 100) {
            QImage image(11, 11, QImage::Format_RGB32);
            image.fill(ground);
            QPainter painter(&image);
            SMLSyntaxError::defaultImageForWarningLevel(float(level)).paint(&painter, image.rect());
            painter.end();
            badges << image.convertToFormat(QImage::Format_Grayscale8);
        }
        for (int one = 0; one < badges.size(); ++one) {
            for (int other = 0; other < one; ++other) {
                int different = 0;
                for (int i = 0; i < 121; ++i)
                    different += qAbs(qGray(badges[one].pixel(i % 11, i / 11)) -
                                      qGray(badges[other].pixel(i % 11, i / 11))) > 48;
                EXPECT_GE(different, 12) << one << " and " << other;
            }
        }
    }
}

TEST(SyntaxError, IsMadeFromADictionary)
{
    support::LogCapture log;
    const SMLSyntaxError error = SMLSyntaxError::errorWithDictionary({{"line", 7},
                                                                      {"character", -1},
                                                                      {"length", "3"},
                                                                      {"errorDescription", "off"},
                                                                      {"hidden", true},
                                                                      {"warningLevel", 520},
                                                                      {"colour", "red"},
                                                                      {"warningImage", 5}});
    EXPECT_EQ(error.description(),
              "(description: \"off\", line: 7, column: -1, length: 3, level: 520.000000)");
    EXPECT_TRUE(error.hidden);
    EXPECT_EQ(log.lines().size(), 2);
    EXPECT_TRUE(log.contains("\"colour\""));
}

TEST_F(SyntaxErrors, AreSeenOnTheirLineAndCharacters)
{
    setMarked("one\r\ntwo two\nthree");
    SMLSyntaxError red = errorAt(2, 5, 3, "second");
    red.errorLineHighlightColor = Qt::red;
    show({errorAt(2, 0, 2, "first"), red, errorAt(3)});
    EXPECT_EQ(highlights(),
              (QStringList{"5+2 #ffffb3 first 15", "7+2 #ffffb3", "9+3 #ffffb3 second 15",
                           "12+1 #ffffb3", "13+5 #ffffb3 wrong"}));
    editor.setShowsIndividualErrors(false);
    EXPECT_EQ(highlights().value(0), "5+2 #ffffb3 first");
    editor.setDefaultSyntaxErrorHighlightingColour(Qt::green);
    EXPECT_EQ(highlights().value(1), "7+2 #00ff00");
    show({red, errorAt(2, 0, 2, "")});
    EXPECT_EQ(highlights(), (QStringList{"5+4 #ff0000", "9+3 #ff0000 second", "12+1 #ff0000"}));
    editor.setShowsSyntaxErrors(false);
    EXPECT_EQ(highlights(), QStringList());
    EXPECT_TRUE(gutter.decorations().isEmpty());
}

TEST_F(SyntaxErrors, WhatDoesNotExistIsNoFault)
{
    setMarked("one\ntwo");
    SMLSyntaxError hidden = errorAt(1);
    hidden.hidden = true;
    QVariantList errors = list({errorAt(3), errorAt(beyond), errorAt(beyond / 2 + 1), hidden,
                                errorAt(2, beyond, 0, "at the end"), errorAt(1, 3, beyond, "")});
    errors << "text" << 7 << QVariant() << QVariantMap{{"line", 1}} << QVariant::fromValue(this);
    editor.setSyntaxErrors(errors);
    EXPECT_EQ(editor.syntaxErrors().size(), 6);
    EXPECT_EQ(controller.nonHiddenErrors().size(), 5);
    EXPECT_EQ(controller.linesWithErrors(), (QList<quint64>{1, 2, 3, beyond / 2 + 1, beyond}));
    EXPECT_EQ(highlights(),
              (QStringList{"0+2 #ffffb3", "2+2 #ffffb3  15", "4+3 #ffffb3 at the end 15"}));
    gutter.grab();
    setMarked("");
    support::settle();
    EXPECT_EQ(highlights(), QStringList());
    show({errorAt(1, 1, 0), errorAt(1, 5, 5), errorAt(0)});
    gutter.grab();
    EXPECT_FALSE(gutter.decorationRectOfLine(0).isNull());
}

TEST_F(SyntaxErrors, StayOnTheirLineWhateverIsEdited)
{
    setMarked("one¦\ntwo\nthree");
    show({errorAt(2, 1, 1)});
    type("\n");
    support::settle();
    EXPECT_EQ(highlights(), QStringList{"4+1 #ffffb3 wrong 15"});
    type("x y");
    support::settle();
    EXPECT_EQ(highlights(), (QStringList{"4+1 #ffffb3 wrong 15", "5+3 #ffffb3"}));
    view.selectAll();
    type("z");
    support::settle();
    EXPECT_EQ(highlights(), QStringList());
    view.undo();
    support::settle();
    EXPECT_EQ(highlights().size(), 2);

    auto storage = std::make_shared<platform::TextStorage>();
    storage->setString(u"1\n2");
    editor.replaceTextStorage(storage);
    EXPECT_EQ(highlights(), QStringList{"2+1 #ffffb3 wrong 15"});
}

TEST_F(SyntaxErrors, ManyEditsLeaveWhatSettingThemAnewWouldShow)
{
    QRandomGenerator random(7);
    const auto upTo = [&random](qsizetype most) {
        return most > 0 ? random.bounded(most + 1) : qsizetype(0);
    };
    const QStringList texts = {"",       "x",      "\n",        "\r",    "\r\n",
                               "a\nb\n", "\u2028", "word word", "\n\n\n"};
    setMarked(QString("some text\r\nmore\n").repeated(20));
    QList<SMLSyntaxError> errors;
    for (int i = 0; i < 30; ++i)
        errors << errorAt(quint64(upTo(45)), quint64(upTo(12)), quint64(upTo(20)),
                          QString::number(i % 5));
    show(errors);
    for (int round = 0; round < 300; ++round) {
        for (qsizetype edits = upTo(3); edits >= 0; --edits) {
            const qsizetype at = upTo(view.textStorage()->length());
            const TextRange range = TextRange::between(
                at, at + upTo(qMin<qsizetype>(30, view.textStorage()->length() - at)));
            view.textStorage()->replaceCharacters(range, texts[upTo(texts.size() - 1)]);
        }
        support::settle();
        const QStringList settled = highlights();
        show(errors);
        ASSERT_EQ(settled, highlights()) << round;
    }
}

TEST_F(SyntaxErrors, TheWorstOfALineGivesItsBadgeAndAClickTellsAll)
{
    setMarked("one\ntwo\nthree");
    SMLSyntaxError hidden = errorOfLevel(600, 2);
    hidden.hidden = true;
    show({errorOfLevel(200, 2), errorOfLevel(500, 2), hidden, errorAt(3, 1, 0, "two\r\nrows"),
          errorAt(1, 1, 0, "")});
    EXPECT_EQ(gutter.decorations().value(2).cacheKey(),
              SMLSyntaxError::defaultImageForWarningLevel(500).cacheKey());
    EXPECT_EQ(controller.errorForLine(2)->warningLevel(), 500);
    EXPECT_EQ(controller.errorCountForLine(2), 2);
    EXPECT_FALSE(controller.errorForLine(9));
    EXPECT_EQ(controller.errorDecorationsHavingSize({32, 32}).value(2).actualSize({99, 99}),
              QSize(32, 32));

    const auto click = [&](qsizetype row) {
        QTest::mouseClick(&gutter, Qt::LeftButton, {},
                          gutter.decorationRectOfLine(row).center().toPoint());
        return openMessages();
    };
    EXPECT_EQ(click(1), "\uFFFC level 200\n\uFFFC level 500");
    QTest::keyClick(QApplication::activePopupWidget()->focusWidget(), Qt::Key_Escape);
    EXPECT_EQ(openMessages(), QString());
    EXPECT_EQ(click(2), "two\nrows") << "one message has no badge";
    QApplication::activePopupWidget()->close();
    EXPECT_EQ(click(0), QString()) << "there is nothing to tell";
}

TEST_F(SyntaxErrors, ManyLongMessagesFitOnTheScreen)
{
    setMarked("one");
    QList<SMLSyntaxError> errors;
    for (int i = 0; i < 1000; ++i)
        errors << errorAt(1, 1, 0, QString("a long message ").repeated(50));
    show(errors);
    controller.showErrorsForLine(1, {0, 0, 10, 10}, &gutter);
    ASSERT_TRUE(QApplication::activePopupWidget());
    EXPECT_LT(QApplication::activePopupWidget()->height(), 500);
    EXPECT_LT(QApplication::activePopupWidget()->width(), 600);
    QApplication::activePopupWidget()->close();
}

TEST_F(SyntaxErrors, TheToolTipShowsTheMessageAsItStands)
{
    setMarked("one two\nthree");
    show({errorAt(1, 5, 3, "missing <b>name</b>")});
    const auto tipAt = [&](qsizetype index) {
        const QPoint place = placeOf(index);
        QHelpEvent help(QEvent::ToolTip, place, view.viewport()->mapToGlobal(place));
        QApplication::sendEvent(view.viewport(), &help);
        return QToolTip::isVisible() ? QToolTip::text() : QString();
    };
    EXPECT_TRUE(tipAt(5).contains("&lt;b&gt;name")) << tipAt(5).toStdString();
    const QPoint beside = placeOf(9);
    QHelpEvent help(QEvent::ToolTip, beside, view.viewport()->mapToGlobal(beside));
    QApplication::sendEvent(view.viewport(), &help);
    EXPECT_TRUE(support::waitUntil([] { return !QToolTip::isVisible(); }));
}

TEST_F(SyntaxErrors, TheLineIsColouredFromEdgeToEdgeBehindTheSelection)
{
    editor.setBackgroundColor(Qt::white);
    setMarked("one two\n\nthree¦");
    show({errorAt(1), errorAt(2), errorAt(3)});
    const auto pixels = [&] {
        return view.viewport()->grab().toImage();
    };
    const auto middle = [&](qsizetype row) {
        return int(view.rectOfLine(row).center().y());
    };
    const int right = view.viewport()->width() - 1;
    const QRgb colour = editor.defaultSyntaxErrorHighlightingColour().rgb();
    for (const qsizetype row : {0, 1, 2}) {
        EXPECT_EQ(pixels().pixel(right, middle(row)), colour) << row;
        EXPECT_EQ(pixels().pixel(0, middle(row)), colour) << row;
    }
    editor.setDefaultSyntaxErrorHighlightingColour({});
    EXPECT_EQ(editor.defaultSyntaxErrorHighlightingColour().rgb(), colour) << "none is the usual";
    view.setSelectedRange({0, 7});
    const QRectF blank = view.rectsOf({3, 1}).at(0);
    EXPECT_EQ(pixels().pixel(blank.center().toPoint()), view.selectionColor().rgb());
    editor.syntaxErrorController()->setTextView(nullptr);
    EXPECT_NE(pixels().pixel(right, middle(1)), colour) << "a view that is let go shows none";
}

} // namespace
