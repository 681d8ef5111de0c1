#include "platform/text/view/FindBar.h"

#include "platform/Bundle.h"
#include "platform/Format.h"
#include "platform/text/view/FindMarks.h"
#include "platform/text/view/TextView.h"
#include "ui_FindBar.h"
#include <QAction>
#include <QKeyEvent>
#include <QStyle>

namespace platform {

namespace {

constexpr qsizetype longestQueryFromSelection = 500;

struct Command
{
    const char *text;
    const char *keys;
    void (FindBar::*slot)();
};

constexpr Command commandTable[] = {
    {localizable("Find…"), "Ctrl+F", &FindBar::showFind},
    {localizable("Replace…"), "Ctrl+H", &FindBar::showReplace},
    {localizable("Find Next"), "F3", &FindBar::findNext},
    {localizable("Find Previous"), "Shift+F3", &FindBar::findPrevious},
};

} // namespace

FindBar::FindBar(TextView *view, QWidget *parent)
    : QWidget(parent), m_view(view), m_finder(view->layoutManager()->sharedTextStorage()),
      m_ui(std::make_unique<Ui::FindBar>())
{
    m_ui->setupUi(this);
    m_ui->closeButton->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    for (QToolButton *option : {m_ui->caseButton, m_ui->wordsButton, m_ui->expressionButton})
        connect(option, &QToolButton::toggled, this, &FindBar::queryDidChange);
    connect(m_ui->findField, &QLineEdit::textChanged, this, &FindBar::queryDidChange);
    connect(m_ui->nextButton, &QToolButton::clicked, this, &FindBar::findNext);
    connect(m_ui->previousButton, &QToolButton::clicked, this, &FindBar::findPrevious);
    connect(m_ui->replaceButton, &QPushButton::clicked, this, &FindBar::replace);
    connect(m_ui->replaceAllButton, &QPushButton::clicked, this, &FindBar::replaceAll);
    connect(m_ui->closeButton, &QToolButton::clicked, this, &FindBar::closeBar);
    connect(&m_finder, &TextFinder::didProgress, this, &FindBar::fulfil);
    connect(view, &TextView::selectionDidChange, this, &FindBar::showStatus);
    connect(view->layoutManager(), &LayoutManager::textStorageDidChange, this,
            [this] { m_finder.setTextStorage(m_view->layoutManager()->sharedTextStorage()); });
    makeCommands();
    hide();
}

FindBar::~FindBar()
{
    delete m_marks;
}

void FindBar::makeCommands()
{
    for (const Command &command : commandTable) {
        auto *action = new QAction(localized(command.text), this);
        action->setShortcut(QKeySequence(QLatin1StringView(command.keys)));
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        connect(action, &QAction::triggered, this, &FindBar::commandWillAct);
        connect(action, &QAction::triggered, this, command.slot);
        addAction(action);
        m_view->addAction(action);
        m_commands << action;
    }
}

void FindBar::showFind()
{
    open(false);
}

void FindBar::showReplace()
{
    open(m_view && m_view->isEditable());
}

void FindBar::open(bool replacing)
{
    if (!m_view)
        return;
    for (QWidget *widget :
         {static_cast<QWidget *>(m_ui->replaceField), static_cast<QWidget *>(m_ui->replaceButton),
          static_cast<QWidget *>(m_ui->replaceAllButton)})
        widget->setVisible(replacing);
    takeSelection();
    show();
    m_ui->findField->setFocus(Qt::ShortcutFocusReason);
    m_ui->findField->selectAll();
}

void FindBar::takeSelection()
{
    const TextRange selected = m_view->selectedRange();
    if (selected.isEmpty() || selected.length > longestQueryFromSelection ||
        m_finder.indexOf(selected) != NotFound)
        return;
    const QString text = m_view->textStorage()->substring(selected);
    if (std::any_of(text.cbegin(), text.cend(), [](QChar c) { return endsLine(c.unicode()); }))
        return;
    if (text != m_ui->findField->text())
        m_ui->expressionButton->setChecked(false);
    m_ui->findField->setText(text);
}

void FindBar::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (!m_view)
        return;
    m_marks = new FindMarks(m_view, &m_finder);
    m_marks->show();
    updateQuery();
}

void FindBar::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    delete m_marks;
    m_wish = Wish::None;
    m_finder.setQuery({});
}

void FindBar::closeBar()
{
    hide();
    if (m_view)
        m_view->setFocus(Qt::OtherFocusReason);
}

void FindBar::queryDidChange()
{
    m_wish = Wish::None;
    updateQuery();
}

void FindBar::updateQuery()
{
    m_note.clear();
    m_finder.setQuery({m_ui->findField->text(), m_ui->expressionButton->isChecked(),
                       m_ui->caseButton->isChecked(), m_ui->wordsButton->isChecked()});
    showStatus();
}

void FindBar::findNext()
{
    wish(Wish::Next);
}

void FindBar::findPrevious()
{
    wish(Wish::Previous);
}

void FindBar::replaceAll()
{
    wish(Wish::ReplaceAll);
}

void FindBar::wish(Wish wish)
{
    if (m_ui->findField->text().isEmpty()) {
        showFind();
        return;
    }
    m_wish = wish;
    updateQuery();
    m_finder.hurry();
    fulfil();
}

void FindBar::fulfil()
{
    if (m_view && m_wish != Wish::None && (m_wish == Wish::ReplaceAll ? replaceFound() : go()))
        m_wish = Wish::None;
    showStatus();
    if (isHidden() && m_wish == Wish::None)
        m_finder.setQuery({}); // nobody looks: searches no more
}

// False: the search has not come so far.
bool FindBar::go()
{
    const TextRange selected = m_view->selectedRange();
    const bool isAtMatch = m_finder.indexOf(selected) != NotFound;
    const qsizetype behind = isAtMatch
                                 ? TextPattern::positionAfter(*m_view->textStorage(), selected)
                                 : selected.location;
    const auto match =
        m_wish == Wish::Next ? m_finder.next(behind) : m_finder.previous(selected.location);
    if (match && match->isFound())
        select(*match);
    return match.has_value();
}

void FindBar::select(TextRange match)
{
    m_view->setSelectedRange(match);
    m_view->scrollRangeToVisible(match);
    m_view->showFindIndicatorForRange(match);
}

void FindBar::replace()
{
    if (!m_view || !m_view->isEditable())
        return;
    const TextRange selected = m_view->selectedRange();
    if (m_finder.indexOf(selected) != NotFound) {
        const auto text = replacements({selected});
        if (!text || !m_view->changeText(selected, text->first()))
            return;
    }
    findNext();
}

bool FindBar::replaceFound()
{
    if (m_finder.isSearching())
        return false;
    m_wish = Wish::None;
    const qsizetype count = m_finder.matchCount();
    if (count == 0 || !m_finder.obstacle().isNull() || !m_view->isEditable())
        return true;
    std::vector<TextRange> ranges;
    for (qsizetype i = 0; i < count; ++i)
        ranges.push_back(m_finder.match(i));
    const auto texts = replacements(ranges);
    if (!texts)
        return true;
    TextSelections after = TextSelections(std::vector{m_view->selections().main()});
    qsizetype shift = 0;
    for (size_t i = 0; i < ranges.size(); ++i) {
        const qsizetype length = (*texts)[qsizetype(i)].size();
        const qsizetype change = length - ranges[i].length;
        after.textDidChange({ranges[i].location + shift, length}, change);
        shift += change;
    }
    if (m_view->changeText(ranges, *texts, TextUndo::Kind::Other, after))
        showNote(format(localized("%ld replaced"), count));
    return true;
}

// Nullopt, with a note, if one cannot be told.
std::optional<QStringList> FindBar::replacements(const std::vector<TextRange> &ranges)
{
    QStringList texts;
    Error error;
    for (const TextRange range : ranges) {
        const auto text = m_finder.replacement(range, m_ui->replaceField->text(), &error);
        if (!text) {
            showNote(error.description);
            return std::nullopt;
        }
        texts << *text;
    }
    return texts;
}

void FindBar::showNote(const QString &note)
{
    m_note = note;
    showStatus();
}

void FindBar::showStatus()
{
    m_ui->statusLabel->setText(m_note.isNull() ? status() : m_note);
}

QString FindBar::status() const
{
    const qsizetype count = m_finder.matchCount();
    if (!m_finder.obstacle().isNull())
        return m_finder.obstacle();
    if (m_finder.query().string.isEmpty())
        return {};
    if (count == 0)
        return m_finder.isSearching() ? localized("Searching…") : localized("Not found");
    const qsizetype index = m_view ? m_finder.indexOf(m_view->selectedRange()) : NotFound;
    const QString text = index == NotFound ? format(localized("%ld found"), count)
                                           : format(localized("%ld of %ld"), index + 1, count);
    return m_finder.isSearching() ? text + u'…' : text;
}

void FindBar::keyPressEvent(QKeyEvent *event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape)
        closeBar();
    else if (isEnter && m_ui->replaceField->hasFocus())
        replace();
    else if (isEnter && event->modifiers().testFlag(Qt::ShiftModifier))
        findPrevious();
    else if (isEnter)
        findNext();
    else
        QWidget::keyPressEvent(event);
}

} // namespace platform
