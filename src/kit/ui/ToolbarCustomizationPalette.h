#pragma once

#include <QComboBox>
#include <QDialog>
#include <QListWidget>
#include <QPushButton>

namespace zq {

class Toolbar;

/// The sheet in which the user picks the toolbar's items: what may be had above, the toolbar below.
/// Items are dragged between and within the two, or moved by the buttons and keys: Return adds,
/// Delete removes, Alt with Left and Right moves. Each change shows in the toolbar at once. Owned
/// by the toolbar, which must have a delegate; main thread.
class ToolbarCustomizationPalette : public QDialog
{
    Q_OBJECT

public:
    explicit ToolbarCustomizationPalette(Toolbar *toolbar);

private:
    void layOut();
    QWidget *makeBottomRow();
    QPushButton *makeButton(const QString &title, const QKeySequence &key, QListWidget *keyList,
                            void (ToolbarCustomizationPalette::*operation)());
    void showToolbar();
    void showAvailable();
    void updateButtons();
    QListWidgetItem *makeEntry(const QString &identifier);
    QStringList identifiersInList() const;
    void applyLater();
    void apply();
    void addItem();
    void removeItem();
    void moveLeft() { moveItem(-1); }
    void moveRight() { moveItem(1); }
    void moveItem(int step);
    void restoreDefaults();

    Toolbar *m_toolbar;
    QListWidget *m_available;
    QListWidget *m_inToolbar; ///< What it lists is what the toolbar gets.
    QPushButton *m_add = nullptr;
    QPushButton *m_remove = nullptr;
    QPushButton *m_left = nullptr;
    QPushButton *m_right = nullptr;
    bool m_applyIsDue = false;
};

} // namespace zq
