#include "workbench/LSMDesignCommands.h"

#include "kit/ui/ZQRunAlertPanel.h"
#include "library/LSMDesignKeys.h"
#include "library/LSMDesignTemplateManager.h"
#include "platform/AppleScript.h"
#include "platform/Assert.h"
#include "platform/Bundle.h"
#include "platform/Log.h"
#include "platform/Workspace.h"
#include "workbench/LSMDesignEditorViewController.h"
#include "workbench/LSMOutlineViewController.h"

#include <algorithm>
#include <QApplication>
#include <QFileInfo>

using namespace LSMDesignKeys;
using platform::localized;

namespace {

constexpr char16_t bullet = 8226;

// What speaks against saving a design, in the order in which it is told.
QStringList issuesOf(const LSMDesignTemplate &design, const LSMDesignTemplateManager &manager)
{
    QStringList issues;
    if (design.templateIdentifier().isEmpty())
        issues << localized("The template identifier must not be empty\n");
    if (manager.hasDesignNotEqualToDesign(&design, design.templateName(), name))
        issues << localized("A template with the same name exists\n");
    if (manager.hasDesignNotEqualToDesign(&design, design.templateIdentifier(), identifier))
        issues << localized("A template with the same identifier exists\n");
    return issues;
}

} // namespace

LSMDesignCommands::LSMDesignCommands(LSMDesignTemplateManager *manager,
                                     LSMOutlineViewController *outline,
                                     LSMDesignEditorViewController *editor, QObject *parent)
    : QObject(parent), m_manager(manager), m_outline(outline), m_editor(editor)
{
}

LSMDesignTemplate *LSMDesignCommands::selectedDesign() const
{
    return m_outline->selectedDesign();
}

QString LSMDesignCommands::identifierStringFromTitle(const QString &title)
{
    return platform::format(QStringLiteral("com.myserver.%@"),
                            title.trimmed().replace(u' ', u'-').toLower());
}

void LSMDesignCommands::insertDesign(std::shared_ptr<LSMDesignTemplate> design)
{
    LSMDesignTemplate *inserted = design.get();
    m_manager->addCustomDesign(std::move(design));
    m_outline->selectCustomDesign(inserted);
    m_outline->reloadDesign(inserted);
}

void LSMDesignCommands::createNewDesign()
{
    const LSMDesignTemplate *selected = selectedDesign();
    if (selected &&
        (m_manager->hasDesignNotEqualToDesign(selected, selected->templateName(), name) ||
         m_manager->hasDesignNotEqualToDesign(selected, selected->templateIdentifier(),
                                              identifier)))
        return;
    createNewTemplate();
    if (LSMDesignTemplate *created = selectedDesign())
        created->setTemplateShouldBeSaved(true);
    m_editor->editName();
}

void LSMDesignCommands::createNewTemplate()
{
    const QString title = m_manager->uniquifyDesignTitle(localized("New Design"));
    auto design = LSMDesignTemplate::templateWithTitle(title, {}, customType);
    design->templateDictionary()->setValue(
        identifier, m_manager->uniquifyDesignIdentifier(identifierStringFromTitle(title)));
    insertDesign(std::move(design));
}

void LSMDesignCommands::duplicate()
{
    const LSMDesignTemplate *selected = selectedDesign();
    auto copy = selected ? selected->copy() : nullptr;
    if (!copy) {
        QApplication::beep();
        return;
    }
    copy->setType(customType);
    const QString title = m_manager->uniquifyDesignTitle(copy->templateName());
    const auto dictionary = copy->templateDictionary();
    dictionary->setValue(name, title);
    dictionary->setValue(identifier,
                         m_manager->uniquifyDesignIdentifier(identifierStringFromTitle(title)));
    dictionary->setValue(remoteDirectory, QStringLiteral(""));
    dictionary->setValue(version, QStringLiteral("1.0"));
    copy->setTemplatePath({});
    copy->setTemplateShouldBeSaved(true);
    insertDesign(std::move(copy));
    m_editor->editName();
}

bool LSMDesignCommands::canSaveDesign(LSMDesignTemplate *design)
{
    const QStringList issues = issuesOf(*design, *m_manager);
    if (issues.isEmpty())
        return true;
    QString message = platform::format(
        localized("Are you sure you want to save the Template '%@'? The following issues were "
                  "found:\n\n"),
        design->templateName());
    for (const QString &issue : issues)
        message += platform::format(QStringLiteral("%C %@"), bullet, issue);
    return ZQRunAlertPanel(localized("Template Error"), QStringLiteral("%@"), localized("Save"),
                           localized("Cancel"), {}, message) == ZQAlertFirstButtonReturn;
}

bool LSMDesignCommands::saveDesign(LSMDesignTemplate *design)
{
    PLATFORM_ASSERT(design->isCustomDesignTemplate(), "Must not save builtin designs");
    if (!canSaveDesign(design))
        return true;
    if (design->bodyDiffersOnDisk()) // and the watch has not told of it yet
        m_manager->reloadBodyHtmlForDesignAtPath(design->templatePath());
    platform::Error error;
    if (!m_manager->saveDesignTemplate(design, &error)) {
        platform::log("could not save \"%@\": %@", design->templateName(), error.description);
        Q_EMIT didTell(platform::format(localized("“%@” could not be saved: %@"),
                                        design->templateName(), error.description));
        return false;
    }
    design->setTemplateShouldBeSaved(false);
    Q_EMIT editedStateDidChange(m_manager->hasUnsavedDesigns());
    Q_EMIT didTell(platform::format(localized("“%@” was saved."), design->templateName()));
    return true;
}

void LSMDesignCommands::save()
{
    LSMDesignTemplate *design = selectedDesign();
    if (!design || !design->templateShouldBeSaved())
        return;
    if (!saveDesign(design))
        ZQRunAlertPanel(localized("Saving Failed"),
                        localized("Failed to save the selected design template."), localized("OK"));
    m_outline->reloadDesign(design);
    m_editor->updateFacts();
}

void LSMDesignCommands::saveAll()
{
    const auto designs = m_manager->designTemplateGroupForType(customType)->designTemplates();
    QStringList failed;
    for (const auto &design : designs) {
        if (design->templateShouldBeSaved() && !saveDesign(design.get()))
            failed << design->templateName();
    }
    if (!failed.isEmpty())
        Q_EMIT didTell(platform::format(localized("Could not be saved: %@"),
                                        failed.join(QStringLiteral(", "))));
    m_editor->updateFacts();
    Q_EMIT editedStateDidChange(false);
}

void LSMDesignCommands::revert()
{
    LSMDesignTemplate *design = selectedDesign();
    if (!design || !design->isCustomDesignTemplate() || design->templatePath().isNull()) {
        QApplication::beep();
        return;
    }
    design->revertToSaved();
    m_outline->reloadDesign(design);
    m_editor->reloadData();
}

void LSMDesignCommands::reveal()
{
    const LSMDesignTemplate *design = selectedDesign();
    if (!design || design->templatePath().isNull() ||
        !platform::Workspace::sharedWorkspace().selectFile(
            design->templatePath(), QFileInfo(design->templatePath()).path()))
        QApplication::beep();
}

void LSMDesignCommands::remove()
{
    if (!selectedDesign() || !selectedDesign()->isCustomDesignTemplate()) {
        QApplication::beep();
        return;
    }
    if (ZQRunAlertPanel(localized("Delete Design"),
                        localized("Do you want to delete the selected design?"),
                        localized("Delete"), localized("Cancel")) != ZQAlertFirstButtonReturn)
        return;
    if (LSMDesignTemplate *design = selectedDesign())
        deleteTemplate(design);
}

void LSMDesignCommands::deleteTemplate(LSMDesignTemplate *design)
{
    const auto &designs = m_manager->designTemplateGroupForType(customType)->designTemplates();
    const auto kept = *std::ranges::find(designs, design, &std::shared_ptr<LSMDesignTemplate>::get);
    platform::Error error;
    if (!m_deleted.keep(kept, &error)) {
        ZQRunAlertPanel(localized("Delete Design"),
                        localized("The design was not deleted, because no copy of it could be kept "
                                  "for bringing it back:\n\n%@"),
                        localized("OK"), {}, {}, error.description);
        return;
    }
    const QString path = design->templatePath();
    m_editor->cancelLayoutPreviewsOfDesign(design);
    m_manager->deleteDesignTemplate(design);
    m_outline->reloadData();
    m_editor->reloadData();
    if (path.isNull() || !QFileInfo::exists(path)) {
        Q_EMIT designWasDeleted(design->templateName());
        return;
    }
    m_deleted.takeLast();
    ZQRunAlertPanel(localized("Delete Design"),
                    localized("The design could not be removed from the disk, and comes "
                              "back at the next start:\n\n%@"),
                    localized("OK"), {}, {}, path);
}

QString LSMDesignCommands::titleOfDeleted() const
{
    return m_deleted.titleOfLast();
}

void LSMDesignCommands::undoDelete()
{
    if (auto design = m_deleted.takeLast())
        insertDesign(std::move(design));
    else
        QApplication::beep();
}

void LSMDesignCommands::showInLotbook()
{
    const LSMDesignTemplate *design = selectedDesign();
    if (!design)
        return;
    const QString source = platform::Bundle::mainBundle().stringForResource(
        QStringLiteral("showInLB"), QStringLiteral("applescript"));
    PLATFORM_ASSERT(!source.isNull(), "couldn't find showInLB.applescript");
    const QString identifier = design->templateIdentifier();
    if (ZQRunAlertPanel(localized("Attention"),
                        localized("Please start Lotbook, selected a single template, and then "
                                  "click on 'Continue'."),
                        localized("Continue"), localized("Cancel")) != ZQAlertFirstButtonReturn)
        return;
    const platform::AppleScript script(
        platform::format(source, platform::AppleScript::escaped(identifier)));
    platform::Error error;
    if (script.executeAndReturnError(&error))
        return;
    platform::log("error while trying to show template in Lotbook\nerror:\n%@", error.description);
    QApplication::beep();
}
