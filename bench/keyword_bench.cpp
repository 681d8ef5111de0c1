// Measures a row of 1000 keyword badges, 200 of them selected, in a window 3840 pixels wide: what
// the user does, and the repaint that it brings. A frame lasts 16 ms.
//
//     cmake --preset bench && cmake --build --preset bench --target keyword_bench
//     QT_QPA_PLATFORM=offscreen build/bench/bin/keyword_bench

#include "kit/ui/ApplicationStyle.h"
#include "kit/ui/ZQKeywordView.h"

#include <benchmark/benchmark.h>
#include <QApplication>
#include <QMenu>
#include <QTest>

using benchmark::State;

namespace {

constexpr int count = 1000;

QVariantList keywords(const QString &last = QStringLiteral("last"))
{
    QVariantList result;
    for (int i = 1; i < count; ++i)
        result << QStringLiteral("Keyword %1").arg(i * 7919 % count);
    return result << last;
}

class Row
{
public:
    Row()
    {
        ZQKeywordView::Settings settings;
        settings.allowsMultipleSelection = true;
        view.setSettings(settings);
        view.setArrayController(&controller);
        controller.setContent(keywords());
        controller.setSelectedObjects(keywords().mid(0, count / 5));
        view.resize(3840, 24);
        view.show();
        paint();
    }

    /// All of it, though a window would paint less.
    void paint() { view.render(&screen); }
    QPoint place(qsizetype index) const
    {
        return view.rectForKeywordAtIndex(index).center().toPoint();
    }

    platform::ArrayController controller;
    ZQKeywordView view;
    QImage screen{3840, 24, QImage::Format_ARGB32_Premultiplied};
};

void Hover(State &state)
{
    Row row;
    for (qsizetype index = 0; auto _ : state) {
        const QPoint place = row.place(index++ % 30);
        QMouseEvent move(QEvent::MouseMove, place, row.view.mapToGlobal(place), Qt::NoButton,
                         Qt::NoButton, {});
        QApplication::sendEvent(&row.view, &move);
        row.paint();
    }
}
BENCHMARK(Hover)->Unit(benchmark::kMillisecond);

void Click(State &state)
{
    Row row;
    for (qsizetype index = 0; auto _ : state) {
        QTest::mousePress(&row.view, Qt::LeftButton, {}, row.place(index % 30));
        row.paint();
        QTest::mouseRelease(&row.view, Qt::LeftButton, {}, row.place(index++ % 30));
        row.paint();
    }
}
BENCHMARK(Click)->Unit(benchmark::kMillisecond);

void MoveFocus(State &state)
{
    Row row;
    for (auto _ : state) {
        QTest::keyClick(&row.view, Qt::Key_Right);
        row.paint();
        QTest::keyClick(&row.view, Qt::Key_Home);
        row.paint();
    }
}
BENCHMARK(MoveFocus)->Unit(benchmark::kMillisecond);

void Resize(State &state)
{
    Row row;
    for (int width = 0; auto _ : state) {
        row.view.resize(800 + 37 * (++width % 80), 24);
        row.paint();
    }
}
BENCHMARK(Resize)->Unit(benchmark::kMillisecond);

void OtherSelection(State &state)
{
    Row row;
    for (int turn = 0; auto _ : state) {
        row.controller.setSelectedObjects(keywords().mid(100 * (++turn % 2), 5));
        row.paint();
    }
}
BENCHMARK(OtherSelection)->Unit(benchmark::kMillisecond);

void OtherList(State &state)
{
    Row row;
    for (int turn = 0; auto _ : state) {
        row.controller.setContent(keywords(QString::number(++turn)));
        row.paint();
    }
}
BENCHMARK(OtherList)->Unit(benchmark::kMillisecond);

void FirstList(State &state)
{
    for (auto _ : state)
        Row row;
}
BENCHMARK(FirstList)->Unit(benchmark::kMillisecond);

void OpenMenu(State &state)
{
    Row row;
    for (auto _ : state) {
        QTest::keyClick(&row.view, Qt::Key_Down);
        auto *menu = row.view.findChild<QMenu *>();
        menu->grab();
        delete menu;
    }
}
BENCHMARK(OpenMenu)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    zq::installApplicationStyle();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
