#include "workbench/WorkbenchFixture.h"

#include "editor/MGSFolding.h"
#include "editor/MGSFragariaView.h"
#include "editor/SMLTextView.h"
#include "kit/ui/ApplicationStyle.h"
#include "kit/ui/OpenPanel.h"
#include "kit/ui/SegmentedControl.h"
#include "library/LSMDesignKeys.h"
#include "platform/NotificationCenter.h"
#include "platform/PropertyList.h"
#include "platform/UserDefaults.h"
#include "workbench/LSMImageView.h"
#include "workbench/LSMNotifications.h"

#include <QCheckBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QTest>
#include <QWindow>

class EditorTest : public WorkbenchTest
{
protected:
    SMLTextView *source() const { return child<MGSFragariaView>("fragariaView")->textView(); }
    QMenu *popup(const char *name) const { return child<QPushButton>(name)->menu(); }
    static QStringList titlesIn(const QMenu *menu)
    {
        QStringList titles;
        for (const QAction *action : menu->actions())
            titles += action->text();
        return titles;
    }
    QList<bool> previewsFromTop() const
    {
        QList<bool> result;
        for (const QVariant &fromTop :
             child<QWidget>("recordingWebWidget")->property("fromTop").toList())
            result << fromTop.toBool();
        return result;
    }
    QLineEdit *nameField() const { return child<QLineEdit>("templateNameTextField"); }
    QStringList previews() const
    {
        const auto *page = child<QWidget>("recordingWebWidget");
        return page ? page->property("documents").toStringList() : QStringList();
    }
    QString writePicture(const QString &name, const QSize &size = {40, 30})
    {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::red);
        image.save(home.path(name));
        return home.path(name);
    }
    void drop(const QString &path)
    {
        QWidget *view = child<LSMImageView>("designIconImageView");
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(path)});
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
        enter.ignore();
        QApplication::sendEvent(view, &enter);
        if (!enter.isAccepted())
            return;
        QDropEvent event(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(view, &event);
    }
};

TEST_F(EditorTest, FieldsReachTheDictionaryAndMarkDirty)
{
    writeDesign(QStringLiteral("Alpha"));
    launch();
    type(nameField(), QStringLiteral("2"));
    type(child<QLineEdit>("templateIdentifierTextField"), QStringLiteral("-b"));
    EXPECT_EQ(selected()->templateName(), QStringLiteral("Alpha2"));
    EXPECT_EQ(selected()->templateIdentifier(), QStringLiteral("com.myserver.alpha-b"));
    EXPECT_TRUE(selected()->templateShouldBeSaved());
    EXPECT_TRUE(window()->windowTitle().startsWith(QStringLiteral("Alpha2")));
    EXPECT_TRUE(toolbarItemIsEnabled("toolbar_item_save"));
}

TEST_F(EditorTest, ThePreviewLoadsOnceHalfASecondAfterTheLastKey)
{
    writeDesign(QStringLiteral("Alpha"), Group::Custom, "<p>a</p>");
    launch();
    pressShortcut("actionViewHtml");
    ASSERT_TRUE(support::waitUntil([&] { return !previews().isEmpty(); }));
    EXPECT_EQ(previews().last(),
              QStringLiteral("<html>\n<head></head>\n<body>\n<p>a</p>\n</body>\n</html>"));
    const qsizetype before = previews().size();
    QElapsedTimer sinceLastKey;
    source()->setFocus();
    for (const char key : {'x', 'y', 'z'}) {
        QTest::keyClick(source(), key);
        sinceLastKey.start();
    }
    EXPECT_EQ(previews().size(), before);
    ASSERT_TRUE(support::waitUntil([&] { return previews().size() > before; }));
    EXPECT_GE(sinceLastKey.elapsed(), 490);
    EXPECT_EQ(previews().size(), before + 1);
    EXPECT_TRUE(previews().last().contains(QStringLiteral("xyz<p>a</p>")));
    EXPECT_TRUE(selected()->templateShouldBeSaved());
    EXPECT_EQ(selected()->htmlSourceCode(), QStringLiteral("xyz<p>a</p>"));
}

TEST_F(EditorTest, ThePreviewStaysWhereItIsButForAnotherDesign)
{
    writeDesign(QStringLiteral("Alpha"));
    writeDesign(QStringLiteral("Beta"));
    launch();
    pressShortcut("actionViewHtml");
    ASSERT_TRUE(support::waitUntil([&] { return previews().size() == 1; }));
    type(source(), QStringLiteral("x"));
    ASSERT_TRUE(support::waitUntil([&] { return previews().size() == 2; }));
    pressShortcut("actionRevert");
    select(QStringLiteral("Beta"));
    pressShortcut("actionReloadPreview");
    ASSERT_TRUE(support::waitUntil([&] { return previews().size() == 5; }));
    EXPECT_EQ(previewsFromTop(), QList<bool>({true, false, false, true, false}));
}

TEST_F(EditorTest, TypingCanBeUndoneAndRedoneFromTheMenu)
{
    writeDesign(QStringLiteral("Alpha"), Group::Custom, "a");
    launch();
    pressShortcut("actionViewHtml");
    type(source(), QStringLiteral("xy"));
    clickMenuItem("actionUndo");
    EXPECT_EQ(selected()->htmlSourceCode(), QStringLiteral("a"));
    source()->setFocus();
    clickMenuItem("actionRedo");
    EXPECT_EQ(selected()->htmlSourceCode(), QStringLiteral("xya"));
}

TEST_F(EditorTest, UndoNeverReachesIntoAnotherDesign)
{
    writeDesign(QStringLiteral("A"), Group::Custom, "<p>Hello</p>");
    writeDesign(QStringLiteral("B"), Group::Custom, "X<p>Hello</p>");
    launch();
    pressShortcut("actionViewHtml");
    type(source(), QStringLiteral("X"));
    select(QStringLiteral("B"));
    source()->undo();
    EXPECT_EQ(selected()->htmlSourceCode(), QStringLiteral("X<p>Hello</p>"));
    EXPECT_FALSE(selected()->templateShouldBeSaved());
}

TEST_F(EditorTest, OnlyWhatIsTypedChangesInTheFile)
{
    const QByteArray bodies[] = {"<p>\r\n</p>",
                                 QByteArray("a\0b", 3),
                                 "a\rb",
                                 "\xEF\xBB\xBF<p>ok</p>",
                                 "a\xE2\x80\xA8"
                                 "b",
                                 "a\xE2\x80\xA9"
                                 "b",
                                 "a\xC2\xA0"
                                 "b\n",
                                 "\xEF\xB7\x90"};
    for (std::size_t i = 0; i < std::size(bodies); ++i)
        writeDesign(QStringLiteral("D%1").arg(i), Group::Custom, bodies[i]);
    launch();
    for (std::size_t i = 0; i < std::size(bodies); ++i) {
        SCOPED_TRACE(i);
        ASSERT_TRUE(select(QStringLiteral("D%1").arg(i)));
        source()->setFocus();
        QTest::keyClick(source(), Qt::Key_End, Qt::ControlModifier);
        type(source(), QStringLiteral("x"));
        pressShortcut("actionSave");
        EXPECT_FALSE(selected()->templateShouldBeSaved());
        EXPECT_EQ(support::readFile(selected()->templatePath() + QStringLiteral("/body.html")),
                  bodies[i] + "x");
    }
}

TEST_F(EditorTest, PlaceholdersReplaceTheSelection)
{
    writeDesign(QStringLiteral("Alpha"), Group::Custom, "<h1>old</h1>");
    launch();
    pressShortcut("actionViewHtml");
    const QStringList offered = titlesIn(popup("placeholderPopup"));
    EXPECT_EQ(offered.first(), QStringLiteral("Title")) << "in the order of the resource";
    EXPECT_EQ(offered.last(), QStringLiteral("Parts of the Design"));
    EXPECT_TRUE(titlesIn(popup("placeholderPopup")->actions().last()->menu())
                    .contains(QStringLiteral("Part for One Layout")));
    source()->setSelectedRange({4, 3});
    for (QAction *action : popup("placeholderPopup")->actions()) {
        if (action->text() == u"Title")
            action->trigger();
    }
    EXPECT_EQ(selected()->htmlSourceCode(), QStringLiteral("<h1>[[LBTitle]]</h1>"));
    EXPECT_EQ(source()->selectedRange(), (platform::TextRange{15, 0}));
    EXPECT_TRUE(selected()->templateShouldBeSaved());
}

TEST_F(EditorTest, TheLayoutPopupGoesToEachMarker)
{
    writeDesign(QStringLiteral("Alpha"), Group::Custom,
                "[[if LBLayoutEnabled_Two_Columns or LBLayoutNotDefined]]a[[endif]]"
                "[[if LBLayoutEnabled_Short]][[endif]] LBLayoutEnabled_No_End");
    writeDesign(QStringLiteral("Built"), Group::BuiltIn);
    launch();
    select(QStringLiteral("Alpha"));
    QMenu *menu = popup("layoutPopup");
    ASSERT_EQ(titlesIn(menu), QStringList({QStringLiteral("Two Columns or LBLayoutNotDefined"),
                                           QStringLiteral("Short")}));
    menu->actions().last()->trigger();
    EXPECT_EQ(source()->textStorage()->substring(source()->selectedRange()),
              QStringLiteral("LBLayoutEnabled_"));
    EXPECT_GT(source()->selectedRange().location, 60);
    source()->selectAll();
    source()->insertText(QStringLiteral("short"));
    menu->actions().last()->trigger(); // its place is gone
    EXPECT_EQ(source()->selectedRange(), (platform::TextRange{5, 0}));

    select(QStringLiteral("Built"));
    EXPECT_FALSE(child<QPushButton>("layoutPopup")->isEnabled());
    EXPECT_FALSE(child<QPushButton>("placeholderPopup")->isEnabled());
}

TEST_F(EditorTest, ARevertKeepsTheCaretAndCanBeUndone)
{
    writeDesign(QStringLiteral("Alpha"), Group::Custom, "one\ntwo\nthree\n");
    launch();
    pressShortcut("actionViewHtml");
    source()->setSelectedRange({0, 0});
    type(source(), QStringLiteral("zero "));
    source()->setSelectedRange({14, 0});
    pressShortcut("actionRevert");
    EXPECT_EQ(source()->string(), QStringLiteral("one\ntwo\nthree\n"));
    EXPECT_EQ(source()->selectedRange(), (platform::TextRange{9, 0}));
    EXPECT_FALSE(selected()->templateShouldBeSaved());
    source()->undo();
    EXPECT_EQ(selected()->htmlSourceCode(), QStringLiteral("zero one\ntwo\nthree\n"));
    EXPECT_TRUE(selected()->templateShouldBeSaved());
}

TEST_F(EditorTest, SavingAndRevertingMakeTheTextTheSavedOne)
{
    writeDesign(QStringLiteral("Alpha"), Group::Custom, "one\ntwo\n");
    writeDesign(QStringLiteral("Beta"), Group::Custom, "one\ntwo\n");
    launch();
    pressShortcut("actionViewHtml");
    const auto isSaved = [this] {
        return source()->undoHistory().isClean();
    };
    EXPECT_TRUE(isSaved());
    for (const char *command : {"actionRevert", "actionSave"}) {
        type(source(), QStringLiteral("x"));
        EXPECT_FALSE(isSaved());
        pressShortcut(command);
        EXPECT_TRUE(isSaved()) << command;
    }
    type(source(), QStringLiteral("x"));
    select(QStringLiteral("Beta"));
    EXPECT_TRUE(isSaved());
    select(QStringLiteral("Alpha"));
    EXPECT_FALSE(isSaved());
}

TEST_F(EditorTest, BuiltInDesignsAreNotEdited)
{
    writeDesign(QStringLiteral("Built"), Group::BuiltIn);
    launch();
    type(nameField(), QStringLiteral("x"));
    type(source(), QStringLiteral("x"));
    drop(writePicture(QStringLiteral("a.png")));
    EXPECT_FALSE(selected()->templateShouldBeSaved());
    EXPECT_EQ(selected()->templateName(), QStringLiteral("Built"));
    EXPECT_TRUE(selected()->templateImage().isNull());
    EXPECT_FALSE(child<QCheckBox>("paidSwitch")->isEnabled());
    EXPECT_TRUE(child<QWidget>("banner")->isVisible());
    QTest::mouseClick(child<QPushButton>("bannerButton"), Qt::LeftButton);
    EXPECT_EQ(selected()->templateName(), QStringLiteral("Built 1"));
    EXPECT_FALSE(child<QWidget>("banner")->isVisible());
}

TEST_F(EditorTest, ANarrowPageLeavesTheFieldsTheirWidth)
{
    writeDesign(QStringLiteral("Alpha"));
    launch();
    const auto frame = [this](const QWidget *view) {
        return QRect(view->mapTo(window(), QPoint()), view->size());
    };
    const QWidget *picture = child<LSMImageView>("designIconImageView");
    EXPECT_LT(frame(picture).right(), frame(nameField()).left());
    window()->resize(700, 450);
    EXPECT_TRUE(
        support::waitUntil([&] { return frame(picture).top() > frame(nameField()).bottom(); }));
    EXPECT_GT(nameField()->width(), 200);
    window()->resize(1000, 450);
    EXPECT_TRUE(
        support::waitUntil([&] { return frame(picture).right() < frame(nameField()).left(); }));
    EXPECT_EQ(picture->size(), picture->sizeHint());
}

TEST_F(EditorTest, NamesShowTheirStartAndAreShownAsTyped)
{
    const QString name = QStringLiteral("<b>R&B</b> [*] ").repeated(20).trimmed();
    writeDesign(QStringLiteral("Alpha"), Group::Custom, "LBLayoutEnabled_R&B]",
                {{LSMDesignKeys::name, name}});
    writeDesign(QStringLiteral("Beta"));
    launch();
    EXPECT_EQ(nameField()->text(), name);
    EXPECT_EQ(nameField()->cursorPosition(), 0);
    EXPECT_TRUE(nameField()->toolTip().contains(QStringLiteral("&lt;b&gt;R&amp;B")));
    EXPECT_EQ(window()->windowHandle()->title(), name + QStringLiteral(" – The Layoutsmith"));
    EXPECT_EQ(titlesIn(popup("layoutPopup")), QStringList{QStringLiteral("R&&B")});
    select(QStringLiteral("Beta"));
    EXPECT_EQ(window()->windowHandle()->title(), QStringLiteral("Beta – The Layoutsmith"));
}

TEST_F(EditorTest, EveryTabStopShowsThatItHasTheKeyboard)
{
    zq::installApplicationStyle();
    writeDesign(QStringLiteral("Alpha"));
    writeDesign(QStringLiteral("Built"), Group::BuiltIn);
    launch();
    QWidget *bar = new QWidget(window()); // has the keyboard in between
    QSet<QString> seen;
    for (const char *title : {"Alpha", "Built"}) {
        select(QString::fromLatin1(title));
        for (int tab = 0; tab < 5; ++tab) {
            editor()->setSelectedTab(tab);
            for (QWidget *stop : window()->findChildren<QWidget *>()) {
                if (!stop->isVisible() || !stop->isEnabled() || stop->focusProxy() ||
                    !(stop->focusPolicy() & Qt::TabFocus))
                    continue;
                bar->setFocus();
                const QImage without = stop->grab().toImage();
                stop->setFocus(Qt::TabFocusReason);
                support::settle();
                EXPECT_NE(stop->grab().toImage(), without)
                    << stop->metaObject()->className() << stop->objectName().toStdString();
                seen << stop->objectName();
            }
        }
    }
    qApp->setStyleSheet({});
    EXPECT_TRUE(
        seen.contains({QStringLiteral("templateNameTextField"), QStringLiteral("placeholderPopup"),
                       QStringLiteral("segmentedControl"), QStringLiteral("propertiesTable"),
                       QStringLiteral("bannerButton"), QStringLiteral("searchField")}));
}

TEST_F(EditorTest, PicturesAreDroppedOrChosenAndReduced)
{
    const QString folder = writeDesign(QStringLiteral("Alpha"));
    launch();
    drop(writePicture(QStringLiteral("big.png"), {900, 600}));
    EXPECT_EQ(selected()->templateImage().size(), QSize(300, 200));
    EXPECT_EQ(selected()->templateImagePath(), home.path(QStringLiteral("big.png")));
    EXPECT_TRUE(selected()->templateShouldBeSaved());
    pressShortcut("actionSave");
    EXPECT_EQ(QImage(folder + QStringLiteral("/thumbnail.png")).size(), QSize(300, 200));

    support::writeFile(home.path(QStringLiteral("notes.txt")), "no picture");
    drop(home.path(QStringLiteral("notes.txt")));
    EXPECT_FALSE(selected()->templateShouldBeSaved());

    zq::setOpenPanelAnswer([this] { return writePicture(QStringLiteral("chosen.jpg")); });
    pressShortcut("actionChoosePicture");
    zq::setOpenPanelAnswer({});
    EXPECT_EQ(selected()->templateImage().size(), QSize(40, 30));

    support::writeFile(home.path(QStringLiteral("broken.png")), "no picture");
    selected()->setTemplateShouldBeSaved(false);
    const support::AlertAnswers answers;
    drop(home.path(QStringLiteral("broken.png")));
    ASSERT_TRUE(support::waitUntil([&] { return answers.shown.size() == 1; }));
    EXPECT_TRUE(answers.shown[0].informativeText.contains(QStringLiteral("“broken.png”")));
    EXPECT_EQ(selected()->templateImage().size(), QSize(40, 30));
    EXPECT_EQ(selected()->templateImagePath(), home.path(QStringLiteral("chosen.jpg")));
    EXPECT_FALSE(selected()->templateShouldBeSaved());
}

TEST_F(EditorTest, ThePaidSwitchAddsTheStoreAndItsSaveDropsIt)
{
    const QString folder = writeDesign(QStringLiteral("Alpha"));
    const auto savedStore = [&folder] {
        const auto info = platform::PropertyList::read(folder + QStringLiteral("/Info.plist"));
        return info->root.toMap().value(LSMDesignKeys::store);
    };
    launch();
    pressShortcut("actionViewStore");
    int titleChanges = 0;
    platform::NotificationCenter::defaultCenter().addObserver(
        window(), LSMDesignTitleDidChange, nullptr, [&](const auto &) { ++titleChanges; });
    auto *paid = child<QCheckBox>("paidSwitch");
    QTest::mouseClick(paid, Qt::LeftButton, {}, QPoint(8, paid->height() / 2));
    EXPECT_TRUE(selected()->isPaidTemplate());
    EXPECT_EQ(titleChanges, 1);
    pressShortcut("actionSave");
    EXPECT_TRUE(savedStore().toMap().contains(LSMDesignKeys::releaseDate));
    QTest::mouseClick(paid, Qt::LeftButton, {}, QPoint(8, paid->height() / 2));
    pressShortcut("actionSave");
    EXPECT_FALSE(savedStore().isValid());
}

TEST_F(EditorTest, WithoutTheStoreSegmentItsMenuEntryIsGoneToo)
{
    writeDesign(QStringLiteral("Alpha"));
    platform::UserDefaults::standardUserDefaults().setObject(QStringLiteral("showStoreSegment"),
                                                             false);
    launch();
    EXPECT_EQ(child<zq::SegmentedControl>("segmentedControl")->segmentCount(), 4);
    EXPECT_TRUE(menuItem("actionViewStore")->associatedObjects().isEmpty());
    pressShortcut("actionViewProperties");
    EXPECT_EQ(editor()->selectedTab(), LSMDesignEditorViewController::PropertiesTab);
}

TEST_F(EditorTest, CommandsOnCodeHaveTheirMenuAndKeysInTheHtmlTab)
{
    writeDesign(QStringLiteral("Alpha"), Group::Custom, "<div>\n<p>One</p>\n<p>Two</p>\n</div>");
    writeDesign(QStringLiteral("Beta"));
    launch();
    select(QStringLiteral("Alpha"));
    QMenu *menu = editor()->codeMenu();
    EXPECT_FALSE(menu->isEnabled()) << "on the design tab";
    editor()->setSelectedTab(LSMDesignEditorViewController::HtmlTab);
    EXPECT_TRUE(menu->isEnabled());

    giveFocus(nullptr);
    source()->setFocus();
    ASSERT_TRUE(support::waitUntil([&] { return source()->folding()->canFold(0); }));
    QTest::keySequence(source(), QKeySequence(QStringLiteral("F9")));
    EXPECT_TRUE(source()->folding()->isFolded(0));
    EXPECT_FALSE(selected()->templateShouldBeSaved());
    select(QStringLiteral("Beta"));
    EXPECT_FALSE(source()->folding()->isFolded(0));
    select(QStringLiteral("Alpha"));
    EXPECT_TRUE(source()->folding()->isFolded(0));
    source()->setFocus();

    QTest::keySequence(source(), QKeySequence(QStringLiteral("Ctrl+G")));
    auto *sheet = child<QDialog>("SMLGoToLine");
    ASSERT_TRUE(sheet);
    sheet->findChild<QSpinBox *>()->setValue(2);
    sheet->accept();
    EXPECT_EQ(source()->textStorage()->lineAt(source()->selectedRange().location), 1);
}
