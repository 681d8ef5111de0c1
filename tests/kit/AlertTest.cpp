#include "kit/ui/AlertBox.h"
#include "kit/ui/ZQRunAlertPanel.h"
#include "platform/Assert.h"
#include "platform/UserDefaults.h"
#include "support/AlertAnswers.h"
#include "support/TestSupport.h"

#include <gtest/gtest.h>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

namespace {

// Acts on the alert box as soon as it stands on the screen.
void whenShown(const std::function<void(zq::AlertBox &)> &act)
{
    QTimer::singleShot(0, qApp, [act] {
        auto *box = qobject_cast<zq::AlertBox *>(QApplication::activeModalWidget());
        if (box)
            act(*box);
        else
            whenShown(act);
    });
}

int press(Qt::Key key, const QStringList &titles)
{
    whenShown([key](zq::AlertBox &box) { QTest::keyClick(&box, key); });
    return ZQRunAlertPanelWithButtons("Title", "Text", titles);
}

TEST(Alert, KeysAndClosingChooseTheExpectedButton)
{
    EXPECT_EQ(press(Qt::Key_Return, {"Save", "Cancel"}), 1000);
    EXPECT_EQ(press(Qt::Key_Escape, {"Save", "Cancel", "Don't Save"}), 1001);
    EXPECT_EQ(press(Qt::Key_Escape, {"Yes", "No"}), 1001);
    EXPECT_EQ(press(Qt::Key_Escape, {"A", "B", "C", "D"}), 1003);
    EXPECT_EQ(press(Qt::Key_Escape, {}), 1000);
    whenShown([](zq::AlertBox &box) { box.close(); });
    EXPECT_EQ(ZQRunAlertPanel("Title", "Text", "OK", "Cancel"), 1001);
}

TEST(Alert, EveryButtonGivesItsOwnResult)
{
    for (int index = 0; index < 3; ++index) {
        const QStringList titles{"First", "Second", "Third"};
        whenShown([&](zq::AlertBox &box) {
            for (QPushButton *button : box.findChildren<QPushButton *>())
                if (button->text() == titles[index])
                    QTest::mouseClick(button, Qt::LeftButton);
        });
        EXPECT_EQ(ZQRunAlertPanel("Title", "", titles[0], titles[1], titles[2]), 1000 + index);
    }
}

TEST(Alert, TextsAreShownAsTheyAre)
{
    QStringList texts;
    whenShown([&](zq::AlertBox &box) {
        for (const QLabel *label : box.findChildren<QLabel *>())
            if (!label->text().isEmpty() && label->textFormat() == Qt::PlainText)
                texts << label->text();
        box.close();
    });
    ZQRunAlertPanel3("<b>Bold</b>", "100 % of <i>%@</i> & more", "OK");
    EXPECT_EQ(texts, QStringList({"<b>Bold</b>", "100 % of <i>%@</i> & more"}));
}

TEST(Alert, GivesTheAccessoryViewBack)
{
    QLineEdit field;
    whenShown([&](zq::AlertBox &box) {
        EXPECT_TRUE(box.isAncestorOf(&field) && field.isVisible());
        QTest::keyClicks(&field, "typed");
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    ZQRunAlertPanelWithAccessoryView("Name", "Type a name.", "OK", "Cancel", {}, &field);
    EXPECT_EQ(field.text(), "typed");
    EXPECT_EQ(field.parent(), nullptr);
}

TEST(Alert, TheHelpButtonLeavesTheAlertOpen)
{
    QString asked;
    ZQAlertPresenter::setHelpHandler([&](const QString &anchor) { asked = anchor; });
    whenShown([](zq::AlertBox &box) {
        QTest::mouseClick(box.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Help),
                          Qt::LeftButton);
        EXPECT_TRUE(box.isVisible());
        QTest::keyClick(&box, Qt::Key_Return);
    });
    EXPECT_EQ(
        ZQRunAlertPanelWithAccessoryViewAndHelpAnchor("T", "", "OK", {}, {}, nullptr, "saving"),
        1000);
    EXPECT_EQ(asked, "saving");
    ZQAlertPresenter::setHelpHandler({});
}

TEST(Alert, SurvivesTheEndOfItsWindow)
{
    auto *window = new QWidget;
    window->show();
    QApplication::setActiveWindow(window);
    whenShown([&](zq::AlertBox &) { delete window; });
    EXPECT_NE(ZQRunAlertPanel("Title", "Text", "Delete", "Cancel"), 1000);
}

TEST(Alert, SuppressionHoldsUntilItIsReenabled)
{
    const support::TemporaryHome home;
    support::AlertAnswers answers({ZQAlertSecondButtonReturn});
    auto run = [](bool *wasSuppressed) {
        return ZQCustomizableAlert::runAlertPanelWithMessageText("T", "Yes", "No", {}, "x", "ask",
                                                                 wasSuppressed);
    };
    bool wasSuppressed = true;
    EXPECT_EQ(run(&wasSuppressed), 1001);
    EXPECT_FALSE(wasSuppressed);
    answers.ticksSuppression = true;
    EXPECT_EQ(run(&wasSuppressed), 1001);
    EXPECT_EQ(run(&wasSuppressed), 1000);
    EXPECT_TRUE(wasSuppressed);
    EXPECT_EQ(answers.shown.size(), 2);

    auto &defaults = platform::UserDefaults::standardUserDefaults();
    defaults.setObject("other", 1);
    ZQCustomizableAlert::reenableAllSuppressedAlerts();
    EXPECT_EQ(run(&wasSuppressed), 1001);
    EXPECT_TRUE(defaults.isStored("other"));
}

} // namespace
