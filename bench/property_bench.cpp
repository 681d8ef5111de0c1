// Measures the property table with 500 records of all types, in a tab of 1600 by 1000 pixels: what
// the user does, and the repaint that it brings. A frame lasts 16 ms.
//
//     cmake --preset bench && cmake --build --preset bench --target property_bench
//     QT_QPA_PLATFORM=offscreen build/bench/bin/property_bench

#include "kit/ui/ApplicationStyle.h"
#include "library/LSMDesignKeys.h"
#include "platform/KeyedArchive.h"
#include "workbench/LSMPropertyEditorViewController.h"
#include "workbench/LSMPropertyTable.h"

#include <benchmark/benchmark.h>
#include <QApplication>
#include <QDragMoveEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QScrollBar>
#include <QTest>

using namespace LSMDesignKeys;
using benchmark::State;

namespace {

constexpr int count = 500;

QVariantMap record(int number)
{
    const QVariantList colors{QStringLiteral("Red"), QStringLiteral("Green"),
                              QStringLiteral("Blue")};
    const QString types[] = {stringProperty, colorProperty, booleanProperty, valuesProperty,
                             separatorProperty};
    const QVariant defaults[] = {
        QStringLiteral("Text %1").arg(number),
        platform::KeyedArchive::archivedColor(QColor::fromHsv(number % 360, 200, 200)),
        number % 2 == 0, colors[number % 3], QVariant()};
    QVariantMap result{{propertyName, QStringLiteral("Property %1").arg(number)},
                       {propertyType, types[number % 5]},
                       {propertyAllowedValues, colors}};
    if (defaults[number % 5].isValid())
        result.insert(propertyDefaultValue, defaults[number % 5]);
    return result;
}

std::shared_ptr<LSMDesignTemplate> design(int first = 0)
{
    QVariantList list;
    for (int number = 0; number < count; ++number)
        list << record(first + number);
    return LSMDesignTemplate::templateWithDict(
        {{LSMDesignKeys::name, QStringLiteral("Bench")}, {properties, list}}, {}, customType);
}

class Tab
{
public:
    Tab()
    {
        view.setDesignTemplate(shown.get());
        view.resize(1600, 1000);
        view.show();
        QApplication::setActiveWindow(&view);
        table->setFocus();
        paint();
    }

    /// All of it, though a window would paint less.
    void paint()
    {
        QApplication::sendPostedEvents();
        view.render(&screen);
    }
    QPoint place(int row, int column) const
    {
        return table->visualRect(table->model()->index(row, column)).center();
    }

    std::shared_ptr<LSMDesignTemplate> shown = design();
    std::shared_ptr<LSMDesignTemplate> other = design(count);
    LSMPropertyEditorViewController view;
    LSMPropertyTable *table = view.findChild<LSMPropertyTable *>();
    QImage screen{1600, 1000, QImage::Format_ARGB32_Premultiplied};
};

void OtherDesign(State &state)
{
    Tab tab;
    for (int turn = 0; auto _ : state) {
        tab.view.setDesignTemplate((++turn % 2 ? tab.other : tab.shown).get());
        tab.paint();
    }
}
BENCHMARK(OtherDesign)->Unit(benchmark::kMillisecond);

void SelectRow(State &state)
{
    Tab tab;
    for (auto _ : state) {
        QTest::keyClick(tab.table, Qt::Key_Down);
        tab.paint();
        if (tab.table->currentIndex().row() == count - 1)
            tab.table->selectRow(0);
    }
}
BENCHMARK(SelectRow)->Unit(benchmark::kMillisecond);

void SelectAll(State &state)
{
    Tab tab;
    for (auto _ : state) {
        tab.table->selectAll();
        tab.paint();
        tab.table->clearSelection();
    }
}
BENCHMARK(SelectAll)->Unit(benchmark::kMillisecond);

void TypeName(State &state)
{
    Tab tab;
    tab.table->selectRow(5);
    QTest::keyClick(tab.table, Qt::Key_Return);
    auto *field = tab.table->findChild<QLineEdit *>();
    for (auto _ : state) {
        QTest::keyClick(field, Qt::Key_A);
        tab.paint();
        if (field->text().size() > 40)
            field->clear();
    }
}
BENCHMARK(TypeName)->Unit(benchmark::kMillisecond);

void Toggle(State &state)
{
    Tab tab;
    tab.table->setCurrentIndex(tab.table->model()->index(2, 2));
    for (auto _ : state) {
        QTest::keyClick(tab.table, Qt::Key_Space);
        tab.paint();
    }
}
BENCHMARK(Toggle)->Unit(benchmark::kMillisecond);

void ChangeType(State &state)
{
    Tab tab;
    const auto first = static_cast<LSMPropertyTableModel *>(tab.table->model())->recordAt(0);
    for (int turn = 0; auto _ : state) {
        first->setValue(propertyType, LSMPropertyTableModel::types()[++turn % 5]);
        tab.paint();
    }
}
BENCHMARK(ChangeType)->Unit(benchmark::kMillisecond);

void DragOver(State &state)
{
    Tab tab;
    const std::unique_ptr<QMimeData> rows(tab.table->writeRows({0, 3, 7}));
    for (int turn = 0; auto _ : state) {
        QDragMoveEvent move(tab.place(++turn % 25, 0), Qt::MoveAction, rows.get(), Qt::LeftButton,
                            {});
        QApplication::sendEvent(tab.table->viewport(), &move);
        tab.paint();
    }
}
BENCHMARK(DragOver)->Unit(benchmark::kMillisecond);

void Drop(State &state)
{
    Tab tab;
    for (int turn = 0; auto _ : state) {
        tab.view.acceptDrop({1, 5, 9}, ++turn % count);
        tab.paint();
    }
}
BENCHMARK(Drop)->Unit(benchmark::kMillisecond);

void Scroll(State &state)
{
    Tab tab;
    QScrollBar *bar = tab.table->verticalScrollBar();
    for (auto _ : state) {
        bar->setValue(bar->value() < bar->maximum() ? bar->value() + 137 : 0);
        tab.paint();
    }
}
BENCHMARK(Scroll)->Unit(benchmark::kMillisecond);

void RemoveAndUndo(State &state)
{
    Tab tab;
    for (auto _ : state) {
        tab.table->selectRow(250);
        tab.view.removeProperty();
        tab.paint();
        tab.table->undo();
        tab.paint();
    }
}
BENCHMARK(RemoveAndUndo)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    zq::installApplicationStyle();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
