#include "workbench/LSMKeywordsViewController.h"

#include "kit/ui/TintedIcon.h"
#include "platform/Bundle.h"
#include "platform/Format.h"
#include "ui_LSMKeywordsViewController.h"

#include <algorithm>
#include <QLineEdit>
#include <QShortcut>
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
    m_ui->keywordsTable->setCurrentIndex(m_keywords.index(0));
    m_ui->addButton->setIcon(zq::tintedIcon(QStringLiteral("Add")));
    m_ui->removeButton->setIcon(zq::tintedIcon(QStringLiteral("Remove")));
    m_ui->noteText->setText(
        localized("A design keeps its keywords when they are removed from this list."));
    m_ui->noteText->setMinimumHeight(2 * fontMetrics().lineSpacing());
    const auto onKey = [this](int key, auto slot) {
        auto *shortcut = new QShortcut(key, m_ui->keywordsTable);
        shortcut->setContext(Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, this, slot);
    };
    onKey(Qt::Key_Return, &LSMKeywordsViewController::editCurrentKeyword);
    onKey(Qt::Key_Enter, &LSMKeywordsViewController::editCurrentKeyword);
    onKey(Qt::Key_Delete, &LSMKeywordsViewController::removeSelectedKeywords);
    onKey(Qt::Key_Backspace, &LSMKeywordsViewController::removeSelectedKeywords);
    connect(m_ui->addButton, &QToolButton::clicked, this, &LSMKeywordsViewController::addKeyword);
    connect(m_ui->removeButton, &QToolButton::clicked, this,
            &LSMKeywordsViewController::removeSelectedKeywords);
    connect(delegate, &QAbstractItemDelegate::closeEditor, this,
            &LSMKeywordsViewController::editorDidClose);
    connect(m_ui->keywordsTable->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &LSMKeywordsViewController::updateButtons);
    updateButtons();
}

LSMKeywordsViewController::~LSMKeywordsViewController() = default;

QStringList LSMKeywordsViewController::allKeywords()
{
    finishEditing();
    QStringList names = m_keywords.stringList();
    names.removeAll(QString());
    return names;
}

void LSMKeywordsViewController::addKeyword()
{
    finishEditing();
    const int row = m_keywords.rowCount();
    m_keywords.insertRow(row);
    m_ui->keywordsTable->setCurrentIndex(m_keywords.index(row));
    editCurrentKeyword();
}

void LSMKeywordsViewController::editCurrentKeyword()
{
    if (m_ui->keywordsTable->currentIndex().isValid())
        m_ui->keywordsTable->edit(m_ui->keywordsTable->currentIndex());
}

void LSMKeywordsViewController::removeSelectedKeywords()
{
    QModelIndexList rows = m_ui->keywordsTable->selectionModel()->selectedIndexes();
    if (rows.isEmpty())
        return;
    std::ranges::sort(rows, std::greater(), &QModelIndex::row);
    for (const QModelIndex &index : std::as_const(rows))
        m_keywords.removeRow(index.row());
    const int next = qMin(rows.constLast().row(), m_keywords.rowCount() - 1);
    m_ui->keywordsTable->setCurrentIndex(m_keywords.index(next));
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

void LSMKeywordsViewController::finishEditing()
{
    QListView *table = m_ui->keywordsTable;
    if (QWidget *editor = table->indexWidget(table->currentIndex())) {
        Q_EMIT table->itemDelegate()->commitData(editor);
        Q_EMIT table->itemDelegate()->closeEditor(editor);
    }
}

void LSMKeywordsViewController::updateButtons()
{
    m_ui->removeButton->setEnabled(m_ui->keywordsTable->selectionModel()->hasSelection());
}
