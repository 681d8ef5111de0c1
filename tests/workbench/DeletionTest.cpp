#include "library/LSMDeletedDesigns.h"
#include "library/LSMDesignKeys.h"
#include "workbench/WorkbenchFixture.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QPushButton>
#include <QTest>

class DeletionTest : public WorkbenchTest
{
protected:
    QString caches() const { return home.path(QStringLiteral(".cache/Layoutsmith")); }
    QStringList copies() const { return QDir(caches()).entryList({QStringLiteral("Deleted-*")}); }
    QPushButton *undoButton() const
    {
        for (auto *button : child<QWidget>("statusBar")->findChildren<QPushButton *>()) {
            if (button->isVisible())
                return button;
        }
        return nullptr;
    }
    void remove(const QString &title)
    {
        const support::AlertAnswers answers;
        ASSERT_TRUE(select(title));
        clickToolbarItem("toolbar_item_delete");
    }
    /// All below, with their bytes.
    static QMap<QString, QByteArray> filesIn(const QString &folder)
    {
        QMap<QString, QByteArray> files;
        QDirIterator entry(folder, QDir::Files | QDir::Hidden | QDir::System,
                           QDirIterator::Subdirectories);
        while (entry.hasNext()) {
            const QString path = entry.next();
            files.insert(path.mid(folder.size()), support::readFile(path));
        }
        return files;
    }
};

TEST_F(DeletionTest, WhatWasDeletedComesBackWithAllItsFiles)
{
    const QString folder = writeDesign(QStringLiteral("Alpha"), Group::Custom, "<p>body</p>",
                                       {{QStringLiteral("Unknown"), 5}});
    QImage picture(40, 30, QImage::Format_RGB32);
    picture.fill(Qt::red);
    picture.save(folder + QStringLiteral("/thumbnail.png"));
    support::writeFile(folder + QStringLiteral("/Layout_Samples/One.html"), "<p>sample</p>");
    support::writeFile(folder + QStringLiteral("/.notes/mine.txt"), "notes");
    QFile::link(QStringLiteral("body.html"), folder + QStringLiteral("/link"));
    auto before = filesIn(folder);
    for (const char *written : {"/Info.plist", "/thumbnail.png"}) // by the save
        before.remove(QString::fromLatin1(written));
    const QDateTime sampled =
        QFileInfo(folder + QStringLiteral("/Layout_Samples/One.html")).lastModified();
    launch();
    EXPECT_FALSE(undoButton());

    const std::function<void()> ways[] = {
        [this] { QTest::mouseClick(undoButton(), Qt::LeftButton); },
        [this] { clickMenuItem("actionUndoDelete"); },
        [this] {
            outline()->setFocus();
            QTest::keySequence(outline(), QKeySequence::Undo);
        },
    };
    for (const auto &undo : ways) {
        remove(QStringLiteral("Alpha"));
        EXPECT_FALSE(QFileInfo::exists(folder));
        EXPECT_TRUE(titles().isEmpty());
        ASSERT_TRUE(undoButton());
        undo();
        EXPECT_FALSE(undoButton());
        ASSERT_TRUE(selected());
        EXPECT_EQ(selected()->templateName(), QStringLiteral("Alpha"));
        EXPECT_EQ(selected()->templateImage().size(), QSize(40, 30));
        EXPECT_TRUE(selected()->templateShouldBeSaved());
        EXPECT_FALSE(QFileInfo::exists(folder));
        pressShortcut("actionSave");
        const auto after = filesIn(folder);
        for (const auto &[file, bytes] : before.asKeyValueRange())
            EXPECT_EQ(after.value(file), bytes) << file.toStdString();
        EXPECT_EQ(QImage(folder + QStringLiteral("/thumbnail.png")), picture);
        EXPECT_TRUE(QFileInfo(folder + QStringLiteral("/link")).isSymLink());
        EXPECT_EQ(QFileInfo(folder + QStringLiteral("/Layout_Samples/One.html")).lastModified(),
                  sampled);
        EXPECT_EQ(selected()->templateDictionary()->value(QStringLiteral("Unknown")), 5);
        EXPECT_FALSE(menuItem("actionUndoDelete")->isEnabled());
    }
}

TEST_F(DeletionTest, UnsavedTextAndDesignsThatHaveNoBundleComeBackToo)
{
    writeDesign(QStringLiteral("Alpha"));
    support::writeFile(customFolder() + QStringLiteral("/Old.html"), "<p>old</p>");
    launch();
    select(QStringLiteral("Alpha"))->setHtmlSourceCode(QStringLiteral("<p>unsaved</p>"));
    clickToolbarItem("toolbar_item_new");
    for (const char *title : {"Alpha", "Old", "New Design"})
        remove(QString::fromLatin1(title));
    EXPECT_TRUE(titles().isEmpty());
    EXPECT_EQ(menuItem("actionUndoDelete")->text(), QStringLiteral("Undo &Delete of “New Design”"));
    for (int count = 0; count < 3; ++count)
        clickMenuItem("actionUndoDelete");
    EXPECT_EQ(titles(), QStringList({QStringLiteral("Alpha"), QStringLiteral("New Design"),
                                     QStringLiteral("Old")}));
    EXPECT_EQ(selected()->htmlSourceCode(), QStringLiteral("<p>unsaved</p>"));
    const support::AlertAnswers saveWithoutIdentifier;
    pressShortcut("actionSaveAll");
    EXPECT_EQ(support::readFile(customFolder() + QStringLiteral("/Old.designTemplate/body.html")),
              "<p>old</p>");
    EXPECT_EQ(support::readFile(customFolder() + QStringLiteral("/Alpha.designTemplate/body.html")),
              "<p>unsaved</p>");
}

TEST_F(DeletionTest, ADesignThatComesBackTakesNoOtherOnesFolder)
{
    const QString folder = writeDesign(QStringLiteral("Alpha"), Group::Custom, "first");
    launch();
    remove(QStringLiteral("Alpha"));
    clickToolbarItem("toolbar_item_new");
    selected()->templateDictionary()->setValue(LSMDesignKeys::name, QStringLiteral("Alpha"));
    pressShortcut("actionSave");
    ASSERT_TRUE(QFileInfo::exists(folder));
    clickMenuItem("actionUndoDelete");
    const support::AlertAnswers saveAnyway;
    pressShortcut("actionSave");
    EXPECT_EQ(support::readFile(folder + QStringLiteral("/body.html")), "");
    EXPECT_EQ(
        support::readFile(customFolder() + QStringLiteral("/Alpha 1.designTemplate/body.html")),
        "first");
}

TEST_F(DeletionTest, WithoutACopyNothingIsDeleted)
{
    const QString folder = writeDesign(QStringLiteral("Alpha"));
    support::writeFile(caches(), "in the way");
    launch();
    support::AlertAnswers answers;
    clickToolbarItem("toolbar_item_delete");
    ASSERT_EQ(answers.shown.size(), 2);
    EXPECT_TRUE(
        answers.shown[1].informativeText.startsWith(QStringLiteral("The design was not deleted")));
    EXPECT_TRUE(answers.shown[1].informativeText.contains(caches()));
    EXPECT_TRUE(QFileInfo::exists(folder + QStringLiteral("/body.html")));
    EXPECT_EQ(titles(), QStringList{QStringLiteral("Alpha")});
    EXPECT_FALSE(menuItem("actionUndoDelete")->isEnabled());
}

TEST_F(DeletionTest, CopiesGoWithTheWindowAndLeftoversAtTheNextStart)
{
    writeDesign(QStringLiteral("Alpha"));
    support::writeFile(caches() + QStringLiteral("/Deleted-aaaaaa/1/body.html"), "of a crash");
    support::writeFile(caches() + QStringLiteral("/Other/file"), "not ours to remove");
    launch();
    EXPECT_TRUE(copies().isEmpty());
    remove(QStringLiteral("Alpha"));
    EXPECT_EQ(copies().size(), 1);
    LSMDeletedDesigns another; // a program that starts meanwhile
    EXPECT_EQ(copies().size(), 1);
    quit();
    EXPECT_TRUE(copies().isEmpty());
    EXPECT_TRUE(QFileInfo::exists(caches() + QStringLiteral("/Other/file")));
}
