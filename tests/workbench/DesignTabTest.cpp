#include "library/LSMDesignKeys.h"
#include "platform/PropertyList.h"
#include "workbench/LSMImageView.h"
#include "workbench/WorkbenchFixture.h"

#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QTest>

using namespace LSMDesignKeys;

class DesignTabTest : public WorkbenchTest
{
protected:
    LSMImageView *picture() const { return child<LSMImageView>("designIconImageView"); }
    QLineEdit *version() const { return child<QLineEdit>("minimumVersionField"); }
    QComboBox *inclusion() const { return child<QComboBox>("imageInclusionPopup"); }
    QVariant value(QLatin1StringView key) const
    {
        return selected()->templateDictionary()->value(key);
    }
    static QVariantMap savedInfo(const QString &folder)
    {
        return platform::PropertyList::read(folder + QStringLiteral("/Info.plist"))->root.toMap();
    }
    static QImage red(const QSize &size)
    {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::red);
        return image;
    }
    void press(const QKeySequence &keys) const
    {
        QApplication::setActiveWindow(window());
        QTest::mouseClick(picture(), Qt::LeftButton);
        support::settle();
        QTest::keySequence(window(), keys);
        support::settle();
    }
};

TEST_F(DesignTabTest, APictureIsPastedAsImageOrFileAndCopied)
{
    const QString folder = writeDesign(QStringLiteral("Alpha"));
    launch();
    QApplication::clipboard()->setText(QStringLiteral("no picture"));
    press(QKeySequence::Paste);
    EXPECT_FALSE(selected()->templateShouldBeSaved());

    QApplication::clipboard()->setImage(red({900, 600}));
    press(QKeySequence::Paste);
    EXPECT_EQ(picture()->image().size(), QSize(300, 200));
    EXPECT_TRUE(selected()->templateShouldBeSaved());
    pressShortcut("actionSave");
    EXPECT_EQ(QImage(folder + QStringLiteral("/thumbnail.png")).size(), QSize(300, 200));

    const QString file = home.path(QStringLiteral("a.png"));
    red({40, 30}).save(file);
    auto *data = new QMimeData;
    data->setUrls({QUrl::fromLocalFile(file)});
    QApplication::clipboard()->setMimeData(data);
    press(QKeySequence::Paste);
    EXPECT_EQ(selected()->templateImagePath(), file);
    EXPECT_EQ(picture()->image().size(), QSize(40, 30));

    press(QKeySequence::Copy);
    EXPECT_EQ(QApplication::clipboard()->image().size(), QSize(40, 30));
}

TEST_F(DesignTabTest, APastedPictureShowsInTheOutline)
{
    writeDesign(QStringLiteral("Alpha"));
    launch();
    EXPECT_FALSE(outlineShows(Qt::red));
    QApplication::clipboard()->setImage(red({40, 30}));
    press(QKeySequence::Paste);
    EXPECT_TRUE(outlineShows(Qt::red));
}

TEST_F(DesignTabTest, KeysThatDeleteLeaveThePictureAndTheDesign)
{
    const QString folder = writeDesign(QStringLiteral("Alpha"));
    red({40, 30}).save(folder + QStringLiteral("/thumbnail.png"));
    launch();
    support::AlertAnswers answers;
    for (const Qt::Key key : {Qt::Key_Delete, Qt::Key_Backspace})
        press(key);
    EXPECT_TRUE(answers.shown.isEmpty());
    EXPECT_EQ(selected()->templateImage().size(), QSize(40, 30));
    EXPECT_FALSE(selected()->templateShouldBeSaved());
}

TEST_F(DesignTabTest, WhatTheDesignAsksOfTheHostIsEdited)
{
    const QString folder = writeDesign(QStringLiteral("Alpha"));
    launch();
    type(version(), QStringLiteral("8.2"));
    EXPECT_EQ(value(minimumVersion), QStringLiteral("8.2"));
    EXPECT_TRUE(selected()->templateShouldBeSaved());
    EXPECT_EQ(child<QLabel>("minimumVersionHint")->text(), QString());
    type(version(), QStringLiteral("b"));
    EXPECT_EQ(child<QLabel>("minimumVersionHint")->text(), QStringLiteral("Such as 8.2"));
    EXPECT_EQ(value(minimumVersion), QStringLiteral("8.2b")) << "a hint refuses nothing";

    const char *values[] = {"none", "first", "all"};
    for (const char *expected : values) {
        QTest::keyClick(inclusion(), Qt::Key_Down);
        EXPECT_EQ(value(imageInclusion), QString::fromLatin1(expected));
    }
    pressShortcut("actionSave");
    EXPECT_EQ(savedInfo(folder).value(imageInclusion), QStringLiteral("all"));
    QTest::keyClick(inclusion(), Qt::Key_Home);
    EXPECT_TRUE(selected()->templateShouldBeSaved());
    version()->selectAll();
    QTest::keyClick(version(), Qt::Key_Delete);
    pressShortcut("actionSave");
    EXPECT_FALSE(savedInfo(folder).contains(imageInclusion));
    EXPECT_FALSE(savedInfo(folder).contains(minimumVersion));
}

TEST_F(DesignTabTest, ValuesThatNobodyKnowsAreShownAndKept)
{
    const QVariantMap info{{minimumVersion, 8}, {imageInclusion, QStringLiteral("borders")}};
    const QString folder = writeDesign(QStringLiteral("Alpha"), Group::Custom, "a", info);
    writeDesign(QStringLiteral("Built"), Group::BuiltIn, "a",
                {{minimumVersion, QStringLiteral("9.0")}});
    launch();
    EXPECT_EQ(inclusion()->currentText(), QStringLiteral("borders"));
    EXPECT_EQ(version()->text(), QString());
    QTest::keyClick(inclusion(), Qt::Key_End); // where it is
    EXPECT_FALSE(selected()->templateShouldBeSaved());
    selected()->setTemplateShouldBeSaved(true);
    pressShortcut("actionSave");
    EXPECT_EQ(savedInfo(folder).value(minimumVersion), 8);
    EXPECT_EQ(savedInfo(folder).value(imageInclusion), QStringLiteral("borders"));

    select(QStringLiteral("Built"));
    EXPECT_EQ(version()->text(), QStringLiteral("9.0"));
    EXPECT_EQ(inclusion()->currentIndex(), 0);
    type(version(), QStringLiteral("1"));
    EXPECT_EQ(version()->text(), QStringLiteral("9.0"));
    EXPECT_FALSE(inclusion()->isEnabled());
}
