#include "kit/ui/ZQKeywordView.h"

#include "platform/Appearance.h"
#include "platform/Assert.h"
#include "support/TestSupport.h"

#include <gtest/gtest.h>
#include <QAccessible>
#include <QHelpEvent>
#include <QMenu>
#include <QTest>
#include <QToolTip>

namespace {

constexpr int badge = 88; // width of a badge with a short text
constexpr int step = badge + 4;

class Recorder : public ZQKeywordViewDelegate
{
public:
    std::optional<ZQKeywordText> attributedStringToDrawForKeyword(ZQKeywordView *,
                                                                  const QString &keyword) override
    {
        return keyword == u"b" ? std::optional(attributed) : std::nullopt;
    }
    std::optional<QString> stringToDrawForKeyword(ZQKeywordView *, const QString &keyword) override
    {
        return texts.contains(keyword) ? std::optional(texts[keyword]) : std::nullopt;
    }
    std::optional<QString> tooltipForKeyword(ZQKeywordView *, const QString &keyword) override
    {
        return "about <" + keyword + '>';
    }
    void selectionChangedTo(ZQKeywordView *, const QVariantList &selected) override
    {
        QStringList names;
        for (const QVariant &each : selected)
            names << each.toString();
        heard << "= " + names.join(u' ');
    }
    void didSelectKeyword(ZQKeywordView *, const QString &keyword) override
    {
        heard << "+ " + keyword;
    }
    void didUnselectKeyword(ZQKeywordView *, const QString &keyword) override
    {
        heard << "- " + keyword;
    }
    void didUnselectKeywords(ZQKeywordView *, const QVariantList &keywords) override
    {
        heard << QStringLiteral("replaces %1").arg(keywords.size());
    }

    ZQKeywordText attributed{"b", {}};
    QHash<QString, QString> texts;
    QStringList heard;
};

class KeywordView : public testing::Test
{
protected:
    KeywordView()
    {
        view.setArrayController(&controller);
        view.setDelegate(&recorder);
        settings.drawsFrame = settings.drawsBackground = false;
        settings.allowsMultipleSelection = true;
        view.setSettings(settings);
        view.resize(6 * step, 24);
        setKeywords({"a", "b", "c", "d", "e"});
        view.show();
    }

    void setKeywords(const QStringList &keywords)
    {
        controller.setContent(QVariantList(keywords.begin(), keywords.end()));
        recorder.heard.clear();
    }
    void set(bool ZQKeywordView::Settings::*flag, bool value)
    {
        settings.*flag = value;
        view.setSettings(settings);
    }
    QPoint place(qsizetype index) const
    {
        return view.rectForKeywordAtIndex(index).center().toPoint();
    }
    void click(qsizetype index, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mouseClick(&view, Qt::LeftButton, modifiers, place(index));
    }
    QStringList selected() const
    {
        QStringList names;
        for (const QVariant &each : controller.selectedObjects())
            names << each.toString();
        return names;
    }
    qsizetype shown() const { return view.keywords().size() - view.overflowKeywords().size(); }
    QImage picture() { return view.grab().toImage(); }
    QRgb ground(qsizetype index) // beside the text
    {
        const QRectF rect = view.rectForKeywordAtIndex(index);
        return picture().pixel(int(rect.left()) + 12, int(rect.center().y()));
    }
    QMenu *menu() const { return view.findChild<QMenu *>(); }
    QMenu *openMenu()
    {
        QTest::mousePress(&view, Qt::LeftButton, {}, view.chevronRect().center().toPoint());
        return menu();
    }
    void choose(const QString &text)
    {
        for (QAction *item : menu()->actions()) {
            if (item->text() == text)
                QTest::mouseClick(menu(), Qt::LeftButton, {},
                                  menu()->actionGeometry(item).center());
        }
        support::waitUntil([this] { return !menu(); });
    }
    QAccessibleInterface *accessible(int index)
    {
        return QAccessible::queryAccessibleInterface(&view)->child(index);
    }

    platform::ArrayController controller;
    Recorder recorder;
    ZQKeywordView::Settings settings;
    ZQKeywordView view;
};

TEST_F(KeywordView, BadgesStandSideBySideAsWideAsTheirTexts)
{
    setKeywords({"a", QString(30, 'w'), "c"});
    EXPECT_EQ(view.rectForKeywordAtIndex(0), QRectF(4, 3, badge, 18));
    const QRectF wide = view.rectForKeywordAtIndex(1);
    const double text =
        QFontMetricsF(zq::KeywordBadges::labelFont()).horizontalAdvance(QString(30, 'w'));
    EXPECT_EQ(wide.left(), 4 + step);
    EXPECT_NEAR(wide.width(), text + 18, 1);
    EXPECT_EQ(wide.width(), std::floor(wide.width()));
    EXPECT_EQ(view.rectForKeywordAtIndex(2).left(), wide.right() + 4);
    EXPECT_EQ(view.intrinsicContentSize(), QSizeF(wide.right() + 4 + badge, 21));
    view.resize(view.width(), 480);
    EXPECT_EQ(view.sizeHint(), QSize(int(wide.right()) + 4 + badge, 24));
    EXPECT_THROW(view.rectForKeywordAtIndex(3), platform::AssertionFailure);
    setKeywords({});
    EXPECT_EQ(view.intrinsicContentSize(), QSizeF(-1, -1));
}

TEST_F(KeywordView, BadgesGiveWayToTheChevron)
{
    setKeywords({"a", "b", "c"});
    const struct
    {
        int width;
        qsizetype shown;
    } rows[] = {
        {3 * step, 3},      {3 * step - 1, 2}, {2 * step + 25, 2},
        {2 * step + 24, 1}, {step + 24, 0},    {30, 0},
    };
    for (const auto &row : rows) {
        view.resize(row.width, 24);
        EXPECT_EQ(shown(), row.shown) << row.width;
        EXPECT_EQ(view.chevronRect().isEmpty(), row.shown == 3) << row.width;
        EXPECT_EQ(view.keywordAtPoint(place(0)).isNull(), row.shown == 0) << row.width;
    }
    EXPECT_EQ(view.overflowKeywords(), QStringList({"a", "b", "c"}));
    view.resize(3 * step, 12);
    EXPECT_EQ(shown(), 0) << "too low for a badge";
}

TEST_F(KeywordView, ClicksToggle)
{
    click(0);
    click(2);
    EXPECT_EQ(selected(), QStringList({"a", "c"}));
    click(0);
    EXPECT_EQ(recorder.heard, QStringList({"= a", "+ a", "= a c", "+ c", "= c", "- a"}));
    click(2);
    EXPECT_EQ(selected(), QStringList("c")) << "the last one stays";
    QTest::mouseClick(&view, Qt::RightButton, {}, place(1));
    QTest::mouseClick(&view, Qt::LeftButton, {}, QPoint(2, 12));
    EXPECT_EQ(recorder.heard.size(), 6);
    set(&ZQKeywordView::Settings::allowsEmptySelection, true);
    click(2);
    EXPECT_EQ(selected(), QStringList());
}

TEST_F(KeywordView, ASingleSelectionIsReplaced)
{
    set(&ZQKeywordView::Settings::allowsMultipleSelection, false);
    click(0);
    click(1, Qt::ShiftModifier);
    EXPECT_EQ(recorder.heard,
              QStringList({"replaces 0", "= a", "+ a", "replaces 1", "= b", "+ b"}));
    set(&ZQKeywordView::Settings::requiresShiftKeyForMultipleSelection, true);
    click(2, Qt::ShiftModifier);
    EXPECT_EQ(selected(), QStringList({"b", "c"}));
    click(0);
    EXPECT_EQ(selected(), QStringList("a"));
}

TEST_F(KeywordView, APressCountsWhereItIsReleased)
{
    const auto drag = [this](QPoint to) {
        QTest::mouseMove(&view, to);
        QMouseEvent move(QEvent::MouseMove, to, view.mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                         {});
        QApplication::sendEvent(&view, &move);
    };
    const QRgb plain = ground(0);
    QTest::mousePress(&view, Qt::LeftButton, {}, place(0));
    const QRgb pressed = ground(0);
    EXPECT_NE(pressed, plain);
    drag(place(1));
    EXPECT_EQ(ground(0), plain);
    drag(place(0));
    EXPECT_EQ(ground(0), pressed);
    drag(place(1));
    QTest::mouseRelease(&view, Qt::LeftButton, {}, place(1));
    EXPECT_EQ(selected(), QStringList());
    QTest::mousePress(&view, Qt::LeftButton, {}, place(0));
    setKeywords({"x", "y"});
    QTest::mouseRelease(&view, Qt::LeftButton, {}, place(0));
    EXPECT_EQ(selected(), QStringList()) << "it has gone meanwhile";
}

TEST_F(KeywordView, EachStateLooksDifferentInLightAndDark)
{
    view.setDelegate(nullptr);
    auto &appearance = platform::Appearance::shared();
    const QString before = appearance.choice();
    QSet<QRgb> colors;
    for (const char *scheme : {"light", "dark"}) {
        appearance.setChoice(scheme);
        QEvent change(QEvent::PaletteChange);
        QApplication::sendEvent(&view, &change);
        for (const QVariantList &selection : {QVariantList(), QVariantList({"a", "b"})}) {
            controller.setSelectedObjects(selection);
            QTest::mouseMove(&view, QPoint(1, 1));
            colors << ground(0);
            QTest::mouseMove(&view, place(0));
            colors << ground(0);
            QTest::mousePress(&view, Qt::LeftButton, {}, place(0));
            colors << ground(0);
            QTest::mouseRelease(&view, Qt::LeftButton, {}, QPoint(1, 1));
        }
    }
    appearance.setChoice(before);
    EXPECT_EQ(colors.size(), 12);
}

TEST_F(KeywordView, ADisabledOneIsPalerAndDead)
{
    settings.drawsBackground = true;
    settings.backgroundColor = Qt::white;
    view.setSettings(settings);
    controller.setSelectedObjects({"a"});
    const QColor before(ground(0));
    view.setEnabled(false);
    const QColor after(ground(0));
    EXPECT_NEAR(after.red(), 0.7 * before.red() + 0.3 * 255, 2);
    click(1);
    QTest::mouseMove(&view, place(0));
    EXPECT_EQ(QColor(ground(0)), after);
    EXPECT_EQ(selected(), QStringList("a"));
    view.userSelectedKeyword("b");
    EXPECT_EQ(selected(), QStringList("a"));
}

TEST(KeywordBadges, AreSharpAtAnyPixelRatio)
{
    zq::KeywordBadges badges;
    badges.setText("a", {"Villa", {}});
    const QPixmap single = badges.image("a", zq::KeywordBadges::Selected);
    EXPECT_EQ(single.size(), QSize(badge, 18));
    badges.setDevicePixelRatio(2);
    const QPixmap twice = badges.image("a", zq::KeywordBadges::Selected);
    EXPECT_EQ(twice.size(), QSize(2 * badge, 36));
    EXPECT_EQ(twice.deviceIndependentSize(), QSizeF(badge, 18));
    EXPECT_NE(twice.toImage(), single.toImage().scaled(twice.size()));
    badges.setText("a", {QString(40, 'w'), {}});
    EXPECT_GT(badges.image("a", zq::KeywordBadges::Selected).width(), 2 * badge);
}

TEST_F(KeywordView, TextsAndToolTipsComeFromTheDelegate)
{
    const QImage before = picture();
    recorder.texts = {{"a", QString(20, 'm')}, {"b", "unused"}};
    recorder.attributed.string = QString(25, 'm');
    setKeywords({"a", "b", "c"});
    EXPECT_GT(view.rectForKeywordAtIndex(0).width(), badge);
    EXPECT_GT(view.rectForKeywordAtIndex(1).width(), view.rectForKeywordAtIndex(0).width());
    EXPECT_NE(picture(), before);
    view.setCachedStringToDraw("short", "a");
    view.setCachedTooltip("mine", "a");
    EXPECT_EQ(view.rectForKeywordAtIndex(0).width(), badge);
    EXPECT_EQ(view.tooltipForKeyword("a"), "mine");
    view.removeCachedTooltip("a");
    QHelpEvent help(QEvent::ToolTip, place(0), view.mapToGlobal(place(0)));
    QApplication::sendEvent(&view, &help);
    EXPECT_TRUE(QToolTip::text().contains("about &lt;a&gt;"));
    controller.addObject("d");
    EXPECT_EQ(view.textForKeyword("a"), QString(20, 'm')) << "another list, the delegate is asked";
}

TEST_F(KeywordView, TheMenuHoldsWhatDoesNotFit)
{
    view.resize(2 * step + 40, 24);
    setKeywords({"a", "b", "c", "Q&A", "e"});
    controller.setSelectedObjects({"e"});
    ASSERT_TRUE(openMenu());
    QStringList items;
    for (const QAction *item : menu()->actions())
        items << item->text() + (item->isChecked() ? " *" : "");
    EXPECT_EQ(items, QStringList({"c", "Q&&A", "e *"}));
    choose("e");
    EXPECT_EQ(selected(), QStringList("e")) << "the last one stays";
    ASSERT_TRUE(openMenu());
    choose("Q&&A");
    ASSERT_TRUE(openMenu());
    choose("e");
    EXPECT_EQ(selected(), QStringList("Q&A"));
    QHelpEvent help(QEvent::ToolTip, view.chevronRect().center().toPoint(), QPoint(9, 9));
    QApplication::sendEvent(&view, &help);
    EXPECT_TRUE(QToolTip::text().contains("✓ Q&amp;A"));
}

TEST_F(KeywordView, TheKeyboardGoesOverTheRow)
{
    view.resize(2 * step + 40, 24);
    view.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
    view.setFocus(Qt::TabFocusReason);
    const QImage first = picture();
    QTest::keyClick(&view, Qt::Key_Space);
    QTest::keyClick(&view, Qt::Key_Right);
    EXPECT_NE(picture(), first);
    QTest::keyClick(&view, Qt::Key_Space);
    EXPECT_EQ(selected(), QStringList({"a", "b"}));
    QTest::keyClick(&view, Qt::Key_Left);
    QTest::keyClick(&view, Qt::Key_Left);
    QTest::keyClick(&view, Qt::Key_Space);
    EXPECT_EQ(selected(), QStringList("b"));
    QTest::keyClick(&view, Qt::Key_End);
    QTest::keyClick(&view, Qt::Key_Space);
    ASSERT_TRUE(menu()) << "the last stop is the chevron";
    QTest::keyClick(menu(), Qt::Key_Escape);
    ASSERT_TRUE(support::waitUntil([this] { return !menu(); }));
    QTest::keyClick(&view, Qt::Key_Home);
    QTest::keyClick(&view, Qt::Key_Down);
    ASSERT_TRUE(menu());
    QTest::keyClick(menu(), Qt::Key_Down);
    QTest::keyClick(menu(), Qt::Key_Return);
    EXPECT_EQ(selected(), QStringList({"b", "c"}));
}

TEST_F(KeywordView, AssistiveTechnologySeesCheckBoxes)
{
    view.resize(2 * step + 40, 24);
    const QAccessibleInterface *row = QAccessible::queryAccessibleInterface(&view);
    ASSERT_EQ(row->childCount(), 5);
    QAccessibleInterface *hidden = accessible(4);
    EXPECT_EQ(hidden->text(QAccessible::Name), "e");
    EXPECT_EQ(hidden->role(), QAccessible::CheckBox);
    EXPECT_TRUE(hidden->state().offscreen);
    hidden->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(hidden->state().checked);
    EXPECT_EQ(selected(), QStringList("e"));
    const QPoint middle = accessible(1)->rect().center();
    EXPECT_EQ(row->childAt(middle.x(), middle.y()), accessible(1));
    EXPECT_EQ(row->indexOfChild(accessible(1)), 1);
    setKeywords({"a"});
    EXPECT_FALSE(hidden->isValid());
}

} // namespace
