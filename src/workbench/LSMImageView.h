#pragma once

#include <QImage>
#include <QWidget>

/// Shows the design's picture and takes a new one: a file dropped on it, or what is pasted while it
/// has the keyboard. Posts `LSMImageViewImageDropped` (object: this view; user information
/// {"imagePath": path}) for a file whose type is that of a picture; beeps for anything else, and
/// for the keys that delete: a design's picture can be replaced and not be taken away. A disabled
/// view takes nothing. Main thread.
class LSMImageView : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(bool canPaste READ canPaste)
    Q_PROPERTY(bool canCopy READ canCopy)

public:
    explicit LSMImageView(QWidget *parent = nullptr);

    /// A null one shows `note`, or else an invitation to drop one.
    void setImage(const QImage &image, const QString &note = {});
    QImage image() const { return m_image; }

    /// As if the file had been dropped: posts or beeps. True if it was posted.
    bool takeFile(const QString &path);

    bool canPaste() const; ///< Is there a picture or a file on the clipboard?
    bool canCopy() const { return !m_image.isNull(); }

    QSize sizeHint() const override { return {280, 280}; }

public Q_SLOTS:
    void paste(); ///< A file as if it had been dropped, else a picture.
    void copy();

Q_SIGNALS:
    void imageWasPasted(const QImage &image); ///< One that stands in no file.

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void notifyWithImageDropped(const QString &path);

    QImage m_image;
    QString m_note;
    bool m_dragIsOver = false;
};
