#pragma once

#include "platform/web/WebViewEngine.h"
#include "workbench/LSMPreviewListing.h"
#include <memory>
#include <QImage>
#include <QPointer>
#include <QWidget>
#include <span>

class LSMDesignTemplate;
class QMenu;
class QPushButton;

namespace Ui {
class LSMPreviewView;
}

/// The preview beside the code: a design's HTML as a page, at the width of a phone, a tablet or a
/// desktop, larger or smaller, with placeholders as they are written or a listing in their place.
/// A page whose process has died gives way to a line with a button that brings it back.
///
/// Owned by its parent; main thread. Has nothing to do with the text: it never changes it.
class LSMPreviewView : public QWidget
{
    Q_OBJECT

public:
    explicit LSMPreviewView(QWidget *parent = nullptr);
    ~LSMPreviewView() override;

    /// Shows the HTML, whose design is borrowed; null shows an empty page.
    void showSource(const QString &html, const LSMDesignTemplate *design,
                    platform::DocumentScroll scroll);

    QList<QMenu *> menus() const; ///< Width, size and listing, for a menu bar too.

    /// What of the page is in sight, without the bars around it; null before the first page.
    QImage picture() const;

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void resizeEvent(QResizeEvent *event) override;

Q_SIGNALS:
    void pictureWasAskedFor(); ///< By the button: the preview is to be the design's picture.

private:
    struct Choice
    {
        const char *title;
        int value;
    };

    void makeMenu(QPushButton *button, const char *title, const char *key,
                  std::span<const Choice> choices, int &chosen);
    void choicesDidChange();
    void layoutPage();
    void load(platform::DocumentScroll scroll);

    std::unique_ptr<Ui::LSMPreviewView> m_ui;
    QString m_html;
    QPointer<const LSMDesignTemplate> m_design;
    int m_pageWidth = 0; ///< CSS pixels; 0: as wide as there is room.
    int m_percent = 100;
    int m_listing = int(LSMPreviewListing::None);
};
