// Measures what errors cost in the code editor, on a document of 10,000 lines of HTML with 5,000
// errors, and prints one JSON line:
//
//     errors_bench [--lines COUNT] [--errors COUNT] [--coloured]
//
// All times are milliseconds, each with the frame that follows: setting the errors; a key in a line
// and a Return, without errors and with them. docs/performance.md tells more.

#include "Measuring.h"

#include "editor/colouring/SMLSyntaxColouring.h"
#include "editor/MGSFragariaView.h"
#include "editor/SMLSyntaxError.h"
#include "editor/SMLTextView.h"
#include "kit/ui/ApplicationStyle.h"

#include <cstdio>
#include <QApplication>
#include <QCommandLineParser>
#include <QJsonDocument>

namespace {

constexpr int samples = 200;

QString document(int lines)
{
    QString text;
    for (int line = 0; line < lines; ++line)
        text += QStringLiteral("  <p class=\"item-%1\">Some <b>text</b> of the listing.</p>\n")
                    .arg(line);
    return text;
}

QVariantList errors(int count, int lines)
{
    QVariantList errors;
    for (int i = 0; i < count; ++i) {
        SMLSyntaxError error;
        error.line = quint64(i) * quint64(lines) / quint64(count) + 1;
        error.character = quint64(i % 20 + 1);
        error.length = quint64(i % 5);
        error.errorDescription = QStringLiteral("Fault number %1").arg(i);
        error.setWarningLevel(float(i % 7) * 100);
        errors << QVariant::fromValue(error);
    }
    return errors;
}

class Bench
{
public:
    Bench(int lines, bool coloured)
    {
        m_view.setSyntaxDefinitionName(QStringLiteral("HTML"));
        m_view.setShowsIndividualErrors(true);
        m_view.setString(document(lines));
        m_view.resize(1000, 800);
        m_view.show();
        if (coloured)
            m_view.syntaxColouring()->recolourRange(
                {0, m_view.textView()->textStorage()->length()});
        m_image = QImage(m_view.size(), QImage::Format_RGB32);
        frame();
    }

    MGSFragariaView &view() { return m_view; }

    /// Of one change and the frame that shows it.
    double cost(const std::function<void()> &change)
    {
        return milliseconds([&] {
            change();
            frame();
        });
    }

    Samples keys(const QString &text)
    {
        Samples keys;
        m_view.textView()->setSelectedRange({m_view.textView()->textStorage()->lineStart(10), 0});
        for (int i = 0; i < samples; ++i) {
            keys.add(cost([&] {
                if (text == u"\n")
                    m_view.textView()->insertNewline();
                else
                    m_view.textView()->insertText(text);
            }));
        }
        return keys;
    }

private:
    void frame()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        m_view.render(&m_image);
    }

    MGSFragariaView m_view;
    QImage m_image;
};

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    zq::installApplicationStyle();
    QCommandLineParser parser;
    const QCommandLineOption lineCount(QStringLiteral("lines"), {}, QStringLiteral("count"),
                                       QStringLiteral("10000"));
    const QCommandLineOption errorCount(QStringLiteral("errors"), {}, QStringLiteral("count"),
                                        QStringLiteral("5000"));
    const QCommandLineOption coloured(QStringLiteral("coloured"));
    parser.addOptions({lineCount, errorCount, coloured});
    parser.process(application);

    const int lines = parser.value(lineCount).toInt();
    Bench bench(lines, parser.isSet(coloured));
    QJsonObject result{{QStringLiteral("lines"), lines},
                       {QStringLiteral("errors"), parser.value(errorCount).toInt()},
                       {QStringLiteral("coloured"), parser.isSet(coloured)}};
    bench.keys(QStringLiteral("x")).write(result, QStringLiteral("key_without_ms"));
    bench.keys(QStringLiteral("\n")).write(result, QStringLiteral("return_without_ms"));
    const QVariantList records = errors(parser.value(errorCount).toInt(), lines);
    Samples set;
    for (int i = 0; i < 20; ++i)
        set.add(bench.cost([&] { bench.view().setSyntaxErrors(records); }));
    set.write(result, QStringLiteral("set_ms"));
    bench.keys(QStringLiteral("x")).write(result, QStringLiteral("key_with_ms"));
    bench.keys(QStringLiteral("\n")).write(result, QStringLiteral("return_with_ms"));
    std::printf("%s\n", QJsonDocument(result).toJson(QJsonDocument::Indented).constData());
    return 0;
}
