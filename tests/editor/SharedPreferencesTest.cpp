#include "editor/MGSArchiving.h"
#include "editor/MGSFragariaView.h"
#include "editor/MGSHybridUserDefaultsController.h"
#include "editor/MGSUserDefaults.h"
#include "editor/MGSUserDefaultsController.h"
#include "platform/Assert.h"
#include "platform/PropertyList.h"
#include "platform/UserDefaults.h"
#include "support/TestSupport.h"

#include <array>
#include <atomic>
#include <cmath>
#include <gtest/gtest.h>
#include <set>
#include <thread>

using platform::UserDefaults;

namespace {

/// Controllers live as long as the process: each test has groups of its own names.
class SharedPreferences : public testing::Test
{
protected:
    static inline int count = 0;

    ~SharedPreferences() override
    {
        for (const QString &group : {one, other})
            controller(group)->setManagedProperties({});
        global()->setManagedProperties({});
        global()->setPersistent(false);
        for (const QString &key : global()->values()->allKeys())
            global()->values()->removeValue(key);
    }

    static MGSUserDefaultsController *controller(const QString &group)
    {
        return MGSUserDefaultsController::sharedControllerForGroupID(group);
    }
    static MGSUserDefaultsController *global()
    {
        return MGSUserDefaultsController::sharedController();
    }
    QVariantMap stored(const QString &group) const
    {
        return UserDefaults::standardUserDefaults().dictionary(group);
    }
    QString exceptionOf(const std::function<void()> &action)
    {
        try {
            action();
        } catch (const platform::Exception &exception) {
            return exception.name() + u'\n' + exception.reason();
        }
        return {};
    }
    /// As another process does it: a new file, renamed over the old one.
    void writeOutside(const QString &group, const QVariant &values)
    {
        UserDefaults::standardUserDefaults().synchronize();
        ASSERT_TRUE(platform::PropertyList::write(QVariantMap{{group, values}},
                                                  platform::PropertyList::Format::Binary,
                                                  home.path(".config/defaults.plist")));
    }

    support::TemporaryHome home;
    const QString one = QStringLiteral("One %1").arg(++count);
    const QString other = QStringLiteral("Other %1").arg(count);
};

TEST_F(SharedPreferences, AnyThreadMayLookAGroupUp)
{
    std::array<MGSHybridUserDefaultsController *, 8> found{};
    std::atomic<int> done = 0;
    std::vector<std::jthread> threads;
    for (auto &each : found)
        threads.emplace_back([this, &each, &done] {
            each = MGSHybridUserDefaultsController::sharedControllerForGroupID(one);
            ++done;
        });
    ASSERT_TRUE(support::waitUntil([&] { return done == int(found.size()); }));
    threads.clear();
    EXPECT_EQ(std::set(found.begin(), found.end()).size(), 1U);
    EXPECT_EQ(found[0]->thread(), QThread::currentThread());
}

TEST_F(SharedPreferences, StoredColoursAndFontsAreDataAndNilRemoves)
{
    MGSUserDefaults &defaults = MGSUserDefaults::sharedUserDefaultsForGroupID(one);
    EXPECT_EQ(&defaults, &MGSUserDefaults::sharedUserDefaultsForGroupID(one));
    EXPECT_EQ(MGSUserDefaults::sharedUserDefaults().groupID(), "Global");
    int changes = 0;
    const QObject listener;
    QObject::connect(&defaults, &MGSUserDefaults::didChange, &listener, [&] { ++changes; });

    const QFont font("DejaVu Sans Mono", 17);
    defaults.setObject("textColor", QColor(1, 2, 3));
    defaults.setObject("textFont", font);
    defaults.setObject("tabWidth", 3);
    EXPECT_EQ(changes, 3);
    EXPECT_EQ(stored(one)["textColor"].typeId(), QMetaType::QByteArray);
    EXPECT_EQ(stored(one)["textFont"].typeId(), QMetaType::QByteArray);
    EXPECT_EQ(defaults.object("textColor"), QColor(1, 2, 3));
    EXPECT_EQ(defaults.object("textFont"), font);
    EXPECT_EQ(defaults.object("tabWidth"), 3);
    EXPECT_FALSE(MGSUserDefaults::sharedUserDefaultsForGroupID(other).object("tabWidth").isValid());

    defaults.setObject("textColor", {});
    EXPECT_FALSE(defaults.object("textColor").isValid());
    EXPECT_EQ(defaults.allKeys(), QStringList({"tabWidth", "textFont"}));

    MGSUserDefaults &registered = MGSUserDefaults::sharedUserDefaultsForGroupID(other);
    registered.registerDefaults({{"tabWidth", 5}, {"textColor", QColor(Qt::red)}});
    EXPECT_EQ(registered.object("textColor"), QColor(Qt::red));
    registered.setObject("tabWidth", {});
    EXPECT_FALSE(registered.object("tabWidth").isValid());
    EXPECT_EQ(registered.object("textColor"), QColor(Qt::red));
}

TEST_F(SharedPreferences, TwoEditorsShareAGroupWhileAThirdHasItsOwn)
{
    MGSFragariaView first, second, third;
    global()->setManagedProperties({"tabWidth", "lineWrap"});
    controller(one)->setManagedProperties({"tabWidth"});
    controller(other)->setManagedProperties({"tabWidth", "textColor"});
    EXPECT_EQ(global()->managedProperties(), QSet<QString>{"lineWrap"});
    controller(one)->addFragariaToManagedSet(&first);
    controller(one)->addFragariaToManagedSet(&second);
    controller(other)->addFragariaToManagedSet(&third);
    EXPECT_EQ(global()->managedInstances(), (QSet<MGSFragariaView *>{&first, &second, &third}));

    controller(one)->values()->setValue("tabWidth", 7);
    EXPECT_EQ(QList<int>({first.tabWidth(), second.tabWidth(), third.tabWidth()}),
              QList<int>({7, 7, 4}));
    second.setTabWidth(9); // in code
    EXPECT_EQ(first.tabWidth(), 9);
    EXPECT_EQ(controller(one)->values()->value("tabWidth"), 9);
    global()->values()->setValue("lineWrap", false);
    for (const MGSFragariaView *view : {&first, &second, &third})
        EXPECT_FALSE(view->lineWrap());

    controller(other)->removeFragariaFromManagedSet(&third);
    controller(other)->values()->setValue("tabWidth", 2);
    global()->values()->setValue("lineWrap", true);
    EXPECT_EQ(third.tabWidth(), 4);
    EXPECT_FALSE(third.lineWrap());
    EXPECT_TRUE(first.lineWrap());

    controller(one)->setManagedProperties({"lineWrap"});
    controller(one)->values()->setValue("tabWidth", 1);
    EXPECT_EQ(first.tabWidth(), 9) << "no longer managed";
    global()->values()->setValue("lineWrap", false);
    EXPECT_TRUE(first.lineWrap()) << "the group's own now";
}

TEST_F(SharedPreferences, ValuesReachLaterViewsAndGoneOnesAreForgotten)
{
    controller(one)->setManagedProperties({"showsInvisibleCharacters", "syntaxColoured"});
    {
        MGSFragariaView gone;
        controller(one)->addFragariaToManagedSet(&gone);
    }
    EXPECT_TRUE(controller(one)->managedInstances().isEmpty());
    controller(one)->values()->setValue("showsInvisibleCharacters", true);
    controller(one)->values()->setValue("syntaxColoured", false);
    MGSFragariaView later;
    controller(one)->addFragariaToManagedSet(&later);
    EXPECT_TRUE(later.showsInvisibleCharacters());
    EXPECT_FALSE(later.isSyntaxColoured());
    later.setSyntaxColoured(true);
    EXPECT_EQ(controller(one)->values()->value("syntaxColoured"), true);
}

TEST_F(SharedPreferences, ClashesAreRefusedAndChangeNothing)
{
    MGSFragariaView view;
    controller(one)->addFragariaToManagedSet(&view);
    const QString clash = exceptionOf([&] { global()->addFragariaToManagedSet(&view); });
    EXPECT_TRUE(clash.startsWith("MGSUserDefaultsControllerClash\nTrying to manage Fragaria "
                                 "<MGSFragariaView: 0x"));
    EXPECT_TRUE(clash.endsWith("> with more than one MGSUserDefaultsController!"));
    controller(one)->addFragariaToManagedSet(&view); // which has it: no clash

    controller(one)->setManagedProperties({"tabWidth", "textFont"});
    EXPECT_EQ(exceptionOf([&] {
                  global()->setManagedProperties({"lineWrap", "textFont", "tabWidth"});
              }),
              "MGSUserDefaultsControllerPropertyClash\nTried to manage globally properties which "
              "are already managed locally.\nConflicting properties: " +
                  platform::format("%@", QStringList({"tabWidth", "textFont"})));
    EXPECT_TRUE(global()->managedProperties().isEmpty());

    const support::LogCapture log;
    controller(other)->removeFragariaFromManagedSet(&view);
    EXPECT_TRUE(log.contains("Attempted to remove Fragaria <MGSFragariaView: 0x"));
    EXPECT_TRUE(log.contains("but it was not registered in the first place!"));
}

TEST_F(SharedPreferences, OnlyWhatWasSetIsStoredAndComesBack)
{
    MGSUserDefaultsController *values = controller(one);
    MGSUserDefaults::sharedUserDefaultsForGroupID(one).setObject("pageGuideColumn", 66);
    values->setManagedProperties({"tabWidth", "pageGuideColumn", "backgroundColor"});
    values->values()->setValue("tabWidth", 3);
    EXPECT_FALSE(stored(one).contains("tabWidth"));

    values->setPersistent(true);
    EXPECT_EQ(stored(one), (QVariantMap{{"tabWidth", 3LL}, {"pageGuideColumn", 66LL}}));
    EXPECT_EQ(values->values()->value("pageGuideColumn"), 66);
    values->values()->setValue("backgroundColor", QColor(Qt::black));
    EXPECT_EQ(mgs_unarchivedValue(stored(one)["backgroundColor"]), QColor(Qt::black));

    QVariantMap defaults = values->defaultValues();
    defaults["tabWidth"] = 8;
    defaults["pageGuideColumn"] = 100;
    values->setDefaultValues(defaults);
    values->values()->removeValue("tabWidth");
    EXPECT_EQ(values->values()->value("tabWidth"), 8);
    EXPECT_EQ(values->values()->value("pageGuideColumn"), 66) << "set, so no default";
    EXPECT_FALSE(stored(one).contains("tabWidth"));

    values->setPersistent(false);
    values->values()->setValue("pageGuideColumn", 1);
    EXPECT_EQ(stored(one)["pageGuideColumn"], 66);
}

TEST_F(SharedPreferences, ViewsFollowDefaultValuesUntilOneIsSet)
{
    MGSFragariaView view;
    controller(one)->setManagedProperties({"textColor", "backgroundColor"});
    controller(one)->addFragariaToManagedSet(&view);
    controller(one)->values()->setValue("textColor", QColor(Qt::white));
    QVariantMap defaults = controller(one)->defaultValues();
    defaults["textColor"] = defaults["backgroundColor"] = QColor(Qt::blue);
    controller(one)->setDefaultValues(defaults);
    EXPECT_EQ(view.textColor(), QColor(Qt::white));
    EXPECT_EQ(view.backgroundColor(), QColor(Qt::blue));
    controller(one)->values()->removeValue("textColor");
    EXPECT_EQ(view.textColor(), QColor(Qt::blue));
}

TEST_F(SharedPreferences, WhatAnotherProcessWritesArrives)
{
    MGSFragariaView view;
    controller(one)->setManagedProperties({"tabWidth", "lineWrap", "textColor"});
    controller(one)->setPersistent(true);
    controller(one)->addFragariaToManagedSet(&view);
    controller(one)->values()->setValue("lineWrap", false);
    writeOutside(
        one, QVariantMap{{"tabWidth", 6}, {"textColor", mgs_archivedValue(QColor(Qt::darkCyan))}});
    EXPECT_TRUE(support::waitUntil([&] { return view.tabWidth() == 6; }));
    EXPECT_EQ(view.textColor(), QColor(Qt::darkCyan));
    EXPECT_TRUE(view.lineWrap()) << "no longer set";
}

TEST_F(SharedPreferences, StoredValuesOfTheWrongShapeCountAsNone)
{
    MGSFragariaView view;
    const QSet<QString> properties(
        {"tabWidth", "textColor", "textFont", "lineWrap", "autoCompleteDelay", "pageGuideColumn"});
    controller(one)->setManagedProperties(properties);
    controller(one)->setPersistent(true);
    controller(one)->addFragariaToManagedSet(&view);
    const QVariantList shapes = {
        QStringLiteral("no dictionary"),
        17,
        QVariantList{1, 2},
        QByteArray("\0\1", 2),
        QVariantMap{{"tabWidth", QVariantList{1}},
                    {"textColor", QByteArray("MGSColour1\nx")},
                    {"textFont", 12},
                    {"lineWrap", QVariantMap{{"a", 1}}},
                    {"autoCompleteDelay", "soon"},
                    {"pageGuideColumn", QDateTime::currentDateTime()},
                    {"unknown", 1}},
    };
    for (const QVariant &shape : shapes) {
        UserDefaults::standardUserDefaults().setObject(one, shape);
        for (const QString &property : properties)
            EXPECT_EQ(controller(one)->values()->value(property),
                      mgs_unarchivedValue(MGSFragariaView::defaultsDictionary().value(property)))
                << property.toStdString();
    }
    EXPECT_EQ(view.tabWidth(), 4);
    EXPECT_EQ(view.property("unknown"), QVariant());

    UserDefaults::standardUserDefaults().setObject(
        one, QVariantMap{{"tabWidth", -4000000000LL}, {"pageGuideColumn", 1e300}});
    EXPECT_GE(view.tabWidth(), 0);
    EXPECT_GE(view.pageGuideColumn(), 0);

    UserDefaults::standardUserDefaults().setObject(one, "no dictionary");
    controller(one)->values()->setValue("tabWidth", 5);
    EXPECT_EQ(stored(one), (QVariantMap{{"tabWidth", 5LL}}));
}

TEST_F(SharedPreferences, StoredValuesBeyondAllMeasureAreSurvived)
{
    MGSFragariaView view;
    view.resize(400, 200);
    view.show();
    view.setString("<p>\tsome\u00a0text</p>\n\n<b>");
    const QStringList keys = MGSFragariaView::defaultsDictionary().keys();
    controller(one)->setManagedProperties({keys.begin(), keys.end()});
    controller(one)->setPersistent(true);
    controller(one)->addFragariaToManagedSet(&view);
    QFont huge("DejaVu Sans Mono"), none(huge);
    huge.setPointSizeF(1e5);
    none.setPointSizeF(0.01);
    const QVariantList values = {
        -1LL,
        0LL,
        1LL << 40,
        -1e300,
        1e300,
        std::nan(""),
        mgs_archivedValue(huge),
        mgs_archivedValue(none),
        mgs_archivedValue(QColor()),
        mgs_archivedValue(QColor(0, 0, 0, 0)),
    };
    for (const QVariant &value : values) {
        for (const QString &key : keys) {
            UserDefaults::standardUserDefaults().setObject(one, QVariantMap{{key, value}});
            view.grab();
        }
    }
    UserDefaults::standardUserDefaults().removeObject(one);
    EXPECT_EQ(view.textFont().pointSizeF(), 11);
    EXPECT_EQ(view.lineHeightMultiple(), 0);

    for (const auto &[text, isOn] : {std::pair("NO", false), {"YES", true}, {"0", false}}) {
        UserDefaults::standardUserDefaults().setObject(one, QVariantMap{{"showsGutter", text}});
        EXPECT_EQ(view.showsGutter(), isOn) << text;
    }
    view.setIndentWidth(4'000'000'000);
    EXPECT_EQ(view.indentWidth(), 100U);
}

TEST_F(SharedPreferences, AHybridReadsAndWritesWhereverAPropertyIsManaged)
{
    global()->setManagedProperties({"lineWrap", "textColor"});
    controller(one)->setManagedProperties({"tabWidth", "textColor"});
    auto *hybrid = MGSHybridUserDefaultsController::sharedControllerForGroupID(one);
    const auto values = hybrid->values();
    EXPECT_EQ(hybrid->managedProperties(), (QSet<QString>{"lineWrap", "tabWidth", "textColor"}));
    EXPECT_EQ(values->allKeys(), QStringList({"lineWrap", "tabWidth", "textColor"}));
    QStringList told;
    const QObject listener;
    QObject::connect(values.get(), &platform::ObservableDictionary::valueChanged, &listener,
                     [&](const QString &key) { told << key; });

    values->setValue("lineWrap", false);
    values->setValue("textColor", QColor(Qt::green));
    values->setValue("pageGuideColumn", 3); // managed by neither
    EXPECT_EQ(global()->values()->value("lineWrap"), false);
    EXPECT_EQ(controller(one)->values()->value("textColor"), QColor(Qt::green));
    EXPECT_FALSE(global()->isSet("textColor"));
    EXPECT_FALSE(values->value("pageGuideColumn").isValid());
    global()->values()->setValue("textColor", QColor(Qt::red)); // the group's counts
    EXPECT_EQ(told, QStringList({"lineWrap", "textColor"}));
    EXPECT_EQ(values->value("textColor"), QColor(Qt::green));
    EXPECT_TRUE(hybrid->isSet("lineWrap"));
    EXPECT_FALSE(hybrid->isSet("tabWidth"));

    try {
        MGSHybridUserDefaultsController::sharedControllerForGroupID({});
        ADD_FAILURE();
    } catch (const platform::AssertionFailure &failure) {
        EXPECT_EQ(failure.text(), "groupID cannot be nil");
    }
}

} // namespace
