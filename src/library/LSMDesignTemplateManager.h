#pragma once

#include "library/LSMDesignTemplateGroup.h"
#include <functional>
#include <map>
#include <QSet>

class CDEvent;
class CDEvents;
class LSMDesignTemplateManagerDelegate;

/// The design library: all designs in two groups, custom first, built-in second; the questions that
/// commands ask of them; saving, deleting and naming. One object, made at launch by AppController,
/// which loads everything before it returns. Queries look at memory, not at the disk, and at both
/// groups.
///
/// The HTML files of custom designs are watched: what another program writes is taken in some 3.5
/// seconds later, if the delegate says so. Main thread.
class LSMDesignTemplateManager : public QObject
{
    Q_OBJECT

public:
    enum class Watching { On, Off };

    explicit LSMDesignTemplateManager(Watching watching = Watching::On);
    ~LSMDesignTemplateManager() override;

    /// Borrowed. Without one the HTML stays as it is, whatever others write.
    void setDelegate(LSMDesignTemplateManagerDelegate *delegate) { m_delegate = delegate; }

    /// The two template directories, as the settings were at start; null when the host is not
    /// installed.
    QString pathForBuiltinTemplates() const { return m_pathForBuiltinTemplates; }
    QString pathForCustomTemplates() const { return m_pathForCustomTemplates; }

    const std::vector<std::unique_ptr<LSMDesignTemplateGroup>> &designTemplateGroups() const
    {
        return m_groups;
    }
    LSMDesignTemplateGroup *designTemplateGroupForType(const QString &type) const;
    const QStringList &keywords() const { return m_keywords; } ///< As they were at start, sorted.
    const QStringList &leftOut() const { return m_leftOut; } ///< At start: the paths with reasons.

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
    /// removed are logged and left. The library has let go of the design when this returns.
    bool deleteDesignTemplate(LSMDesignTemplate *design);

    /// Watches a file that exists and is not watched yet. Removed and written again, it is watched
    /// again if it is back within half a second; else from the next save on.
    void startWatchingFileAtPath(const QString &path);

    /// The same; `changeBlock` gets the folder of the file half a second after each event.
    using ChangeBlock = std::function<void(const QString &folder)>;
    void startWatchingFileAtPath(const QString &path, const ChangeBlock &changeBlock);
    void stopWatchingFileAtPath(const QString &path);
    const std::map<QString, std::unique_ptr<CDEvents>> &eventWatchers() const
    {
        return m_eventWatchers;
    }

    /// Reads the HTML of the design in that folder again, after asking the delegate, which is told
    /// of it. The dirty mark stays. An error is presented, and the HTML stays as it was.
    void reloadBodyHtmlForDesignAtPath(const QString &folder);

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

    static void takeBodyFromDisk(LSMDesignTemplate *design, bool isToBeReloaded);
    void eventOccurred(const CDEvent &event, const ChangeBlock &changeBlock);

    Watching m_watching;
    QString m_pathForBuiltinTemplates;
    QString m_pathForCustomTemplates;
    LSMDesignTemplateManagerDelegate *m_delegate = nullptr;
    std::map<QString, std::unique_ptr<CDEvents>> m_eventWatchers; ///< By the path of the file.
    QSet<LSMDesignTemplate *> m_askedFor; ///< The delegate, which has not answered yet.
    std::vector<std::unique_ptr<LSMDesignTemplateGroup>> m_groups;
    QStringList m_keywords;
    QStringList m_leftOut;
};
