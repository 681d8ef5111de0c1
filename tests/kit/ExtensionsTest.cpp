#include "kit/ZQBundleExtensions.h"
#include "kit/ZQImageExtensions.h"
#include "support/TestSupport.h"

#include <gtest/gtest.h>
#include <QDir>

namespace {

QImage coloured(const QSize &size, const QColor &color)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(color);
    return image;
}

TEST(ImageExtensions, ReducesToTheMaximumAndNeverEnlarges)
{
    const auto reduced = [](int width, int height) {
        return zq::reducedAndResampledImageOfMaximumSize(coloured({width, height}, Qt::red),
                                                         QSize(300, 300))
            .size();
    };
    EXPECT_EQ(reduced(600, 400), QSize(300, 200));
    EXPECT_EQ(reduced(100, 900), QSize(33, 300));
    EXPECT_EQ(reduced(300, 300), QSize(300, 300));
    EXPECT_EQ(reduced(20, 10), QSize(20, 10));
    EXPECT_EQ(reduced(5000, 1), QSize(300, 1));
    EXPECT_TRUE(zq::reducedAndResampledImageOfMaximumSize(QImage(), QSize(9, 9)).isNull());
}

TEST(ImageExtensions, WritesFilesOrLeavesThemAlone)
{
    const support::TemporaryHome home;
    const QImage image = coloured({40, 30}, QColor(0, 0, 0, 0));
    ASSERT_TRUE(zq::writeAsPNGToPath(image, home.path("a.png")));
    EXPECT_EQ(qAlpha(QImage(home.path("a.png")).pixel(5, 5)), 0);
    ASSERT_TRUE(zq::writeAsJPEGToPath(image, home.path("a.jpg")));
    EXPECT_GT(qGray(QImage(home.path("a.jpg")).pixel(5, 5)), 250);

    platform::Error error;
    EXPECT_FALSE(zq::writeAsPNGToPath(QImage(), home.path("a.png"), &error));
    EXPECT_TRUE(error.description.contains(home.path("a.png")));
    EXPECT_EQ(QImage(home.path("a.png")).size(), image.size());
    EXPECT_FALSE(zq::writeAsPNGToPath(image, home.path("none/b.png"), &error));
}

TEST(BundleExtensions, NamesVersionsAndFolders)
{
    const support::TemporaryHome home;
    const platform::Bundle &bundle = platform::Bundle::mainBundle();
    EXPECT_EQ(zq::versionInfo(bundle),
              zq::versionString(bundle) + " (" + zq::bundleVersion(bundle) + ")");
    EXPECT_EQ(zq::bundleName(bundle), "Layoutsmith");
    EXPECT_EQ(zq::applicationCachesDirectory(bundle), home.path(".cache/Layoutsmith"));

    const QString folder = home.path(".local/share/Layoutsmith");
    EXPECT_EQ(zq::applicationSupportFolder(bundle), folder);
    EXPECT_FALSE(QDir(folder).exists());
    EXPECT_EQ(zq::existingApplicationSupportFolder(bundle), folder);
    EXPECT_TRUE(QDir(folder).exists());

    QDir().rmdir(folder);
    support::writeFile(folder, "in the way");
    const support::LogCapture log;
    EXPECT_EQ(zq::existingApplicationSupportFolder(bundle), folder);
    EXPECT_TRUE(
        log.contains("Cannot create data directory because plain file exists at path " + folder));
}

} // namespace
