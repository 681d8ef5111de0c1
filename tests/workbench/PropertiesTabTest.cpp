#include "library/LSMDesignKeys.h"
#include "platform/KeyedArchive.h"
#include "platform/NotificationCenter.h"
#include "platform/PropertyList.h"
#include "workbench/LSMNotifications.h"
#include "workbench/LSMPropertyEditorViewController.h"
#include "workbench/LSMPropertyTable.h"
#include "workbench/LSMValuesViewController.h"
#include "workbench/WorkbenchFixture.h"

#include <QColorDialog>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QTableView>
#include <QTest>
#include <QToolButton>

using namespace LSMDesignKeys;
using platform::PropertyList;
using Model = LSMPropertyTableModel;

namespace {

QVariantMap record(const QString &title, const QString &type, const QVariant &value = {},
                   const QVariant &allowed = {})
{
    QVariantMap result{{propertyName, title}, {propertyType, type}};
    if (value.isValid())
        result.insert(propertyDefaultValue, value);
    if (allowed.isValid())
        result.insert(propertyAllowedValues, allowed);
    return result;
}

QVariantMap info(const QVariant &list)
{
    return list.isValid() ? QVariantMap{{properties, list}} : QVariantMap();
}

class PropertiesTabTest : public WorkbenchTest
{
protected:
    const QVariantList colors{QStringLiteral("Red"), QStringLiteral("Green"),
                              QStringLiteral("Blue")};

    void open(const QVariant &list, Group group = Group::Custom)
    {
        folder = writeDesign(QStringLiteral("Alpha"), group, "a", info(list));
        launch();
        ASSERT_TRUE(select(QStringLiteral("Alpha")));
        pressShortcut("actionViewProperties");
        focusTable();
    }
    void focusTable()
    {
        QApplication::setActiveWindow(window());
        table()->setFocus();
    }
    LSMPropertyTable *table() const { return child<LSMPropertyTable>("propertiesTable"); }
    LSMPropertyEditorViewController *tab() const
    {
        return child<LSMPropertyEditorViewController>("propertiesTab");
    }
    QModelIndex cell(int row, Model::Column column) const
    {
        return table()->model()->index(row, column);
    }
    QVariantList list() const
    {
        return selected()->templateDictionary()->value(properties).toList();
    }
    QVariant value(int row, QLatin1StringView key) const
    {
        return list().value(row).toMap().value(key);
    }
    QStringList names() const
    {
        QStringList result;
        for (const QVariant &entry : list())
            result << entry.toMap().value(propertyName).toString();
        return result;
    }
    QVariant savedList() const
    {
        return PropertyList::read(folder + QStringLiteral("/Info.plist"))
            ->root.toMap()
            .value(properties);
    }
    bool isDirty() const { return selected()->templateShouldBeSaved(); }
    void key(int which, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(qApp->focusWidget(), Qt::Key(which), modifiers);
        support::settle();
    }
    void click(const QModelIndex &index)
    {
        table()->scrollTo(index);
        QTest::mouseClick(table()->viewport(), Qt::LeftButton, {},
                          table()->visualRect(index).center());
        support::settle();
    }
    void selectRows(const QList<int> &rows)
    {
        click(cell(rows.constFirst(), Model::NameColumn));
        for (const int row : rows.mid(1))
            QTest::mouseClick(table()->viewport(), Qt::LeftButton, Qt::ControlModifier,
                              table()->visualRect(cell(row, Model::NameColumn)).center());
    }
    void chooseType(int row, const QString &type)
    {
        click(cell(row, Model::TypeColumn));
        auto *popup = table()->findChild<QMenu *>(QStringLiteral("typePopup"));
        ASSERT_TRUE(popup && popup->isVisible());
        for (QAction *item : popup->actions()) {
            if (item->data() == type)
                QTest::mouseClick(popup, Qt::LeftButton, {}, popup->actionGeometry(item).center());
        }
        support::settle();
    }
    LSMValuesViewController *openValues(int row)
    {
        click(cell(row, Model::ValueColumn));
        return window()->findChild<LSMValuesViewController *>();
    }
    void closeValues()
    {
        window()->findChild<LSMValuesViewController *>()->window()->close();
        support::settle();
    }
    void dismissWhatOpened()
    {
        table()->grab();
        if (QWidget *popup = QApplication::activePopupWidget())
            popup->close();
        if (auto *panel = tab()->findChild<QColorDialog *>())
            panel->reject();
        support::settle();
        focusTable();
    }
    bool drop(const QMimeData *data, int gap)
    {
        const int y = gap < table()->model()->rowCount()
                          ? table()->rowViewportPosition(gap) + 2
                          : table()->rowViewportPosition(gap - 1) + table()->rowHeight(gap - 1) - 2;
        QDragEnterEvent enter({20, y}, Qt::MoveAction, data, Qt::LeftButton, {});
        QApplication::sendEvent(table()->viewport(), &enter);
        QDragMoveEvent move({20, y}, Qt::MoveAction, data, Qt::LeftButton, {});
        QApplication::sendEvent(table()->viewport(), &move);
        QDropEvent event(QPointF(20, y), Qt::MoveAction, data, Qt::LeftButton, {});
        QApplication::sendEvent(table()->viewport(), &event);
        return event.isAccepted();
    }

    QString folder;
};

} // namespace

TEST_F(PropertiesTabTest, PropertiesAreAddedNamedAndSaved)
{
    open({});
    ASSERT_FALSE(isDirty());
    QTest::mouseClick(child<QToolButton>("addPropertyButton"), Qt::LeftButton);
    support::settle();
    EXPECT_TRUE(isDirty());
    EXPECT_EQ(list(), QVariantList{record("New Design Property", "String", "Default String")});
    ASSERT_TRUE(qobject_cast<QLineEdit *>(qApp->focusWidget()));
    QTest::keyClicks(qApp->focusWidget(), "Glaze");
    EXPECT_EQ(names(), QStringList{"Glaze"}) << "what is being typed counts";
    key(Qt::Key_Return);
    EXPECT_EQ(qApp->focusWidget(), table());
    table()->setCurrentIndex(cell(0, Model::ValueColumn));
    key(Qt::Key_Return);
    QTest::keyClicks(qApp->focusWidget(), "white");
    pressShortcut("actionSave");
    EXPECT_EQ(savedList(), QVariant(QVariantList{record("Glaze", "String", "white")}));
    EXPECT_FALSE(isDirty());
    QTest::keyClicks(qApp->focusWidget(), "r");
    EXPECT_TRUE(isDirty()) << "after a save the next change counts again";
    key(Qt::Key_Escape);
    EXPECT_EQ(value(0, propertyDefaultValue), "Default String");
    while (table()->canUndo())
        pressShortcut("actionUndo");
    EXPECT_FALSE(selected()->templateDictionary()->contains(properties)) << "as it was at first";
    pressShortcut("actionRedo");
    EXPECT_EQ(list().size(), 1);
    click(cell(0, Model::NameColumn));
    auto *remove = child<QToolButton>("removePropertyButton");
    QTest::mouseClick(remove, Qt::LeftButton);
    EXPECT_EQ(list(), QVariantList());
    support::settle();
    EXPECT_FALSE(remove->isEnabled());
}

TEST_F(PropertiesTabTest, AnotherTypeSetsTheDefaultBack)
{
    const QByteArray red = platform::KeyedArchive::archivedColor(Qt::red);
    open(QVariantList{record("A", colorProperty, red), record("B", stringProperty, "text"),
                      record("C", booleanProperty, true), record("D", "Gradient", 5),
                      record("E", valuesProperty, "Red", colors)});
    int posts = 0;
    platform::NotificationCenter::defaultCenter().addObserver(
        window(), LSMDesignPropertyDidChange, selected(), [&](const auto &) { ++posts; });
    chooseType(0, booleanProperty);
    EXPECT_EQ(list()[0], record("A", booleanProperty, false));
    EXPECT_GT(posts, 0);
    chooseType(1, colorProperty);
    EXPECT_EQ(list()[1], record("B", colorProperty));
    EXPECT_TRUE(cell(1, Model::ValueColumn).data().toString().isEmpty());
    chooseType(2, separatorProperty);
    EXPECT_EQ(list()[2], record("C", separatorProperty));
    EXPECT_TRUE(cell(2, Model::NameColumn).data(Qt::BackgroundRole).isValid());
    chooseType(3, stringProperty);
    EXPECT_EQ(list()[3], record("D", stringProperty, ""));
    chooseType(4, valuesProperty);
    EXPECT_EQ(list()[4], record("E", valuesProperty, "Red", colors)) << "no other type, no change";
    chooseType(4, separatorProperty);
    chooseType(4, valuesProperty);
    EXPECT_EQ(list()[4], record("E", valuesProperty, {}, colors));
    EXPECT_TRUE(isDirty());
}

TEST_F(PropertiesTabTest, CellsHaveTheControlOfTheirType)
{
    const QByteArray fine =
        platform::KeyedArchive::archivedColor(QColor::fromRgba64(1000, 20000, 65535));
    open(QVariantList{record("A", colorProperty), record("B", booleanProperty, false),
                      record("C", colorProperty, fine)});
    click(cell(2, Model::ValueColumn));
    tab()->findChild<QColorDialog *>()->accept();
    support::settle();
    EXPECT_FALSE(isDirty()) << "the colour that it is";
    click(cell(0, Model::ValueColumn));
    const QPointer<QColorDialog> panel = tab()->findChild<QColorDialog *>();
    ASSERT_TRUE(panel && panel->isVisible());
    EXPECT_FALSE(isDirty());
    panel->setCurrentColor(QColor(1, 2, 3, 128));
    panel->accept();
    support::settle();
    EXPECT_EQ(platform::KeyedArchive::unarchivedColor(value(0, propertyDefaultValue).toByteArray()),
              QColor(1, 2, 3, 128));
    EXPECT_EQ(cell(0, Model::ValueColumn).data(), "#010203, 50 %");
    EXPECT_EQ(cell(2, Model::ValueColumn).data(), "#044eff");

    focusTable();
    table()->setCurrentIndex(cell(1, Model::ValueColumn));
    key(Qt::Key_Space);
    EXPECT_EQ(value(1, propertyDefaultValue), true);
    QTest::mouseClick(table()->viewport(), Qt::LeftButton, {},
                      table()->visualRect(cell(1, Model::ValueColumn)).topLeft() + QPoint(14, 15));
    EXPECT_EQ(value(1, propertyDefaultValue), false);
    EXPECT_EQ(value(1, propertyDefaultValue).typeId(), QMetaType::Bool);

    click(cell(0, Model::ValueColumn));
    ASSERT_TRUE(tab()->findChild<QColorDialog *>());
    pressShortcut("actionViewDesign");
    EXPECT_FALSE(tab()->findChild<QColorDialog *>()) << "the panel goes with the tab";
}

TEST_F(PropertiesTabTest, ThePopoverEditsTheAllowedValues)
{
    open(QVariantList{record("A", valuesProperty, "Green", colors)});
    LSMValuesViewController *values = openValues(0);
    ASSERT_TRUE(values);
    auto *rows = values->findChild<QTableView *>("valuesTable");
    EXPECT_FALSE(isDirty());
    QAbstractItemModel *model = rows->model();
    model->setData(model->index(2, 1), Qt::Checked, Qt::CheckStateRole);
    EXPECT_EQ(values->defaultValue(), "Blue");
    model->setData(model->index(0, 1), Qt::Unchecked, Qt::CheckStateRole);
    EXPECT_EQ(values->defaultValue(), "Blue");
    const auto press = [&](const char *button) {
        QTest::mouseClick(values->findChild<QToolButton *>(button), Qt::LeftButton);
    };
    press("addButton");
    QTest::keyClicks(qApp->focusWidget(), "Grey");
    rows->selectRow(0);
    press("removeButton");
    EXPECT_FALSE(isDirty());
    closeValues();
    EXPECT_EQ(list()[0],
              record("A", valuesProperty, "Blue", QVariantList{"Green", "Blue", "Grey"}));
    EXPECT_TRUE(isDirty());

    pressShortcut("actionSave");
    openValues(0);
    EXPECT_FALSE(isDirty());
    closeValues();
    EXPECT_TRUE(isDirty()) << "closing marks the design, even with no change";
    EXPECT_EQ(savedList(), QVariant(list()));

    values = openValues(0);
    rows = values->findChild<QTableView *>("valuesTable");
    rows->selectAll();
    QTest::keyClick(rows, Qt::Key_Delete);
    EXPECT_FALSE(values->findChild<QToolButton *>("removeButton")->isEnabled());
    closeValues();
    EXPECT_EQ(list()[0], record("A", valuesProperty));
}

TEST_F(PropertiesTabTest, APopoverOfAListThatIsNoLongerThereChangesNothing)
{
    open(QVariantList{record("A", valuesProperty, "Red", colors)});
    openValues(0);
    const QVariantList other{record("B", stringProperty, "b")};
    selected()->templateDictionary()->setValue(properties, other);
    editor()->updateFacts();
    closeValues();
    EXPECT_EQ(list(), other);
    EXPECT_FALSE(isDirty());
}

TEST_F(PropertiesTabTest, RowsAreDraggedBetweenRows)
{
    QVariantList all;
    for (const char *each : {"0", "1", "2", "3", "4"})
        all << record(QString::fromLatin1(each), stringProperty, "");
    open(all);
    const struct
    {
        QList<int> rows;
        int gap;
        QString order;
    } cases[] = {
        {{0}, 5, "12340"}, {{2}, 2, "02134"},    {{0}, 0, "01234"},    {{4}, 0, "40123"},
        {{1}, 3, "02134"}, {{0, 2}, 5, "13402"}, {{1, 4}, 0, "14023"}, {{0, 4}, 3, "12043"},
    };
    for (const auto &each : cases) {
        selectRows(each.rows);
        const std::unique_ptr<QMimeData> data(table()->writeRows(table()->selectedRows()));
        ASSERT_TRUE(data && data->hasFormat(LSMPropertyTable::LSMPropertyDataPbType));
        EXPECT_TRUE(drop(data.get(), each.gap));
        EXPECT_EQ(names().join(QString()), each.order) << each.rows[0] << " to " << each.gap;
        EXPECT_EQ(table()->selectedRows().size(), each.rows.size());
        EXPECT_TRUE(isDirty());
        table()->undo();
        focusTable();
    }
    EXPECT_EQ(list(), all);
    pressShortcut("actionSave");
    LSMPropertyTable other;
    other.setModel(table()->model());
    const std::unique_ptr<QMimeData> foreign(other.writeRows({1}));
    EXPECT_FALSE(drop(foreign.get(), 0));
    QMimeData imitation;
    imitation.setData(LSMPropertyTable::LSMPropertyDataPbType, "1");
    EXPECT_FALSE(drop(&imitation, 0));
    EXPECT_FALSE(isDirty());
}

TEST_F(PropertiesTabTest, KeysMoveRemoveAndUndo)
{
    open(QVariantList{record("A", stringProperty, "a"), record("B", stringProperty, "b"),
                      record("C", stringProperty, "c")});
    const QVariantList all = list();
    selectRows({0});
    key(Qt::Key_Up, Qt::AltModifier);
    EXPECT_FALSE(isDirty());
    key(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(names(), QStringList({"B", "A", "C"}));
    key(Qt::Key_Delete);
    EXPECT_EQ(names(), QStringList({"B", "C"}));
    chooseType(0, booleanProperty);
    pressShortcut("actionSave");
    EXPECT_FALSE(isDirty());
    for (const QStringList &each : {QStringList{"B", "C"}, {"B", "A", "C"}, {"A", "B", "C"}}) {
        pressShortcut("actionUndo");
        EXPECT_EQ(names(), each);
        EXPECT_TRUE(isDirty()) << "what is saved is another list";
    }
    EXPECT_EQ(list(), all);
    pressShortcut("actionRedo");
    pressShortcut("actionRedo");
    pressShortcut("actionRedo");
    EXPECT_EQ(list()[0], record("B", booleanProperty, false));

    click(cell(1, Model::NameColumn));
    key(Qt::Key_Return);
    QTest::keyClicks(qApp->focusWidget(), "Sea");
    key(Qt::Key_Return);
    EXPECT_EQ(names(), QStringList({"B", "Sea"}));
    pressShortcut("actionUndo");
    EXPECT_EQ(names(), QStringList({"B", "C"})) << "a name that was typed is one step";
    table()->setCurrentIndex(cell(1, Model::ValueColumn));
    chooseType(1, colorProperty);
    EXPECT_EQ(list()[1], record("C", colorProperty)) << "what undo brought is observed";
}

TEST_F(PropertiesTabTest, BadInputIsShownAndKept)
{
    const QVariantMap odd{{propertyName, 7},
                          {propertyType, stringProperty},
                          {propertyDefaultValue, 5},
                          {QStringLiteral("colour"), QByteArray("\0\1", 2)}};
    const QVariant date = QVariant::fromValue(platform::PropertyListDate{1e8});
    const QVariantList bad{
        5,
        "text",
        QVariantList{1},
        QVariantMap(),
        odd,
        record("no colour", colorProperty, QByteArray("bplist00")),
        record("text as colour", colorProperty, "red"),
        record("unknown", "Gradient", date),
        QVariantMap{{propertyType, 3}, {propertyDefaultValue, true}},
        record("values", valuesProperty, 3, QVariantMap{{"a", 1}}),
        record("mixed", valuesProperty, "Red", QVariantList{"Red", 3, QByteArray("x")}),
        record("not so", booleanProperty, "maybe"),
        record("line", separatorProperty, "text")};
    open(bad);
    const QVariant before = savedList();
    EXPECT_EQ(table()->model()->rowCount(), bad.size());
    EXPECT_EQ(cell(0, Model::NameColumn).data(), "Not a property: 5");
    EXPECT_EQ(cell(4, Model::NameColumn).data(), "7");
    EXPECT_EQ(cell(5, Model::ValueColumn).data(), "8 bytes");
    EXPECT_EQ(cell(7, Model::TypeColumn).data(), "Gradient");
    table()->grab();
    for (int row = 0; row < bad.size(); ++row) {
        for (int column = 0; column < Model::ColumnCount; ++column) {
            click(cell(row, Model::Column(column)));
            dismissWhatOpened();
            key(Qt::Key_Return);
            dismissWhatOpened();
        }
    }
    EXPECT_EQ(list(), before.toList());
    chooseType(7, booleanProperty);
    pressShortcut("actionSave");
    QVariantList expected = before.toList();
    expected[7] = record("unknown", booleanProperty, false);
    EXPECT_EQ(savedList(), QVariant(expected));
    selectRows({0});
    key(Qt::Key_Delete);
    EXPECT_EQ(list(), expected.mid(1));
}

TEST_F(PropertiesTabTest, WhatIsNoListStays)
{
    open("no list");
    EXPECT_FALSE(child<QToolButton>("addPropertyButton")->isEnabled());
    key(Qt::Key_Delete);
    EXPECT_FALSE(isDirty());
    EXPECT_EQ(selected()->templateDictionary()->value(properties), "no list");
}

TEST_F(PropertiesTabTest, BuiltInDesignsAreShownOnly)
{
    open(QVariantList{record("A", booleanProperty, true), record("B", stringProperty, "b"),
                      record("C", valuesProperty, "Red", colors)},
         Group::BuiltIn);
    const QVariantList before = list();
    EXPECT_FALSE(child<QToolButton>("addPropertyButton")->isEnabled());
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < Model::ColumnCount; ++column) {
            click(cell(row, Model::Column(column)));
            for (const int each : {Qt::Key_Return, Qt::Key_Space, Qt::Key_Delete})
                key(each);
            EXPECT_FALSE(QApplication::activePopupWidget());
            EXPECT_EQ(qApp->focusWidget(), table());
        }
    }
    EXPECT_FALSE(table()->writeRows({0}));
    EXPECT_EQ(list(), before);
    EXPECT_FALSE(isDirty());
}

TEST_F(PropertiesTabTest, AnotherDesignHasItsOwnRecords)
{
    writeDesign(QStringLiteral("Beta"), Group::Custom, "b",
                info(QVariantList{record("B", stringProperty, "b")}));
    open(QVariantList{record("A", stringProperty, "a")});
    key(Qt::Key_Delete);
    const QPointer<LSMDesignTemplate> alpha = selected();
    ASSERT_TRUE(select(QStringLiteral("Beta")));
    EXPECT_EQ(cell(0, Model::NameColumn).data(), "B");
    focusTable();
    EXPECT_FALSE(table()->canUndo());
    EXPECT_FALSE(isDirty());
    EXPECT_TRUE(alpha->templateShouldBeSaved());
    ASSERT_TRUE(select(QStringLiteral("Alpha")));
    EXPECT_EQ(table()->model()->rowCount(), 0);
    alpha->revertToSaved();
    editor()->reloadData();
    EXPECT_EQ(cell(0, Model::NameColumn).data(), "A");
}
