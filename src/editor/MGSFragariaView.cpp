#include "editor/MGSFragariaView.h"

#include "editor/colouring/MGSSyntaxController.h"
#include "editor/colouring/SMLSyntaxColouring.h"
#include "editor/MGSLineNumberView.h"
#include "editor/MGSSyntaxErrorController.h"
#include "editor/SMLTextView.h"
#include "platform/Log.h"
#include "platform/text/view/FindBar.h"

#include <QVBoxLayout>

MGSFragariaView::MGSFragariaView(QWidget *parent) : QFrame(parent)
{
    setupView();
}

MGSFragariaView::~MGSFragariaView() = default;

void MGSFragariaView::setupView()
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    m_textView = new SMLTextView(this);
    m_textView->setFrameShape(QFrame::NoFrame);
    column->addWidget(m_textView);
    m_findBar = new platform::FindBar(m_textView, this);
    column->addWidget(m_findBar);
    setFocusProxy(m_textView);
    m_gutterView = new MGSLineNumberView(m_textView, this);
    m_gutterView->setFolding(m_textView->folding());
    syntaxColouring()->setSyntaxDefinitionName(MGSSyntaxController::standardSyntaxDefinitionName());
    syntaxColouring()->setFragaria(this);
    setHasVerticalScroller(true);
    setShowsGutter(true);
    m_syntaxErrorController = new MGSSyntaxErrorController(this);
    m_syntaxErrorController->setLineNumberView(m_gutterView);
    m_syntaxErrorController->setTextView(m_textView);
    setShowsSyntaxErrors(true);
    setAutoCompleteDelegate(nullptr);
}

void MGSFragariaView::settingDidChange(const QString &name, const QVariant &value)
{
    mgs_propagateValue(this, value, name);
    Q_EMIT settingsDidChange();
}

// An owner may limit what it is given: a binding is told what came of it.
#define MGS_FRAGARIA_FORWARD_AS(type, name, Name, owner, getter, setter)                           \
    type MGSFragariaView::name() const                                                             \
    {                                                                                              \
        return owner()->getter();                                                                  \
    }                                                                                              \
    void MGSFragariaView::set##Name(const type &value)                                             \
    {                                                                                              \
        owner()->setter(value);                                                                    \
        settingDidChange(QStringLiteral(#name), QVariant::fromValue(name()));                      \
    }
#define MGS_FRAGARIA_FORWARD(type, name, Name, owner)                                              \
    MGS_FRAGARIA_FORWARD_AS(type, name, Name, owner, name, set##Name)

#define MGS_FRAGARIA_FORWARD_PROPERTY(type, name, Name, owner)                                     \
    type MGSFragariaView::name() const                                                             \
    {                                                                                              \
        return owner()->property(#name).value<type>();                                             \
    }                                                                                              \
    void MGSFragariaView::set##Name(const type &value)                                             \
    {                                                                                              \
        owner()->setProperty(#name, value);                                                        \
        settingDidChange(QStringLiteral(#name), QVariant::fromValue(name()));                      \
    }

MGS_FRAGARIA_PROPERTIES(MGS_FRAGARIA_FORWARD, MGS_FRAGARIA_FORWARD_AS,
                        MGS_FRAGARIA_FORWARD_PROPERTY)

bool MGSFragariaView::isSyntaxColoured() const
{
    return m_textView->isSyntaxColoured();
}

void MGSFragariaView::setSyntaxColoured(bool coloured)
{
    m_textView->setSyntaxColoured(coloured);
    settingDidChange(QStringLiteral("isSyntaxColoured"), coloured);
}

bool MGSFragariaView::showsGutter() const
{
    return !m_gutterView->isHidden();
}

void MGSFragariaView::setShowsGutter(const bool &value)
{
    m_gutterView->setVisible(value);
    m_textView->updateRulerWidth();
    settingDidChange(QStringLiteral("showsGutter"), value);
}

bool MGSFragariaView::hasVerticalScroller() const
{
    return m_textView->verticalScrollBarPolicy() != Qt::ScrollBarAlwaysOff;
}

void MGSFragariaView::setHasVerticalScroller(const bool &value)
{
    m_textView->setVerticalScrollBarPolicy(value ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
    settingDidChange(QStringLiteral("hasVerticalScroller"), value);
}

bool MGSFragariaView::scrollElasticityDisabled() const
{
    return m_scrollElasticityDisabled;
}

void MGSFragariaView::setScrollElasticityDisabled(const bool &value)
{
    m_scrollElasticityDisabled = value;
    settingDidChange(QStringLiteral("scrollElasticityDisabled"), value);
}

QAbstractScrollArea *MGSFragariaView::scrollView() const
{
    return m_textView;
}

SMLSyntaxColouring *MGSFragariaView::syntaxColouring() const
{
    return m_textView->syntaxColouring();
}

platform::TextViewDelegate *MGSFragariaView::textViewDelegate() const
{
    return m_textView->delegate();
}

void MGSFragariaView::setTextViewDelegate(platform::TextViewDelegate *delegate)
{
    m_textView->setDelegate(delegate);
}

SMLAutoCompleteDelegate *MGSFragariaView::autoCompleteDelegate() const
{
    return m_textView->autoCompleteDelegate();
}

void MGSFragariaView::setAutoCompleteDelegate(SMLAutoCompleteDelegate *delegate)
{
    m_textView->setAutoCompleteDelegate(delegate);
}

MGSBreakpointDelegate *MGSFragariaView::breakpointDelegate() const
{
    return m_gutterView->breakpointDelegate();
}

void MGSFragariaView::setBreakpointDelegate(MGSBreakpointDelegate *delegate)
{
    m_gutterView->setBreakpointDelegate(delegate);
}

SMLSyntaxColouringDelegate *MGSFragariaView::syntaxColouringDelegate() const
{
    return syntaxColouring()->syntaxColouringDelegate();
}

void MGSFragariaView::setSyntaxColouringDelegate(SMLSyntaxColouringDelegate *delegate)
{
    syntaxColouring()->setSyntaxColouringDelegate(delegate);
}

QList<SMLSyntaxError> MGSFragariaView::syntaxErrors() const
{
    return m_syntaxErrorController->syntaxErrors();
}

void MGSFragariaView::setSyntaxErrors(const QVariantList &errors)
{
    m_syntaxErrorController->setSyntaxErrors(errors);
}

void MGSFragariaView::replaceTextStorage(std::shared_ptr<platform::TextStorage> storage)
{
    m_gutterView->layoutManagerWillChangeTextStorage();
    syntaxColouring()->layoutManagerWillChangeTextStorage();
    m_textView->layoutManager()->replaceTextStorage(std::move(storage));
    m_gutterView->layoutManagerDidChangeTextStorage();
    syntaxColouring()->layoutManagerDidChangeTextStorage();
}

MGSAttributedString MGSFragariaView::attributedStringWithTemporaryAttributesApplied()
{
    return m_textView->attributedStringWithTemporaryAttributesApplied();
}

void MGSFragariaView::getRowAndColumn(qsizetype *row, qsizetype *column,
                                      qsizetype forCharacterIndex) const
{
    m_textView->getRowAndColumn(row, column, forCharacterIndex);
}

void MGSFragariaView::getRowAndIndexInRow(qsizetype *row, qsizetype *index,
                                          qsizetype forCharacterIndex) const
{
    m_textView->getRowAndIndexInRow(row, index, forCharacterIndex);
}

qsizetype MGSFragariaView::characterIndexAtColumn(qsizetype column, qsizetype withinRow) const
{
    return m_textView->characterIndexAtColumn(column, withinRow);
}

qsizetype MGSFragariaView::characterIndexAtIndex(qsizetype index, qsizetype withinRow) const
{
    return m_textView->characterIndexAtIndex(index, withinRow);
}

void MGSFragariaView::goToLine(qsizetype line, bool centered, bool highlight)
{
    if (centered)
        platform::log("Warning: centered option is ignored.");
    m_textView->performGoToLine(line, highlight);
}

void MGSFragariaView::reloadBreakpointData()
{
    m_gutterView->reloadBreakpointData();
}
