#pragma once

#include <QPlainTextEdit>

/// A plain view of a design's HTML. Stock text documents turn CR LF, blanks and separators of their
/// own into others; a text that this view would not give back unchanged is therefore only shown:
/// `isFaithful` is false and the view cannot be edited. Main thread.
class LSMSourceView : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit LSMSourceView(QWidget *parent = nullptr);

    /// Replaces the text and the undo history, and tells nobody.
    void setSource(const QString &source);
    QString source() const; ///< Exactly what `setSource` got while nothing was edited.

    bool isFaithful() const { return m_faithful; }
    void setEditable(bool editable); ///< Takes effect while the text is faithful.

Q_SIGNALS:
    void sourceDidChange(); ///< By the user.

private:
    void applyColors();
    void changeEvent(QEvent *event) override;

    QString m_source; // of an unfaithful text
    bool m_faithful = true;
    bool m_setting = false;
};
