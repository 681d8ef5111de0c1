#pragma once

#include "platform/text/TextFinder.h"
#include <memory>
#include <QPointer>
#include <QWidget>

class QAction;

namespace Ui {
class FindBar;
}

namespace platform {

class FindMarks;
class TextView;

/// Finds and replaces in a text view: a bar to be laid out below it, hidden until it is asked for.
/// While it is open all matches are marked in the view and counted; Enter or F3 selects the next
/// one, with Shift the previous one, round the ends of the text. Escape closes it and goes back to
/// the text. A long search goes on beside the user's work. Owned by its parent; borrows the view,
/// which may go first.
class FindBar : public QWidget
{
    Q_OBJECT

public:
    explicit FindBar(TextView *view, QWidget *parent = nullptr);
    ~FindBar() override;

    TextFinder *finder() { return &m_finder; }

    /// The commands for a menu, Ctrl+F, Ctrl+H, F3 and Shift+F3. They work in the view and the bar
    /// as they are; who wants more gives them another shortcut context.
    const QList<QAction *> &commands() const { return m_commands; }

public Q_SLOTS:
    /// Opens the bar. A selection within one line is what is looked for.
    void showFind();
    void showReplace(); ///< The same with the lower row; in a view that can be edited.
    void findNext();
    void findPrevious();
    void replace();    ///< The selected match, and selects the next; else selects the next.
    void replaceAll(); ///< As one step of undo.
    void closeBar();

Q_SIGNALS:
    void commandWillAct(); ///< Who has the view on a page that is not in front brings it there.

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    /// What is done as soon as the search has come far enough.
    enum class Wish { None, Next, Previous, ReplaceAll };

    void makeCommands();
    void open(bool replacing);
    void takeSelection();
    void queryDidChange();
    void updateQuery();
    void wish(Wish wish);
    void fulfil();
    bool go();
    void select(TextRange match);
    bool replaceFound();
    std::optional<QStringList> replacements(const std::vector<TextRange> &ranges);
    void showNote(const QString &note);
    void showStatus();
    QString status() const;

    QPointer<TextView> m_view;
    TextFinder m_finder;
    std::unique_ptr<Ui::FindBar> m_ui;
    QList<QAction *> m_commands;
    QPointer<FindMarks> m_marks;
    Wish m_wish = Wish::None;
    QString m_note; ///< Shown until the user goes on; null: none.
};

} // namespace platform
