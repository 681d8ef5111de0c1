#include "workbench/LSMKeywordField.h"

#include "kit/ui/Popover.h"
#include "kit/ui/TintedIcon.h"
#include "platform/Bundle.h"
#include "workbench/LSMKeywordsViewController.h"

#include <QHBoxLayout>
#include <QScopedValueRollback>
#include <QToolButton>

using platform::localized;

namespace {

QVariantList objects(const QStringList &strings)
{
    return {strings.begin(), strings.end()};
}

QStringList strings(const QVariantList &objects)
{
    QStringList result;
    for (const QVariant &object : objects)
        result.append(object.toString());
    return result;
}

/// With those of the second list that it has not, each once, at its end.
QStringList joined(QStringList keywords, const QStringList &more)
{
    QSet<QString> known(keywords.cbegin(), keywords.cend());
    for (const QString &keyword : more) {
        if (!known.contains(keyword))
            keywords.append(*known.insert(keyword));
    }
    return keywords;
}

} // namespace

LSMKeywordField::LSMKeywordField(QWidget *parent)
    : QWidget(parent), m_keywordView(new ZQKeywordView(this)),
      m_popoverButton(new QToolButton(this))
{
    ZQKeywordView::Settings settings;
    settings.allowsMultipleSelection = true;
    settings.drawsFrame = settings.drawsBackground = false;
    settings.labelOffset = {0, 1}; // the application's font sits low
    m_keywordView->setObjectName(QStringLiteral("keywordView"));
    m_keywordView->setAccessibleName(localized("Keywords of the design"));
    m_keywordView->setSettings(settings);
    m_keywordView->setArrayController(&m_keywordsArrayController);
    m_keywordView->setDelegate(this);
    m_popoverButton->setObjectName(QStringLiteral("keywordsPopoverButton"));
    m_popoverButton->setIcon(zq::tintedIcon(QStringLiteral("EditKeywords")));
    m_popoverButton->setAutoRaise(true);
    m_popoverButton->setFocusPolicy(Qt::StrongFocus);
    m_popoverButton->setToolTip(localized("Edit the list of known keywords"));
    m_popoverButton->setAccessibleName(m_popoverButton->toolTip());
    connect(m_popoverButton, &QToolButton::clicked, this,
            &LSMKeywordField::showKeywordsPopoverAction);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_keywordView);
    layout->addWidget(m_popoverButton);
    setFocusPolicy(Qt::StrongFocus);
    setFocusProxy(m_keywordView);
}

void LSMKeywordField::setKnownKeywords(const QStringList &keywords)
{
    m_knownKeywords = keywords;
    reloadData();
}

void LSMKeywordField::setDesignTemplate(LSMDesignTemplate *design)
{
    m_design = design;
    reloadData();
}

void LSMKeywordField::reloadData()
{
    const QScopedValueRollback reloading(m_isReloading, true);
    const QStringList own = m_design ? m_design->keywords() : QStringList();
    const QVariantList arranged = objects(joined(joined({}, own), m_knownKeywords));
    if (arranged != m_keywordsArrayController.arrangedObjects())
        m_keywordsArrayController.setContent(arranged);
    m_keywordsArrayController.setSelectedObjects(objects(own));
}

// What is shown is no choice: the badges' order is not the design's.
void LSMKeywordField::selectionChangedTo(ZQKeywordView *, const QVariantList &selected)
{
    if (m_isReloading || !m_design)
        return;
    const QStringList own = m_design->keywords();
    const QStringList chosen = strings(selected);
    const QSet<QString> isChosen(chosen.cbegin(), chosen.cend());
    QStringList kept = own;
    kept.removeIf([&isChosen](const QString &keyword) { return !isChosen.contains(keyword); });
    const QStringList keywords = joined(kept, chosen);
    if (keywords == own)
        return;
    m_design->setKeywords(keywords);
    Q_EMIT keywordsWereChosen();
}

void LSMKeywordField::showKeywordsPopoverAction()
{
    const QStringList own = m_design ? m_design->keywords() : QStringList();
    auto *list = new LSMKeywordsViewController(joined(m_knownKeywords, own));
    auto *popover = new zq::Popover(list);
    connect(popover, &zq::Popover::didClose, this, [this, list] { popoverDidClose(list); });
    popover->showRelativeTo(m_popoverButton);
}

void LSMKeywordField::popoverDidClose(LSMKeywordsViewController *list)
{
    setKnownKeywords(list->allKeywords());
}
