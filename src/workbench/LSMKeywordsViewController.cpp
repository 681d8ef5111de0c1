#include "workbench/LSMKeywordsViewController.h"

#include "kit/ui/ListEditing.h"
#include "platform/Bundle.h"
#include "platform/Format.h"
#include "ui_LSMKeywordsViewController.h"

#include <QLineEdit>
#include <QStyledItemDelegate>

using platform::localized;

/// Hands what was typed to the pane, which says whether it is taken.
class LSMKeywordsViewController::NameDelegate : public QStyledItemDelegate
{
public:
    explicit NameDelegate(LSMKeywordsViewController *pane) : QStyledItemDelegate(pane), m_pane(pane)
    {
    }

    void setModelData(QWidget *editor, QAbstractItemModel *,
                      const QModelIndex &index) const override
    {
        m_pane->takeName(index, static_cast<QLineEdit *>(editor)->text());
    }

private:
    LSMKeywordsViewController *m_pane;
};

LSMKeywordsViewController::LSMKeywordsViewController(const QStringList &keywords, QWidget *parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::LSMKeywordsViewController>()), m_keywords(keywords)
{
    m_ui->setupUi(this);
    setFocusProxy(m_ui->keywordsTable);
    auto *delegate = new NameDelegate(this);
    m_ui->keywordsTable->setItemDelegate(delegate);
    m_ui->keywordsTable->setModel(&m_keywords);
    m_editing = new zq::ListEditing(m_ui->keywordsTable, m_ui->addButton, m_ui->removeButton,
                                    [this] { m_keywords.insertRow(m_keywords.rowCount()); });
    m_ui->noteText->setText(
        localized("A design keeps its keywords when they are removed from this list."));
    m_ui->noteText->setMinimumHeight(2 * fontMetrics().lineSpacing());
    connect(delegate, &QAbstractItemDelegate::closeEditor, this,
            &LSMKeywordsViewController::editorDidClose);
}

LSMKeywordsViewController::~LSMKeywordsViewController() = default;

QStringList LSMKeywordsViewController::allKeywords()
{
    m_editing->finishEditing();
    QStringList names = m_keywords.stringList();
    names.removeAll(QString());
    return names;
}

void LSMKeywordsViewController::takeName(const QModelIndex &index, const QString &text)
{
    const QString name = text.trimmed();
    const qsizetype row = m_keywords.stringList().indexOf(name);
    if (!name.isEmpty() && row < 0)
        m_keywords.setData(index, name);
    else if (!name.isEmpty() && row != index.row())
        m_refusedName = name;
}

// The row that has the refused name shows where it is.
void LSMKeywordsViewController::editorDidClose()
{
    for (int row = m_keywords.rowCount(); row-- > 0;) {
        if (m_keywords.index(row).data().toString().isEmpty())
            m_keywords.removeRow(row);
    }
    const QString refused = std::exchange(m_refusedName, QString());
    if (refused.isNull())
        return;
    m_ui->keywordsTable->setCurrentIndex(
        m_keywords.index(int(m_keywords.stringList().indexOf(refused))));
    m_ui->noteText->setText(platform::format(localized("“%@” is in the list already."), refused));
}
