#include "platform/text/view/CompletionList.h"

#include "platform/Bundle.h"
#include "platform/text/view/TextView.h"
#include <QKeyEvent>
#include <QScreen>
#include <QScrollBar>

namespace platform {

namespace {

constexpr int mostRows = 10;
constexpr int greatestWidth = 480; // pixels
constexpr qsizetype longestWord = 200;

} // namespace

CompletionList::CompletionList(TextView *view) : QListView(view), m_view(view)
{
    setWindowFlags(Qt::ToolTip);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFocusPolicy(Qt::NoFocus);
    setAccessibleName(localized("Completions"));
    setModel(&m_model);
    setEditTriggers(NoEditTriggers);
    setUniformItemSizes(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view->installEventFilter(this);
    connect(this, &QListView::clicked, this, &CompletionList::take);
    connect(view, &TextView::completionWasAskedFor, this, &CompletionList::openForView);
    connect(view, &TextView::selectionDidChange, this, &CompletionList::filter);
    connect(view, &TextView::scrollPositionDidChange, this, &CompletionList::place);
    connect(view->layoutManager(), &LayoutManager::textStorageDidChange, this, &QWidget::hide);
}

void CompletionList::openForView()
{
    const TextRange word = m_view->rangeForUserCompletion();
    if (word.isFound())
        open(m_view->completionsForPartialWord(word), word);
    else
        close();
}

void CompletionList::open(const QStringList &candidates, TextRange word)
{
    close();
    m_candidates = candidates;
    m_word = word;
    filter();
}

void CompletionList::close()
{
    m_candidates.clear();
    hide();
}

void CompletionList::filter()
{
    if (m_candidates.isEmpty())
        return;
    const QStringList left = matching();
    if (left.isEmpty()) {
        close();
        return;
    }
    const QString current = currentIndex().data().toString();
    m_model.setStringList(left);
    setCurrentIndex(m_model.index(int(qMax(qsizetype(0), left.indexOf(current)))));
    place();
}

// None when the caret has left the word, or nothing is left to complete.
QStringList CompletionList::matching() const
{
    const TextRange caret = m_view->selectedRange();
    if (m_view->selectedRanges().size() > 1 || !caret.isEmpty() || caret.location < m_word.end() ||
        caret.location - m_word.location > longestWord)
        return {};
    const QString typed =
        m_view->textStorage()->substring(TextRange::between(m_word.location, caret.location));
    QStringList left;
    for (const QString &candidate : m_candidates) {
        if (candidate.startsWith(typed, Qt::CaseInsensitive))
            left << candidate;
    }
    return left == QStringList(typed) ? QStringList() : left;
}

void CompletionList::place()
{
    if (m_candidates.isEmpty())
        return;
    const QRect word = m_view->caretRect(m_word.location).toAlignedRect();
    const QWidget *viewport = m_view->viewport();
    if (!viewport->rect().intersects(word.adjusted(0, 0, 1, 1))) {
        close();
        return;
    }
    const int rows = qMin(mostRows, m_model.rowCount());
    const int frame = 2 * frameWidth();
    const int bar = m_model.rowCount() > rows ? verticalScrollBar()->sizeHint().width() : 0;
    const QSize size(qMin(greatestWidth, sizeHintForColumn(0) + bar + frame),
                     rows * sizeHintForRow(0) + frame);
    const QRect screen = m_view->screen()->availableGeometry();
    QRect at(viewport->mapToGlobal(word.bottomLeft() + QPoint(0, 1)), size);
    if (at.bottom() > screen.bottom())
        at.moveBottom(viewport->mapToGlobal(word.topLeft()).y() - 1);
    at.moveLeft(qMax(screen.left(), qMin(at.left(), screen.right() - at.width() + 1)));
    setGeometry(at);
    show();
}

bool CompletionList::eventFilter(QObject *watched, QEvent *event)
{
    const bool isOpen = watched == m_view && !m_candidates.isEmpty();
    const bool isKey =
        event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    if (isOpen && event->type() == QEvent::FocusOut)
        close();
    if (!isOpen || !isKey || !takesKey(static_cast<QKeyEvent *>(event)->keyCombination()))
        return QListView::eventFilter(watched, event);
    if (event->type() == QEvent::KeyPress)
        press(static_cast<QKeyEvent *>(event)->key());
    event->accept();
    return true;
}

bool CompletionList::takesKey(QKeyCombination key)
{
    static constexpr Qt::Key keys[] = {Qt::Key_Up,       Qt::Key_Down,   Qt::Key_PageUp,
                                       Qt::Key_PageDown, Qt::Key_Return, Qt::Key_Enter,
                                       Qt::Key_Tab,      Qt::Key_Escape};
    const bool isPlain = (key.keyboardModifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    return isPlain && std::find(std::begin(keys), std::end(keys), key.key()) != std::end(keys);
}

void CompletionList::press(int key)
{
    const int last = m_model.rowCount() - 1;
    const int row = currentIndex().row();
    switch (key) {
    case Qt::Key_Up:
        choose(row > 0 ? row - 1 : last);
        break;
    case Qt::Key_Down:
        choose(row < last ? row + 1 : 0);
        break;
    case Qt::Key_PageUp:
        choose(qMax(0, row - mostRows));
        break;
    case Qt::Key_PageDown:
        choose(qMin(last, row + mostRows));
        break;
    case Qt::Key_Escape:
        close();
        break;
    default:
        take();
    }
}

void CompletionList::choose(int row)
{
    setCurrentIndex(m_model.index(row));
}

void CompletionList::take()
{
    const QString chosen = currentIndex().data().toString();
    const TextRange word = TextRange::between(m_word.location, m_view->selectedRange().location);
    close();
    m_view->changeText(word, chosen);
}

} // namespace platform
