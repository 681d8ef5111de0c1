#pragma once

#include "library/checking/LSMHtmlCheck.h"

#include <QSet>
#include <QStringList>

/// The rules of the design format, held against bundles and old single files on disk. Nothing is
/// changed. An Error is what keeps a design, or a part of it, from loading; a Warning what the host
/// or a save will trip over; a Note what is good to know. The HTML is held against its own rules
/// (LSMHtmlCheck.h). Any thread.
class LSMBundleCheck
{
public:
    /// A design (bundle or old file) is checked by itself; any other folder is taken as a template
    /// directory, whose designs are also held against each other. A design counts once.
    void addPath(const QString &givenPath);

    /// Holds all that was added against each other: titles and identifiers that clash. The findings
    /// in order of their paths.
    LSMFindings findings() const;

private:
    struct Design
    {
        QString path;
        QString title;
        QString identifier;
    };

    bool isNew(const QString &path); ///< The first time that it is asked about.
    void addBundle(const QString &path);
    void addOldFile(const QString &path);
    QVariantMap checkInfo(const QString &path); ///< Gives what it says.
    void checkTitle(const QString &path, const QString &title);
    void checkPictures(const QString &path);
    void checkLeftovers(const QString &path);
    void checkDeletions(const QString &folder);
    void checkBody(const QString &file, const LSMHtmlCheck::Context &context);
    void checkText(const QString &file, const LSMHtmlCheck::Context &context);
    void add(const QString &path, LSMFinding::Level level, const QString &text);
    void addClashes(LSMFindings &findings) const;

    QSet<QString> m_paths;
    LSMFindings m_findings;
    std::vector<Design> m_designs;
};
