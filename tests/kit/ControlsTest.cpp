#include "kit/ui/ElidedLabel.h"
#include "kit/ui/SegmentedControl.h"
#include "kit/ui/TintedIcon.h"
#include "kit/ui/ZQViewExtensions.h"

#include <gtest/gtest.h>
#include <QAccessible>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

namespace {

TEST(SegmentedControl, TheUserSelectsWithMouseAndKeys)
{
    zq::SegmentedControl control({"Design", "HTML", "Store"});
    control.setSelectedSegment(0);
    control.show();
    QSignalSpy activated(&control, &zq::SegmentedControl::activated);
    QSignalSpy changed(&control, &zq::SegmentedControl::selectedSegmentDidChange);

    QTest::keyClick(&control, Qt::Key_Right);
    EXPECT_EQ(control.selectedSegment(), 1);
    QTest::keyClick(&control, Qt::Key_End);
    EXPECT_EQ(control.selectedSegment(), 2);
    QTest::keyClick(&control, Qt::Key_Right);
    EXPECT_EQ(control.selectedSegment(), 2);
    QTest::keyClick(&control, Qt::Key_Home);
    QTest::mouseClick(control.findChildren<QAbstractButton *>()[1], Qt::LeftButton);
    QTest::mouseClick(control.findChildren<QAbstractButton *>()[1], Qt::LeftButton);
    EXPECT_EQ(control.selectedSegment(), 1);
    EXPECT_EQ(changed.count(), 4);
    EXPECT_EQ(activated.count(), 5);
    EXPECT_TRUE(control.findChildren<QAbstractButton *>()[1]->isChecked());
}

TEST(SegmentedControl, TheCountChangesTheLastSegments)
{
    zq::SegmentedControl control({"A", "B", "C"});
    control.setSelectedSegment(2);
    control.setSegmentCount(2);
    EXPECT_EQ(control.selectedSegment(), -1);
    control.setSegmentCount(4);
    control.setSelectedSegment(4);
    EXPECT_EQ(control.selectedSegment(), -1);
    QAccessibleInterface *name = QAccessible::queryAccessibleInterface(&control);
    EXPECT_EQ(name->childCount(), 4);
    EXPECT_EQ(name->child(1)->text(QAccessible::Name), "B");
}

TEST(ElidedLabel, GivesWayAndTellsAllOfItsText)
{
    zq::ElidedLabel label;
    label.setText("/a <b> & " + QString(200, 'x') + "/end");
    EXPECT_GT(label.sizeHint().width(), 400);
    EXPECT_EQ(label.minimumSizeHint().width(), 0);
    EXPECT_TRUE(label.toolTip().contains("/a &lt;b&gt; &amp; xx"));
    const auto picture = [&label](int width) {
        label.resize(width, label.sizeHint().height());
        return label.grab().toImage();
    };
    EXPECT_NE(picture(100), picture(label.sizeHint().width()).copy(picture(100).rect()))
        << "what is left out shows as such";
    label.actions().first()->trigger();
    EXPECT_EQ(QApplication::clipboard()->text(), label.text());
    label.setText({});
    EXPECT_TRUE(label.toolTip().isEmpty());
}

TEST(TintedIcon, FollowsThePalette)
{
    const QIcon icon = zq::tintedIcon("TB_Delete");
    const auto colors = [&](QIcon::Mode mode) {
        QSet<QRgb> result;
        const QImage image =
            icon.pixmap(QSize(24, 24), 2, mode).toImage().convertToFormat(QImage::Format_ARGB32);
        EXPECT_EQ(image.size(), QSize(48, 48));
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (qAlpha(image.pixel(x, y)) == 255)
                    result.insert(image.pixel(x, y));
        return result;
    };
    const QPalette before = QApplication::palette();
    for (const QColor color : {QColor(10, 20, 30), QColor(240, 240, 240)}) {
        QPalette palette = before;
        palette.setColor(QPalette::All, QPalette::ButtonText, color);
        palette.setColor(QPalette::Disabled, QPalette::ButtonText, Qt::red);
        QApplication::setPalette(palette);
        EXPECT_EQ(colors(QIcon::Normal), QSet<QRgb>{color.rgb()});
        EXPECT_EQ(colors(QIcon::Disabled), QSet<QRgb>{QColor(Qt::red).rgb()});
    }
    QApplication::setPalette(before);
}

} // namespace
