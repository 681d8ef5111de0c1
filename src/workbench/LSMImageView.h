#pragma once

#include <QImage>
#include <QWidget>

/// Shows the design's picture and takes a new one: a file dropped on it. Posts
/// `LSMImageViewImageDropped` (object: this view; user information {"imagePath": path}) for a file
/// whose type is that of a picture; beeps for anything else. A disabled view takes no drop. Main
/// thread.
class LSMImageView : public QWidget
{
    Q_OBJECT

public:
    explicit LSMImageView(QWidget *parent = nullptr);

    void setImage(const QImage &image); ///< Null shows an invitation to drop one.
    QImage image() const { return m_image; }

    /// As if the file had been dropped: posts or beeps. True if it was posted.
    bool takeFile(const QString &path);

    QSize sizeHint() const override { return {280, 280}; }

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void notifyWithImageDropped(const QString &path);

    QImage m_image;
    bool m_dragIsOver = false;
};
