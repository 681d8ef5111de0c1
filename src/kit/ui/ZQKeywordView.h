#pragma once

#include "kit/ui/KeywordBadges.h"
#include "platform/ArrayController.h"

#include <QColor>
#include <QPointer>
#include <QSet>
#include <QWidget>

/// The strings of an array controller as one row of rounded badges, in the manner of toggle
/// buttons: the selected ones stand out. Badges that do not fit are in a menu behind a chevron at
/// the right end. The view knows nothing of what the keywords are for; it changes the controller's
/// selection and tells its delegate. A disabled view is paler and takes no clicks and no hover.
///
/// Keyboard: Left, Right, Home and End move a focus ring over badges and chevron, Space presses
/// what it is on, Down opens the menu. Each keyword, in the menu too, is a check box to assistive
/// technology. Indexes are zero-based, measures are pixels; main thread.
class ZQKeywordView : public QWidget
{
    Q_OBJECT

public:
    struct Settings
    {
        double badgeSpacing = 4; ///< Between badges, and left of the first.
        double badgeHeight = 18;
        double minBadgeSize = 70; ///< Least width of a badge's text.
        double cornerWidth = 9;   ///< Of the end pieces of a badge's image.
        QSizeF labelOffset;       ///< Upwards is positive.
        bool drawsFrame = true;
        bool drawsBackground = true;
        QColor backgroundColor{240, 240, 240};
        bool allowsEmptySelection = false;
        bool allowsMultipleSelection = false;
        bool requiresShiftKeyForMultipleSelection = false; ///< With it, Shift adds to a single one.
        bool displayLocalizedStrings = false;
        QString localizableStringsTable; ///< For those; empty: the main one.
    };

    explicit ZQKeywordView(QWidget *parent = nullptr);

    platform::ArrayController *arrayController() const { return m_controller; }
    void setArrayController(platform::ArrayController *controller); ///< Borrowed.

    /// Borrowed; asked for the texts at once. Null: none.
    void setDelegate(ZQKeywordViewDelegate *delegate);

    const Settings &settings() const { return m_settings; }
    void setSettings(const Settings &settings);

    /// In its present state: pressed, under the mouse, or neither; selected or not.
    QPixmap imageForKeyword(const QString &keyword);

    /// An index beyond the end is a programming fault.
    QRectF rectForKeywordAtIndex(qsizetype index) const;

    /// Whether it fits, and where others do not, the chevron beside it.
    bool canDrawKeywordAtIndex(qsizetype index) const;
    std::optional<qsizetype> indexAtPoint(const QPointF &point) const; ///< Of a badge that shows.
    QString keywordAtPoint(const QPointF &point) const;                ///< Null outside of badges.
    const QStringList &keywords() const { return m_keywords; }
    bool isKeywordSelected(const QString &keyword) const { return m_selected.contains(keyword); }
    QStringList overflowKeywords() const;
    QRectF chevronRect() const; ///< Empty when all badges show.

    /// Right and lower end of the last badge; without keywords that of a plain widget.
    QSizeF intrinsicContentSize() const;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    // Hold until the list changes; they go before what the delegate says.
    QString textForKeyword(const QString &keyword);
    QString tooltipForKeyword(const QString &keyword); ///< Empty without one.
    void setCachedStringToDraw(const QString &text, const QString &keyword);
    void setCachedTooltip(const QString &text, const QString &keyword);
    void removeCachedTooltip(const QString &keyword);

    /// As a click on its badge.
    void userSelectedKeyword(const QString &keyword, Qt::KeyboardModifiers modifiers = {});

    /// Of the focus ring: a keyword's, or the first of the menu's for the chevron.
    qsizetype focusIndex() const;

protected:
    bool event(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *) override { updateHover(); }
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    void arrangedObjectsDidChange();
    void selectionIndexesDidChange();
    void readSelection();
    void announceSelection(const QSet<QString> &before);
    void layOut();
    ZQKeywordText textToDraw(const QString &keyword);
    bool fitsInBounds(qsizetype index) const;
    qsizetype drawableCount() const;
    void updateHover();
    bool mayUnselect() const;
    void displayOverflowPopup();
    QString overflowSummary();
    void moveFocus(qsizetype index);
    void pressFocused(Qt::KeyboardModifiers modifiers);
    void drawChevron(QPainter &painter) const;
    void drawFocusRing(QPainter &painter) const;

    QPointer<platform::ArrayController> m_controller;
    ZQKeywordViewDelegate *m_delegate = nullptr;
    Settings m_settings;
    QStringList m_keywords;
    QSet<QString> m_selected;
    std::vector<double> m_ends; // right end of each badge
    zq::KeywordBadges m_badges;
    QHash<QString, QString> m_cachedStringsToDraw;
    QHash<QString, QString> m_cachedTooltips;
    QString m_pressedKeyword; // where the mouse went down
    QString m_clickedKeyword; // the same while the pointer is on it
    QString m_keywordUnderMouse;
    std::optional<QPointF> m_mouse; // while it is over the view
    qsizetype m_focusIndex = 0;
    bool m_showsFocusRing = false;
};
