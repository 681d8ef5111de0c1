#include "platform/text/view/FindMarks.h"

#include "platform/Appearance.h"
#include "platform/text/TextFinder.h"
#include "platform/text/view/TextView.h"
#include <QEvent>
#include <QPaintEvent>

namespace platform {

namespace {

constexpr qsizetype longLine = 2000; // units; of a longer one only what is in sight is looked at

} // namespace

FindMarks::FindMarks(TextView *view, const TextFinder *finder)
    : QWidget(view->viewport()), m_view(view), m_finder(finder)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    view->viewport()->installEventFilter(this);
    connect(view, &TextView::scrollPositionDidChange, this, &FindMarks::cover);
    connect(finder, &TextFinder::didProgress, this, qOverload<>(&QWidget::update));
    cover();
}

// Scrolling may have moved this pane along with the pixels.
void FindMarks::cover()
{
    setGeometry(m_view->viewport()->rect());
    update();
}

bool FindMarks::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize)
        cover();
    return QWidget::eventFilter(watched, event);
}

void FindMarks::paintEvent(QPaintEvent *event)
{
    if (!m_finder || m_finder->matchCount() == 0)
        return;
    QColor color = namedColor(QStringLiteral("findMatchBackground"));
    QPainter painter(this);
    painter.setPen(color);
    color.setAlphaF(0.35F);
    painter.setBrush(color);
    const qsizetype last = m_view->lineAtY(event->rect().bottom());
    for (qsizetype line = m_view->lineAtY(event->rect().top()); line <= last;
         line = m_view->lineAfter(line))
        paintLine(&painter, line);
}

void FindMarks::paintLine(QPainter *painter, qsizetype line)
{
    TextRange range = m_view->textStorage()->lineContents(line);
    if (range.length > longLine) {
        const QRectF seen = m_view->rectOfLine(line).intersected(rect());
        range = TextRange::between(m_view->indexAt(seen.topLeft()),
                                   m_view->indexAt(seen.bottomRight() - QPointF(0, 1)));
    }
    for (qsizetype i = m_finder->firstMatchFrom(range.location); i < m_finder->matchCount(); ++i) {
        const TextRange match = m_finder->match(i);
        if (match.location > range.end())
            break;
        for (const QRectF &part : m_view->rectsOf(match.intersected(range)))
            painter->drawRect(part.adjusted(0, 0, -1, -1));
    }
}

} // namespace platform
