#include "workbench/WorkbenchFixture.h"

#include "library/LSMDesignKeys.h"
#include "platform/KeyedArchive.h"
#include "platform/NotificationCenter.h"
#include "platform/UserDefaults.h"
#include "platform/web/WebView.h"
#include "workbench/LSMNotifications.h"

#include <QMenu>
#include <QPushButton>
#include <QTest>

/// The window with a design's HTML and its preview.
class PreviewTest : public WorkbenchTest
{
protected:
    void launchWith(const QByteArray &html, const QVariantMap &info = {})
    {
        writeDesign(QStringLiteral("Alpha"), Group::Custom, html, info);
        launchAgain();
    }
    void launchAgain()
    {
        launch();
        window()->resize(1300, 800);
        pressShortcut("actionViewHtml");
        ASSERT_TRUE(support::waitUntil([&] { return page() && !documents().isEmpty(); }));
    }
    QWidget *page() const { return child<QWidget>("recordingWebWidget"); }
    QStringList documents() const { return page()->property("documents").toStringList(); }
    void choose(const char *popup, const QString &title)
    {
        auto *button = child<QPushButton>(popup);
        const QList<QAction *> actions = button->menu()->actions();
        const auto found = std::ranges::find(actions, title, &QAction::text);
        ASSERT_NE(found, actions.end()) << title.toStdString();
        (*found)->trigger();
        EXPECT_EQ(button->text(), title);
    }
    double cssWidth() const
    {
        return child<platform::WebView>("previewWebView")->width() /
               page()->property("zoomFactor").toDouble();
    }
};

TEST_F(PreviewTest, ThePageIsAsWideAsTheDeviceWhateverRoomThereIs)
{
    launchWith("<p>a</p>");
    const auto *stage = child<QWidget>("stage");
    auto *web = child<platform::WebView>("previewWebView");
    EXPECT_EQ(web->width(), stage->width());
    for (const auto &[device, width] : {std::pair("Phone", 390), {"Desktop", 1280}}) {
        choose("widthPopup", QString::fromLatin1(device));
        EXPECT_NEAR(cssWidth(), width, 0.5);
        EXPECT_LE(web->width(), stage->width());
        EXPECT_EQ(web->geometry().center().x(), stage->rect().center().x());
    }
    choose("widthPopup", QStringLiteral("Phone"));
    choose("sizePopup", QStringLiteral("50 %"));
    EXPECT_EQ(web->width(), 195);
    EXPECT_NEAR(cssWidth(), 390, 0.5);
    window()->resize(900, 700);
    EXPECT_NEAR(cssWidth(), 390, 0.5);
    choose("widthPopup", QStringLiteral("Fit"));
    EXPECT_NEAR(cssWidth(), 2 * stage->width(), 0.5);
}

TEST_F(PreviewTest, ItsChoicesComeBackAtTheNextStart)
{
    launchWith("[[LBTitle]]");
    choose("widthPopup", QStringLiteral("Phone"));
    choose("sizePopup", QStringLiteral("50 %"));
    choose("listingPopup", QStringLiteral("Empty Fields"));
    quit();
    launchAgain();
    EXPECT_NEAR(cssWidth(), 390, 0.5);
    EXPECT_EQ(child<QPushButton>("sizePopup")->text(), QStringLiteral("50 %"));
    EXPECT_EQ(child<QPushButton>("listingPopup")->text(), QStringLiteral("Empty Fields"));
    EXPECT_FALSE(documents().last().contains(QStringLiteral("[[")));
    quit();
    platform::UserDefaults::standardUserDefaults().setObject(QStringLiteral("previewWidth"), -7);
    launchAgain();
    EXPECT_EQ(child<QPushButton>("widthPopup")->text(), QStringLiteral("Fit"));
}

TEST_F(PreviewTest, AListingTakesThePlaceOfPlaceholdersAndTouchesNoText)
{
    const QVariantMap stripe{{QStringLiteral("name"), QStringLiteral("Gift Line")},
                             {QStringLiteral("defaultValue"), QStringLiteral("Wrapped!")}};
    const QVariantMap ink{
        {QStringLiteral("name"), QStringLiteral("Ink")},
        {QStringLiteral("defaultValue"), platform::KeyedArchive::archivedColor(QColor(9, 8, 255))}};
    launchWith("[[LBTitle]]|[[LBProperty_Gift_Line]]|[[LBShippingTime]]|<img src='[[LBPicture1]]'>"
               "[[if LBLayoutEnabled_One or LBLayoutNotDefined]]ONE[[endif]]"
               "[[if LBLayoutEnabled_Two]]TWO[[endif]]<i style='color:[[LBProperty_Ink]]'>",
               {{LSMDesignKeys::properties, QVariantList{stripe, ink}}});
    const QString asWritten = documents().last();
    EXPECT_TRUE(asWritten.contains(QStringLiteral("[[LBTitle]]")));
    const auto shows = [&](const char *listing, const char *text) {
        choose("listingPopup", QString::fromLatin1(listing));
        return documents().last().contains(QString::fromUtf8(text));
    };
    EXPECT_TRUE(shows("Usual Listing", "lamp, 1930s|Wrapped!|Shipping Time|<img src='data:image"));
    EXPECT_TRUE(documents().last().contains(QStringLiteral("ONE<i style='color:#0908ff'>\n")));
    EXPECT_TRUE(shows("Empty Fields", "\n|Wrapped!||<img src=''>ONE<i"));
    EXPECT_TRUE(shows("Very Long Texts", "Donaudampf"));
    EXPECT_TRUE(shows("Right to Left", "مصباح"));
    EXPECT_TRUE(shows("Missing Pictures", "<img src='data:,'>"));
    choose("listingPopup", QStringLiteral("As Written"));
    EXPECT_EQ(documents().last(), asWritten);
    EXPECT_FALSE(selected()->templateShouldBeSaved());

    EXPECT_TRUE(shows("Usual Listing", "Wrapped!"));
    selected()->templateDictionary()->setValue(LSMDesignKeys::properties, QVariantList{ink});
    platform::NotificationCenter::defaultCenter().post(LSMDesignPropertyDidChange, selected());
    EXPECT_TRUE(support::waitUntil(
        [&] { return documents().last().contains(QStringLiteral("[[LBProperty_Gift_Line]]")); }));
}

TEST_F(PreviewTest, APageThatDiesSaysSoAndComesBack)
{
    launchWith("<p>a</p>");
    auto *banner = child<QWidget>("previewBanner");
    EXPECT_FALSE(banner->isVisible());
    const QStringList before = documents();
    page()->setProperty("dies", true);
    EXPECT_TRUE(banner->isVisible());
    EXPECT_EQ(selected()->htmlSourceCode(), QStringLiteral("<p>a</p>"));
    QTest::mouseClick(child<QPushButton>("reloadButton"), Qt::LeftButton);
    EXPECT_FALSE(banner->isVisible());
    EXPECT_EQ(documents().size(), before.size() + 1);
    EXPECT_EQ(documents().last(), before.last());
}

TEST_F(PreviewTest, ThePreviewBecomesThePictureAndIsSaved)
{
    launchWith("<p>a</p>");
    page()->setStyleSheet(QStringLiteral("background: #00f"));
    choose("widthPopup", QStringLiteral("Phone"));
    QTest::mouseClick(child<QPushButton>("takePictureButton"), Qt::LeftButton);
    const QImage picture = selected()->templateImage();
    EXPECT_EQ(qMax(picture.width(), picture.height()), 300);
    EXPECT_LT(picture.width(), picture.height());
    EXPECT_TRUE(selected()->templateShouldBeSaved());
    pressShortcut("actionSave");
    EXPECT_EQ(QImage(selected()->templatePath() + QStringLiteral("/thumbnail.png")).size(),
              picture.size());

    page()->setProperty("dies", true);
    clickMenuItem("actionTakePreviewPicture");
    EXPECT_FALSE(selected()->templateShouldBeSaved()) << "there is no page to take";
}

TEST_F(PreviewTest, ABuiltInDesignTakesNoPicture)
{
    writeDesign(QStringLiteral("Alpha"), Group::BuiltIn);
    launch();
    pressShortcut("actionViewHtml");
    EXPECT_FALSE(child<QPushButton>("takePictureButton")->isEnabled());
}
