#include "library/LSMDesignTemplateGroup.h"

#include <algorithm>

LSMDesignTemplateGroup::LSMDesignTemplateGroup(const QString &title, const QString &type,
                                               Designs templates)
    : m_title(title), m_type(type), m_designs(std::move(templates))
{
    sortDesigns();
}

void LSMDesignTemplateGroup::addDesign(std::shared_ptr<LSMDesignTemplate> design)
{
    m_designs.push_back(std::move(design));
    sortDesigns();
}

void LSMDesignTemplateGroup::removeDesign(const LSMDesignTemplate *design)
{
    std::erase_if(m_designs, [design](const auto &entry) { return entry.get() == design; });
    sortDesigns();
}

void LSMDesignTemplateGroup::sortDesigns()
{
    using Named = std::pair<QString, std::shared_ptr<LSMDesignTemplate>>;
    std::vector<Named> named;
    named.reserve(m_designs.size());
    for (auto &design : m_designs)
        named.emplace_back(design->templateName(), std::move(design));
    std::ranges::stable_sort(named, [](const Named &a, const Named &b) {
        return a.first.compare(b.first, Qt::CaseInsensitive) < 0;
    });
    std::ranges::transform(named, m_designs.begin(), [](Named &entry) { return entry.second; });
}
