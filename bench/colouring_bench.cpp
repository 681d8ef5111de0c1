// Measures the colouring of a file as HTML, without a window:
//
//     cmake --preset bench && cmake --build --preset bench --target colouring_bench
//     build/bench/bin/colouring_bench FILE
//
// One JSON line: times in milliseconds, the best of three; memory in MiB. "cold": the first 60
// lines that are asked for after opening, at the top, in the middle, at the end. "edit": a letter
// typed in the middle and the 60 lines around it coloured again, the mean of 100. "next" is a
// further 60 lines.

#include "editor/colouring/SMLSyntaxColouring.h"
#include "platform/FileIO.h"
#include <chrono>
#include <cstdio>
#include <malloc.h>
#include <QCoreApplication>

using platform::TextRange;

namespace {

constexpr qsizetype screen = 60; // lines

double milliseconds(const std::function<void()> &work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
        .count();
}

/// A file that has been opened and not yet looked at.
struct Editor
{
    explicit Editor(const QByteArray &bytes)
    {
        layout.textStorage()->setUtf8(bytes);
        colouring.setSyntaxDefinitionName(QStringLiteral("HTML"));
    }

    /// Where there are not so many lines, as many characters as fill a screen.
    TextRange lines(double at) const
    {
        const auto &storage = *layout.textStorage();
        if (storage.lineCount() <= screen) {
            const auto length = std::min<qsizetype>(storage.length(), screen * 100);
            return {qsizetype(double(storage.length() - length) * at), length};
        }
        const auto first = qsizetype(double(storage.lineCount() - 1 - screen) * at);
        return TextRange::between(storage.lineStart(first), storage.lineStart(first + screen));
    }
    double colour(TextRange range)
    {
        return milliseconds([&] { colouring.recolourRange(range); });
    }
    double colourAll() { return colour({0, layout.textStorage()->length()}); }

    platform::LayoutManager layout;
    SMLSyntaxColouring colouring{&layout};
};

double best(const QByteArray &bytes, const std::function<double(Editor &)> &measure)
{
    double least = 1e9;
    for (int i = 0; i < 3; ++i) {
        Editor editor(bytes);
        least = std::min(least, measure(editor));
    }
    return least;
}

double edits(Editor &editor)
{
    const TextRange seen = editor.lines(0.5);
    editor.colour(seen);
    constexpr int count = 100;
    return milliseconds([&] {
               for (int i = 0; i < count; ++i) {
                   editor.layout.textStorage()->replaceCharacters({seen.location + 20 + i, 0},
                                                                  QStringLiteral("x"));
                   editor.colour({seen.location, seen.length + i + 1});
               }
           }) /
           count;
}

double mebibytesInUse()
{
    const auto info = mallinfo2();
    return double(info.uordblks + info.hblkhd) / (1 << 20);
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const auto bytes = platform::readFile(QString::fromLocal8Bit(argc > 1 ? argv[1] : ""));
    if (!bytes) {
        std::fputs("usage: colouring_bench FILE\n", stderr);
        return 2;
    }
    std::printf("{\"bytes\":%lld", qint64(bytes->size()));
    for (const auto &[name, at] : {std::pair{"top", 0.0}, {"middle", 0.5}, {"end", 1.0}})
        std::printf(",\"cold_%s\":%.2f", name, best(*bytes, [at = at](Editor &editor) {
                        return editor.colour(editor.lines(at));
                    }));
    std::printf(",\"next\":%.2f", best(*bytes, [](Editor &editor) {
                    editor.colour(editor.lines(0.5));
                    return editor.colour(editor.lines(0.6));
                }));
    std::printf(",\"edit\":%.3f", best(*bytes, edits));
    Editor editor(*bytes);
    const double before = mebibytesInUse();
    std::printf(",\"whole\":%.1f", editor.colourAll());
    std::printf(",\"memory\":%.1f,\"again\":%.3f", mebibytesInUse() - before, editor.colourAll());
    std::printf(",\"whole_best\":%.1f}\n",
                best(*bytes, [](Editor &other) { return other.colourAll(); }));
    return 0;
}
