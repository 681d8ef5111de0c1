#pragma once

#include "platform/text/TextRange.h"
#include <QListView>
#include <QPointer>
#include <QStringListModel>

namespace platform {

class TextView;

/// The candidates for the word before the caret, in a small window beside it. The view keeps the
/// keyboard: arrow and page keys choose, Enter or Tab puts the candidate in place of the word,
/// Escape closes, and whatever else is typed goes into the text, by which the list is filtered. A
/// click chooses, too. Closes when the caret leaves the word or the view the focus.
///
/// Opens when the view is asked to complete, with the view's own candidates. Owned by the view.
class CompletionList : public QListView
{
    Q_OBJECT

public:
    explicit CompletionList(TextView *view);

    /// Shows those of the candidates, in their order, that begin with what stands in `word`, which
    /// ends at the caret. Nothing to choose from: no list is shown.
    void open(const QStringList &candidates, TextRange word);

    QStringList shown() const { return m_model.stringList(); }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void openForView();
    void filter();
    QStringList matching() const;
    void place();
    void close();
    static bool takesKey(QKeyCombination key);
    void press(int key);
    void choose(int row);
    void take();

    TextView *m_view;
    QStringListModel m_model;
    QStringList m_candidates; ///< None: closed.
    TextRange m_word;         ///< As it was when the list was opened.
};

} // namespace platform
