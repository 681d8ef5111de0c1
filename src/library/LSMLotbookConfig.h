#pragma once

#include <QString>
#include <vector>

/// Which Lotbook is this run of the program working with? No state of its own: the choice lives in
/// the user default `lotbookApplicationIdentifier`. All paths are absolute and need not exist. A
/// change of the setting is meant to take effect at the next start.
class LSMLotbookConfig
{
public:
    struct Version
    {
        QString title;  ///< "Lotbook 9"
        QString bundle; ///< "com.quillbyte.lotbook9"
    };

    /// All known versions, newest first.
    static const std::vector<Version> &lotbookVersions();

    /// Registers the newest version whose container exists, else the oldest known one. A value that
    /// the user has stored outranks it.
    static void registerDefaults();

    static QString lotbookApplicationIdentifier();

    /// "~/Library/Containers/<bundle>/Data"; the environment's `LAYOUTSMITH_CONTAINERS` moves the
    /// folder of containers.
    static QString lotbookContainerFolderForBundleIdentifier(const QString &bundle);
    static bool lotbookContainerFolderExistsForBundleIdentifier(const QString &bundle);

    /// Where that version keeps its preferences.
    static QString lotbookPreferencesPathForBundleIdentifier(const QString &bundle);

    static QString lotbookContainerFolder();
    static QString lotbookApplicationSupportPath();
    static QString lotbookDesignTemplatesPath();
};
