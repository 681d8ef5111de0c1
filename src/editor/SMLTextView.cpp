#include "editor/SMLTextView.h"

#include "editor/colouring/SMLSyntaxColouring.h"
#include "editor/MGSColourSwatches.h"
#include "editor/MGSExtraInterfaceController.h"
#include "editor/MGSFolding.h"
#include "editor/MGSFont.h"
#include "editor/MGSStringExtensions.h"
#include "editor/MGSTagHighlight.h"
#include "editor/MGSTextStorageExtensions.h"
#include "kit/ui/TargetAction.h"
#include "platform/text/view/CompletionList.h"

#include <QApplication>
#include <QDragMoveEvent>
#include <QMenu>

using platform::NotFound;
using platform::TextRange;

SMLTextView::SMLTextView(QWidget *parent)
    : TextView(std::make_unique<SMLLayoutManager>(), parent),
      m_syntaxColouring(std::make_unique<SMLSyntaxColouring>(layoutManager())),
      m_interfaceController(std::make_unique<MGSExtraInterfaceController>(this)),
      m_tagHighlight(std::make_unique<MGSTagHighlight>(this)),
      m_colourSwatches(std::make_unique<MGSColourSwatches>(this)),
      m_folding(std::make_unique<MGSFolding>(this)),
      m_completionList(new platform::CompletionList(this))
{
    m_autocompleteWordsTimer.setSingleShot(true);
    connect(&m_autocompleteWordsTimer, &QTimer::timeout, this,
            &SMLTextView::autocompleteWordsTimerDidFire);
    m_dragTimer.setSingleShot(true);
    connect(&m_dragTimer, &QTimer::timeout, this, &SMLTextView::dragTimerDidFire);
    connect(layoutManager(), &SMLLayoutManager::layoutDidChange, this,
            &SMLTextView::updateTabInterval);
    connect(this, &SMLTextView::frameDidChange, this, &SMLTextView::updateLineWrap);
    setTextFont(mgs_defaultFont());
    updateLineWrap();
}

SMLTextView::~SMLTextView() = default;

SMLLayoutManager *SMLTextView::layoutManager() const
{
    return static_cast<SMLLayoutManager *>(TextView::layoutManager());
}

void SMLTextView::beep()
{
    QApplication::beep();
    Q_EMIT didBeep();
}

void SMLTextView::setSyntaxColoured(bool coloured)
{
    if (m_syntaxColoured == coloured)
        return;
    m_syntaxColoured = coloured;
    m_syntaxColouring->invalidateAllColouring();
    viewport()->update();
}

QColor SMLTextView::textInvisibleCharactersColour() const
{
    return layoutManager()->invisibleCharactersColour();
}

void SMLTextView::setTextInvisibleCharactersColour(const QColor &colour)
{
    layoutManager()->setInvisibleCharactersColour(colour);
}

void SMLTextView::setTextColor(const QColor &colour)
{
    TextView::setTextColor(colour);
    configurePageGuide();
}

MGSAttributedString SMLTextView::attributedStringWithTemporaryAttributesApplied()
{
    m_syntaxColouring->recolourRange({0, textStorage()->length()});
    return layoutManager()->attributedStringWithTemporaryAttributesApplied();
}

void SMLTextView::getRowAndColumn(qsizetype *row, qsizetype *column,
                                  qsizetype forCharacterIndex) const
{
    if (row)
        *row = mgs_rowOfCharacter(*textStorage(), forCharacterIndex);
    if (column)
        *column = realColumnOfCharacter(forCharacterIndex);
}

void SMLTextView::getRowAndIndexInRow(qsizetype *row, qsizetype *index,
                                      qsizetype forCharacterIndex) const
{
    const qsizetype found = mgs_rowOfCharacter(*textStorage(), forCharacterIndex);
    if (row)
        *row = found;
    if (index)
        *index = found == NotFound ? NotFound : forCharacterIndex - textStorage()->lineStart(found);
}

qsizetype SMLTextView::characterIndexAtColumn(qsizetype column, qsizetype withinRow) const
{
    const qsizetype start = mgs_firstCharacterInRow(*textStorage(), withinRow);
    if (start == NotFound || column < 0)
        return NotFound;
    const QString line = textStorage()->substring(textStorage()->lineContents(withinRow));
    const qsizetype index = mgs_characterInColumn(line, column, m_tabWidth);
    if (index != NotFound)
        return start + index;
    const bool isAtEnd = mgs_columnOfCharacter(line, line.size(), m_tabWidth) == column;
    return isAtEnd ? start + line.size() : NotFound;
}

qsizetype SMLTextView::characterIndexAtIndex(qsizetype index, qsizetype withinRow) const
{
    return mgs_characterAtIndex(*textStorage(), index, withinRow);
}

qsizetype SMLTextView::realColumnOfCharacter(qsizetype index) const
{
    const TextRange line = mgs_lineRangeForCharacterIndex(*textStorage(), index);
    if (!line.isFound())
        return NotFound;
    const QString before = textStorage()->substring(TextRange::between(line.location, index));
    return mgs_columnOfCharacter(before, before.size(), m_tabWidth);
}

qsizetype SMLTextView::findBeginningOfNestedBlock(qsizetype index, char16_t openedByCharacter,
                                                  char16_t closedByCharacter) const
{
    return mgs_beginningOfNestedBlock(*textStorage(), index, openedByCharacter, closedByCharacter);
}

qsizetype SMLTextView::findEndOfNestedBlock(qsizetype index, char16_t openedByCharacter,
                                            char16_t closedByCharacter) const
{
    return mgs_endOfNestedBlock(*textStorage(), index, openedByCharacter, closedByCharacter);
}

void SMLTextView::didPaste()
{
    const platform::Notification notification{
        MGSTextDidPasteNotification,
        this,
        {{QStringLiteral("NSTextView"), QVariant::fromValue<QObject *>(this)}}};
    platform::NotificationCenter::defaultCenter().post(notification.name, this,
                                                       notification.userInfo);
    if (auto *pasteDelegate = dynamic_cast<MGSFragariaTextViewDelegate *>(delegate()))
        pasteDelegate->mgsTextDidPaste(notification);
}

void SMLTextView::fillContextMenu(QMenu *menu)
{
    TextView::fillContextMenu(menu);
    const QList<QAction *> usual = menu->actions();
    const auto separator = std::find_if(usual.crbegin(), usual.crend(),
                                        [](const QAction *item) { return item->isSeparator(); });
    QAction *following = separator == usual.crbegin() || separator == usual.crend()
                             ? nullptr
                             : *std::prev(separator);
    for (QAction *item : m_interfaceController->contextMenu()->actions()) {
        zq::validateItem(item);
        menu->insertAction(following, item);
    }
    if (following)
        menu->insertSeparator(following);
}
