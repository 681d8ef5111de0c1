#pragma once

#include <memory>
#include <QStringListModel>
#include <QWidget>

namespace Ui {
class LSMKeywordsViewController;
}
namespace zq {
class ListEditing;
}

/// The list of known keywords while it is edited: rows of names, added and removed by buttons and
/// keys (Return edits, Delete removes). The content of a popover; main thread.
///
/// Names lose the blanks around them. An empty name, or one that another row has, is not taken: the
/// row keeps the name it had, and a row that never had one goes.
class LSMKeywordsViewController : public QWidget
{
    Q_OBJECT

public:
    explicit LSMKeywordsViewController(const QStringList &keywords, QWidget *parent = nullptr);
    ~LSMKeywordsViewController() override;

    /// The names in their order. One that is still being typed counts as typed.
    QStringList allKeywords();

private:
    class NameDelegate;

    void takeName(const QModelIndex &index, const QString &text);
    void editorDidClose();

    std::unique_ptr<Ui::LSMKeywordsViewController> m_ui;
    QStringListModel m_keywords;
    zq::ListEditing *m_editing;
    QString m_refusedName; // another row has it
};
