#include "workbench/LSMSourceView.h"

#include "platform/Appearance.h"
#include "platform/Bundle.h"

#include <QFontDatabase>
#include <QScopedValueRollback>

using platform::namedColor;

LSMSourceView::LSMSourceView(QWidget *parent) : QPlainTextEdit(parent)
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPointSizeF(qMax(10.0, font.pointSizeF()));
    setFont(font);
    setFrameShape(QFrame::NoFrame);
    setTabStopDistance(2 * fontMetrics().horizontalAdvance(u' '));
    setTabChangesFocus(false);
    setLineWrapMode(QPlainTextEdit::WidgetWidth);
    document()->setDocumentMargin(8);
    setAccessibleName(platform::localized("HTML of the design"));
    applyColors();
    connect(this, &QPlainTextEdit::textChanged, this, [this] {
        if (!m_setting)
            Q_EMIT sourceDidChange();
    });
}

void LSMSourceView::setSource(const QString &source)
{
    const QScopedValueRollback setting(m_setting, true);
    setPlainText(source);
    m_source = QString();
    m_faithful = this->source() == source;
    if (!m_faithful)
        m_source = source;
}

QString LSMSourceView::source() const
{
    if (!m_source.isNull())
        return m_source;
    QString text = document()->toRawText();
    text.replace(QChar::ParagraphSeparator, u'\n');
    return text;
}

void LSMSourceView::setEditable(bool editable)
{
    setReadOnly(!editable || !m_faithful);
    setTextInteractionFlags(isReadOnly() ? Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard
                                         : Qt::TextEditorInteraction);
}

void LSMSourceView::applyColors()
{
    QPalette colors = palette();
    colors.setColor(QPalette::Base, namedColor(QStringLiteral("codeEditorBackground")));
    colors.setColor(QPalette::Text, namedColor(QStringLiteral("codeEditorTextColor")));
    if (colors != palette())
        setPalette(colors);
}

void LSMSourceView::changeEvent(QEvent *event)
{
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        applyColors();
}
