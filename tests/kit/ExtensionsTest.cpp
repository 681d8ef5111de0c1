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

} // namespace
