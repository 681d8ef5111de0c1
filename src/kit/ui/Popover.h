#pragma once

#include <QFrame>

namespace zq {

/// A frame beside a widget that holds a small editor and closes by Escape or a click elsewhere: at
/// once in force, without buttons. Made with new, it deletes itself once it has closed. Main
/// thread.
class Popover : public QFrame
{
    Q_OBJECT

public:
    /// Takes the content over.
    explicit Popover(QWidget *content);

    /// Opens below the anchor, or above it where the screen ends, and puts the keyboard into the
    /// content. Goes with the anchor's window.
    void showRelativeTo(QWidget *anchor);
    void showRelativeTo(const QRect &rect, QWidget *ofView); ///< A part of a view, as the anchor.

Q_SIGNALS:
    /// By whatever means; the content is still there. Once.
    void didClose();

protected:
    void hideEvent(QHideEvent *event) override;

private:
    QWidget *m_content;
};

} // namespace zq
