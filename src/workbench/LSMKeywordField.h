#pragma once

#include "kit/ui/ZQKeywordView.h"
#include "library/LSMDesignTemplate.h"

class LSMKeywordsViewController;
class QToolButton;

/// The keywords of the selected design: all known ones as badges, of which the design's own are
/// selected, and a button that opens the list of the known ones. The user's choice goes to the
/// design at once. Made by the editor; main thread.
///
/// The design keeps what it has until the user takes it away: all of its own show first,
/// in their order, known or not, and only a choice of other keywords is stored.
class LSMKeywordField : public QWidget, private ZQKeywordViewDelegate
{
    Q_OBJECT

public:
    explicit LSMKeywordField(QWidget *parent = nullptr);

    /// What is offered. Changed by the user in the list; nobody else hears of that.
    void setKnownKeywords(const QStringList &keywords);

    /// Borrowed; null: none. To be called again when its keywords have changed elsewhere.
    void setDesignTemplate(LSMDesignTemplate *design);

    /// Opens the list beside its button.
    void showKeywordsPopoverAction();

Q_SIGNALS:
    void keywordsWereChosen(); ///< The user gave the design others.

private:
    void reloadData();
    void selectionChangedTo(ZQKeywordView *view, const QVariantList &selected) override;
    void popoverDidClose(LSMKeywordsViewController *list);

    ZQKeywordView *m_keywordView;
    QToolButton *m_popoverButton;
    platform::ArrayController m_keywordsArrayController;
    QStringList m_knownKeywords;
    QPointer<LSMDesignTemplate> m_design;
    bool m_isReloading = false;
};
