#include "editor/MGSSyntaxErrorController.h"

#include "editor/MGSErrorMessagesView.h"
#include "editor/MGSTextStorageExtensions.h"
#include "kit/ui/Popover.h"

#include <QLayout>

using platform::TextRange;

namespace {

constexpr int popoverMargin = 6; // pixels

QColor paleYellow()
{
    return QColor::fromRgbF(1.0F, 1.0F, 0.7F);
}

} // namespace

MGSSyntaxErrorController::MGSSyntaxErrorController(QObject *parent) : QObject(parent)
{
    m_highlighter.setLook({paleYellow()});
}

void MGSSyntaxErrorController::setSyntaxErrors(const QVariantList &errors)
{
    m_syntaxErrors.clear();
    for (const QVariant &error : errors) {
        if (error.metaType() == QMetaType::fromType<SMLSyntaxError>())
            m_syntaxErrors << error.value<SMLSyntaxError>();
    }
    m_highlighter.setErrors(m_syntaxErrors);
    updateSyntaxErrorsDisplay();
}

void MGSSyntaxErrorController::setShowsSyntaxErrors(bool shows)
{
    m_showsSyntaxErrors = shows;
    updateSyntaxErrorsDisplay();
}

void MGSSyntaxErrorController::setShowsIndividualErrors(bool shows)
{
    setLook({defaultSyntaxErrorHighlightingColour(), shows});
}

void MGSSyntaxErrorController::setDefaultSyntaxErrorHighlightingColour(const QColor &colour)
{
    setLook({colour.isValid() ? colour : paleYellow(), showsIndividualErrors()});
}

void MGSSyntaxErrorController::setLook(const MGSErrorHighlighter::Look &look)
{
    m_highlighter.setLook(look);
    updateSyntaxErrorsDisplay();
}

void MGSSyntaxErrorController::setLineNumberView(MGSLineNumberView *gutter)
{
    if (m_lineNumberView)
        m_lineNumberView->setDecorationAction(nullptr, {});
    m_lineNumberView = gutter;
    if (m_lineNumberView)
        m_lineNumberView->setDecorationAction(this, QByteArrayLiteral("clickedError"));
    updateSyntaxErrorsDisplay();
}

void MGSSyntaxErrorController::setTextView(platform::TextView *textView)
{
    if (m_textView) {
        m_textView->layoutManager()->disconnect(this);
        m_writer.write(*m_textView->layoutManager(), {});
    }
    m_textView = textView;
    if (!m_textView)
        return;
    connect(m_textView->layoutManager(), &platform::LayoutManager::didProcessEditing, this,
            &MGSSyntaxErrorController::textStorageDidProcessEditing);
    connect(m_textView->layoutManager(), &platform::LayoutManager::textStorageDidChange, this,
            &MGSSyntaxErrorController::textStorageDidChange);
    textStorageDidChange();
}

// Another text has no temporary attributes.
void MGSSyntaxErrorController::textStorageDidChange()
{
    m_writer.forget();
    updateSyntaxErrorsDisplay();
}

void MGSSyntaxErrorController::updateSyntaxErrorsDisplay()
{
    if (m_textView)
        highlightErrors();
    if (m_lineNumberView)
        m_lineNumberView->setDecorations(m_showsSyntaxErrors ? errorDecorations()
                                                             : MGSLineNumberView::Decorations());
}

// Once for all edits until the event loop turns.
void MGSSyntaxErrorController::textStorageDidProcessEditing(TextRange range,
                                                            qsizetype changeInLength)
{
    if (!m_writer.hasEdits())
        QMetaObject::invokeMethod(this, &MGSSyntaxErrorController::settleEdits,
                                  Qt::QueuedConnection);
    m_writer.textDidChange(range, changeInLength);
}

void MGSSyntaxErrorController::settleEdits()
{
    if (m_writer.hasEdits() && m_textView)
        highlightErrors();
}

void MGSSyntaxErrorController::highlightErrors()
{
    platform::LayoutManager &layout = *m_textView->layoutManager();
    m_writer.write(layout, m_showsSyntaxErrors ? m_highlighter.highlights(*layout.textStorage())
                                               : MGSHighlightWriter::Highlights());
}

MGSSyntaxErrorController::Errors MGSSyntaxErrorController::nonHiddenErrors() const
{
    Errors errors;
    std::ranges::copy_if(m_syntaxErrors, std::back_inserter(errors),
                         [](const SMLSyntaxError &error) { return !error.hidden; });
    return errors;
}

QList<quint64> MGSSyntaxErrorController::linesWithErrors() const
{
    return worstErrors().keys();
}

MGSSyntaxErrorController::Errors MGSSyntaxErrorController::errorsForLine(quint64 line) const
{
    Errors errors;
    std::ranges::copy_if(
        m_syntaxErrors, std::back_inserter(errors),
        [line](const SMLSyntaxError &error) { return !error.hidden && error.line == line; });
    return errors;
}

std::optional<SMLSyntaxError> MGSSyntaxErrorController::errorForLine(quint64 line) const
{
    const SMLSyntaxError *worst = worstErrors().value(line);
    return worst ? std::optional(*worst) : std::nullopt;
}

QMap<quint64, const SMLSyntaxError *> MGSSyntaxErrorController::worstErrors() const
{
    QMap<quint64, const SMLSyntaxError *> worst;
    for (const SMLSyntaxError &error : m_syntaxErrors) {
        if (error.hidden)
            continue;
        const SMLSyntaxError *&found = worst[error.line];
        if (!found || error.warningLevel() > found->warningLevel())
            found = &error;
    }
    return worst;
}

MGSLineNumberView::Decorations MGSSyntaxErrorController::errorDecorations() const
{
    return errorDecorationsHavingSize({});
}

MGSLineNumberView::Decorations
MGSSyntaxErrorController::errorDecorationsHavingSize(QSize size) const
{
    MGSLineNumberView::Decorations decorations;
    const auto worst = worstErrors();
    for (auto at = worst.cbegin(); at != worst.cend(); ++at) {
        const QIcon image = (*at)->warningImage();
        decorations.insert(qsizetype(at.key()), size.isEmpty() ? image : QIcon(image.pixmap(size)));
    }
    return decorations;
}

void MGSSyntaxErrorController::clickedError(QObject *gutter)
{
    auto *view = qobject_cast<MGSLineNumberView *>(gutter);
    if (!view)
        return;
    const qsizetype row = view->selectedLineNumber();
    showErrorsForLine(quint64(row) + 1, view->decorationRectOfLine(row), view);
}

void MGSSyntaxErrorController::showErrorsForLine(quint64 line, const QRectF &relativeToRect,
                                                 QWidget *ofView)
{
    Errors errors = errorsForLine(line);
    errors.removeIf([](const SMLSyntaxError &error) { return error.errorDescription.isEmpty(); });
    if (errors.isEmpty())
        return;
    auto *popover = new zq::Popover(new MGSErrorMessagesView(errors));
    popover->layout()->setContentsMargins(popoverMargin, popoverMargin, popoverMargin,
                                          popoverMargin);
    popover->showRelativeTo(relativeToRect.toAlignedRect(), ofView);
}
