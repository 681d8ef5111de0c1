#pragma once

#include "library/LSMDesignTemplateGroup.h"
#include <functional>

/// The design library: all designs in two groups, custom first, built-in second; the questions that
/// commands ask of them; saving, deleting and naming. One object, made at launch by AppController,
/// which loads everything before it returns. Queries look at memory, not at the disk, and at both
/// groups. Main thread.
class LSMDesignTemplateManager : public QObject
{
    Q_OBJECT

public:
    LSMDesignTemplateManager();

    /// The two template directories; null when the host is not installed.
    QString pathForBuiltinTemplates() const;
    QString pathForCustomTemplates() const;

    const std::vector<std::unique_ptr<LSMDesignTemplateGroup>> &designTemplateGroups() const
    {
        return m_groups;
    }
    LSMDesignTemplateGroup *designTemplateGroupForType(const QString &type) const;
    const QStringList &keywords() const { return m_keywords; } ///< As they were at start, sorted.

    /// Reads the designs directly inside a folder, in no order. What cannot be read is left out,
    /// with a line in the log; a folder that cannot be read is empty.
    static LSMDesignTemplateGroup::Designs loadDesignTemplatesFromDir(const QString &directory,
                                                                      const QString &forType);

    /// The distinct picture addresses (http, https; png, jpg, gif) in order of first appearance.
    static QStringList extractImageUrlsFromString(const QString &text);

    /// Custom designs first, each group in its order. The block sets `stop` to end the walk.
    void enumerateDesignsUsingBlock(
        const std::function<void(LSMDesignTemplate *design, bool &stop)> &block) const;

    /// The first in that order of which `predicate` is true; null if there is none.
    LSMDesignTemplate *
    firstDesign(const std::function<bool(const LSMDesignTemplate &design)> &predicate) const;

    /// Does a design's dictionary hold that string under the key? Exact comparison.
    bool hasDesignWithValue(const QString &value, const QString &forDictionaryKey) const;
    bool hasDesignNotEqualToDesign(const LSMDesignTemplate *design, const QString &withEqualValue,
                                   const QString &forDictionaryKey) const;
    LSMDesignTemplate *templateWithPath(const QString &path) const;
    bool hasUnsavedDesigns() const; ///< Custom designs only.

    void addCustomDesign(std::shared_ptr<LSMDesignTemplate> design);

    /// Writes the design's bundle. On failure each file stands whole, old or new, and `error` says
    /// what went wrong; text or values that have no written form fail before anything is touched.
    /// An old single file is put aside once its bundle can be loaded, and not before. The dirty
    /// mark is left to the caller either way.
    bool saveDesignTemplate(LSMDesignTemplate *design, platform::Error *error = nullptr);

    /// Removes a custom design and its bundle for good; false for others. Files that cannot be
    /// removed are logged and left. The design is gone when this returns.
    bool deleteDesignTemplate(LSMDesignTemplate *design);

    // Names: the value itself, else with the separator and the first free counter from 1.
    QString uniquifyValue(const QString &value, const QString &forDictionaryKey,
                          const QString &withSeparator) const;
    QString uniquifyDesignTitle(const QString &title) const;
    QString uniquifyDesignIdentifier(const QString &identifier) const;

    /// "TITLE 1.designTemplate": the first numbered folder name that is free in the custom folder.
    QString saveNameForDesignName(const QString &name) const;

    /// Is the last component of `folder` in the listing of `path`? Exact comparison.
    static bool designBundleFolder(const QString &folder, const QString &existsAtPath);

    void validateCustomTemplateFolderExists() const;
    static void setFinderLabel(int label, const QString &forFolderAtPath);

private:
    QString settleBundleFolder(LSMDesignTemplate *design, platform::Error *error) const;
    static void finishConversion(LSMDesignTemplate *design, const QString &bundle);
    QString freeFolderName(const QString &title) const;
    void extractKeywordsFromDesignTemplates();

    std::vector<std::unique_ptr<LSMDesignTemplateGroup>> m_groups;
    QStringList m_keywords;
};
