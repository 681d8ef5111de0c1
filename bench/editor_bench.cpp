// Measures the code editor as a person feels it, on one HTML document, and prints one JSON line:
//
//     editor_bench FILE [--figures LIST] [--method sync|event] [--wrap] [--gutter] [--extras]
//         [--cap SECONDS] [--png DIR]
//
// A process measures one document, cold; run it several times and take medians. Milliseconds unless
// the name says otherwise. docs/performance.md explains each figure.

#include "Measuring.h"

#include "editor/colouring/SMLSyntaxColouring.h"
#include "editor/MGSFragariaView.h"
#include "editor/SMLTextView.h"
#include "kit/ui/ApplicationStyle.h"

#include <algorithm>
#include <cstdio>
#include <QApplication>
#include <QCommandLineParser>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QKeyEvent>
#include <QScrollBar>
#include <QWindow>

namespace {

using platform::TextStorage;

constexpr int samples = 200;

/// One editor in its window, and the frames that it draws.
class Editor : public QObject
{
public:
    Editor(bool draws, bool wraps) : m_drawsByItself(draws)
    {
        QFont font(QStringLiteral("DejaVu Sans Mono"));
        font.setFixedPitch(true);
        font.setPixelSize(13);
        view.setShowsGutter(false);
        view.setLineWrap(wraps);
        view.setTextFont(font);
        view.setSyntaxDefinitionName(QStringLiteral("HTML"));
        view.textView()->viewport()->installEventFilter(this);
        view.resize(1000, 800);
        view.show();
        QElapsedTimer timer;
        timer.start();
        while (
            timer.elapsed() < 400 ||
            (!(view.windowHandle() && view.windowHandle()->isExposed()) && timer.elapsed() < 4000))
            QCoreApplication::processEvents();
        image = QImage(view.size(), QImage::Format_RGB32);
        draw();
        idle(100);
        m_emptyMegabytes = residentMegabytes();
    }

    TextStorage &text() { return *view.textView()->textStorage(); }
    double growth() const { return residentMegabytes() - m_emptyMegabytes; }
    double emptyMegabytes() const { return m_emptyMegabytes; }
    int missedFrames() const { return m_missedFrames; }

    /// All that stands between bytes and a view that can be painted.
    void load(const QByteArray &bytes)
    {
        const auto storage = std::make_shared<TextStorage>();
        if (!storage->setUtf8(bytes))
            storage->setString(QString::fromLatin1(bytes));
        view.replaceTextStorage(storage);
    }

    void draw()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        view.render(&image);
    }

    /// Sync: the whole view into an image, now. Event: until the view has painted what it must.
    void frame(bool whole = false)
    {
        if (!m_drawsByItself)
            return draw();
        if (whole)
            view.textView()->viewport()->update();
        const int before = m_paints;
        QElapsedTimer timer;
        timer.start();
        do
            QCoreApplication::processEvents();
        while (m_paints == before && timer.elapsed() < 250);
        m_missedFrames += m_paints == before;
    }

    static void idle(int forMilliseconds)
    {
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < forMilliseconds) {
            QCoreApplication::processEvents();
            ::usleep(500);
        }
    }

    void key(int key, const QString &text = {}, Qt::KeyboardModifiers modifiers = {})
    {
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, modifiers, text);
            QCoreApplication::sendEvent(view.textView(), &event);
        }
    }

    void caretTo(qsizetype index)
    {
        view.textView()->setSelectedRange({index, 0});
        view.textView()->scrollRangeToVisible({index, 0});
    }
    void toTop() { key(Qt::Key_Home, {}, Qt::ControlModifier); }
    void toEnd() { key(Qt::Key_End, {}, Qt::ControlModifier); }
    qsizetype caret() { return view.textView()->selectedRange().location; }

    MGSFragariaView view;
    QImage image;

private:
    bool eventFilter(QObject *, QEvent *event) override
    {
        m_paints += event->type() == QEvent::Paint;
        return false;
    }

    bool m_drawsByItself;
    double m_emptyMegabytes = 0;
    int m_paints = 0;
    int m_missedFrames = 0;
};

class Bench
{
public:
    Bench(Editor &editor, QByteArray bytes, double cap, QString pictures)
        : m_editor(editor), m_bytes(std::move(bytes)), m_cap(cap * 1000), m_pictures(pictures)
    {
    }

    void run(const QStringList &figures)
    {
        const std::pair<const char *, void (Bench::*)()> groups[] = {
            {"open", &Bench::open},
            {"edit", &Bench::edit},
            {"comment", &Bench::comment},
            {"scroll", &Bench::scroll},
            {"scrollcold", &Bench::coldScroll},
            {"full", &Bench::fullColour},
            {"roundtrip", &Bench::roundtrip},
        };
        for (const auto &[name, group] : groups) {
            if (figures.contains(QLatin1StringView(name)))
                (this->*group)();
        }
    }

    QJsonObject result;

private:
    void set(const char *name, const QJsonValue &value) { result[QLatin1StringView(name)] = value; }

    void picture(const char *name)
    {
        if (m_pictures.isEmpty())
            return;
        m_editor.draw();
        m_editor.image.save(m_pictures + QStringLiteral("/editor-") + QLatin1StringView(name) +
                            QStringLiteral(".png"));
    }

    void plainOpen(const QByteArray &bytes)
    {
        m_editor.load(bytes);
        m_editor.frame(true);
        Editor::idle(200);
    }

    void open()
    {
        QCoreApplication::processEvents();
        double load = 0;
        set("open_first_paint_ms", milliseconds([&] {
                load = milliseconds([&] { m_editor.load(m_bytes); });
                m_editor.frame(true);
            }));
        set("load_call_ms", load);
        set("lines", m_editor.text().lineCount());
        m_editor.draw();
        const QImage first = m_editor.image.copy();
        Editor::idle(300);
        m_editor.draw();
        set("first_frame_diff_px", differentPixels(first, m_editor.image));
        set("colours", hues(m_editor.image));
        const double megabytes = m_editor.growth();
        set("rss_mb", megabytes);
        set("rss_per_doc_mb", megabytes / (double(m_bytes.size()) / 1e6));
        set("peak_rss_mb", peakMegabytes() - m_editor.emptyMegabytes());
        picture("open");
        set("reopen_first_paint_ms", milliseconds([&] {
                m_editor.load(m_bytes);
                m_editor.frame(true);
            }));
    }

    // 200 letters in the middle of a line in the middle.
    void edit()
    {
        plainOpen(m_bytes);
        TextStorage &text = m_editor.text();
        qsizetype line = text.lineCount() / 2;
        while (line + 1 < text.lineCount() && text.lineContents(line).length < 20)
            ++line;
        const platform::TextRange before = text.lineContents(line);
        m_editor.caretTo(before.location + before.length / 2);
        m_editor.frame(true);
        Editor::idle(100);
        Samples calls;
        Samples frames;
        QElapsedTimer cap;
        cap.start();
        const QString letters = QStringLiteral("the quick brown fox jumps over the lazy dog ");
        for (int i = 0; i < samples && (i < 3 || double(cap.elapsed()) < m_cap); ++i) {
            const QChar letter = letters.at(i % letters.size());
            double call = 0;
            frames.add(milliseconds([&] {
                call = milliseconds([&] {
                    m_editor.key(letter == u' ' ? Qt::Key_Space
                                                : Qt::Key_A + letter.unicode() - u'a',
                                 letter);
                });
                m_editor.frame();
            }));
            calls.add(call);
        }
        set("keystroke_applied", text.lineContents(line).length - before.length == frames.count());
        frames.write(result, QStringLiteral("keystroke_ms"));
        calls.write(result, QStringLiteral("keystroke_call_ms"));
        picture("edit");
    }

    // A comment is opened at the very top of a text that has no end of one.
    void comment()
    {
        QByteArray bytes = m_bytes;
        bytes.replace("<!--", "    ").replace("-->", "   ");
        plainOpen(bytes);
        m_editor.caretTo(0);
        m_editor.frame(true);
        Editor::idle(100);
        double sum = 0;
        double worst = 0;
        for (const QChar c : QStringLiteral("<!--")) {
            const double took = milliseconds([&] {
                m_editor.key(c == u'<'   ? Qt::Key_Less
                             : c == u'!' ? Qt::Key_Exclam
                                         : Qt::Key_Minus,
                             c);
                m_editor.frame();
            });
            sum += took;
            worst = std::max(worst, took);
        }
        set("open_comment_ms", sum);
        set("open_comment_worst_key_ms", worst);
        set("open_comment_applied", m_editor.text().substring({0, 4}) == QStringLiteral("<!--"));
        picture("comment");
        set("open_comment_next_key_ms", milliseconds([&] {
                m_editor.key(Qt::Key_X, QStringLiteral("x"));
                m_editor.frame();
            }));
        set("open_comment_then_end_ms", milliseconds([&] {
                m_editor.toEnd();
                m_editor.frame();
            }));
        m_editor.draw();
        const QImage end = m_editor.image.copy();
        Editor::idle(1500);
        m_editor.draw();
        set("open_comment_end_diff_px", differentPixels(end, m_editor.image));
        picture("comment-end");
        if (!m_pictures.isEmpty())
            end.save(m_pictures + QStringLiteral("/editor-comment-end-first.png"));
    }

    void pages(const QString &name)
    {
        m_editor.toTop();
        m_editor.frame(true);
        Editor::idle(100);
        Samples pages;
        QElapsedTimer cap;
        cap.start();
        qsizetype last = m_editor.caret();
        for (int i = 0; i < samples && (i < 3 || double(cap.elapsed()) < m_cap); ++i) {
            pages.add(milliseconds([&] {
                m_editor.key(Qt::Key_PageDown);
                m_editor.frame();
            }));
            if (m_editor.caret() == last) { // the end: that page does not count
                pages.dropLast();
                m_editor.toTop();
                m_editor.frame(true);
                if (i > 0 && pages.isEmpty())
                    break;
            }
            last = m_editor.caret();
        }
        pages.write(result, name);
    }

    void scroll()
    {
        plainOpen(m_bytes);
        set("jump_end_ms", milliseconds([&] {
                m_editor.toEnd();
                m_editor.frame();
            }));
        picture("end");
        pages(QStringLiteral("scroll_ms"));
    }

    void coldScroll()
    {
        plainOpen(m_bytes);
        pages(QStringLiteral("scroll_cold_ms"));
    }

    void fullColour()
    {
        plainOpen(m_bytes);
        set("full_colour_ms", milliseconds([&] {
                m_editor.view.syntaxColouring()->invalidateAllColouring();
                m_editor.view.syntaxColouring()->recolourRange({0, m_editor.text().length()});
            }));
        set("full_then_end_ms", milliseconds([&] {
                m_editor.toEnd();
                m_editor.frame();
            }));
        set("rss_full_mb", m_editor.growth());
    }

    void roundtrip()
    {
        const std::pair<const char *, QByteArray> probes[] = {
            {"crlf", "a\r\nb\r\n"},
            {"cr", "a\rb\n"},
            {"nbsp", "a\xc2\xa0"
                     "b\n"},
            {"u2028", "a\xe2\x80\xa8"
                      "b\n"},
            {"nul", QByteArray("a\0b\nc\n", 6)},
            {"lf", "a\nb\n"},
            {"cr_only", "a\rb\r"},
            {"mixed_eol", "a\r\nb\nc\r\n"},
            {"no_final_newline", "a\nb"},
            {"u2029", "a\xe2\x80\xa9"
                      "b\n"},
            {"u0085", "a\xc2\x85"
                      "b\n"},
            {"ff_vt", "a\f\vb\n"},
            {"ufdd0", "a\xef\xb7\x90"
                      "b\n"},
            {"ufffc", "a\xef\xbf\xbc"
                      "b\n"},
            {"astral", "a\xf0\x9f\x98\x80"
                       "b\n"},
            {"bad_utf8", "a\xff\xfe"
                         "b\n"},
            {"long_line_20k", QByteArray(20000, 'a') + '\n'},
            {"trailing_space", "a  \nb\t\n"},
            {"bom", "\xef\xbb\xbf"
                    "ab\n"},
        };
        constexpr size_t required = 5;
        const auto returns = [this](const QByteArray &bytes) {
            m_editor.load(bytes);
            return m_editor.text().utf8().value_or(QByteArray()) == bytes;
        };
        QJsonObject texts;
        QByteArray combined;
        bool isOk = true;
        for (size_t i = 0; i < std::size(probes); ++i) {
            const bool same = returns(probes[i].second);
            texts[QLatin1StringView(probes[i].first)] = same;
            if (i < required) {
                combined += probes[i].second;
                isOk = isOk && same;
            }
        }
        isOk = isOk && returns(combined);
        for (const char *name : {"roundtrip_ok", "roundtrip_best_ok"})
            set(name, isOk);
        for (const char *name : {"roundtrip_text", "roundtrip_best"})
            set(name, texts);
    }

    Editor &m_editor;
    QByteArray m_bytes;
    double m_cap;
    QString m_pictures;
};

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_NO_GLIB", "1");
    QApplication application(argc, argv);
    zq::installApplicationStyle();
    QApplication::setCursorFlashTime(0);
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("file"), QStringLiteral("the document"));
    const QCommandLineOption figures(
        QStringLiteral("figures"), {}, QStringLiteral("list"),
        QStringLiteral("open,edit,comment,scroll,scrollcold,full,roundtrip"));
    const QCommandLineOption method(QStringLiteral("method"), {}, QStringLiteral("sync|event"),
                                    QStringLiteral("sync"));
    const QCommandLineOption wrap(QStringLiteral("wrap"));
    const QCommandLineOption gutter(QStringLiteral("gutter"));
    const QCommandLineOption extras(QStringLiteral("extras"));
    const QCommandLineOption cap(QStringLiteral("cap"), {}, QStringLiteral("seconds"),
                                 QStringLiteral("10"));
    const QCommandLineOption png(QStringLiteral("png"), {}, QStringLiteral("folder"));
    parser.addOptions({figures, method, wrap, gutter, extras, cap, png});
    parser.process(application);
    QFile file(parser.positionalArguments().value(0));
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "editor_bench: the file cannot be read\n");
        return 2;
    }
    const QByteArray bytes = file.readAll();
    Editor editor(parser.value(method) == u"event", parser.isSet(wrap));
    editor.view.setShowsGutter(parser.isSet(gutter));
    for (const auto set :
         {&MGSFragariaView::setMarksChangedLines, &MGSFragariaView::setFoldsLines,
          &MGSFragariaView::setShowsTagPartners, &MGSFragariaView::setShowsColourSwatches})
        (editor.view.*set)(parser.isSet(extras));
    Bench bench(editor, bytes, parser.value(cap).toDouble(), parser.value(png));
    bench.result = {
        {QStringLiteral("peer"), QStringLiteral("layoutsmith")},
        {QStringLiteral("file"), QFileInfo(file).fileName()},
        {QStringLiteral("bytes"), double(bytes.size())},
        {QStringLiteral("method"), parser.value(method)},
        {QStringLiteral("platform"), QGuiApplication::platformName()},
        {QStringLiteral("wrap"), parser.isSet(wrap)},
        {QStringLiteral("gutter"), parser.isSet(gutter)},
        {QStringLiteral("extras"), parser.isSet(extras)},
        {QStringLiteral("qt"), QLatin1StringView(qVersion())},
        {QStringLiteral("rss_empty_mb"), editor.emptyMegabytes()},
    };
    bench.run(parser.value(figures).split(u','));
    bench.result[QStringLiteral("missed_frames")] = editor.missedFrames();
    std::printf("%s\n", QJsonDocument(bench.result).toJson(QJsonDocument::Compact).constData());
    std::fflush(stdout);
    ::_exit(0); // taking a large document apart is not what is measured
}
