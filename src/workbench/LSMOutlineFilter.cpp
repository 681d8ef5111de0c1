#include "workbench/LSMOutlineFilter.h"

#include "workbench/LSMOutlineModel.h"

#include <algorithm>

void LSMOutlineFilter::setSearchText(const QString &text)
{
    m_words = text.split(u' ', Qt::SkipEmptyParts);
    invalidateFilter();
}

bool LSMOutlineFilter::filterAcceptsRow(int row, const QModelIndex &parent) const
{
    const auto *model = static_cast<const LSMOutlineModel *>(sourceModel());
    const LSMDesignTemplate *design = model->design(model->index(row, 0, parent));
    if (!design || m_words.isEmpty())
        return true;
    const QString text = design->templateName() + u'\n' + design->templateIdentifier() + u'\n' +
                         design->keywords().join(u'\n');
    return std::ranges::all_of(
        m_words, [&text](const QString &word) { return text.contains(word, Qt::CaseInsensitive); });
}
