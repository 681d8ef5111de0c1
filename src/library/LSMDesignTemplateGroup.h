#pragma once

#include "library/LSMDesignTemplate.h"
#include <vector>

/// A named list of designs, always in order of their titles (case ignored). Owned by the manager.
class LSMDesignTemplateGroup : public QObject
{
    Q_OBJECT

public:
    using Designs = std::vector<std::shared_ptr<LSMDesignTemplate>>;

    LSMDesignTemplateGroup(const QString &title, const QString &type, Designs templates);

    QString title() const { return m_title; }
    QString type() const { return m_type; }
    const Designs &designTemplates() const { return m_designs; }

    void addDesign(std::shared_ptr<LSMDesignTemplate> design);
    void removeDesign(const LSMDesignTemplate *design);
    void sortDesigns();

private:
    QString m_title;
    QString m_type;
    Designs m_designs;
};
