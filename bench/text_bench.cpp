// Measures the text storage, the temporary attributes and the layout, on HTML-like text of 10 KB
// and 100 MB:
//
//     cmake --preset bench && cmake --build --preset bench --target text_bench
//     build/bench/bin/text_bench [--benchmark_filter=...]
//
// BareDecoding is the yardstick for BuildFromUtf8.

#include "platform/text/LayoutManager.h"
#include "platform/text/TemporaryAttributes.h"
#include "platform/text/TextPattern.h"
#include "platform/text/TextReader.h"
#include "platform/text/TextSearch.h"
#include "platform/text/TextStorage.h"
#include <benchmark/benchmark.h>
#include <malloc.h>
#include <QColor>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QImage>
#include <random>

using benchmark::State;
using platform::LayoutManager;
using platform::TemporaryAttributes;
using platform::TextAttribute;
using platform::TextAttributes;
using platform::TextPattern;
using platform::TextQuery;
using platform::TextRange;
using platform::TextReader;
using platform::TextStorage;

namespace {

constexpr qsizetype small = 10'000;
constexpr qsizetype large = 100'000'000;

enum Kind { Ascii, Latin, Mixed }; // Latin: one character in 30; Mixed: beyond Latin-1, one in 2000

QByteArray document(qsizetype length, Kind kind = Ascii)
{
    static const QByteArray lines[] = {
        "<div class=\"item\" id=\"first\">\n",
        "    <p>Dining chair, beech, as new &ndash; <b>collect in person</b></p>\r\n",
        "    <!-- shipping --><span style=\"color: #336699\">[[price]]</span>\n",
        "</div>\n\n",
    };
    std::minstd_rand random;
    QByteArray bytes;
    bytes.reserve(length + 100);
    for (unsigned line = 0; bytes.size() < length; line = unsigned(random() % 4)) {
        bytes += lines[line];
        if (kind == Latin)
            bytes += "<i>K\xC3\xBC"
                     "chenst\xC3\xBChle</i>";
        else if (kind == Mixed && random() % 45 == 0)
            bytes += "\xE2\x82\xAC";
    }
    return bytes;
}

const QByteArray &sample(qsizetype length)
{
    static const QByteArray smallOne = document(small);
    static const QByteArray largeOne = document(large);
    return length == small ? smallOne : largeOne;
}

void load(TextStorage &storage, const State &state)
{
    if (!storage.setUtf8(sample(state.range(0))))
        std::abort();
}

void setBytes(State &state, qsizetype bytes)
{
    state.SetBytesProcessed(int64_t(state.iterations()) * bytes);
}

void BareDecoding(State &state)
{
    const QByteArray bytes = document(large, Kind(state.range(0)));
    for (auto _ : state) {
        QString text = QString::fromUtf8(bytes);
        benchmark::DoNotOptimize(text.data());
    }
    setBytes(state, bytes.size());
}
BENCHMARK(BareDecoding)->Arg(Ascii)->Arg(Latin)->Arg(Mixed)->Unit(benchmark::kMillisecond);

void BuildFromUtf8(State &state)
{
    const QByteArray bytes = document(large, Kind(state.range(0)));
    size_t memory = 0;
    qsizetype units = 1;
    for (auto _ : state) {
        const size_t before = mallinfo2().uordblks + mallinfo2().hblkhd;
        auto storage = std::make_unique<TextStorage>();
        benchmark::DoNotOptimize(storage->setUtf8(bytes));
        memory = mallinfo2().uordblks + mallinfo2().hblkhd - before;
        units = storage->length();
        storage.reset();
    }
    setBytes(state, bytes.size());
    state.counters["bytes/unit"] = double(memory) / double(units);
}
BENCHMARK(BuildFromUtf8)->Arg(Ascii)->Arg(Latin)->Arg(Mixed)->Unit(benchmark::kMillisecond);

void BuildFromString(State &state)
{
    const QString text = QString::fromUtf8(sample(large));
    for (auto _ : state) {
        TextStorage storage;
        storage.setString(text);
        benchmark::DoNotOptimize(storage.length());
    }
    setBytes(state, text.size());
}
BENCHMARK(BuildFromString)->Unit(benchmark::kMillisecond);

void SaveUtf8(State &state)
{
    TextStorage storage;
    load(storage, state);
    for (auto _ : state)
        benchmark::DoNotOptimize(storage.utf8());
    setBytes(state, storage.length());
}
BENCHMARK(SaveUtf8)->Arg(large)->Unit(benchmark::kMillisecond);

void EditAnywhere(State &state)
{
    TextStorage storage;
    load(storage, state);
    std::mt19937 random;
    const QString word = QStringLiteral("word");
    for (auto _ : state) {
        const qsizetype at = qsizetype(random() % unsigned(storage.length() - 4));
        storage.replaceCharacters({at, 4}, word);
    }
}
BENCHMARK(EditAnywhere)->Arg(small)->Arg(large);

void TypeAndDelete(State &state)
{
    TextStorage storage;
    load(storage, state);
    const qsizetype at = storage.length() / 2;
    for (auto _ : state) {
        for (int i = 0; i < 50; ++i)
            storage.replaceCharacters({at + i, 0}, u"x");
        for (int i = 50; i-- > 0;)
            storage.replaceCharacters({at + i, 1}, u"");
    }
    state.SetItemsProcessed(int64_t(state.iterations()) * 100);
}
BENCHMARK(TypeAndDelete)->Arg(small)->Arg(large);

void ReadByUnit(State &state)
{
    TextStorage storage;
    load(storage, state);
    for (auto _ : state) {
        TextReader reader(storage);
        qsizetype tags = 0;
        for (qsizetype i = 0, end = storage.length(); i < end; ++i)
            tags += reader.at(i) == u'<';
        benchmark::DoNotOptimize(tags);
    }
    setBytes(state, storage.length());
}
BENCHMARK(ReadByUnit)->Arg(large)->Unit(benchmark::kMillisecond);

void ReadByChunk(State &state)
{
    TextStorage storage;
    load(storage, state);
    for (auto _ : state) {
        TextReader reader(storage);
        qsizetype tags = 0;
        for (qsizetype i = 0; i < storage.length();) {
            const QStringView chunk = reader.chunk(i);
            tags += std::count(chunk.begin(), chunk.end(), u'<');
            i += chunk.size();
        }
        benchmark::DoNotOptimize(tags);
    }
    setBytes(state, storage.length());
}
BENCHMARK(ReadByChunk)->Arg(large)->Unit(benchmark::kMillisecond);

void LineAtAnyIndex(State &state)
{
    TextStorage storage;
    load(storage, state);
    std::mt19937 random;
    for (auto _ : state)
        benchmark::DoNotOptimize(storage.lineAt(qsizetype(random() % unsigned(storage.length()))));
}
BENCHMARK(LineAtAnyIndex)->Arg(small)->Arg(large);

void StartOfAnyLine(State &state)
{
    TextStorage storage;
    load(storage, state);
    std::mt19937 random;
    for (auto _ : state)
        benchmark::DoNotOptimize(
            storage.lineStart(qsizetype(random() % unsigned(storage.lineCount()))));
}
BENCHMARK(StartOfAnyLine)->Arg(small)->Arg(large);

void SearchWhole(State &state)
{
    TextStorage storage;
    load(storage, state);
    const auto direction = platform::SearchDirection(state.range(1));
    const auto sensitivity = Qt::CaseSensitivity(state.range(2));
    for (auto _ : state)
        benchmark::DoNotOptimize(
            rangeOfString(storage, u"<!--x", {0, storage.length()}, direction, sensitivity));
    setBytes(state, storage.length());
}
BENCHMARK(SearchWhole)
    ->ArgsProduct({{large}, {0, 1}, {Qt::CaseSensitive, Qt::CaseInsensitive}})
    ->Unit(benchmark::kMillisecond);

// All matches, found in one go instead of between the events.
void FindAll(State &state)
{
    static const TextQuery queries[] = {
        {QStringLiteral("absent"), false, false, false},
        {QStringLiteral("price"), false, true, true},
        {QStringLiteral("absent|gone"), true, true, false},
        {QStringLiteral("<(\\w+) [^>]*>"), true, false, false},
    };
    TextStorage storage;
    if (!storage.setUtf8(sample(large)))
        std::abort();
    const auto pattern = TextPattern::compile(queries[state.range(0)]);
    qsizetype found = 0;
    for (auto _ : state) {
        found = 0;
        TextPattern::Step step;
        while ((step = pattern->find(storage, step.position, QDeadlineTimer::Forever)).outcome ==
               TextPattern::Outcome::Found) {
            step.position = TextPattern::positionAfter(storage, step.match);
            ++found;
        }
    }
    state.counters["found"] = double(found);
    setBytes(state, storage.length());
}
BENCHMARK(FindAll)->DenseRange(0, 3)->Unit(benchmark::kMillisecond);

const TextAttributes command = {{TextAttribute::ForegroundColor, QColor(0, 0, 255)},
                                {TextAttribute::Group, "command"}};
const TextAttributes string = {{TextAttribute::ForegroundColor, QColor(255, 0, 0)},
                               {TextAttribute::Group, "strings"}};
constexpr qsizetype step = 20; // two runs and two gaps in each

void paint(TemporaryAttributes &attributes)
{
    for (qsizetype i = 0; i + step <= attributes.length(); i += step) {
        attributes.add(command, {i, 7});
        attributes.add(string, {i + 9, 8});
    }
}

// As a colouring pass paints: look what is there, clear it, paint.
void PaintInOrder(State &state)
{
    const qsizetype length = state.range(0);
    const auto colouring = TextAttribute::ForegroundColor | TextAttribute::Group;
    for (auto _ : state) {
        TemporaryAttributes attributes(length);
        for (qsizetype i = 0; i + step <= length; i += step) {
            TextRange run;
            const QVariant group = attributes.value(TextAttribute::Group, i, {0, length}, &run);
            benchmark::DoNotOptimize(group);
            attributes.remove(colouring, {i, 7});
            attributes.add(command, {i, 7});
        }
    }
    state.SetItemsProcessed(int64_t(state.iterations()) * (length / step));
}
BENCHMARK(PaintInOrder)->Arg(small)->Arg(20'000'000)->Unit(benchmark::kMillisecond);

void PaintMemory(State &state)
{
    for (auto _ : state) {
        const size_t before = mallinfo2().uordblks;
        TemporaryAttributes attributes(20'000'000);
        paint(attributes);
        state.counters["bytes/run"] = double(mallinfo2().uordblks - before) / 4'000'000;
    }
}
BENCHMARK(PaintMemory)->Unit(benchmark::kMillisecond);

void AttributeAnywhere(State &state)
{
    TemporaryAttributes attributes(state.range(0));
    paint(attributes);
    std::mt19937 random;
    for (auto _ : state) {
        TextRange run;
        const qsizetype at = qsizetype(random() % unsigned(attributes.length()));
        benchmark::DoNotOptimize(
            attributes.value(TextAttribute::Group, at, {0, attributes.length()}, &run));
    }
}
BENCHMARK(AttributeAnywhere)->Arg(small)->Arg(large);

void EditUnderAttributes(State &state)
{
    TemporaryAttributes attributes(state.range(0));
    paint(attributes);
    std::mt19937 random;
    for (auto _ : state) {
        const qsizetype at = qsizetype(random() % unsigned(attributes.length() - 4));
        attributes.textDidChange({at, 4}, 0);
    }
}
BENCHMARK(EditUnderAttributes)->Arg(small)->Arg(large);

void RemoveAll(State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto attributes = std::make_unique<TemporaryAttributes>(state.range(0));
        paint(*attributes);
        state.ResumeTiming();
        attributes->remove(TextAttribute::ForegroundColor | TextAttribute::Group,
                           {0, attributes->length()});
    }
}
BENCHMARK(RemoveAll)->Arg(20'000'000)->Unit(benchmark::kMillisecond);

// Ten runs of colour in each of 53 lines of about 100 characters.
class Page
{
public:
    static constexpr int rows = 53;

    Page()
    {
        QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
        font.setPixelSize(13);
        layout.setFont(font);
        layout.textStorage()->setString(
            QStringLiteral("<td class=\"price\">").repeated(6).append(u'\n').repeated(rows));
        for (qsizetype at = 0; at + 12 < layout.textStorage()->length(); at += 10)
            layout.addTemporaryAttributes(colours[size_t(at / 10 % 2)], {at, 8});
        draw();
    }

    void draw()
    {
        QPainter painter(&m_image);
        for (int line = 0; line < rows; ++line)
            layout.drawLine(&painter, line, {4, line * layout.style().rowHeight}, m_image.rect());
    }

    const TextAttributes colours[2] = {{{TextAttribute::ForegroundColor, QColor(Qt::darkBlue)}},
                                       {{TextAttribute::ForegroundColor, QColor(Qt::darkRed)}}};
    LayoutManager layout;

private:
    QImage m_image{1000, 800, QImage::Format_RGB32};
};

void DrawPage(State &state)
{
    Page page;
    for (auto _ : state)
        page.draw();
}
BENCHMARK(DrawPage)->Unit(benchmark::kMicrosecond);

void DrawPageWithALineAnew(State &state)
{
    Page page;
    for (auto _ : state) {
        page.layout.textStorage()->replaceCharacters({500, 1}, u"x");
        page.draw();
    }
}
BENCHMARK(DrawPageWithALineAnew)->Unit(benchmark::kMicrosecond);

void DrawPageWithALineRecoloured(State &state)
{
    Page page;
    size_t colour = 0;
    for (auto _ : state) {
        page.layout.addTemporaryAttributes(page.colours[++colour % 2], {530, 8});
        page.draw();
    }
}
BENCHMARK(DrawPageWithALineRecoloured)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
