#include "kit/ui/ToolbarCustomizationPalette.h"

#include "kit/ui/Toolbar.h"
#include "platform/Bundle.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>
#include <QShortcut>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace zq {

namespace {

constexpr int identifierRole = Qt::UserRole;
constexpr QSize cell(122, 74);
constexpr int rows = 2;
constexpr int columns = 6;
constexpr int leastColumns = 4;
constexpr int margin = 6;
constexpr int scrollBarWidth = 16;

/// A list that shows its entries as toolbar items, the icon above the label, in rows.
class ItemList : public QListWidget
{
public:
    ItemList(const QString &name, QWidget *parent) : QListWidget(parent)
    {
        setObjectName(QStringLiteral("toolbarItems"));
        setAccessibleName(name);
        setFlow(QListView::LeftToRight);
        setWrapping(true);
        setResizeMode(QListView::Adjust);
        setGridSize(cell);
        setIconSize(QSize(24, 24));
        setUniformItemSizes(true);
        setWordWrap(true);
        setDragDropMode(QAbstractItemView::DragDrop);
        setDefaultDropAction(Qt::MoveAction);
        setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
        setFixedHeight(rows * cell.height() + 2 * margin);
        setMinimumWidth(widthOf(leastColumns));
    }

    static int widthOf(int columnCount)
    {
        return columnCount * cell.width() + 2 * margin + scrollBarWidth;
    }

protected:
    void initViewItemOption(QStyleOptionViewItem *option) const override
    {
        QListWidget::initViewItemOption(option);
        option->decorationSize.setHeight(34);
        option->decorationPosition = QStyleOptionViewItem::Top;
        option->decorationAlignment = Qt::AlignCenter;
        option->displayAlignment = Qt::AlignHCenter | Qt::AlignTop;
    }
};

bool isSpace(const QString &identifier)
{
    return identifier == ToolbarSpaceItemIdentifier ||
           identifier == ToolbarFlexibleSpaceItemIdentifier;
}

} // namespace

ToolbarCustomizationPalette::ToolbarCustomizationPalette(Toolbar *toolbar)
    : QDialog(toolbar->window()), m_toolbar(toolbar),
      m_available(new ItemList(platform::localized("Available items"), this)),
      m_inToolbar(new ItemList(platform::localized("Items in the toolbar"), this))
{
    setWindowTitle(platform::localized("Customize Toolbar"));
    setWindowModality(Qt::WindowModal);
    connect(toolbar, &QObject::destroyed, this, &QObject::deleteLater);
    layOut();
    showToolbar();
    showAvailable();
    updateButtons();
    connect(m_inToolbar->model(), &QAbstractItemModel::rowsInserted, this,
            &ToolbarCustomizationPalette::applyLater);
    connect(m_inToolbar->model(), &QAbstractItemModel::rowsRemoved, this,
            &ToolbarCustomizationPalette::applyLater);
    connect(m_inToolbar->model(), &QAbstractItemModel::rowsMoved, this,
            &ToolbarCustomizationPalette::applyLater);
    for (QListWidget *list : {m_available, m_inToolbar})
        connect(list, &QListWidget::currentRowChanged, this,
                &ToolbarCustomizationPalette::updateButtons);
    connect(m_available, &QListWidget::itemDoubleClicked, this,
            &ToolbarCustomizationPalette::addItem);
    connect(m_inToolbar, &QListWidget::itemDoubleClicked, this,
            &ToolbarCustomizationPalette::removeItem);
}

void ToolbarCustomizationPalette::layOut()
{
    using Palette = ToolbarCustomizationPalette;
    m_add = makeButton(platform::localized("Add"), Qt::Key_Return, m_available, &Palette::addItem);
    m_remove = makeButton(platform::localized("Remove"), Qt::Key_Delete, m_inToolbar,
                          &Palette::removeItem);
    m_left = makeButton(platform::localized("Move Left"), Qt::ALT | Qt::Key_Left, m_inToolbar,
                        &Palette::moveLeft);
    m_right = makeButton(platform::localized("Move Right"), Qt::ALT | Qt::Key_Right, m_inToolbar,
                         &Palette::moveRight);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(new QLabel(platform::localized("Toolbar:"), this));
    buttons->addStretch();
    for (QPushButton *button : {m_add, m_remove, m_left, m_right})
        buttons->addWidget(button);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 18, 20, 16);
    layout->setSpacing(10);
    layout->addWidget(new QLabel(
        platform::localized("Drag your favourite items into the toolbar, and others out of it."),
        this));
    layout->addWidget(m_available);
    layout->addLayout(buttons);
    layout->addWidget(m_inToolbar);
    layout->addSpacing(6);
    layout->addWidget(makeBottomRow());
    const QMargins around = layout->contentsMargins();
    resize(qMin(ItemList::widthOf(columns) + around.left() + around.right(),
                screen()->availableSize().width()),
           sizeHint().height());
}

QWidget *ToolbarCustomizationPalette::makeBottomRow()
{
    auto *row = new QWidget(this);
    auto *modes = new QComboBox(row);
    for (const auto &choice : Toolbar::displayModeChoices()) {
        modes->addItem(choice.title, int(choice.mode));
        if (choice.mode == m_toolbar->displayMode())
            modes->setCurrentIndex(modes->count() - 1);
    }
    connect(modes, &QComboBox::activated, this, [this, modes] {
        m_toolbar->setDisplayMode(ToolbarDisplayMode(modes->currentData().toInt()));
    });
    auto *label = new QLabel(platform::localized("&Show:"), row);
    label->setBuddy(modes);
    auto *defaults = new QPushButton(platform::localized("Restore &Defaults"), row);
    defaults->setAutoDefault(false);
    connect(defaults, &QPushButton::clicked, this, &ToolbarCustomizationPalette::restoreDefaults);
    auto *done = new QPushButton(platform::localized("Done"), row);
    done->setDefault(true);
    connect(done, &QPushButton::clicked, this, &QDialog::accept);
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(label);
    layout->addWidget(modes);
    layout->addWidget(defaults);
    layout->addStretch();
    layout->addWidget(done);
    return row;
}

QPushButton *
ToolbarCustomizationPalette::makeButton(const QString &title, const QKeySequence &key,
                                        QListWidget *keyList,
                                        void (ToolbarCustomizationPalette::*operation)())
{
    auto *button = new QPushButton(title, this);
    button->setAutoDefault(false);
    button->setToolTip(key.toString(QKeySequence::NativeText));
    connect(button, &QPushButton::clicked, this, operation);
    auto *shortcut = new QShortcut(key, keyList);
    shortcut->setContext(Qt::WidgetShortcut);
    connect(shortcut, &QShortcut::activated, button, &QPushButton::click);
    return button;
}

QListWidgetItem *ToolbarCustomizationPalette::makeEntry(const QString &identifier)
{
    const std::unique_ptr<ZQToolbarItem> item(m_toolbar->makeItem(identifier, false));
    if (!item)
        return nullptr;
    const QIcon icon =
        item->icon().isNull() && item->view() ? QIcon(item->view()->grab()) : item->icon();
    auto *entry = new QListWidgetItem(icon, item->paletteLabel());
    entry->setSizeHint(cell - QSize(6, 2));
    entry->setData(identifierRole, identifier);
    entry->setToolTip(item->toolTip());
    return entry;
}

void ToolbarCustomizationPalette::showToolbar()
{
    const QSignalBlocker quiet(m_inToolbar->model());
    m_inToolbar->clear();
    for (const QString &identifier : m_toolbar->itemIdentifiers())
        if (QListWidgetItem *entry = makeEntry(identifier))
            m_inToolbar->addItem(entry);
}

void ToolbarCustomizationPalette::showAvailable()
{
    const QStringList placed = m_toolbar->itemIdentifiers();
    const int row = m_available->currentRow();
    m_available->clear();
    for (const QString &identifier : m_toolbar->allowedItemIdentifiers())
        if (isSpace(identifier) || !placed.contains(identifier))
            if (QListWidgetItem *entry = makeEntry(identifier))
                m_available->addItem(entry);
    m_available->setCurrentRow(qMin(qMax(row, 0), m_available->count() - 1));
}

void ToolbarCustomizationPalette::updateButtons()
{
    const int row = m_inToolbar->currentRow();
    m_add->setEnabled(m_available->currentItem());
    m_remove->setEnabled(row >= 0);
    m_left->setEnabled(row > 0);
    m_right->setEnabled(row >= 0 && row < m_inToolbar->count() - 1);
}

QStringList ToolbarCustomizationPalette::identifiersInList() const
{
    QStringList result;
    for (int row = 0; row < m_inToolbar->count(); ++row)
        result << m_inToolbar->item(row)->data(identifierRole).toString();
    return result;
}

// A drop first inserts an empty row, then fills it, then removes the dragged one.
void ToolbarCustomizationPalette::applyLater()
{
    if (!m_applyIsDue)
        QMetaObject::invokeMethod(this, &ToolbarCustomizationPalette::apply, Qt::QueuedConnection);
    m_applyIsDue = true;
}

void ToolbarCustomizationPalette::apply()
{
    m_applyIsDue = false;
    m_toolbar->setItemIdentifiers(identifiersInList());
    showAvailable();
    updateButtons();
}

void ToolbarCustomizationPalette::addItem()
{
    const QListWidgetItem *chosen = m_available->currentItem();
    if (!chosen)
        return;
    const int current = m_inToolbar->currentRow();
    const int row = current < 0 ? m_inToolbar->count() : current + 1;
    m_inToolbar->insertItem(row, chosen->clone());
    m_inToolbar->setCurrentRow(row);
}

void ToolbarCustomizationPalette::removeItem()
{
    delete m_inToolbar->takeItem(m_inToolbar->currentRow());
}

void ToolbarCustomizationPalette::moveItem(int step)
{
    const int row = m_inToolbar->currentRow();
    if (row < 0 || row + step < 0 || row + step >= m_inToolbar->count())
        return;
    m_inToolbar->insertItem(row + step, m_inToolbar->takeItem(row));
    m_inToolbar->setCurrentRow(row + step);
}

void ToolbarCustomizationPalette::restoreDefaults()
{
    m_toolbar->setItemIdentifiers(m_toolbar->defaultItemIdentifiers());
    showToolbar();
    apply();
}

} // namespace zq
